#include "leveleditorcomponentedit.h"

#include <imgui.h>
#include <imgui_internal.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include "core/base/vector3d.h"
#include "zovassert.h"

namespace ZOVEngine {
namespace {

constexpr int kColumns = 2;
constexpr int kVectorColumns = 4;
constexpr std::size_t kTextRoom = 5000;  ///< characters of a text field
constexpr double kLowest = -10000.0;     ///< of a slider without a "min"
constexpr double kHighest = 10000.0;     ///< of a slider without a "max"

std::string NameOf(const rttr::property& property) {
  return property.get_metadata("name").get_value<std::string>();
}

std::string WidgetLabel(const rttr::property& property) {
  return "##" + NameOf(property) + "Edit";
}

double Bound(const rttr::property& property, const char* key, double without) {
  const rttr::variant bound = property.get_metadata(std::string(key));
  return bound.is_valid() ? bound.to_double() : without;
}

/// Opens the row's columns, unless columns of this count are open, and writes the label.
void BeginRow(const rttr::property& property, int count) {
  constexpr ImGuiOldColumnFlags kFlags = 1;
  const ImGuiOldColumns* open = ImGui::GetCurrentWindow()->DC.CurrentColumns;
  if (open == nullptr || open->Count != count || open->Flags != kFlags) {
    if (open != nullptr) ImGui::EndColumns();
    ImGui::BeginColumns((NameOf(property) + "Column").c_str(), count, kFlags);
  }
  ImGui::Text("%s", NameOf(property).c_str());
  ImGui::NextColumn();
}

template <class T>
void EndRow(const rttr::property& property, const rttr::instance& instance, const T& value) {
  property.set_value(instance, value);
  ImGui::EndColumns();
}

/// A row with an integer slider: every whole number passes through 32 bits.
template <class T>
void EditWhole(const rttr::property& property, const rttr::variant& value,
               const rttr::instance& instance) {
  BeginRow(property, kColumns);
  auto number = static_cast<std::int32_t>(value.get_value<T>());
  const auto low = static_cast<std::int32_t>(Bound(property, "min", kLowest));
  const auto high = static_cast<std::int32_t>(Bound(property, "max", kHighest));
  ImGui::SliderScalar(WidgetLabel(property).c_str(), ImGuiDataType_S32, &number, &low, &high, "%d",
                      1.0f);
  EndRow(property, instance, static_cast<T>(number));
}

}  // namespace

std::map<std::string, PropertyEditor> g_display_modes = {{"default", DisplayProperty}};

std::map<std::string, PropertyEditor> g_property_editors = {
    {"float", EditFloat},   {"unsigned", EditUnsigned},  {"int", EditInt},
    {"short", EditShort},   {"size_t", EditSize},        {"bool", EditBool},
    {"string", EditString}, {"std::string", EditString}, {"Vector3", EditVector3},
    {"double", EditNone},   {"Matrix4x4", EditNone},
};

void DisplayProperty(rttr::property property, const rttr::variant& value,
                     const rttr::instance& instance) {
  g_property_editors[property.get_metadata("typeinfo").get_value<std::string>()](property, value,
                                                                                 instance);
}

void EditFloat(rttr::property property, const rttr::variant& value,
               const rttr::instance& instance) {
  BeginRow(property, kColumns);
  auto number = value.get_value<float>();
  const auto low = static_cast<float>(Bound(property, "min", kLowest));
  const auto high = static_cast<float>(Bound(property, "max", kHighest));
  ImGui::SliderScalar(WidgetLabel(property).c_str(), ImGuiDataType_Float, &number, &low, &high,
                      "%.3f", 1.0f);
  EndRow(property, instance, number);
}

void EditUnsigned(rttr::property property, const rttr::variant& value,
                  const rttr::instance& instance) {
  EditWhole<std::uint32_t>(property, value, instance);
}

void EditInt(rttr::property property, const rttr::variant& value, const rttr::instance& instance) {
  EditWhole<std::int32_t>(property, value, instance);
}

void EditShort(rttr::property property, const rttr::variant& value,
               const rttr::instance& instance) {
  EditWhole<std::int16_t>(property, value, instance);
}

void EditSize(rttr::property property, const rttr::variant& value, const rttr::instance& instance) {
  EditWhole<std::size_t>(property, value, instance);
}

void EditBool(rttr::property property, const rttr::variant& value, const rttr::instance& instance) {
  BeginRow(property, kColumns);
  auto on = value.get_value<bool>();
  ImGui::Checkbox(WidgetLabel(property).c_str(), &on);
  ImGui::NextColumn();
  EndRow(property, instance, on);
}

void EditString(rttr::property property, const rttr::variant& value,
                const rttr::instance& instance) {
  BeginRow(property, kColumns);
  auto text = value.get_value<std::string>();
  // The field writes into the string, and a longer text keeps its length.
  text.resize(std::max(kTextRoom, text.size() + 1));
  ImGui::InputText(WidgetLabel(property).c_str(), text.data(), text.size());
  text.resize(std::strlen(text.c_str()));
  EndRow(property, instance, text);
}

void EditVector3(rttr::property property, const rttr::variant& value,
                 const rttr::instance& instance) {
  BeginRow(property, kVectorColumns);
  auto vector = value.get_value<Vector3D>();
  const std::array<std::pair<const char*, float*>, 3> axes = {
      {{"X", &vector.x}, {"Y", &vector.y}, {"Z", &vector.z}}};
  for (const auto& [letter, axis] : axes) {
    if (axis != &vector.x) ImGui::NextColumn();
    ImGui::Text("%s", letter);
    ImGui::SameLine(0.0f, -1.0f);
    ImGui::InputFloat((WidgetLabel(property) + letter).c_str(), axis, 0.0f, 0.0f, "%.1f");
  }
  EndRow(property, instance, vector);
}

void EditNone(rttr::property, const rttr::variant&, const rttr::instance&) {
  constexpr std::uint32_t kReportedLine = 140;  // deliberately fixed
  ZOVAssert("leveleditorcomponentedit.cpp", kReportedLine, "Something Wrong");
}

}  // namespace ZOVEngine
