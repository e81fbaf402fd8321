#include "render/gl/glground.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "render/gl/glprogram.h"

namespace ZOVEngine {
namespace {

bool IsSame(const Matrix4x4& a, const Matrix4x4& b) {
  return std::equal(std::begin(a.m), std::end(a.m), std::begin(b.m));
}

bool IsFinite(const ScreenBox& box) {
  return std::isfinite(box.left) && std::isfinite(box.right) && std::isfinite(box.bottom) &&
         std::isfinite(box.top);
}

float Area(const ScreenBox& box) {
  return (box.right - box.left) * (box.top - box.bottom);
}

bool Meet(const ScreenBox& a, const ScreenBox& b) {
  return a.left <= b.right && b.left <= a.right && a.bottom <= b.top && b.bottom <= a.top;
}

ScreenBox Union(const ScreenBox& a, const ScreenBox& b) {
  return {std::min(a.left, b.left), std::max(a.right, b.right), std::min(a.bottom, b.bottom),
          std::max(a.top, b.top)};
}

/// A square around the quad of `at`, however it is turned.
WorldBox BoundsOfTurned(const Placement& at) {
  const float reach = 0.5f * std::hypot(at.scale.x, at.scale.y);
  return {at.translate.x - reach, at.translate.x + reach, at.translate.y - reach,
          at.translate.y + reach};
}

std::size_t GroundSize(const Frame& frame) {
  return std::min<std::size_t>(frame.ground, frame.commands.size());
}

/// The lights that the shaders hold.
std::span<const LightRecord> ShadedLights(const Frame& frame) {
  return {frame.lights.data(), std::min(frame.lights.size(), std::size_t{kMaxLights})};
}

int PixelBelow(float clip, int size) {
  return static_cast<int>(std::floor(0.5f * (clip + 1.0f) * static_cast<float>(size))) - 1;
}

int PixelAbove(float clip, int size) {
  return static_cast<int>(std::ceil(0.5f * (clip + 1.0f) * static_cast<float>(size))) + 1;
}

}  // namespace

bool GroundWatch::Compare(const Frame& frame, const Matrix4x4& projection, float reach) {
  m_changed.clear();
  m_is_everywhere = IsMoved(frame, projection);
  if (!m_is_everywhere) {
    m_screen = ScreenMap(projection, frame.view);
    FindDepths(frame);
    CompareCommands(frame);
    CompareLights(ShadedLights(frame), reach);
  }
  Remember(frame, projection);
  return !m_is_everywhere;
}

bool GroundWatch::IsMoved(const Frame& frame, const Matrix4x4& projection) const {
  return m_commands.empty() || m_commands.size() != GroundSize(frame) ||
         !IsSame(m_view, frame.view) || !(m_view_pos == frame.view_pos) ||
         !IsSame(m_projection, projection);
}

/// The depths of all commands, those of the frame before included.
void GroundWatch::FindDepths(const Frame& frame) {
  m_nearest = m_farthest = m_commands.front().placement.translate.z;
  const auto add = [this](const DrawCommand& command) {
    m_nearest = std::max(m_nearest, command.placement.translate.z);
    m_farthest = std::min(m_farthest, command.placement.translate.z);
  };
  std::for_each(m_commands.begin(), m_commands.end(), add);
  std::for_each_n(frame.commands.begin(), m_commands.size(), add);
}

void GroundWatch::CompareCommands(const Frame& frame) {
  for (std::size_t i = 0; i < m_commands.size(); ++i) {
    const DrawCommand& now = frame.commands[i];
    const DrawCommand& before = m_commands[i];
    if (now == before && now.kind == DrawCommand::Kind::kQuad) continue;
    for (const DrawCommand* command : {&now, &before}) {
      // What other kinds draw lies in lists that are not remembered.
      if (command->kind != DrawCommand::Kind::kQuad) m_is_everywhere = true;
      AddBox(BoundsOfTurned(command->placement));
    }
  }
}

/// The lights that both frames have add up as before, in their order. Every other one counts as
/// changed.
void GroundWatch::CompareLights(std::span<const LightRecord> lights, float reach) {
  auto now = lights.begin();
  for (const LightRecord& before : m_lights) {
    const auto same = std::find(now, lights.end(), before);
    if (same == lights.end()) {
      AddLight(before, reach);
      continue;
    }
    for (; now != same; ++now) AddLight(*now, reach);
    ++now;
  }
  for (; now != lights.end(); ++now) AddLight(*now, reach);
}

void GroundWatch::AddLight(const LightRecord& light, float reach) {
  if (reach <= 0.0f) m_is_everywhere = true;
  const Vector3D& at = light.position;
  AddBox({at.x - reach, at.x + reach, at.y - reach, at.y + reach});
}

bool GroundWatch::FindOnScreen(const WorldBox& box, ScreenBox* out) const {
  ScreenBox near, far;
  if (!m_screen.Find(box, m_nearest, &near) || !m_screen.Find(box, m_farthest, &far)) return false;
  *out = Union(near, far);
  return IsFinite(near) && IsFinite(far);
}

void GroundWatch::AddBox(const WorldBox& box) {
  ScreenBox on_screen;
  if (FindOnScreen(box, &on_screen)) {
    AddOnScreen(on_screen);
  } else {
    m_is_everywhere = true;
  }
}

/// Boxes that meet become one, as do the two that lose least by it when there are too many.
void GroundWatch::AddOnScreen(ScreenBox box) {
  const auto meets = [&box](const ScreenBox& other) { return Meet(box, other); };
  for (auto met = std::find_if(m_changed.begin(), m_changed.end(), meets); met != m_changed.end();
       met = std::find_if(m_changed.begin(), m_changed.end(), meets)) {
    box = Union(box, *met);
    m_changed.erase(met);
  }
  m_changed.push_back(box);
  if (m_changed.size() > kMostBoxes) JoinNearest();
}

void GroundWatch::JoinNearest() {
  std::size_t first = 0, second = 1;
  const auto loss = [this](std::size_t a, std::size_t b) {
    return Area(Union(m_changed[a], m_changed[b])) - Area(m_changed[a]) - Area(m_changed[b]);
  };
  for (std::size_t a = 0; a < m_changed.size(); ++a) {
    for (std::size_t b = a + 1; b < m_changed.size(); ++b) {
      if (loss(a, b) < loss(first, second)) first = a, second = b;
    }
  }
  const ScreenBox joined = Union(m_changed[first], m_changed[second]);
  m_changed.erase(m_changed.begin() + static_cast<std::ptrdiff_t>(second));
  m_changed.erase(m_changed.begin() + static_cast<std::ptrdiff_t>(first));
  AddOnScreen(joined);
}

void GroundWatch::Remember(const Frame& frame, const Matrix4x4& projection) {
  const auto end = frame.commands.begin() + static_cast<std::ptrdiff_t>(GroundSize(frame));
  m_commands.assign(frame.commands.begin(), end);
  const std::span<const LightRecord> lights = ShadedLights(frame);
  m_lights.assign(lights.begin(), lights.end());
  m_view = frame.view;
  m_view_pos = frame.view_pos;
  m_projection = projection;
}

PixelBox TouchedPixels(const ScreenBox& box, int width, int height) {
  const float left = std::clamp(box.left, -1.0f, 1.0f), right = std::clamp(box.right, -1.0f, 1.0f);
  const float bottom = std::clamp(box.bottom, -1.0f, 1.0f), top = std::clamp(box.top, -1.0f, 1.0f);
  if (left == right || bottom == top) return {};
  PixelBox pixels;
  pixels.left = std::max(PixelBelow(left, width), 0);
  pixels.bottom = std::max(PixelBelow(bottom, height), 0);
  pixels.width = std::min(PixelAbove(right, width), width) - pixels.left;
  pixels.height = std::min(PixelAbove(top, height), height) - pixels.bottom;
  return pixels;
}

}  // namespace ZOVEngine
