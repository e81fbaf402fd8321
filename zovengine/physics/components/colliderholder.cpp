#include "physics/components/colliderholder.h"

#include <unordered_map>

#include "jsonunserializer.h"
#include "objects/componentmanager.h"
#include "objects/reflection.h"
#include "physics/components/transform.h"

ZOV_REGISTRATION(ColliderHolder) {
  using ZOVEngine::ColliderHolder;
  ZOVEngine::ComponentRegistration<ColliderHolder>("ColliderHolder")
      .Method("SetDebug", &ColliderHolder::SetDebug);
}

namespace ZOVEngine {
namespace {

using ShapeCreator = std::shared_ptr<iCollider> (*)(const Transform&);

const std::unordered_map<std::string, ShapeCreator>& ShapeCreators() {
  static const std::unordered_map<std::string, ShapeCreator> creators = {
      {"Box",
       [](const Transform& t) -> std::shared_ptr<iCollider> {
         return std::make_shared<BoxCollider>(t);
       }},
      {"Circle",
       [](const Transform& t) -> std::shared_ptr<iCollider> {
         return std::make_shared<CircleCollider>(t);
       }},
      {"Polygon",
       [](const Transform&) -> std::shared_ptr<iCollider> {
         return std::make_shared<PolygonCollider>();
       }},
  };
  return creators;
}

/// The owner's Transform, or a new one's values for an owner that has none (yet).
const Transform& ShapeTransform(GameObj* owner) {
  static const Transform fallback(nullptr);
  return owner->HasComponent<Transform>() ? *owner->GetComponent<Transform>() : fallback;
}

}  // namespace

ColliderHolder::ColliderHolder(GameObj* owner) : GameComponentBase(owner) {
  SetType("Box");
}

ColliderHolder::ColliderHolder(const ColliderHolder& other)
    : GameComponentBase(other),
      m_collider_type(other.m_collider_type),
      m_collider(other.m_collider ? other.m_collider->Clone() : nullptr),
      m_layer(other.m_layer),
      m_debug(other.m_debug),
      bitmask_category(other.bitmask_category) {}

void ColliderHolder::SetType(const std::string& type) {
  m_collider_type = type;
  const auto creator = ShapeCreators().find(type);
  m_collider =
      creator == ShapeCreators().end() ? nullptr : creator->second(ShapeTransform(m_owner));
}

// Written by hand: the type decides which shape, and so which fields, there are.
void ColliderHolder::Unserialize(const Value& value) {
  ReadValue(value, "m_active", &m_active);
  ReadValue(value, "m_layer", &m_layer);
  std::string type = m_collider_type;
  ReadValue(value, "m_collider_type", &type);
  ReadValue(value, "bitmask_category", &bitmask_category);
  SetType(type);
  if (m_collider == nullptr) FailReading("unknown collider type \"" + type + "\"");
  if (auto* polygon = dynamic_cast<PolygonCollider*>(m_collider.get()); type == "Polygon") {
    std::vector<Vector3D> vertices;
    ReadVector3DArray(value, "collider_vertices", &vertices);
    polygon->SetLocalVertices(vertices);
  }
  ReadVector3D(value, "m_local_scale", &m_collider->m_local_scale);
  ReadVector3D(value, "m_local_pos", &m_collider->m_local_pos);
  ReadValue(value, "m_local_rot", &m_collider->m_local_rot);
}

void ColliderHolder::Serialize(Writer& writer) {
  WriteValue(writer, "m_active", m_active);
  WriteValue(writer, "m_layer", m_layer);
  WriteValue(writer, "m_collider_type", m_collider_type);
  WriteValue(writer, "bitmask_category", bitmask_category);
  if (m_collider_type == "Polygon") {
    const auto& polygon = dynamic_cast<const PolygonCollider&>(*m_collider);
    WriteVector3DArray(writer, "collider_vertices", polygon.GetLocalVertices());
  }
  WriteVector3D(writer, "m_local_scale", m_collider->m_local_scale);
  WriteVector3D(writer, "m_local_pos", m_collider->m_local_pos);
  WriteValue(writer, "m_local_rot", m_collider->m_local_rot);
}

}  // namespace ZOVEngine
