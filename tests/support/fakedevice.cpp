#include "support/fakedevice.h"

namespace carapace_test {

std::string FakeDevice::Start() {
  calls.push_back("Start");
  return start_result;
}

void FakeDevice::ResetViewport(int width, int height, double aspect) {
  calls.push_back("ResetViewport");
  viewport = {0, 0, width, height, aspect};
}

void FakeDevice::SetViewport(int left, int bottom, int width, int height) {
  calls.push_back("SetViewport");
  viewport = {left, bottom, width, height, viewport.aspect};
}

void FakeDevice::SetSwapInterval(bool vsync_) {
  calls.push_back("SetSwapInterval");
  vsync = vsync_;
}

std::uint32_t FakeDevice::CompileProgram(ZOVEngine::Program program,
                                         const std::string& vertex_source,
                                         const std::string& fragment_source) {
  static const char* const kNames[] = {"default", "font", "instance", "light"};
  calls.push_back(std::string("CompileProgram ") + kNames[static_cast<int>(program)]);
  programs[program] = {vertex_source, fragment_source};
  return m_next_program++;
}

void FakeDevice::CreateResources(const ZOVEngine::Matrix4x4& projection_) {
  calls.push_back("CreateResources");
  projection = projection_;
}

void FakeDevice::UploadTexture(std::uint32_t position, const ZOVEngine::Image& image) {
  calls.push_back("UploadTexture " + std::to_string(position));
  textures[position] = image;
}

std::uint32_t FakeDevice::UploadGlyph(int width, int height, const std::uint8_t* coverage) {
  if (glyphs.empty()) calls.push_back("UploadGlyph");
  const auto name = static_cast<std::uint32_t>(glyphs.size() + 1);
  Glyph& glyph = glyphs[name];
  glyph.width = width;
  glyph.height = height;
  const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  if (size != 0) glyph.coverage.assign(coverage, coverage + size);
  return name;
}

void FakeDevice::Execute(const ZOVEngine::Frame& frame_) {
  frame = frame_;
  frame_calls.assign({"Execute"});
  ++executed;
}

void FakeDevice::Present() {
  frame_calls.push_back("Present");
  ++presented;
}

void FakeDevice::Release() {
  calls.push_back("Release");
  ++released;
}

}  // namespace carapace_test
