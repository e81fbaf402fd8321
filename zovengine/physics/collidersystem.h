#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/messages.h"
#include "core/system.h"
#include "objects/componentmanager.h"
#include "physics/candidatefinder.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

namespace ZOVEngine {

/// The system that places all shapes, finds the pairs that touch, and broadcasts their contacts.
///
/// The order of the contacts, and which side of each is A, comes from the quad tree over the
/// shapes; CandidateFinder describes it.
///
/// The system also owns the collision groups and masks. The file Resources/CollisionInfo.json is
/// read by the constructor and written back by the destructor, names in sorted order. A category
/// that the file does not name collides with nothing.
class ColliderSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Sets g_collider_system, registers the table "ColliderHolder" and reads the file.
  ColliderSystem();
  /// Writes the file.
  ~ColliderSystem() override;

  void Init() override;
  /// Broadcasts one CollidedObjects message with the contacts of this step.
  void Update(float dt) override;
  void SendMessage(Message*) override {}

  /// Whether two holders touch: at least one of their objects has a RigidBody, their categories
  /// share a mask bit, their world bounds are not apart, and the test for their kinds of shape
  /// finds a contact, with which `contact` is filled. A category that has no mask gets the mask 0.
  /// Throws std::out_of_range "invalid unordered_map<K, T> key" for a kind that is none.
  bool CheckCollision(ColliderHolder* a, ColliderHolder* b, ContactInfo* contact);
  /// Sets the debug flag of every holder; reached by name through reflection.
  void SetDebug(bool debug);
  /// The tree of the last step, for the debug overlay.
  const QuadTree& Tree() const { return m_candidates.Tree(); }

  std::map<std::string, int> m_groups = {{"Default", 1}};
  std::map<std::string, int> m_masks = {{"Default", 1}};

 private:
  /// An active holder of the step, with what its tests ask of it.
  struct Shape {
    ColliderHolder* holder;
    const iCollider* collider;
    const void* outline;   ///< the vertices, or the collider itself if it has none; to prefetch
    std::uint32_t object;  ///< object id
    std::uint32_t kind;    ///< row and column of the pair tests
  };

  void ReadMasks();
  void WriteMasks() const;
  void UpdateShapes();
  void AddShape(ColliderHolder* holder);
  void LookUpMask(const std::string& category);
  void NameUnknownCategories();
  void FindContacts();
  void PrefetchShapes(const Candidate& candidate) const;

  std::shared_ptr<ComponentManager<ColliderHolder>> m_holders;
  std::shared_ptr<ComponentManager<Transform>> m_transforms;
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;
  CollidedObjects m_message;
  std::vector<Shape> m_shapes;         ///< the active holders in table order
  CandidateFinder m_candidates;        ///< over m_shapes
  std::vector<std::size_t> m_unknown;  ///< shapes of a category that has no mask
  std::vector<bool> m_settled;         ///< by pair: the other side needs no test
  // The last category of the step that was looked up: neighbours in the table often share theirs.
  const std::string* m_last_category = nullptr;
  std::int32_t m_last_mask = 0;
  bool m_last_known = false;
};

extern ColliderSystem* g_collider_system;

}  // namespace ZOVEngine
