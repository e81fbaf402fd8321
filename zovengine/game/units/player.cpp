#include "game/units/player.h"

#include <iostream>

#include "game/objectquery.h"
#include "game/units/unit.h"
#include "jsonunserializer.h"
#include "objects/reflection.h"
#include "physics/components/transform.h"

RTTR_REGISTRATION {
  using ZOVEngine::Player;
  ZOVEngine::ComponentRegistration<Player>("Player")
      .Field("m_health", &Player::m_health, "int", "Curr HP")
      .Field("m_max_health", &Player::m_max_health, "int", "Max HP")
      .Field("m_movement_curr", &Player::m_movement_curr, "float", "Curr Movement")
      .Field("m_movement_limit", &Player::m_movement_limit, "float", "Movement Limit")
      .Field("m_movement_mag", &Player::m_movement_mag, "float", "Movement Mag")
      .Field("m_alive", &Player::m_alive, "bool", "Alive")
      .Field("m_selected_first_weapon", &Player::m_selected_first_weapon, "bool",
             "Selected First Weapon");
}

namespace ZOVEngine {
namespace {

constexpr float kPierceDelay = 0.2f;  ///< of the muzzle effect (unit: seconds)

}  // namespace

void Player::Unserialize(const Value& value) {
  ReadValue(value, "m_health", &m_health);
  ReadValue(value, "m_max_health", &m_max_health);
  ReadValue(value, "m_movement_curr", &m_movement_curr);
  ReadValue(value, "m_movement_limit", &m_movement_limit);
  ReadValue(value, "m_movement_mag", &m_movement_mag);
  ReadValue(value, "m_alive", &m_alive);
  ReadValue(value, "m_selected_first_weapon", &m_selected_first_weapon);
}

void Player::Serialize(Writer& writer) {
  WriteValue(writer, "m_health", m_health);
  WriteValue(writer, "m_max_health", m_max_health);
  WriteValue(writer, "m_movement_curr", m_movement_curr);
  WriteValue(writer, "m_movement_limit", m_movement_limit);
  WriteValue(writer, "m_movement_mag", m_movement_mag);
  WriteValue(writer, "m_alive", m_alive);
  WriteValue(writer, "m_selected_first_weapon", m_selected_first_weapon);
}

void Player::Init() {
  m_acted = false;
  BindUnit(this);
}

void Player::Destroy() {
  std::cout << "Player Destroy" << '\n';
}

void Player::Update(float dt) {
  m_dt = dt;
  if (!m_init) Init();
  if (!m_alive) return;
  if (!RunUpkeep(this, FindController(m_owner), dt)) return;
  ShowHeldBarrel(this);
  RunPierceMuzzle(dt);
  if (m_health < 1) {
    FallApart(this);
  } else {
    RunAlive(this);
  }
}

/// The muzzle effect of a pierce shot follows the shot after a while.
void Player::RunPierceMuzzle(float dt) {
  if (!m_pierce_pending) {
    m_pierce_timer = 0.0f;
    return;
  }
  m_pierce_timer += dt;
  if (m_pierce_timer < kPierceDelay) return;
  PlayOnce(m_owner, "pierce_fire");
  m_pierce_pending = false;
  m_pierce_timer = 0.0f;
}

void Player::AimAt(const Vector3D& mouse) {
  auto* transform = m_owner->GetComponent<Transform>();
  transform->m_local_rotate = transform->m_prev_rotate = Heading(mouse - transform->m_local_pos);
}

void Player::Fire(const Vector3D& mouse) {
  const auto* transform = m_owner->GetComponent<Transform>();
  const Vector3D direction =
      Vector3D(mouse.x - transform->m_world_pos.x, mouse.y - transform->m_world_pos.y, 0.0f)
          .Normalized();
  Vector3D muzzle;
  if (FirstBarrel(m_owner) != nullptr) {
    muzzle = transform->m_world_pos + direction * (transform->m_world_scale.y / kScalePerMuzzle);
  }
  if (FireHeldWeapon(this, muzzle, direction)) m_pierce_pending = true;
  ShowMuzzleFire(m_owner);
}

void Player::ShowWeaponLabel() {
  StartWeaponLabel(this);
}

}  // namespace ZOVEngine
