#include "editor/shell/stilldevice.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <tuple>
#include <utility>
#include <vector>

namespace ZOVEngine {
namespace {

/// Of records that consist of numbers without gaps.
template <class T>
bool AreSame(const std::vector<T>& a, const std::vector<T>& b) {
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

auto Fields(const DrawCommand& command) {
  const TextureWindow& window = command.window;
  const Placement& at = command.placement;
  return std::make_tuple(command.kind, command.program, command.texture, command.first,
                         command.count, command.base_vertex, window.u_left, window.u_right,
                         window.v_top, window.v_bottom, at.translate, at.rotate_radians, at.scale);
}

bool IsSameDraw(const DrawCommand& a, const DrawCommand& b) {
  return Fields(a) == Fields(b) &&
         std::equal(std::begin(a.colour), std::end(a.colour), std::begin(b.colour));
}

bool IsSameFrame(const Frame& a, const Frame& b) {
  return std::equal(std::begin(a.view.m), std::end(a.view.m), std::begin(b.view.m)) &&
         a.view_pos == b.view_pos && AreSame(a.lights, b.lights) &&
         AreSame(a.vertices, b.vertices) && AreSame(a.indices, b.indices) &&
         AreSame(a.glyphs, b.glyphs) && AreSame(a.instances, b.instances) &&
         std::equal(a.commands.begin(), a.commands.end(), b.commands.begin(), b.commands.end(),
                    IsSameDraw);
}

}  // namespace

StillDevice::StillDevice(GLDevice* device, Keeper keeper)
    : m_device(device), m_keeper(std::move(keeper)) {}

void StillDevice::ResetViewport(int width, int height, double aspect) {
  m_kept = false;
  m_width = m_height = 0;
  m_device->ResetViewport(width, height, aspect);
}

void StillDevice::SetViewport(int left, int bottom, int width, int height) {
  m_kept = m_kept && width == m_width && height == m_height;
  m_new = m_new || left != m_left || bottom != m_bottom;
  m_left = left;
  m_bottom = bottom;
  m_width = width;
  m_height = height;
  m_device->SetViewport(left, bottom, width, height);
}

std::uint32_t StillDevice::CompileProgram(Program program, const std::string& vertex_source,
                                          const std::string& fragment_source) {
  m_kept = false;
  return m_device->CompileProgram(program, vertex_source, fragment_source);
}

void StillDevice::CreateResources(const Matrix4x4& projection) {
  m_kept = false;
  m_device->CreateResources(projection);
}

void StillDevice::UploadTexture(std::uint32_t position, const Image& image) {
  m_kept = m_kept && !Uses(position);
  m_new = true;
  m_device->UploadTexture(position, image);
}

std::uint32_t StillDevice::UploadGlyph(int width, int height, const std::uint8_t* coverage) {
  m_kept = false;
  return m_device->UploadGlyph(width, height, coverage);
}

void StillDevice::Execute(const Frame& frame) {
  if (m_kept && IsSameFrame(frame, m_shown)) return;
  m_device->Execute(frame);
  m_keeper.keep();
  m_shown = frame;
  m_kept = m_new = true;
}

void StillDevice::Show() {
  m_keeper.show();
  m_new = false;
}

/// True if a draw of the last frame shows this texture.
bool StillDevice::Uses(std::uint32_t texture) const {
  return std::any_of(m_shown.commands.begin(), m_shown.commands.end(),
                     [texture](const DrawCommand& command) { return command.texture == texture; });
}

void StillDevice::Release() {
  m_kept = false;
  m_device->Release();
}

}  // namespace ZOVEngine
