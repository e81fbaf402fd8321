#include "editor/panels/objectkind.h"

#include <imgui.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace ZOVEngine {
namespace {

struct KindRow {
  ObjectKind kind;
  const char* word;
  std::uint32_t colour;
};

constexpr std::array<KindRow, 8> kKinds = {{
    {ObjectKind::kPlayer, "player", IM_COL32(92, 230, 166, 255)},
    {ObjectKind::kEnemy, "enemy", IM_COL32(255, 122, 122, 255)},
    {ObjectKind::kShot, "shot", IM_COL32(255, 201, 77, 255)},
    {ObjectKind::kHazard, "hazard", IM_COL32(255, 160, 90, 255)},
    {ObjectKind::kInterface, "ui", IM_COL32(125, 180, 255, 255)},
    {ObjectKind::kLight, "light", IM_COL32(255, 240, 150, 255)},
    {ObjectKind::kLevel, "level", IM_COL32(215, 150, 255, 255)},
    {ObjectKind::kOther, "", IM_COL32(242, 245, 255, 255)},
}};

const KindRow& RowOf(ObjectKind kind) {
  return *std::find_if(kKinds.begin(), kKinds.end(),
                       [kind](const KindRow& row) { return row.kind == kind; });
}

bool StartsWith(const std::string& text, std::string_view start) {
  return text.compare(0, start.size(), start) == 0;
}

/// The kind that one component makes of its object.
ObjectKind KindOfComponent(const std::string& component) {
  if (component == "Player") return ObjectKind::kPlayer;
  if (component == "Enemy") return ObjectKind::kEnemy;
  if (component == "GameController" || component == "Camera") return ObjectKind::kLevel;
  if (StartsWith(component, "Projectile")) return ObjectKind::kShot;
  if (StartsWith(component, "Environment") || component == "DeathField") {
    return ObjectKind::kHazard;
  }
  if (component == "UIElement" || component == "Button" || component == "Font") {
    return ObjectKind::kInterface;
  }
  return component == "Light" ? ObjectKind::kLight : ObjectKind::kOther;
}

}  // namespace

ObjectKind KindOfObject(const std::vector<std::string>& components) {
  // A hazard or a unit may shine: what it is otherwise comes first.
  ObjectKind kind = ObjectKind::kOther;
  for (const std::string& component : components) {
    const ObjectKind own = KindOfComponent(component);
    if (own == ObjectKind::kOther) continue;
    if (own != ObjectKind::kLight) return own;
    kind = own;
  }
  return kind;
}

const char* KindWord(ObjectKind kind) {
  return RowOf(kind).word;
}

std::uint32_t KindColour(ObjectKind kind) {
  return RowOf(kind).colour;
}

}  // namespace ZOVEngine
