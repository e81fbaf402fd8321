#include "editor/panels/fieldrows.h"

#include <imgui.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "editor/leveldocument.h"
#include "editor/panels/assetlist.h"
#include "editor/panels/fieldnotes.h"
#include "editor/panels/textfield.h"

namespace ZOVEngine {
namespace {

using Document = rapidjson::Document;

constexpr float kLabelWidth = 160.0f;  // (unit: pixels)
constexpr int kMostParts = 4;          // of a vector that one line holds
constexpr float kFullSpeed = 1.0f, kFineSpeed = 0.01f;
constexpr std::array<const char*, 6> kSoundLists = {"sounds",     "loop",       "is_3D",
                                                    "start_play", "sound_type", "volume"};

bool IsVector(const Value& value) {
  return value.IsArray() && !value.Empty() && value.Size() <= kMostParts &&
         std::all_of(value.Begin(), value.End(), [](const Value& part) { return part.IsNumber(); });
}

/// A list whose entries are vectors or numbers: its length is free unless it is a range.
bool IsPointList(const std::string& key) {
  return key == "m_waypoints" || key == "m_path" || key == "collider_vertices";
}

float SpeedFor(const NumberBounds& bounds, float value) {
  if (bounds.max > bounds.min) return (bounds.max - bounds.min) / 200.0f;
  return std::abs(value) < 2.0f ? kFineSpeed : kFullSpeed;
}

bool EditNumber(const char* label, const NumberBounds& bounds, Value* value) {
  if (value->IsInt()) {
    int number = value->GetInt();
    const bool changed =
        ImGui::DragInt(label, &number, 0.2f, static_cast<int>(bounds.min),
                       static_cast<int>(bounds.max), "%d", ImGuiSliderFlags_AlwaysClamp);
    if (changed) value->SetInt(number);
    return changed;
  }
  auto number = static_cast<float>(value->GetDouble());
  const bool changed = ImGui::DragFloat(label, &number, SpeedFor(bounds, number), bounds.min,
                                        bounds.max, "%.3g", ImGuiSliderFlags_AlwaysClamp);
  if (changed) value->SetDouble(number);
  return changed;
}

bool EditParts(const NumberBounds& bounds, Value* value) {
  const auto count = static_cast<float>(value->Size());
  const float gap = ImGui::GetStyle().ItemInnerSpacing.x;
  const float width = (ImGui::CalcItemWidth() - gap * (count - 1.0f)) / count;
  bool changed = false;
  for (rapidjson::SizeType i = 0; i < value->Size(); ++i) {
    if (i > 0) ImGui::SameLine(0.0f, gap);
    ImGui::PushID(static_cast<int>(i));
    ImGui::SetNextItemWidth(width);
    changed |= EditNumber("##part", bounds, &(*value)[i]);
    ImGui::PopID();
  }
  return changed;
}

bool EditColour(Value* value) {
  std::array<float, kMostParts> parts{1.0f, 1.0f, 1.0f, 1.0f};
  for (rapidjson::SizeType i = 0; i < value->Size(); ++i) {
    parts.at(i) = static_cast<float>((*value)[i].GetDouble());
  }
  constexpr ImGuiColorEditFlags kFlags =
      ImGuiColorEditFlags_Float | ImGuiColorEditFlags_AlphaPreview;
  const bool changed = value->Size() == kMostParts
                           ? ImGui::ColorEdit4("##colour", parts.data(), kFlags)
                           : ImGui::ColorEdit3("##colour", parts.data(), kFlags);
  if (!changed) return false;
  for (rapidjson::SizeType i = 0; i < value->Size(); ++i) (*value)[i].SetDouble(parts.at(i));
  return true;
}

bool EditText(Document* value) {
  std::string text = value->GetString();
  if (!TextField("##text", &text)) return false;
  value->SetString(text.c_str(), value->GetAllocator());
  return true;
}

bool ChooseText(const std::string& component, const std::string& key, FieldWidget form,
                Document* value) {
  std::string text = value->GetString();
  const bool changed = form == FieldWidget::kTexture
                           ? PickTexture("##texture", &text)
                           : PickName("##choice", &text, FieldChoices(component, key));
  if (changed) value->SetString(text.c_str(), value->GetAllocator());
  return changed;
}

/// A list of vectors, each with a button that takes it out, and one that adds another.
bool EditPoints(Document* value) {
  bool changed = false;
  ImGui::Text("%u points", value->Size());
  for (rapidjson::SizeType i = 0; i < value->Size(); ++i) {
    ImGui::PushID(static_cast<int>(i));
    ImGui::SetNextItemWidth(-30.0f);
    changed |= IsVector((*value)[i]) && EditParts({}, &(*value)[i]);
    ImGui::SameLine();
    const bool removed = ImGui::SmallButton("x");
    HoverText("Take this point out.");
    ImGui::PopID();
    if (!removed) continue;
    value->Erase(value->Begin() + i);
    return true;
  }
  if (!ImGui::SmallButton("Add a point")) return changed;
  auto& allocator = value->GetAllocator();
  Value point(rapidjson::kArrayType);
  if (value->Empty()) {
    point.PushBack(0.0, allocator).PushBack(0.0, allocator).PushBack(1.0, allocator);
  } else {
    point.CopyFrom((*value)[value->Size() - 1], allocator);
  }
  value->PushBack(point, allocator);
  return true;
}

/// The two ends of a range whose ends are vectors.
bool EditRange(const std::string& key, Document* value) {
  bool changed = false;
  ImGui::NewLine();
  for (rapidjson::SizeType i = 0; i < value->Size(); ++i) {
    if (!IsVector((*value)[i])) continue;
    ImGui::PushID(static_cast<int>(i));
    ImGui::SetNextItemWidth(-1.0f);
    changed |= EditParts(BoundsOfField(key), &(*value)[i]);
    ImGui::PopID();
  }
  return changed;
}

/// A pair of numbers that the reader wants in order.
void KeepOrder(const std::string& key, Document* value) {
  if (key != "m_emitter_num_particles" || (*value)[0].GetInt() <= (*value)[1].GetInt()) return;
  (*value)[1].SetInt((*value)[0].GetInt());
}

bool EditArray(const std::string& key, FieldWidget form, Document* value) {
  if (IsPointList(key)) return EditPoints(value);
  if (!IsVector(*value)) return !value->Empty() && EditRange(key, value);
  if (form == FieldWidget::kColour && value->Size() >= 3) return EditColour(value);
  const bool changed = EditParts(BoundsOfField(key), value);
  if (changed) KeepOrder(key, value);
  return changed;
}

bool EditByType(const std::string& component, const std::string& key, FieldWidget form,
                Document* value) {
  if (value->IsBool()) {
    bool on = value->GetBool();
    const bool changed = ImGui::Checkbox("##flag", &on);
    if (changed) value->SetBool(on);
    return changed;
  }
  if (value->IsNumber()) return EditNumber("##number", BoundsOfField(key), value);
  if (value->IsString()) {
    const bool plain = form != FieldWidget::kChoice && form != FieldWidget::kTexture;
    return plain ? EditText(value) : ChooseText(component, key, form, value);
  }
  return value->IsArray() && EditArray(key, form, value);
}

std::string FixedText(const Value& value) {
  if (!value.IsArray()) return ToText(value);
  if (!IsVector(value)) return std::to_string(value.Size()) + " entries";
  std::string text;
  for (const Value& part : value.GetArray()) {
    std::array<char, 32> room{};
    std::snprintf(room.data(), room.size(), "%.4g", part.GetDouble());
    text += (text.empty() ? "" : ", ") + std::string(room.data());
  }
  return text;
}

bool EditSound(Document& fields, rapidjson::SizeType index) {
  bool changed = false;
  for (const char* key : {"loop", "is_3D", "start_play"}) {
    bool on = fields[key][index].GetBool();
    ShowLabel(key, "");
    if (!ImGui::Checkbox((std::string("##") + key).c_str(), &on)) continue;
    fields[key][index].SetBool(on);
    changed = true;
  }
  ShowLabel("sound_type", "BGM is music; SFX starts afresh, all others wait for their end.");
  std::string type = fields["sound_type"][index].GetString();
  ImGui::SetNextItemWidth(-1.0f);
  if (PickName("##type", &type, {"BGM", "SFX", "LOOP"})) {
    fields["sound_type"][index].SetString(type.c_str(), fields.GetAllocator());
    changed = true;
  }
  ShowLabel("volume", FieldNote("", "volume"));
  ImGui::SetNextItemWidth(-1.0f);
  return EditNumber("##volume", BoundsOfField("volume"), &fields["volume"][index]) || changed;
}

void AddSound(Document& fields, const std::string& name, bool music) {
  auto& allocator = fields.GetAllocator();
  fields["sounds"].PushBack(Value(name.c_str(), allocator), allocator);
  fields["loop"].PushBack(music, allocator);
  fields["is_3D"].PushBack(!music, allocator);
  fields["start_play"].PushBack(false, allocator);
  fields["sound_type"].PushBack(Value(music ? "BGM" : "SFX", allocator), allocator);
  fields["volume"].PushBack(0.8, allocator);
}

bool HasSoundLists(const Document& fields) {
  return fields.IsObject() &&
         std::all_of(kSoundLists.begin(), kSoundLists.end(), [&fields](const char* key) {
           return fields.HasMember(key) && fields[key].IsArray() &&
                  fields[key].Size() == fields["sounds"].Size();
         });
}

bool HasSound(const Document& fields, const std::string& name) {
  const Value& sounds = fields["sounds"];
  return std::any_of(sounds.Begin(), sounds.End(),
                     [&name](const Value& sound) { return sound.GetString() == name; });
}

}  // namespace

void ShowLabel(const std::string& label, const std::string& note) {
  ImGui::AlignTextToFramePadding();
  ImGui::TextUnformatted(label.c_str());
  HoverText(note);
  ImGui::SameLine(kLabelWidth);
  ImGui::SetNextItemWidth(-1.0f);
}

bool ShowFieldRow(const std::string& component, const std::string& key, Document* value) {
  const FieldWidget form = FormOfField(component, key);
  ImGui::PushID(key.c_str());
  ShowLabel(key, FieldNote(component, key));
  bool changed = false;
  if (form == FieldWidget::kFixed || value->IsObject()) {
    ImGui::TextDisabled("%s", FixedText(*value).c_str());
  } else {
    changed = EditByType(component, key, form, value);
  }
  ImGui::PopID();
  return changed;
}

bool ShowSoundRows(Document* fields) {
  if (!HasSoundLists(*fields)) return false;
  bool changed = false;
  for (rapidjson::SizeType i = 0; i < (*fields)["sounds"].Size(); ++i) {
    ImGui::PushID(static_cast<int>(i));
    ImGui::TextUnformatted((*fields)["sounds"][i].GetString());
    ImGui::SameLine();
    const bool removed = ImGui::SmallButton("Remove");
    if (removed) {
      for (const char* key : kSoundLists) (*fields)[key].Erase((*fields)[key].Begin() + i);
    } else {
      changed |= EditSound(*fields, i);
    }
    ImGui::PopID();
    if (removed) return true;
  }
  std::string added;
  for (const char* folder : {"SFX", "BGM"}) {
    const bool music = std::string(folder) == "BGM";
    ShowLabel(music ? "Add music" : "Add an effect", "");
    ImGui::SetNextItemWidth(-1.0f);
    if (!PickName(folder, &added, SoundNames(folder)) || HasSound(*fields, added)) continue;
    AddSound(*fields, added, music);
    changed = true;
  }
  return changed;
}

}  // namespace ZOVEngine
