#include "physics/collidersystem.h"

#include <algorithm>
#include <iostream>
#include <span>
#include <stdexcept>
#include <typeinfo>

#include "core/base/prefetch.h"
#include "core/base/profile.h"
#include "core/engine.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/parallellists.h"
#include "objects/reflection.h"
#include "physics/components/rigidbody.h"
#include "zovassert.h"

ZOV_REGISTRATION(ColliderSystem) {
  using ZOVEngine::ColliderSystem;
  ZOVEngine::SystemRegistration<ColliderSystem>("ColliderSystem")
      .Method("SetDebug", &ColliderSystem::SetDebug);
}

namespace ZOVEngine {

ColliderSystem* g_collider_system = nullptr;

namespace {

constexpr const char* kCollisionFile = "Resources/CollisionInfo.json";

void WriteTable(Writer& writer, const char* names_key, const char* values_key,
                const std::map<std::string, int>& table) {
  std::vector<std::string> names;
  std::vector<int> values;
  for (const auto& [name, value] : table) {
    names.push_back(name);
    values.push_back(value);
  }
  WriteStringArray(writer, names_key, names);
  WriteIntArray(writer, values_key, values);
}

}  // namespace

ColliderSystem::ColliderSystem() {
  g_collider_system = this;
  g_game_obj_factory->RegisterComponents(TypeList<ColliderHolder>());
  ReadMasks();
}

ColliderSystem::~ColliderSystem() {
  std::cout << "Destructor of ColliderSystem" << '\n';
  WriteMasks();
  g_collider_system = nullptr;
}

void ColliderSystem::ReadMasks() {
  JsonDocument document;
  document.Open(kCollisionFile);
  document.Parse();
  std::vector<std::string> groups;
  std::vector<int> group_numbers;
  std::vector<std::string> categories;
  std::vector<int> masks;
  ReadStringArray(document.Root(), "str_grp", &groups);
  ReadIntArray(document.Root(), "int_grp", &group_numbers);
  ReadStringArray(document.Root(), "str_bm", &categories);
  ReadIntArray(document.Root(), "int_bm", &masks);
  m_groups.clear();
  m_masks.clear();
  for (std::size_t i = 0; i < groups.size(); ++i) {
    m_groups[groups[i]] = EntryBeside("str_grp", group_numbers, i, "int_grp");
    m_masks[EntryBeside("str_grp", categories, i, "str_bm")] =
        EntryBeside("str_grp", masks, i, "int_bm");
  }
}

void ColliderSystem::WriteMasks() const {
  JsonWriter file;
  file.Open(kCollisionFile);
  Writer& writer = file.Out();
  writer.json->StartObject();
  WriteTable(writer, "str_grp", "int_grp", m_groups);
  WriteTable(writer, "str_bm", "int_bm", m_masks);
  writer.json->EndObject();
  file.Close();
}

void ColliderSystem::Init() {
  m_holders = FetchTable<ColliderHolder>();
  m_transforms = FetchTable<Transform>();
  m_bodies = FetchTable<RigidBody>();
}

namespace {

enum ShapeKind : std::uint32_t { kBox, kCircle, kPolygon, kShapeKinds };

/// The test for a shape A of the row's kind and a shape B of the column's.
constexpr PairTest kPairTests[kShapeKinds][kShapeKinds] = {
    {TestBoxBox, TestPolygonCircle, TestPolygonPolygon},
    {TestCirclePolygon, TestCircleCircle, TestCirclePolygon},
    {TestPolygonPolygon, TestPolygonCircle, TestPolygonPolygon},
};

/// The kind of a type name, or kShapeKinds for a name that is none.
ShapeKind KindOf(const std::string& type) {
  if (type == "Box") return kBox;
  if (type == "Circle") return kCircle;
  return type == "Polygon" ? kPolygon : kShapeKinds;
}

PairTest TestFor(std::uint32_t a, std::uint32_t b) {
  if (a >= kShapeKinds || b >= kShapeKinds) {
    throw std::out_of_range("invalid unordered_map<K, T> key");
  }
  return kPairTests[a][b];
}

/// Ends the program when a holder's shape is not of the kind that its type says: the pair tests
/// rely on it.
void CheckShape(const ColliderHolder& holder, std::uint32_t kind) {
  const iCollider* shape = holder.m_collider.get();
  const bool fits =
      shape != nullptr && (kind == kBox      ? typeid(*shape) == typeid(BoxCollider)
                           : kind == kCircle ? typeid(*shape) == typeid(CircleCollider)
                                             : typeid(*shape) != typeid(CircleCollider));
  ZOV_ASSERT(fits, "object \"" + holder.m_owner->name + "\": the collider is no \"" +
                       holder.m_collider_type + "\"");
}

Bounds BoundsOf(const iCollider& shape) {
  return {shape.m_min.x, shape.m_min.y, shape.m_max.x, shape.m_max.y};
}

// With static storage, so that recording them allocates nothing.
const std::string kTreeRecord = "QuadTree Generation";
const std::string kCollisionRecord = "Collision";

}  // namespace

void ColliderSystem::Update(float) {
  const std::int64_t start = NowNanoseconds();
  m_message.contacts.clear();
  UpdateShapes();
  m_tree.Build(m_bounds);
  RecordElapsed(kTreeRecord, start);
  NameUnknownCategories();
  FindCandidates();
  FindContacts();
  g_engine->Broadcast(&m_message);
  RecordElapsed(kCollisionRecord, start);
}

bool ColliderSystem::CheckCollision(ColliderHolder* a, ColliderHolder* b, ContactInfo* contact) {
  if (!a->m_owner->HasComponent<RigidBody>() && !b->m_owner->HasComponent<RigidBody>()) {
    return false;
  }
  const int mask_a = m_masks[a->bitmask_category];
  const int mask_b = m_masks[b->bitmask_category];
  if ((mask_a & mask_b) == 0) return false;
  const ShapeKind kind_a = KindOf(a->m_collider_type);
  const ShapeKind kind_b = KindOf(b->m_collider_type);
  CheckShape(*a, kind_a);
  CheckShape(*b, kind_b);
  if (!BoundsOf(*a->m_collider).Overlaps(BoundsOf(*b->m_collider))) return false;
  return TestFor(kind_a, kind_b)(*a, *b, contact);
}

/// Places the shapes, and gathers the active holders.
void ColliderSystem::UpdateShapes() {
  m_shapes.clear();
  m_bounds.clear();
  m_last_category = nullptr;
  for (ColliderHolder* holder : m_holders->Components()) {
    const Transform& transform = *m_transforms->Get(holder->m_owner);
    if (!holder->m_active) continue;
    if (holder->m_collider) {
      holder->m_collider->UpdateCollider(transform);
      if (holder->m_debug) holder->m_collider->DrawDebug();
    }
    AddShape(holder);
  }
}

void ColliderSystem::AddShape(ColliderHolder* holder) {
  Shape shape;
  shape.holder = holder;
  shape.object = holder->m_owner->id;
  shape.kind = KindOf(holder->m_collider_type);
  CheckShape(*holder, shape.kind);
  shape.collider = holder->m_collider.get();
  shape.outline = shape.collider;
  if (shape.kind != kCircle) {
    shape.outline = static_cast<const PolygonCollider*>(shape.collider)->m_world_vertices.data();
  }
  shape.mask = MaskOf(holder->bitmask_category, &shape.has_mask);
  shape.has_body = m_bodies->Find(shape.object) != nullptr;
  m_shapes.push_back(shape);
  m_bounds.push_back(BoundsOf(*holder->m_collider));
}

/// The mask of a category, 0 for one without; neighbours in the table often share theirs.
int ColliderSystem::MaskOf(const std::string& category, bool* known) {
  if (m_last_category == nullptr || *m_last_category != category) {
    const auto found = m_masks.find(category);
    m_last_category = &category;
    m_last_known = found != m_masks.end();
    m_last_mask = m_last_known ? found->second : 0;
  }
  *known = m_last_known;
  return m_last_mask;
}

/// Gives a category without a mask the mask 0 once it would be looked up for a pair.
void ColliderSystem::NameUnknownCategories() {
  for (std::size_t i = 0; i < m_shapes.size(); ++i) {
    if (m_shapes[i].has_mask) continue;
    for (std::size_t other = 0; other < m_shapes.size(); ++other) {
      if (other == i || !EverMeet(i, other)) continue;
      m_masks.emplace(m_shapes[i].holder->bitmask_category, 0);
    }
  }
}

/// Whether one of two shapes finds the other on its way up the tree, and one of them can move.
bool ColliderSystem::EverMeet(std::size_t a, std::size_t b) const {
  const std::uint16_t node_a = m_tree.NodeOf(a);
  const std::uint16_t node_b = m_tree.NodeOf(b);
  return (m_shapes[a].has_body || m_shapes[b].has_body) &&
         (QuadTree::IsOnPath(node_a, node_b) || QuadTree::IsOnPath(node_b, node_a));
}

/// Lists the tests that are due, in the order in which walking the tree for each shape meets them.
void ColliderSystem::FindCandidates() {
  const std::span<const OverlapPair> pairs = m_finder.Find(m_bounds);
  m_settled.assign(pairs.size(), false);
  m_unsorted.clear();
  for (std::uint32_t pair = 0; pair < pairs.size(); ++pair) {
    const auto [a, b] = pairs[pair];
    if (!m_shapes[a].has_body && !m_shapes[b].has_body) continue;
    if ((m_shapes[a].mask & m_shapes[b].mask) == 0) continue;
    const std::uint16_t node_a = m_tree.NodeOf(a);
    const std::uint16_t node_b = m_tree.NodeOf(b);
    if (QuadTree::IsOnPath(node_b, node_a)) m_unsorted.push_back({a, b, pair});
    if (QuadTree::IsOnPath(node_a, node_b)) m_unsorted.push_back({b, a, pair});
  }
  SortCandidates();
}

/// By A, then as GoesBefore says: a counting sort, then a sort of the few that each A has.
void ColliderSystem::SortCandidates() {
  m_starts.assign(m_shapes.size() + 1, 0);
  for (const Candidate& candidate : m_unsorted) ++m_starts[candidate.a];
  for (std::size_t a = 1; a < m_starts.size(); ++a) m_starts[a] += m_starts[a - 1];
  m_candidates.resize(m_unsorted.size());
  for (const Candidate& candidate : m_unsorted) m_candidates[--m_starts[candidate.a]] = candidate;
  for (std::size_t a = 0; a + 1 < m_starts.size(); ++a) {
    if (m_starts[a + 1] - m_starts[a] < 2) continue;
    std::sort(m_candidates.begin() + m_starts[a], m_candidates.begin() + m_starts[a + 1],
              [this](const Candidate& x, const Candidate& y) { return GoesBefore(x, y); });
  }
}

/// Of two candidates of one A: the one whose B stands deeper in the tree, and in one node the one
/// that comes first in the table.
bool ColliderSystem::GoesBefore(const Candidate& one, const Candidate& other) const {
  const int level_one = QuadTree::LevelOf(m_tree.NodeOf(one.b));
  const int level_other = QuadTree::LevelOf(m_tree.NodeOf(other.b));
  return level_one != level_other ? level_one > level_other : one.b < other.b;
}

/// Runs the tests. A pair in one node is due from both sides. What the first side found the second
/// does not report again, and shapes that do not overlap do so from neither side; but overlapping
/// polygons may lack contact points from one side alone.
void ColliderSystem::FindContacts() {
  constexpr std::size_t kAhead = 6;
  for (std::size_t i = 0; i < m_candidates.size(); ++i) {
    if (i + kAhead < m_candidates.size()) PrefetchShapes(m_candidates[i + kAhead]);
    const Candidate& candidate = m_candidates[i];
    if (m_settled[candidate.pair]) continue;
    const Shape& a = m_shapes[candidate.a];
    const Shape& b = m_shapes[candidate.b];
    ContactInfo contact;
    const bool found = TestFor(a.kind, b.kind)(*a.holder, *b.holder, &contact);
    m_settled[candidate.pair] = found || !contact.collided;
    if (!found) continue;
    contact.objectA = a.object;
    contact.objectB = b.object;
    m_message.contacts.push_back(contact);
  }
}

void ColliderSystem::PrefetchShapes(const Candidate& candidate) const {
  for (const std::uint32_t i : {candidate.a, candidate.b}) {
    Prefetch(&m_shapes[i].collider->m_center);
    Prefetch(m_shapes[i].outline);
    Prefetch(&m_shapes[i].holder->m_collider);
  }
}

void ColliderSystem::SetDebug(bool debug) {
  for (ColliderHolder* holder : m_holders->Components()) holder->SetDebug(debug);
}

}  // namespace ZOVEngine
