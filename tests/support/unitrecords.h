#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/stage.h"

namespace carapace_test {

using Components = std::vector<std::pair<std::string, std::string>>;

/// What a unit of a test is: an enumeration, so that kind and name cannot change places.
enum class UnitKind { kPlayer, kEnemy, kBoss };

/// The class of a kind's component.
std::string UnitClass(UnitKind kind);

/// A body of mass 1 that does not turn and loses nothing in a rebound.
inline constexpr const char* kLively = R"({"m_mass": 1, "m_inertia": 0, "m_rest": 1})";

/// The fields of a ColliderHolder of the size of its object.
std::string HolderOf(const std::string& shape);

/// How a whole unit of a test differs from a usual one.
struct UnitParts {
  std::string fields = R"({"m_health": 8, "m_max_health": 10})";  ///< of the unit's component
  float x = 100.0f;                                               ///< (unit: world units)
  float y = 50.0f;
  std::vector<std::string> without =
      {};  ///< names of children, and of the unit's own component classes
  /// Classes of the two weapons; "" makes a weapon child without a shot.
  std::vector<std::string> weapons = {"ProjectileDefault", "ProjectilePierce"};
  std::vector<std::string> more = {};  ///< records of further children, after the others
  Components components = {};          ///< further ones of the unit
};

/// The record of a unit with all its named children. A boss has its shots, shields and explosions
/// besides; that it is one stands in its fields.
std::string UnitRecord(UnitKind kind, const std::string& name, const UnitParts& parts = {});
/// A unit of 40 by 40 with 5 health, two barrels and these shots.
std::string SolidUnitAt(UnitKind kind, const std::string& name, float x, float y,
                        const std::vector<std::string>& shots = {});
/// A unit at rest that a shot cannot touch. `fields` are those of its component.
std::string UnitAt(UnitKind kind, const std::string& name, float x, float y,
                   const std::string& fields = "{}", const std::vector<std::string>& children = {});
/// A child with Transform, Render, Animation and StateC, at (x, y) in its parent's space.
std::string SpriteRecord(const std::string& name, float x = 0.0f, float y = 0.0f,
                         const std::vector<std::string>& children = {});
/// A child that holds a shot of the class, with a body and a "bullet_hit" child.
std::string ShotRecord(const std::string& name, const std::string& shot);
/// A loose body with the further components at (x, y).
std::string BodyRecord(const std::string& name, float x, float y,
                       const Components& components = {});

/// Units under a level root with a turn controller and a sound source. Nothing is stepped but what
/// a test steps; the controller has its bodies without having been started.
class UnitStage : public Stage {
 public:
  explicit UnitStage(const std::vector<std::string>& children, bool with_controller = true);
};

}  // namespace carapace_test
