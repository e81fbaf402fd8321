#include "autoplay/statehash.h"

#include <cstddef>
#include <string>

#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

/// 64-bit FNV-1a.
class Hasher {
 public:
  void Add(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i) m_hash = (m_hash ^ bytes[i]) * 1099511628211ull;
  }
  void Add(const std::string& text) { Add(text.data(), text.size()); }
  void Add(const Vector3D& vector) { Add(vector.v, sizeof vector.v); }
  void Add(float number) { Add(&number, sizeof number); }
  std::uint64_t Result() const { return m_hash; }

 private:
  std::uint64_t m_hash = 14695981039346656037ull;
};

}  // namespace

std::uint64_t HashState() {
  Hasher hasher;
  for (GameObj* object : g_game_obj_factory->m_objects) {
    JsonWriter writer;
    WriteObject(writer.Out(), object);
    hasher.Add(writer.Text());
    if (!object->HasComponent<Transform>()) continue;
    const Transform& transform = *object->GetComponent<Transform>();
    hasher.Add(transform.m_local_pos);
    hasher.Add(transform.m_prev_pos);
    hasher.Add(transform.m_world_pos);
    hasher.Add(transform.m_world_scale);
    hasher.Add(transform.m_world_rotate);
  }
  return hasher.Result();
}

std::uint64_t HashPlaces() {
  Hasher hasher;
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (!object->HasComponent<RigidBody>() || !object->HasComponent<Transform>()) continue;
    const Transform& transform = *object->GetComponent<Transform>();
    hasher.Add(transform.m_world_pos);
    hasher.Add(transform.m_world_rotate);
  }
  return hasher.Result();
}

}  // namespace ZOVEngine
