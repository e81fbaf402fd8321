#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "render/gldevice.h"

namespace carapace_test {

/// A device without GL that remembers what it was given.
///
/// Keeps the last frame whole, every upload by its number, and the verbs of the start in their
/// order. Names of programs and glyphs count up from 1, so that each is told apart.
class FakeDevice final : public ZOVEngine::GLDevice {
 public:
  /// The two source texts of a program.
  struct Sources {
    std::string vertex;
    std::string fragment;
  };

  /// A glyph as it was uploaded.
  struct Glyph {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> coverage;
  };

  /// A viewport as it was set last.
  struct Viewport {
    int left = 0;
    int bottom = 0;
    int width = 0;
    int height = 0;
    double aspect = 0.0;
  };

  std::string Start() override;
  void ResetViewport(int width, int height, double aspect) override;
  void SetViewport(int left, int bottom, int width, int height) override;
  void SetSwapInterval(bool vsync) override;
  std::uint32_t CompileProgram(ZOVEngine::Program program, const std::string& vertex_source,
                               const std::string& fragment_source) override;
  void CreateResources(const ZOVEngine::Matrix4x4& projection) override;
  void UploadTexture(std::uint32_t position, const ZOVEngine::Image& image) override;
  void FinishTexture(std::uint32_t position) override { finished.insert(position); }
  std::uint32_t UploadGlyph(int width, int height, const std::uint8_t* coverage) override;
  void Execute(const ZOVEngine::Frame& frame) override;
  void Present() override;
  void Release() override;
  ZOVEngine::DeviceCounters Counters() const override { return counters; }

  std::string start_result;              ///< what Start returns; empty means success
  std::vector<std::string> calls;        ///< verbs in order, without those of the frames
  std::vector<std::string> frame_calls;  ///< verbs from the last Execute on
  ZOVEngine::Frame frame;                ///< of the last Execute
  ZOVEngine::Matrix4x4 projection;
  Viewport viewport;
  std::set<std::uint32_t> finished;  ///< textures
  bool vsync = false;
  std::map<ZOVEngine::Program, Sources> programs;
  std::map<std::uint32_t, ZOVEngine::Image> textures;  ///< by position
  std::map<std::uint32_t, Glyph> glyphs;               ///< by the name that UploadGlyph returned
  ZOVEngine::DeviceCounters counters;
  int executed = 0;
  int presented = 0;
  int released = 0;

 private:
  std::uint32_t m_next_program = 1;
};

}  // namespace carapace_test
