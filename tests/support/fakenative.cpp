#include "support/fakenative.h"

#include <algorithm>
#include <iostream>
#include <utility>

namespace carapace_test {

namespace {

std::string SizeText(int width, int height) {
  return std::to_string(width) + "x" + std::to_string(height);
}

}  // namespace

FakeNative::FakeNative() : m_previous(std::exchange(ZOVEngine::g_native, this)) {}

FakeNative::~FakeNative() {
  ZOVEngine::g_native = m_previous;
}

void FakeNative::Push(ZOVEngine::NativeEventKind kind, std::uint64_t wparam) {
  ZOVEngine::NativeEvent event;
  event.kind = kind;
  event.wparam = wparam;
  Push(event);
}

void FakeNative::PushMouseMove(int x, int y) {
  ZOVEngine::NativeEvent event;
  event.kind = ZOVEngine::NativeEventKind::kMouseMove;
  event.x = x;
  event.y = y;
  Push(event);
}

void FakeNative::PushWheel(int turn) {
  ZOVEngine::NativeEvent event;
  event.kind = ZOVEngine::NativeEventKind::kMouseWheel;
  event.wheel = turn;
  Push(event);
}

void FakeNative::PushDrop(std::vector<std::string> files) {
  ZOVEngine::NativeEvent event;
  event.kind = ZOVEngine::NativeEventKind::kDropFiles;
  event.files = std::move(files);
  Push(event);
}

void FakeNative::SkipPlatformEvent(const void* platform_event) {
  if (m_skipped_listener) m_skipped_listener(platform_event);
}

int FakeNative::CountCalls(const std::string& call) const {
  return static_cast<int>(std::count(calls.begin(), calls.end(), call));
}

std::string FakeNative::OpenWindow(const ZOVEngine::WindowRequest& request) {
  Log("OpenWindow " + request.class_name + " " + request.title + " " +
      SizeText(request.client_size.width, request.client_size.height));
  if (window_error.empty()) m_window = this;
  return window_error;
}

std::string FakeNative::CreateContext() {
  Log("CreateContext");
  if (context_error.empty()) m_context = this;
  return context_error;
}

void FakeNative::DestroyContext() {
  Log("DestroyContext");
  m_context = nullptr;
}

void FakeNative::SetWindowed(int width, int height) {
  Log("SetWindowed " + SizeText(width, height));
}

bool FakeNative::PumpEvent(ZOVEngine::NativeEvent* event) {
  if (events.empty()) return false;
  *event = events.front();
  events.pop_front();
  return true;
}

void FakeNative::SetSkippedEventListener(ZOVEngine::PlatformEventListener listener) {
  m_skipped_listener = std::move(listener);
}

void FakeNative::SetSwapInterval(int interval) {
  Log("SetSwapInterval " + std::to_string(interval));
}

void FakeNative::MessageBox(const std::string& title, const std::string& text) {
  std::cerr << title << ": " << text << std::endl;
  Log("MessageBox " + title + ": " + text);
}

}  // namespace carapace_test
