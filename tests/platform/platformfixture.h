#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/engine.h"
#include "platform/inputsystem.h"
#include "platform/windowsystem.h"
#include "support/fakedevice.h"
#include "support/fakenative.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {

/// Writes every broadcast down as a line of text.
class RecordingSystem : public System {
 public:
  void Update(float) override {}
  void Init() override {}
  void SendMessage(Message* message) override { heard.push_back(Describe(*message)); }

  std::vector<std::string> heard;

 private:
  static std::string Number(float value) { return std::to_string(static_cast<int>(value)); }

  static std::string Point(const Vector3D& p) {
    return "(" + Number(p.x) + ", " + Number(p.y) + ", " + Number(p.z) + ")";
  }

  static std::string Describe(const Message& message) {
    if (const auto* m = dynamic_cast<const KeyDown*>(&message)) {
      return "KeyDown " + std::to_string(m->key);
    }
    if (const auto* m = dynamic_cast<const KeyUp*>(&message)) {
      return "KeyUp " + std::to_string(m->key);
    }
    if (const auto* m = dynamic_cast<const MouseMoving*>(&message)) {
      return "MouseMoving " + Point(m->position);
    }
    if (const auto* m = dynamic_cast<const MouseScroll*>(&message)) {
      return "MouseScroll " + std::to_string(m->direction);
    }
    if (const auto* m = dynamic_cast<const MouseButton*>(&message)) {
      return "MouseButton " + std::to_string(m->button) + " " + std::to_string(m->pressed) + " " +
             Point(m->position);
    }
    if (const auto* m = dynamic_cast<const PlayerDirectionKey*>(&message)) {
      return "PlayerDirectionKey " + std::to_string(m->direction) + " " +
             std::to_string(m->pressed);
    }
    return DescribeRest(message);
  }

  static std::string DescribeRest(const Message& message) {
    if (const auto* m = dynamic_cast<const Mute*>(&message)) {
      return std::string("Mute ") + (m->mute ? "true " : "false ") + std::to_string(m->channel);
    }
    if (const auto* m = dynamic_cast<const GameLoseFocus*>(&message)) {
      return "GameLoseFocus " + std::to_string(m->lost);
    }
    if (const auto* m = dynamic_cast<const DroppedFile*>(&message)) {
      std::string text = "DroppedFile";
      for (const std::string& file : m->files) text += " [" + file + "]";
      return text;
    }
    return "id " + std::to_string(message.id);
  }
};

/// Window and input system on a fake desktop, in a working directory of their own with a settings
/// file. Init is left to the test.
class PlatformTest : public ::testing::Test {
 protected:
  PlatformTest() {
    g_window_state = WindowState();
    g_engine = &engine;
    g_gl_device = &device;
    window = std::make_unique<WindowSystem>();
    input = std::make_unique<InputSystem>();
    engine.systems = {window.get(), input.get(), &recorder};
  }

  ~PlatformTest() override {
    window.reset();
    input.reset();
    g_engine = nullptr;
    g_gl_device = nullptr;
  }

  void SetUp() override { WriteSettings(Settings(1280, 720, false)); }

  void WriteSettings(const std::string& json) const {
    directory.Write("Resources/Archetypes/WinInit.json", json);
  }

  static std::string Settings(int width, int height, bool fullscreen) {
    return std::string(R"({"name": "Beetle", "title": "Carapace", "Activate_Console": false,)") +
           R"("Activate_ImGui": true, "fullscreen": )" + (fullscreen ? "true" : "false") +
           ", \"winwidth\": " + std::to_string(width) +
           ", \"winheight\": " + std::to_string(height) + "}";
  }

  void Start() {
    for (System* system : engine.systems) system->Init();
    native.calls.clear();
    device.calls.clear();
  }

  void StartWith(int width, int height, bool fullscreen) {
    WriteSettings(Settings(width, height, fullscreen));
    Start();
  }

  /// One step of the two systems.
  void Step() {
    window->Update(kStep);
    input->Update(kStep);
  }

  /// The viewport set last, as "width x height, aspect"; empty when none was since Start.
  std::string Viewport() const {
    if (std::find(device.calls.begin(), device.calls.end(), "ResetViewport") ==
        device.calls.end()) {
      return "";
    }
    const carapace_test::FakeDevice::Viewport& v = device.viewport;
    return std::to_string(v.width) + "x" + std::to_string(v.height) + ", " + Number(v.aspect);
  }

  carapace_test::TempDirectory directory;
  Engine engine;
  carapace_test::FakeNative native;
  carapace_test::FakeDevice device;
  RecordingSystem recorder;
  std::unique_ptr<WindowSystem> window;
  std::unique_ptr<InputSystem> input;

 private:
  static std::string Number(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
  }
};

}  // namespace ZOVEngine
