#pragma once

#include <string>

#include "platform/native.h"

namespace ZOVEngine {

/// A desktop that is not there: no window, no key, no event, and a monitor of 1920 by 1080.
///
/// Stands in g_native of a program that plays without a user. The window opens at once and counts
/// as minimised, so nothing is drawn into it; the cursor rests at (0, 0), the focus is elsewhere. A
/// message box is its text on standard error. All other verbs do nothing.
class HeadlessNative final : public Native {
 public:
  std::string OpenWindow(const WindowRequest&) override { return ""; }
  std::string CreateContext() override { return ""; }
  void DestroyContext() override {}
  void ShowWindow() override {}
  void SetFullScreen() override {}
  void SetWindowed(int, int) override {}
  void Minimise() override {}
  void AcceptFileDrops() override {}
  void SetCursorVisible(bool) override {}
  bool PumpEvent(NativeEvent*) override { return false; }
  void SetSkippedEventListener(PlatformEventListener) override {}
  void SwapBuffers() override {}
  void SetSwapInterval(int) override {}
  void MessageBox(const std::string& title, const std::string& text) override;
  void OpenConsole() override {}
  NativeSize MonitorSize() const override { return {1920, 1080}; }
  bool IsMinimised() const override { return true; }
  bool HasFocus() const override { return false; }
  bool IsKeyDown(std::uint32_t) const override { return false; }
  NativePoint CursorPosition() const override { return {}; }
  void* WindowHandle() const override { return nullptr; }
  void* ContextHandle() const override { return nullptr; }
};

}  // namespace ZOVEngine
