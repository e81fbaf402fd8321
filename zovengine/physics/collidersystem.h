#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/messages.h"
#include "core/system.h"
#include "objects/componentmanager.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physics/contacttests.h"
#include "physics/overlapfinder.h"
#include "physics/quadtree.h"

namespace ZOVEngine {

/// The system that places all shapes, finds the pairs that touch, and broadcasts their contacts.
///
/// A holder meets the shapes that stand in its own node of the quad tree, then those of the nodes
/// above it, deepest first, in the order of the table; the one that meets a pair first is A. That
/// order is what the contacts' order and sides come from. Overlapping bounds are found by a uniform
/// grid, which is faster than walking the tree and does not show.
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
  const QuadTree& Tree() const { return m_tree; }

  std::map<std::string, int> m_groups = {{"Default", 1}};
  std::map<std::string, int> m_masks = {{"Default", 1}};

 private:
  /// An active holder of the step, with what the pairing asks of it.
  struct Shape {
    ColliderHolder* holder;
    const iCollider* collider;
    const void* outline;  ///< what the tests read besides the collider: its vertices, if it has any
    std::uint32_t object;  ///< object id
    std::uint32_t kind;    ///< row and column of the pair tests
    int mask;
    bool has_mask;  ///< the mask table names the category
    bool has_body;
  };
  /// A test that is due: shape A against shape B, for the overlapping pair of that number.
  struct Candidate {
    std::uint32_t a, b;
    std::uint32_t pair;
  };

  void ReadMasks();
  void WriteMasks() const;
  void UpdateShapes();
  void AddShape(ColliderHolder* holder);
  int MaskOf(const std::string& category, bool* known);
  void NameUnknownCategories();
  bool EverMeet(std::size_t a, std::size_t b) const;
  void FindCandidates();
  void SortCandidates();
  bool GoesBefore(const Candidate& one, const Candidate& other) const;
  void FindContacts();
  void PrefetchShapes(const Candidate& candidate) const;

  std::shared_ptr<ComponentManager<ColliderHolder>> m_holders;
  std::shared_ptr<ComponentManager<Transform>> m_transforms;
  std::shared_ptr<ComponentManager<RigidBody>> m_bodies;
  QuadTree m_tree;
  OverlapFinder m_finder;
  CollidedObjects m_message;
  std::vector<Shape> m_shapes;   ///< the active holders in table order
  std::vector<Bounds> m_bounds;  ///< of m_shapes
  std::vector<Candidate> m_candidates;
  std::vector<Candidate> m_unsorted;
  std::vector<std::uint32_t> m_starts;  ///< of each A's candidates, and the end
  std::vector<bool> m_settled;          ///< by pair: the other side needs no test
  const std::string* m_last_category = nullptr;
  int m_last_mask = 0;
  bool m_last_known = false;
};

extern ColliderSystem* g_collider_system;

}  // namespace ZOVEngine
