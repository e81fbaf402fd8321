#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "platform/native.h"

namespace carapace_test {

/// A desktop made of variables: the test scripts events, keys, cursor and focus, and reads back
/// which verbs were called.
///
/// Stands in g_native from its construction to its destruction. Events are handed out one a pump,
/// as they were pushed, without folding.
class FakeNative final : public ZOVEngine::Native {
 public:
  FakeNative();
  ~FakeNative() override;

  /// Adds an event to the end of the queue.
  void Push(ZOVEngine::NativeEvent event) { events.push_back(std::move(event)); }
  void Push(ZOVEngine::NativeEventKind kind, std::uint64_t wparam = 0);
  void PushMouseMove(int x, int y);
  void PushWheel(int turn);
  void PushDrop(std::vector<std::string> files);
  void Press(std::uint32_t virtual_key) { keys_down.insert(virtual_key); }
  void Release(std::uint32_t virtual_key) { keys_down.erase(virtual_key); }
  /// Hands a platform event to who listens for the skipped ones.
  void SkipPlatformEvent(const void* platform_event);

  /// How often `call` stands in the log.
  int CountCalls(const std::string& call) const;

  std::string OpenWindow(const ZOVEngine::WindowRequest& request) override;
  std::string CreateContext() override;
  void DestroyContext() override;
  void ShowWindow() override { Log("ShowWindow"); }
  void SetFullScreen() override { Log("SetFullScreen"); }
  void SetWindowed(int width, int height) override;
  void Minimise() override { Log("Minimise"); }
  void AcceptFileDrops() override { ++file_drops_accepted; }
  void SetCursorVisible(bool visible) override { cursor_visible = visible; }
  bool PumpEvent(ZOVEngine::NativeEvent* event) override;
  void SetSkippedEventListener(ZOVEngine::PlatformEventListener listener) override;
  void SwapBuffers() override { Log("SwapBuffers"); }
  void SetSwapInterval(int interval) override;
  void MessageBox(const std::string& title, const std::string& text) override;
  void OpenConsole() override { Log("OpenConsole"); }
  ZOVEngine::NativeSize MonitorSize() const override { return monitor; }
  bool IsMinimised() const override { return minimised; }
  bool HasFocus() const override { return focus; }
  bool IsKeyDown(std::uint32_t virtual_key) const override {
    return keys_down.count(virtual_key) != 0;
  }
  ZOVEngine::NativePoint CursorPosition() const override { return cursor; }
  void* WindowHandle() const override { return m_window; }
  void* ContextHandle() const override { return m_context; }

  std::deque<ZOVEngine::NativeEvent> events;  ///< not yet pumped
  std::set<std::uint32_t> keys_down;          ///< virtual-key codes; 1 and 2 are the mouse buttons
  ZOVEngine::NativePoint cursor;
  ZOVEngine::NativeSize monitor{1920, 1080};
  bool focus = true;
  bool minimised = false;
  std::string window_error;        ///< what OpenWindow returns
  std::string context_error;       ///< what CreateContext returns
  std::vector<std::string> calls;  ///< "Verb", or "Verb arguments", in order, without the next two
  int file_drops_accepted = 0;     ///< calls of AcceptFileDrops, of which every step makes one
  bool cursor_visible = true;      ///< as last set

 private:
  void Log(const std::string& call) { calls.push_back(call); }

  ZOVEngine::Native* m_previous;
  void* m_window = nullptr;
  void* m_context = nullptr;
  ZOVEngine::PlatformEventListener m_skipped_listener;
};

}  // namespace carapace_test
