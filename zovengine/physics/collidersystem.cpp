#include "physics/collidersystem.h"

#include <iostream>
#include <span>
#include <stdexcept>
#include <string_view>
#include <typeinfo>

#include "core/base/prefetch.h"
#include "core/base/profile.h"
#include "core/engine.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/parallellists.h"
#include "objects/reflection.h"
#include "physics/components/rigidbody.h"
#include "physics/contacttests.h"
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
ShapeKind ToKind(std::string_view type) {
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

/// Whether a holder's shape is of the kind that its type says: the pair tests rely on it.
bool FitsKind(const iCollider* shape, std::uint32_t kind) {
  if (shape == nullptr) return false;
  if (kind == kBox) return typeid(*shape) == typeid(BoxCollider);
  return (kind == kCircle) == (typeid(*shape) == typeid(CircleCollider));
}

void CheckShape(const ColliderHolder& holder, std::uint32_t kind) {
  if (FitsKind(holder.m_collider.get(), kind)) return;
  ZOV_ASSERT(false, "object \"" + holder.m_owner->name + "\": the collider is no \"" +
                        holder.m_collider_type + "\"");
}

const PolygonCollider& AsPolygon(const iCollider& shape) {
  return static_cast<const PolygonCollider&>(shape);
}

Bounds WorldBounds(const iCollider& shape) {
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
  m_candidates.BuildTree();
  RecordElapsed(kTreeRecord, start);
  NameUnknownCategories();
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
  const ShapeKind kind_a = ToKind(a->m_collider_type);
  const ShapeKind kind_b = ToKind(b->m_collider_type);
  CheckShape(*a, kind_a);
  CheckShape(*b, kind_b);
  if (!WorldBounds(*a->m_collider).Overlaps(WorldBounds(*b->m_collider))) return false;
  return TestFor(kind_a, kind_b)(*a, *b, contact);
}

/// Places the shapes, and gathers the active holders.
void ColliderSystem::UpdateShapes() {
  m_shapes.clear();
  m_candidates.Clear();
  m_unknown.clear();
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
  const ShapeKind kind = ToKind(holder->m_collider_type);
  CheckShape(*holder, kind);
  const iCollider* collider = holder->m_collider.get();
  const void* outline = collider;
  if (kind != kCircle) outline = AsPolygon(*collider).m_world_vertices.data();
  const std::uint32_t object = holder->m_owner->id;
  LookUpMask(holder->bitmask_category);
  if (!m_last_known) m_unknown.push_back(m_shapes.size());
  m_shapes.push_back({holder, collider, outline, object, kind});
  const bool has_body = m_bodies->Find(object) != nullptr;
  if (kind == kBox && AsPolygon(*collider).m_world_vertices.size() >= 4) {
    m_candidates.AddBox(WorldBounds(*collider), m_last_mask, has_body,
                        Outline(AsPolygon(*collider)));
  } else {
    m_candidates.Add(WorldBounds(*collider), m_last_mask, has_body);
  }
}

/// Sets the last mask to that of a category, 0 for one without.
void ColliderSystem::LookUpMask(const std::string& category) {
  if (m_last_category != nullptr && *m_last_category == category) return;
  const auto found = m_masks.find(category);
  m_last_category = &category;
  m_last_known = found != m_masks.end();
  m_last_mask = m_last_known ? found->second : 0;
}

/// Adds mask 0 for an unknown category the first time one of its shapes could be paired.
void ColliderSystem::NameUnknownCategories() {
  for (const std::size_t i : m_unknown) {
    for (std::size_t other = 0; other < m_shapes.size(); ++other) {
      if (other == i || !m_candidates.EverMeet(i, other)) continue;
      m_masks.emplace(m_shapes[i].holder->bitmask_category, 0);
    }
  }
}

/// Runs the tests. A pair in one node is due from both sides, but the second test is needed only
/// where the first found an overlap with too few contact points, which polygons may have from one
/// side alone.
void ColliderSystem::FindContacts() {
  constexpr std::size_t kAhead = 6;
  const std::span<const Candidate> candidates = m_candidates.Find();
  m_settled.assign(m_candidates.PairCount(), false);
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (i + kAhead < candidates.size()) PrefetchShapes(candidates[i + kAhead]);
    const Candidate& candidate = candidates[i];
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
