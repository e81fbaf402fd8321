#include "editor/tiles.h"

#include <algorithm>
#include <utility>

#include "editor/editordata.h"
#include "game/levels/levelobjects.h"
#include "game/levels/truncate.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "render/components/render.h"

namespace ZOVEngine {
namespace {

constexpr const char* kFloorPrefix = "Tile_Floor";
constexpr const char* kLoneWall = "Tile_Wall";
constexpr const char* kJoinedWallPrefix = "Wall_";
constexpr std::int32_t kPlateCells = 2;  ///< sides of a plate
/// The light that a plate and a wall give back: walls stand out.
constexpr float kFloorTint = 1.15f;
constexpr float kWallTint = 1.4f;
/// What every tile consists of; place and look come after.
constexpr const char* kTileRecord = R"({"name": "tile", "active": true,
  "components": ["Transform", "Render", "iModel"],
  "Transform": {"m_pos": [0, 0, 1], "m_scale": [1, 1, 1], "m_rotate": 0, "m_world_scale": [1, 1, 1],
                "m_world_rotate": 0, "m_world_pos": [0, 0, 1], "m_rotate_with_parent": true},
  "Render": {"m_tile": true, "m_visible": true, "m_zLayer": 0, "m_tex": "", "m_hl_tex": "",
             "m_colour": [1, 1, 1, 1], "m_shader": "light"},
  "iModel": {"m_vertices": [[0, 0, 0, 0, 0, 255, 255, 255, 255]],
             "m_index_buffer": [0, 1, 3, 1, 2, 3]}, "Childs": []})";

GameObj* MakeTile(const TilePlace& place) {
  static const rapidjson::Document* const kRecord = [] {
    auto* document = new rapidjson::Document;
    document->Parse(kTileRecord);
    return document;
  }();
  GameObj* tile = g_game_obj_factory->ReadObject(*kRecord);
  Transform& transform = *tile->GetComponent<Transform>();
  transform.SetLocalPosition(
      Vector3D(static_cast<float>(place.x), static_cast<float>(place.y), 1.0f));
  const auto size = static_cast<float>(place.size);
  transform.m_local_scale = Vector3D(size, size, 1.0f);
  return tile;
}

void SetLook(GameObj* tile, const TileLook& look) {
  Render& render = *tile->GetComponent<Render>();
  render.m_tex = look.texture;
  render.m_hl_tex = look.highlight;
  render.m_colour = look.colour;
  Transform& transform = *tile->GetComponent<Transform>();
  transform.m_local_rotate = look.rotation;
  transform.DeriveWorld();
}

/// A side of a cell, and the steps to the cell beyond it.
struct Neighbour {
  WallSide side;
  char letter;
  std::int32_t dx, dy;
};

constexpr Neighbour kNeighbours[] = {{kWallNorth, 'N', 0, 1},
                                     {kWallEast, 'E', 1, 0},
                                     {kWallSouth, 'S', 0, -1},
                                     {kWallWest, 'W', -1, 0}};

TilePlace Beside(const TilePlace& place, const Neighbour& neighbour) {
  return {place.x + neighbour.dx * place.size, place.y + neighbour.dy * place.size, place.size};
}

TilePlace PlaceOf(GameObj* tile) {
  const Transform& transform = *tile->GetComponent<Transform>();
  return {Truncate(transform.m_local_pos.x), Truncate(transform.m_local_pos.y),
          Truncate(transform.m_local_scale.x)};
}

class TileCommand final : public EditCommand {
 public:
  TileCommand(TileBook* book, std::string label, std::vector<TileChange> changes)
      : m_book(book), m_label(std::move(label)), m_changes(std::move(changes)) {}
  void Undo() override { Lay(&TileChange::before); }
  void Redo() override { Lay(&TileChange::after); }
  std::string Label() const override { return m_label; }

 private:
  void Lay(TileLook TileChange::*side) {
    for (const TileChange& change : m_changes) m_book->Lay(change.place, change.*side);
  }

  TileBook* m_book;
  std::string m_label;
  std::vector<TileChange> m_changes;
};

}  // namespace

bool IsFloorTexture(const std::string& texture) {
  return texture.rfind(kFloorPrefix, 0) == 0;
}

TileLook NewTile(const std::string& texture) {
  const float tint = IsFloorTexture(texture) ? kFloorTint : kWallTint;
  return {texture, texture, {tint, tint, tint, 1.0f}, 0.0f};
}

std::string WallTexture(unsigned sides) {
  if (sides == 0) return kLoneWall;
  std::string texture = kJoinedWallPrefix;
  for (const Neighbour& neighbour : kNeighbours) {
    if ((sides & neighbour.side) != 0) texture += neighbour.letter;
  }
  return texture;
}

bool IsWallTexture(const std::string& texture) {
  return texture == kLoneWall || texture.rfind(kJoinedWallPrefix, 0) == 0;
}

TilePlaces::TilePlaces(const TileMapInfo& map, bool plates)
    : m_columns(map.m_width), m_rows(map.m_height), m_size(map.m_tile_size) {
  // As the level's start finds the cells: in whole numbers.
  m_x = m_size / 2 - m_size * m_columns / 2;
  m_y = m_size / 2 + m_size * m_rows / 2 - m_size;
  if (!plates) return;
  m_x += m_size + m_size / 2;
  m_y -= m_size + m_size / 2;
  m_columns = std::max(m_columns - 1, 0) / kPlateCells;
  m_rows = std::max(m_rows - 1, 0) / kPlateCells;
  m_size *= kPlateCells;
}

TilePlace TilePlaces::At(std::int32_t column, std::int32_t row) const {
  return {m_x + column * m_size, m_y - row * m_size, m_size};
}

std::optional<TilePlaces::Cell> TilePlaces::CellAt(const Vector3D& world) const {
  if (m_size <= 0) return std::nullopt;
  const auto size = static_cast<float>(m_size);
  const float column = (world.x - static_cast<float>(m_x)) / size + 0.5f;
  const float row = (static_cast<float>(m_y) - world.y) / size + 0.5f;
  if (column < 0.0f || row < 0.0f) return std::nullopt;
  const Cell cell{static_cast<std::int32_t>(column), static_cast<std::int32_t>(row)};
  if (cell.column >= m_columns || cell.row >= m_rows) return std::nullopt;
  return cell;
}

std::size_t TilePlaceHash::operator()(const TilePlace& place) const {
  return PointKey(place.x, place.y) * 31 + static_cast<std::size_t>(place.size);
}

void TileBook::Refresh() {
  if (m_clear_count == g_game_obj_factory->ClearCount()) return;
  m_clear_count = g_game_obj_factory->ClearCount();
  m_tiles.clear();
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (IsTile(object) && object->HasComponent<Transform>()) {
      m_tiles.emplace(PlaceOf(object), object);
    }
  }
}

GameObj* TileBook::Find(const TilePlace& place) {
  Refresh();
  const auto found = m_tiles.find(place);
  return found != m_tiles.end() ? found->second : nullptr;
}

TileLook TileBook::Look(const TilePlace& place) {
  GameObj* tile = Find(place);
  if (tile == nullptr || !tile->active) return {};
  const Render& render = *tile->GetComponent<Render>();
  return {render.m_tex, render.m_hl_tex, render.m_colour,
          tile->GetComponent<Transform>()->m_local_rotate};
}

void TileBook::Lay(const TilePlace& place, const TileLook& look) {
  GameObj* tile = Find(place);
  const bool there = !look.texture.empty();
  if (tile == nullptr) {
    if (!there) return;
    tile = MakeTile(place);
    m_tiles.emplace(place, tile);
  }
  if (there) SetLook(tile, look);
  if (tile->active != there) tile->SetActive(there);
}

std::size_t TileBook::Count() {
  Refresh();
  return static_cast<std::size_t>(std::count_if(
      m_tiles.begin(), m_tiles.end(), [](const auto& entry) { return entry.second->active; }));
}

void TileStroke::Paint(const TilePlace& place, const TileLook& look) {
  Change(place, look);
  JoinWall(place);
  for (const Neighbour& neighbour : kNeighbours) JoinWall(Beside(place, neighbour));
}

void TileStroke::Change(const TilePlace& place, const TileLook& look) {
  const TileLook before = m_book->Look(place);
  if (before == look) return;
  m_book->Lay(place, look);
  const auto [entry, fresh] = m_index.emplace(place, m_changes.size());
  if (fresh) {
    m_changes.push_back({place, before, look});
  } else {
    m_changes[entry->second].after = look;
  }
}

bool TileStroke::IsWall(const TilePlace& place) const {
  return IsWallTexture(m_book->Look(place).texture);
}

/// Gives a wall the texture that fits its neighbours; leaves any other tile as it is.
void TileStroke::JoinWall(const TilePlace& place) {
  if (!IsWall(place)) return;
  unsigned sides = 0;
  for (const Neighbour& neighbour : kNeighbours) {
    if (IsWall(Beside(place, neighbour))) sides |= neighbour.side;
  }
  TileLook look = m_book->Look(place);
  look.texture = look.highlight = WallTexture(sides);
  Change(place, look);
}

bool TileStroke::HasChanged(const TilePlace& place) const {
  return m_index.count(place) != 0;
}

std::unique_ptr<EditCommand> TileStroke::End(const std::string& label) {
  m_index.clear();
  std::vector<TileChange> changes = std::exchange(m_changes, {});
  std::erase_if(changes, [](const TileChange& change) { return change.before == change.after; });
  if (changes.empty()) return nullptr;
  return std::make_unique<TileCommand>(m_book, label, std::move(changes));
}

}  // namespace ZOVEngine
