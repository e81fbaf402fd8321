#include "editor/canvas/snapping.h"

#include <imgui.h>

#include <algorithm>
#include <cmath>

#include "editor/editordata.h"
#include "editor/leveleditor.h"

namespace ZOVEngine {
namespace {

constexpr float kAngleStep = 15.0f;    ///< (unit: degrees)
constexpr float kFactorSteps = 10.0f;  ///< in a factor of 1
constexpr float kLeastFactor = 0.1f;

}  // namespace

Vector3D SnapGrid::Position(const Vector3D& free) const {
  if (!m_on || m_step <= 0.0f) return free;
  return Vector3D(std::round(free.x / m_step) * m_step, std::round(free.y / m_step) * m_step,
                  free.z);
}

float SnapGrid::Angle(float free) const {
  return m_on ? std::round(free / kAngleStep) * kAngleStep : free;
}

float SnapGrid::Factor(float free) const {
  const float factor = m_on ? std::round(free * kFactorSteps) / kFactorSteps : free;
  return std::max(factor, kLeastFactor);
}

SnapGrid PresentGrid(const LevelEditor& editor) {
  if (!editor.snap || ImGui::GetIO().KeyAlt) return SnapGrid();
  return SnapGrid(static_cast<float>(g_editor.m_tile_map.m_tile_size));
}

}  // namespace ZOVEngine
