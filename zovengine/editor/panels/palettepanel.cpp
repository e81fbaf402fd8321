#include "editor/panels/palettepanel.h"

#include <imgui.h>

#include <algorithm>
#include <array>

#include "core/base/vector3d.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"
#include "editor/panels/assetlist.h"
#include "editor/panels/flow.h"
#include "editor/panels/textfield.h"

namespace ZOVEngine {
namespace {

constexpr float kTile = 84.0f;       // of an entry (unit: pixels)
constexpr float kThumbnail = 50.0f;  // (unit: pixels)
constexpr float kSearchWidth = 150.0f;
constexpr float kWeaponWidth = 120.0f;
constexpr std::array<const char*, 7> kCategories = {"All",    "Units",  "Weapons", "Hazards",
                                                    "Lights", "Things", "Decor"};

/// True over the level's picture, but not over a panel.
bool IsOverLevel() {
  return MouseInViewport() &&
         !ImGui::IsWindowHovered(ImGuiHoveredFlags_AnyWindow |
                                 ImGuiHoveredFlags_AllowWhenBlockedByActiveItem);
}

/// An invisible window over the level's picture: while something is in hand, its clicks are not the
/// picture's.
bool IsPictureClicked() {
  const Vector3D view = EditorCameraPosition();
  const Vector3D middle = WorldToWindow(view);
  const auto width = static_cast<float>(kPictureWidth), height = static_cast<float>(kPictureHeight);
  constexpr ImGuiWindowFlags kFlags =
      ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoBackground | ImGuiWindowFlags_NoMove |
      ImGuiWindowFlags_NoBringToFrontOnFocus | ImGuiWindowFlags_NoFocusOnAppearing |
      ImGuiWindowFlags_NoSavedSettings;
  ImGui::SetNextWindowPos(ImVec2(middle.x - width / 2.0f, middle.y - height / 2.0f));
  ImGui::SetNextWindowSize(ImVec2(width, height));
  ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2(0.0f, 0.0f));
  ImGui::Begin("##place", nullptr, kFlags);
  ImGui::PopStyleVar();
  const bool clicked = ImGui::InvisibleButton("##level", ImVec2(width, height));
  ImGui::End();
  return clicked;
}

/// The text of a tile, cut to its width.
void ShowName(const std::string& name, ImVec2 at) {
  const ImVec2 size = ImGui::CalcTextSize(name.c_str(), nullptr, false, kTile);
  const float left = at.x + std::max(0.0f, (kTile - size.x) / 2.0f);
  ImGui::GetWindowDrawList()->AddText(ImGui::GetFont(), ImGui::GetFontSize() * 0.85f,
                                      ImVec2(left, at.y), ImGui::GetColorU32(ImGuiCol_Text),
                                      name.c_str(), nullptr, kTile);
}

std::string EntryNote(const PaletteEntry& entry) {
  if (entry.category == "Weapons") {
    return entry.name + ": a click gives it to the selected unit.";
  }
  return entry.name + ": click, then click in the level; or drag it there.";
}

}  // namespace

void InsertEntry(LevelEditor& editor, const PaletteEntry& entry, float x, float y,
                 const PaletteEntry* const (&weapons)[2]) {
  const ObjectPath root = FindLevelRoot(editor.document);
  std::vector<std::string> records;
  for (const std::string& record : entry.records) {
    std::string own = record;
    for (int hand = 0; hand < 2; ++hand) {
      if (weapons[hand] == nullptr) continue;
      const std::string equipped = EquipUnit(own, hand, *weapons[hand]);
      if (!equipped.empty()) own = equipped;
    }
    records.push_back(PlaceRecord(editor.document, root, FaceMiddle(own, x), x, y));
  }
  editor.Do(editor.scene.Insert(root, records, "Insert " + entry.name,
                                PlaceInLevel(editor.document, root, entry.category)));
}

bool GiveWeapon(LevelEditor& editor, const PaletteEntry& weapon, int hand) {
  const ObjectPath path = editor.Primary();
  const Value* unit = editor.document.Find(path);
  const std::string equipped = unit != nullptr ? EquipUnit(ToText(*unit), hand, weapon) : "";
  if (equipped.empty()) {
    editor.log.Fault("Select a player's or an enemy's unit to give it a weapon.");
    return false;
  }
  editor.Do(editor.scene.Replace(path, equipped,
                                 "Give " + weapon.name + " to " + editor.document.Name(path)));
  return true;
}

void PalettePanel::Show(LevelEditor& editor) {
  if (!editor.IsOpen()) {
    m_held.reset();
    ImGui::TextWrapped("Open a level to put something into it.");
    return;
  }
  Load(editor);
  ShowBar();
  ShowHands();
  ImGui::BeginChild("entries");
  ShowEntries(editor);
  ImGui::EndChild();
  if (m_held) ShowInHand(editor);
}

void PalettePanel::Load(LevelEditor& editor) {
  if (m_loaded) return;
  m_loaded = true;
  std::vector<std::string> faults;
  m_entries = LoadPalette(&faults);
  for (const std::string& fault : faults) editor.log.Fault(fault);
}

void PalettePanel::ShowBar() {
  ImGui::SetNextItemWidth(kSearchWidth);
  TextField("##search", &m_search, "Search");
  for (const char* category : kCategories) {
    FlowTo(RadioWidth(category));
    const bool all = category == kCategories.front();
    if (ImGui::RadioButton(category, m_category == (all ? "" : category))) {
      m_category = all ? "" : category;
    }
  }
}

void PalettePanel::ShowHands() {
  std::vector<std::string> names;
  for (const PaletteEntry& entry : m_entries) {
    if (entry.category == "Weapons") names.push_back(entry.name);
  }
  ImGui::AlignTextToFramePadding();
  ImGui::TextUnformatted("A unit comes with");
  for (int hand = 0; hand < 2; ++hand) {
    ImGui::SameLine();
    ImGui::SetNextItemWidth(kWeaponWidth);
    ImGui::PushID(hand);
    PickName("weapon", &m_weapons[hand], names);
    ImGui::PopID();
  }
  constexpr const char* kToHand = "   A weapon goes to hand";
  FlowTo(ImGui::CalcTextSize(kToHand).x + 2.0f * RadioWidth(" 1"));
  ImGui::AlignTextToFramePadding();
  ImGui::TextUnformatted(kToHand);
  for (int hand = 0; hand < 2; ++hand) {
    ImGui::SameLine();
    if (ImGui::RadioButton(hand == 0 ? "1" : "2", m_hand == hand)) m_hand = hand;
  }
}

bool PalettePanel::IsShown(const PaletteEntry& entry) const {
  return (m_category.empty() || entry.category == m_category) &&
         (ContainsIgnoringCase(entry.name, m_search) ||
          ContainsIgnoringCase(entry.category, m_search));
}

const PaletteEntry* PalettePanel::FindWeapon(const std::string& name) const {
  const auto found =
      std::find_if(m_entries.begin(), m_entries.end(), [&name](const PaletteEntry& entry) {
        return entry.category == "Weapons" && entry.name == name;
      });
  return found != m_entries.end() ? &*found : nullptr;
}

void PalettePanel::ShowEntries(LevelEditor& editor) {
  const float right = ImGui::GetWindowPos().x + ImGui::GetWindowContentRegionMax().x;
  bool first = true;
  for (std::size_t i = 0; i < m_entries.size(); ++i) {
    if (!IsShown(m_entries[i])) continue;
    const float gap = ImGui::GetStyle().ItemSpacing.x;
    if (!first && ImGui::GetItemRectMax().x + gap + kTile < right) ImGui::SameLine();
    first = false;
    ShowEntry(editor, i);
  }
  if (first) ImGui::TextDisabled("Nothing is called that.");
}

void PalettePanel::ShowEntry(LevelEditor& editor, std::size_t index) {
  const PaletteEntry& entry = m_entries[index];
  ImGui::PushID(static_cast<int>(index));
  ImGui::BeginGroup();
  const ImVec2 from = ImGui::GetCursorScreenPos(), local = ImGui::GetCursorPos();
  if (ImGui::Selectable("##entry", m_held == index, 0, ImVec2(kTile, kTile))) {
    TakeOrGive(editor, index);
  }
  HoverText(EntryNote(entry));
  const bool outside = ImGui::IsItemActive() && !ImGui::IsItemHovered();
  if (outside && entry.category != "Weapons") {
    m_held = index;
    m_dragging = true;
  }
  ImGui::SetCursorPos(ImVec2(local.x + (kTile - kThumbnail) / 2.0f, local.y + 2.0f));
  ShowTexture(entry.image, kThumbnail, entry.frames);
  ShowName(entry.name, ImVec2(from.x, from.y + kThumbnail + 3.0f));
  ImGui::SetCursorPos(local);
  ImGui::Dummy(ImVec2(kTile, kTile));
  ImGui::EndGroup();
  ImGui::PopID();
}

void PalettePanel::TakeOrGive(LevelEditor& editor, std::size_t index) {
  if (m_entries[index].category == "Weapons") {
    GiveWeapon(editor, m_entries[index], m_hand);
  } else {
    m_held = index;
    m_dragging = false;
  }
}

void PalettePanel::ShowInHand(LevelEditor& editor) {
  ImGui::BeginTooltip();
  ShowTexture(m_entries[*m_held].image, kThumbnail, m_entries[*m_held].frames);
  ImGui::TextUnformatted(m_dragging ? "Let it go in the level."
                                    : "Click in the level; Esc to stop.");
  ImGui::EndTooltip();
  if (m_dragging) {
    if (ImGui::IsMouseDown(ImGuiMouseButton_Left)) return;
    if (IsOverLevel()) PutDown(editor);
    m_held.reset();
    return;
  }
  const bool stop = ImGui::IsKeyPressed(ImGui::GetKeyIndex(ImGuiKey_Escape)) ||
                    ImGui::IsMouseClicked(ImGuiMouseButton_Right);
  if (stop) {
    m_held.reset();
  } else if (IsPictureClicked()) {
    PutDown(editor);
    if (!ImGui::GetIO().KeyShift) m_held.reset();
  }
}

void PalettePanel::PutDown(LevelEditor& editor) {
  const Vector3D place = EditorMouseWorld();
  const PaletteEntry* const weapons[2] = {FindWeapon(m_weapons[0]), FindWeapon(m_weapons[1])};
  InsertEntry(editor, m_entries[*m_held], place.x, place.y, weapons);
}

}  // namespace ZOVEngine
