#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "render/gldevice.h"

namespace ZOVEngine {

/// A device in front of another one that draws a frame only if it is not the one that it has drawn
/// last.
///
/// The level of an editor stands still most of the time, and the panels over it do not: a frame
/// that is equal to the last one is shown from a kept picture. Everything else goes to the device
/// behind, which must outlive this one. An upload, another shape of the viewport or a new program
/// makes the next frame a new one.
class StillDevice final : public GLDevice {
 public:
  /// How the picture in the viewport is kept and shown again.
  struct Keeper {
    std::function<void()> keep, show;
  };

  StillDevice(GLDevice* device, Keeper keeper);

  std::string Start() override { return m_device->Start(); }
  void ResetViewport(int width, int height, double aspect) override;
  void SetViewport(int left, int bottom, int width, int height) override;
  void SetSwapInterval(bool vsync) override { m_device->SetSwapInterval(vsync); }
  std::uint32_t CompileProgram(Program program, const std::string& vertex_source,
                               const std::string& fragment_source) override;
  void CreateResources(const Matrix4x4& projection) override;
  void UploadTexture(std::uint32_t position, const Image& image) override;
  std::uint32_t UploadGlyph(int width, int height, const std::uint8_t* coverage) override;
  void Execute(const Frame& frame) override;
  void Present() override { m_device->Present(); }
  void Release() override;
  DeviceCounters Counters() const override { return m_device->Counters(); }

 private:
  GLDevice* m_device;
  Keeper m_keeper;
  Frame m_shown;        ///< the frame that was drawn last
  bool m_kept = false;  ///< its picture is as a new one would be
  int m_width = 0, m_height = 0;
};

}  // namespace ZOVEngine
