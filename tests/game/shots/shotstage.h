#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "audio/audiosource.h"
#include "core/contactinfo.h"
#include "game/camera.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "game/units/unit.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/light.h"
#include "render/components/particlesystemc.h"
#include "render/components/render.h"
#include "support/reports.h"
#include "support/stage.h"
#include "support/unitrecords.h"

namespace carapace_test {

/// The record of a thing of `size` at (x, y) with a box collider and further components.
inline std::string ThingAt(const std::string& name, float x, float y, float size,
                           const Components& more = {}) {
  Components components = {{"Transform", TransformAt(x, y, 1, size)},
                           {"ColliderHolder", HolderOf("Box")}};
  components.insert(components.end(), more.begin(), more.end());
  return Record(name, components);
}

/// The record of a shot of 16 by 16 in a unit of size 40, with all that a shot may have.
inline std::string ShotOf(const std::string& name, const std::string& kind,
                          const std::string& fields = "{}", const Components& more = {}) {
  Components components = {{"Transform", TransformAt(0, 0, 1, 0.4f)},
                           {"ColliderHolder", HolderOf("Circle")},
                           {"Render", "{}"},
                           {"iModel", "{}"},
                           {"Light", "{}"},
                           {"AudioSource", "{}"},
                           {"RigidBody", kLively},
                           {kind, fields}};
  components.insert(components.end(), more.begin(), more.end());
  const Components particles = {{"Transform", TransformAt(0, 0)},
                                {"ParticleSystemC", R"({"m_num_of_particles": 0})"}};
  return Record(name, components,
                {Record("bullet_trail", particles), Record("bullet_feedback", particles),
                 Record("bullet_hit", {{"Transform", TransformAt(0, 0)},
                                       {"Render", "{}"},
                                       {"iModel", "{}"},
                                       {"Animation", R"({"m_once_frames": 50})"},
                                       {"StateC", R"({"m_state": "default"})"}})});
}

/// How a stage differs from a player unit with a shot and nothing else.
struct ShotParts {
  std::string kind = {};      ///< class of the shot
  std::string fields = "{}";  ///< of the shot
  UnitKind shooter = UnitKind::kPlayer;
  std::vector<std::string> more = {};  ///< records of what else is on the level
  bool with_controller = false;        ///< then the world must not be stepped
};

/// A level with a unit "shooter" at (-300, 0), whose "shot" has gone to sleep, and other things.
///
/// Nothing was stepped but the shot. The light of the shot has the strength 100.
class ShotStage : public Stage {
 public:
  explicit ShotStage(const ShotParts& parts) {
    std::vector<std::string> children = {
        Record("camera", {{"Transform", TransformAt(0, 0)}, {"Camera", "{}"}}),
        SolidUnitAt(parts.shooter, "shooter", -300, 0, {ShotOf("shot", parts.kind, parts.fields)})};
    children.insert(children.end(), parts.more.begin(), parts.more.end());
    Components root = {{"Transform", TransformAt(0, 0)}};
    if (parts.with_controller) root.emplace_back("GameController", "{}");
    // The short records lack keys, which print a line each.
    OutputOf(
        [&] { world.LoadObjects(Record("first", {}) + ", " + Record("level", root, children)); });
    if (parts.with_controller) Of<ZOVEngine::GameController>("level").m_camera = Find("camera");
    Of<ZOVEngine::Camera>("camera").m_elapsed = 0.3f;  // of a shake that was
    Derive();
    Of<ZOVEngine::Light>("shot").m_diffuseStr = 100.0f;
    shot = Find("shot");
    Bind("shot");
  }

  /// Runs the first step of the shot of this name.
  void Bind(const std::string& name) {
    for (ZOVEngine::GameComponentBase* component : LogicOf(name)) {
      dynamic_cast<ZOVEngine::LogicComponent*>(component)->Update(0.0f);
    }
  }
  /// Steps until `is_reached` holds; false if it does not within two seconds.
  template <class Test>
  bool StepUntil(Test is_reached) {
    for (int i = 0; i < 120 && !is_reached(); ++i) world.Step();
    return is_reached();
  }
  /// Tells the component of a contact that begins, and returns the contact.
  template <class T>
  ZOVEngine::ContactInfo Enter(T& component, const std::string& a, const std::string& b) {
    ZOVEngine::ContactInfo contact = Between(a, b);
    component.OnCollisionEnter(&contact);
    return contact;
  }
  /// The component of the shot's child.
  template <class T>
  T& PartOf(const std::string& child) const {
    return ChildOf<T>("shot", child);
  }
  bool AsksFor(const std::string& name, const std::string& sound) const {
    return carapace_test::AsksFor(Find(name), sound);
  }
  int& Health(const std::string& name) const { return ZOVEngine::FindUnit(Find(name))->m_health; }
  /// The forces that wait for a body.
  std::size_t ForcesOn(const std::string& name) const {
    return Of<ZOVEngine::RigidBody>(name).m_forces.size();
  }
  /// Expects that one force waits for a body, of the strength (x, y).
  void ExpectForce(const std::string& name, float x, float y) const {
    ASSERT_EQ(ForcesOn(name), 1u) << name;
    const auto& force = *Of<ZOVEngine::RigidBody>(name).m_forces[0];
    EXPECT_NEAR(force.direction.x * force.magnitude, x, 0.01f) << name;
    EXPECT_NEAR(force.direction.y * force.magnitude, y, 0.01f) << name;
    EXPECT_EQ(force.direction.z, 0.0f) << name;
    EXPECT_EQ(force.lifetime, 0.1f) << name;
  }
  bool IsWhite(const std::string& name) const {
    bool white = Of<ZOVEngine::Render>(name).m_colour[0] == 100000.0f;
    for (ZOVEngine::GameObj* child : Find(name)->children) {
      if (child->name.find("Barrel") == std::string::npos) continue;
      white = white && child->GetComponent<ZOVEngine::Render>()->m_colour[2] == 100000.0f;
    }
    return white;
  }
  /// The magnitude of the camera's shake; 0 when it does not shake from its beginning.
  float Shake() const {
    const auto& camera = Of<ZOVEngine::Camera>("camera");
    const bool fresh =
        camera.m_shaking && camera.m_shake_duration == 0.5f && camera.m_elapsed == 0.0f;
    return fresh ? camera.m_shakemag : 0.0f;
  }
  bool Sparks() const {
    const auto& sparks = PartOf<ZOVEngine::ParticleSystemC>("bullet_feedback");
    return sparks.m_active && sparks.m_emitting;
  }
  /// Puts the sparks and the sprite of a hit out.
  void Douse() {
    PartOf<ZOVEngine::ParticleSystemC>("bullet_feedback").m_emitting = false;
    PartOf<ZOVEngine::StateC>("bullet_hit").m_state = "default";
    PartOf<ZOVEngine::Render>("bullet_hit").m_colour = {0, 0, 0, 0};
  }
  bool Bursts() const {
    const auto& render = PartOf<ZOVEngine::Render>("bullet_hit");
    return PartOf<ZOVEngine::StateC>("bullet_hit").m_state == "once" && render.m_visible &&
           render.m_colour == std::array<float, 4>{1, 1, 1, 1};
  }

  ZOVEngine::GameObj* shot = nullptr;

 private:
  std::vector<ZOVEngine::GameComponentBase*> LogicOf(const std::string& name) const {
    std::vector<ZOVEngine::GameComponentBase*> logic;
    ZOVEngine::GameObj* object = Find(name);
    for (const ZOVEngine::ComponentType type : object->components) {
      auto* component = ZOVEngine::g_game_obj_factory->Table(type).Get(object);
      if (dynamic_cast<ZOVEngine::LogicComponent*>(component)) logic.push_back(component);
    }
    return logic;
  }
};

}  // namespace carapace_test
