#include "support/randomboard.h"

#include "objects/rapidjsonconfig.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include "game/levels/levelsave.h"

namespace carapace_test {

namespace {

using Json = rapidjson::Value;
using Document = rapidjson::Document;
using Allocator = Document::AllocatorType;

constexpr const char* kLevels[] = {"Level00", "Level01", "Level02", "Level03", "Level04"};
constexpr const char* kWeaponNames[] = {"Weapon0Projectile", "Weapon1Projectile"};
constexpr float kShortestLeg = 180.0f;  ///< between two waypoints (unit: world units)
/// Seconds of pushing in a turn: none, one push, two and three.
constexpr float kMoveLimits[] = {0.0f, 0.001f, 0.03f, 0.045f};

struct Point {
  float x, y;
};

/// How far the pushes of a turn carry an enemy, the arrival at both ends included: it counts as at
/// a waypoint from the arrival distance on and sets off from there. Each waypoint that it reaches
/// gives it all pushes anew, so a patrol needs a leg that is longer, or its turn has no end.
float ReachOfTurn(const Json& piece) {
  const Json& enemy = piece["Enemy"];
  const Json& body = piece["RigidBody"];
  const float pushes = std::ceil(enemy["m_move_limit"].GetFloat() * 60.0f);
  const float resistance = body["m_mass"].GetFloat() * body["m_drag"].GetFloat();
  return pushes * enemy["m_move_speed"].GetFloat() * 100.0f / resistance +
         2.0f * enemy["m_snap_range"].GetFloat();
}

float Distance(const Point& a, const Point& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

/// The records of the shipped levels by what they are.
struct Pieces {
  explicit Pieces(Allocator* allocator) : json(*allocator) {
    for (const char* level : kLevels) Collect(level);
  }

  void Collect(const std::string& level) {
    Document document;
    document.Parse(ShippedFile(ZOVEngine::LevelPaths(level).objects));
    for (const Json& object : document["GameObjFactory"].GetArray()) {
      if (object.HasMember("RigidBody")) Add(object, &bodies);
      for (const Json& child : object["Childs"].GetArray()) Sort(child);
    }
  }

  void Sort(const Json& object) {
    if (object.HasMember("Camera")) return;
    if (object.HasMember("Player")) {
      Add(object, &players);
    } else if (object.HasMember("Enemy")) {
      Add(object, object["Enemy"]["m_boss"].GetBool() ? &bosses : &enemies);
    } else if (object.HasMember("ColliderHolder")) {
      Add(object, object.HasMember("RigidBody") ? &bodies : &hazards);
    }
    for (const Json& child : object["Childs"].GetArray()) {
      for (const char* name : kWeaponNames) {
        if (child["name"] == name) Add(child, &weapons);
      }
    }
  }

  void Add(const Json& object, std::vector<Json>* list) { list->emplace_back(object, json); }

  Allocator& json;
  std::vector<Json> players, enemies, bosses, hazards, bodies, weapons;
};

/// Draws the pieces of one board and finds places for them.
class Maker {
 public:
  Maker(std::uint32_t seed, const std::string& level, Allocator* allocator)
      : m_random(seed), m_json(*allocator), m_pieces(allocator) {
    FindFreeCells(level);
  }

  /// Puts the pieces into `objects`, the records of a shipped level.
  void Fill(Json* objects) {
    Json root = TakeWith("GameController", objects);
    Json camera = TakeWith("Camera", &root["Childs"]);
    Json children(rapidjson::kArrayType);
    Place(m_pieces.hazards, Between(0, 6), 0, &children);
    Place(m_pieces.players, Between(1, 4), 1, &children);
    if (Between(0, 1) == 0) Place(m_pieces.bosses, Between(1, 2), 3, &children);
    Place(m_pieces.enemies, Between(1, 3), 1, &children);
    children.PushBack(camera, m_json);
    root["Childs"] = children;
    objects->Clear();
    objects->PushBack(root, m_json);
    Place(m_pieces.bodies, Between(0, 6), 1, objects);
  }

 private:
  int Between(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(m_random);
  }

  template <class List>
  auto& OneOf(List& list) {
    return list[static_cast<std::size_t>(Between(0, static_cast<int>(std::size(list)) - 1))];
  }

  void FindFreeCells(const std::string& level) {
    Document map;
    map.Parse(ShippedFile(ZOVEngine::LevelPaths(level).tile_map));
    const std::set<std::pair<float, float>> tiles = FindTiles(level);
    const int size = map["TileSize"].GetInt();
    const int width = map["Width"].GetInt();
    const int height = map["Height"].GetInt();
    for (int row = 0; row < height; ++row) {
      for (int column = 0; column < width; ++column) {
        const Point centre = {static_cast<float>(size / 2 - size * width / 2 + column * size),
                              static_cast<float>(size / 2 + size * height / 2 - (row + 1) * size)};
        (tiles.contains({centre.x, centre.y}) ? m_walls : m_free).push_back(centre);
      }
    }
  }

  /// The middles of all tiles. Those of walls lie in the middles of cells, those of the floor
  /// between.
  static std::set<std::pair<float, float>> FindTiles(const std::string& level) {
    Document file;
    file.Parse(ShippedFile(ZOVEngine::LevelPaths(level).tiles));
    std::set<std::pair<float, float>> tiles;
    for (const Json& tile : file["GameObjFactory"].GetArray()) {
      const Json& place = tile["Transform"]["m_world_pos"];
      tiles.emplace(place[0].GetFloat(), place[1].GetFloat());
    }
    return tiles;
  }

  /// Moves the first record with this component out of its list.
  static Json TakeWith(const char* component, Json* records) {
    for (Json& record : records->GetArray()) {
      if (record.HasMember(component)) return Json(std::move(record));
    }
    throw std::runtime_error(std::string("the level has no ") + component);
  }

  /// Copies `count` random pieces to places that are `reach` cells from walls and from each other.
  void Place(std::vector<Json>& pieces, int count, int reach, Json* list) {
    for (int i = 0; i < count; ++i) {
      Json piece(OneOf(pieces), m_json);
      const Point place = FindPlace(static_cast<float>(reach) * 50.0f);
      SetPoint(place, &piece["Transform"]["m_pos"]);
      SetPoint(place, &piece["Transform"]["m_world_pos"]);
      for (const char* kind : {"Player", "Enemy"}) {
        if (piece.HasMember(kind)) Equip(&piece, &piece[kind]);
      }
      if (piece.HasMember("AIComp")) DrawPatrol(&piece);
      list->PushBack(piece, m_json);
    }
  }

  Point FindPlace(float reach) {
    const auto is_near = [reach](const Point& place, const std::vector<Point>& others) {
      for (const Point& other : others) {
        if (Distance(place, other) < reach + 30.0f) return true;
      }
      return false;
    };
    Point place = OneOf(m_free);
    for (int i = 0; i < 200 && (is_near(place, m_walls) || is_near(place, m_taken)); ++i) {
      place = OneOf(m_free);
    }
    if (reach > 0.0f) m_taken.push_back(place);
    return place;
  }

  void SetPoint(const Point& place, Json* vector) {
    (*vector)[0].SetFloat(place.x);
    (*vector)[1].SetFloat(place.y);
  }

  void Equip(Json* unit, Json* fields) {
    const int health = Between(1, 10);
    (*fields)["m_health"].SetInt(health);
    (*fields)["m_max_health"].SetInt(std::max(health, Between(1, 12)));
    (*fields)["m_selected_first_weapon"].SetBool(Between(0, 1) == 0);
    for (Json& child : (*unit)["Childs"].GetArray()) {
      for (const char* name : kWeaponNames) {
        if (child["name"] != name) continue;
        child.CopyFrom(OneOf(m_pieces.weapons), m_json);
        child["name"].SetString(std::string(name), m_json);
      }
    }
  }

  void DrawPatrol(Json* piece) {
    Json& enemy = (*piece)["Enemy"];
    enemy["m_move_limit"].SetFloat(OneOf(kMoveLimits));
    Json waypoints(rapidjson::kArrayType);
    Point last = OneOf(m_free);
    AddPoint(last, &waypoints);
    float leg = std::max(kShortestLeg, ReachOfTurn(*piece));
    for (int i = Between(1, 3); i > 0; --i) {
      Point next = OneOf(m_free);
      while (Distance(last, next) <= leg) next = OneOf(m_free);
      AddPoint(next, &waypoints);
      last = next;
      leg = kShortestLeg;
    }
    enemy["m_waypoints"] = waypoints;
  }

  void AddPoint(const Point& point, Json* list) {
    Json vector(rapidjson::kArrayType);
    vector.PushBack(point.x, m_json).PushBack(point.y, m_json).PushBack(1.0f, m_json);
    list->PushBack(vector, m_json);
  }

  std::mt19937 m_random;
  Allocator& m_json;
  Pieces m_pieces;
  std::vector<Point> m_free;
  std::vector<Point> m_walls;
  std::vector<Point> m_taken;
};

std::string TextOf(const Document& document) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  document.Accept(writer);
  return buffer.GetString();
}

}  // namespace

RandomBoard::RandomBoard(std::uint32_t seed) : level(kLevels[seed % std::size(kLevels)]) {
  const std::string path = ZOVEngine::LevelPaths(level).objects;
  Document document;
  document.Parse(ShippedFile(path));
  Maker(seed, level, &document.GetAllocator()).Fill(&document["GameObjFactory"]);
  files[path] = TextOf(document);
}

}  // namespace carapace_test
