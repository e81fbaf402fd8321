#pragma once

#include <map>
#include <memory>
#include <string>

#include "core/system.h"
#include "objects/componentmanager.h"
#include "physics/colliderholder.h"
#include "physics/transform.h"

namespace ZOVEngine {

/// The system that owns the collision groups and masks.
///
/// The file Resources/CollisionInfo.json is read by the constructor and written back by the
/// destructor, names in sorted order. A category that the file does not name collides with nothing.
class ColliderSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Sets g_collider_system, registers the table "ColliderHolder" and reads the file.
  ColliderSystem();
  /// Writes the file.
  ~ColliderSystem() override;

  void Init() override;
  void Update(float dt) override;
  void SendMessage(Message*) override {}

  /// Sets the debug flag of every holder; reached by name through reflection.
  void SetDebug(bool debug);

  std::map<std::string, int> m_groups = {{"Default", 1}};
  std::map<std::string, int> m_masks = {{"Default", 1}};

 private:
  void ReadMasks();
  void WriteMasks() const;

  std::shared_ptr<ComponentManager<ColliderHolder>> m_holders;
  std::shared_ptr<ComponentManager<Transform>> m_transforms;
};

extern ColliderSystem* g_collider_system;

}  // namespace ZOVEngine
