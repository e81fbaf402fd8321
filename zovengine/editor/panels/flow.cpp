#include "editor/panels/flow.h"

#include <imgui.h>

namespace ZOVEngine {

void FlowTo(float width) {
  const float right = ImGui::GetWindowPos().x + ImGui::GetWindowContentRegionMax().x;
  const float end = ImGui::GetItemRectMax().x + ImGui::GetStyle().ItemSpacing.x + width;
  if (end <= right) ImGui::SameLine();
}

float RadioWidth(const char* label) {
  return ImGui::GetFrameHeight() + ImGui::GetStyle().ItemInnerSpacing.x +
         ImGui::CalcTextSize(label, nullptr, true).x;
}

float ButtonWidth(const char* label) {
  return ImGui::CalcTextSize(label, nullptr, true).x + 2.0f * ImGui::GetStyle().FramePadding.x;
}

}  // namespace ZOVEngine
