#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "render/gldevice.h"

namespace ZOVEngine {

/// A device in front of another one that draws a frame only if it is not the one that it has drawn
/// last.
///
/// The level of an editor stands still most of the time, and the panels over it do not. So each new
/// frame is kept as an image, which Show puts into the window; a frame that is equal to the last
/// one is not drawn. Everything else goes to the device behind, which must outlive this one. An
/// image that the frame uses, another shape of the viewport or a new program makes the next frame a
/// new one.
class StillDevice final : public GLDevice {
 public:
  /// How the image in the viewport is kept, and put into the window.
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
  void FinishTexture(std::uint32_t position) override { m_device->FinishTexture(position); }
  std::uint32_t UploadGlyph(int width, int height, const std::uint8_t* coverage) override;
  /// Draws and keeps the frame, or does nothing if it is the last one.
  void Execute(const Frame& frame) override;
  /// True if Show can put the last frame into the window: nothing has outdated it since.
  bool IsReady() const { return m_kept; }
  /// Puts the last frame into the window. Only while it is ready.
  void Show();
  /// True if the window may look otherwise after a Show, or after panels have shown an image of the
  /// game again: since the last one there was a new frame, another place for it or an upload.
  bool IsNew() const { return m_new; }
  void Present() override { m_device->Present(); }
  void Release() override;
  DeviceCounters Counters() const override { return m_device->Counters(); }

 private:
  bool Uses(std::uint32_t texture) const;

  GLDevice* m_device;
  Keeper m_keeper;
  Frame m_shown;        ///< the frame that was drawn last
  bool m_kept = false;  ///< its image is as a new one would be
  bool m_new = true;
  int m_left = 0, m_bottom = 0, m_width = 0, m_height = 0;
};

}  // namespace ZOVEngine
