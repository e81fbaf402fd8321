#include "game/units/player.h"

#include <iostream>

#include "game/objectquery.h"
#include "objects/fields.h"
#include "physics/components/transform.h"

namespace ZOVEngine {
namespace {

constexpr float kLateMuzzleDelay = 0.2f;  ///< (unit: seconds)

}  // namespace

template <class Visitor>
void Player::Fields(Visitor& visit) {
  visit("m_health", &Player::m_health, "Curr HP", FieldBounds{0.0, 99.0});
  visit("m_max_health", &Player::m_max_health, "Max HP", FieldBounds{1.0, 99.0});
  visit("m_movement_curr", &Player::m_movement_curr, "Curr Movement", FieldBounds{0.0, 20.0});
  visit("m_movement_limit", &Player::m_movement_limit, "Movement Limit", FieldBounds{0.0, 20.0});
  visit("m_movement_mag", &Player::m_movement_mag, "Movement Mag", FieldBounds{0.0, 1.0e5});
  visit("m_alive", &Player::m_alive, "Alive");
  visit("m_selected_first_weapon", &Player::m_selected_first_weapon, "Selected First Weapon");
}
ZOV_COMPONENT_FIELDS(Player)

void Player::Init() {
  m_acted = false;
  Bind();
}

void Player::Destroy() {
  std::cout << "Player Destroy" << '\n';
}

void Player::Update(float dt) {
  m_dt = dt;
  if (!m_init) Init();
  if (!m_alive) return;
  if (!RunUpkeep(FindController(m_owner))) return;
  ShowHeldBarrel();
  RunLateMuzzle();
  if (m_health < 1) {
    FallApart();
  } else {
    RunAlive();
  }
}

/// The muzzle effect of a piercing shot follows the shot after a while.
void Player::RunLateMuzzle() {
  if (!m_pierce_pending) {
    m_pierce_timer = 0.0f;
    return;
  }
  m_pierce_timer += m_dt;
  if (m_pierce_timer < kLateMuzzleDelay) return;
  PlayOnce("pierce_fire");
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
  if (FirstBarrel() != nullptr) {
    muzzle = transform->m_world_pos + direction * (transform->m_world_scale.y / kScalePerMuzzle);
  }
  FireHeldWeapon(muzzle, direction);
  ShowMuzzleFire(HeldFlash());
}

}  // namespace ZOVEngine
