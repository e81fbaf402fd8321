#include "physics/contactresolution.h"

#include <algorithm>
#include <cmath>

#include "core/base/prefetch.h"
#include "objects/gameobjfactory.h"
#include "zovassert.h"

namespace ZOVEngine {
namespace {

/// One side of a contact. Transform and body are null for an object that has none, and the collider
/// of one without a body, which needs none.
struct Side {
  Side(const BodyTables& tables, std::uint32_t id)
      : object(g_game_obj_factory->m_objects.at(id)),
        transform(tables.transforms.Find(id)),
        body(tables.bodies.Find(id)),
        collider(body != nullptr ? tables.holders.Get(id)->m_collider.get() : nullptr) {}

  /// Moves the object in its parent's space (unit: world units).
  void Move(const Vector3D& by) const {
    if (transform != nullptr) transform->SetLocalPosition(transform->m_local_pos + by);
  }

  const Vector3D& Center() const { return collider->m_center; }

  GameObj* object;
  Transform* transform;
  RigidBody* body;
  const iCollider* collider;
};

/// The velocity of the point at `arm` from the centre (unit: world units per second).
Vector3D VelocityAt(const RigidBody& body, const Vector3D& arm) {
  const float turn = DegreesToRadians(body.m_rot_vel);
  return Vector3D(body.m_vel.x - turn * arm.y, body.m_vel.y + turn * arm.x, body.m_vel.z);
}

/// The part of a cross product along z.
float Cross(const Vector3D& a, const Vector3D& b) {
  return a.x * b.y - a.y * b.x;
}

/// Changes the velocities by an impulse at `arm`. The turn is deliberately added as it stands,
/// though the angular velocity is in degrees: levels are tuned to it.
void Push(RigidBody* body, const Vector3D& arm, const Vector3D& impulse) {
  body->m_vel.x += body->m_inv_mass * impulse.x;
  body->m_vel.y += body->m_inv_mass * impulse.y;
  body->m_vel.z = 0.0f;
  body->m_rot_vel += (impulse.y * arm.x - impulse.x * arm.y) * body->m_inv_inertia;
}

void Pull(RigidBody* body, const Vector3D& arm, const Vector3D& impulse) {
  body->m_vel.x -= body->m_inv_mass * impulse.x;
  body->m_vel.y -= body->m_inv_mass * impulse.y;
  body->m_vel.z = 0.0f;
  body->m_rot_vel -= (impulse.y * arm.x - impulse.x * arm.y) * body->m_inv_inertia;
}

/// The resolution of one contact. It ends as soon as a callback destroyed all objects.
class Resolution {
 public:
  Resolution(const BodyTables& tables, ContactInfo* contact, ContactList* current,
             ContactList* previous)
      : m_contact(*contact),
        m_current(*current),
        m_previous(*previous),
        m_a(tables, contact->objectA),
        m_b(tables, contact->objectB) {}

  void Run() {
    if (m_a.body != nullptr && m_b.body != nullptr) {
      RunTwoBodies();
    } else if (m_a.body != nullptr) {
      RunOneBody(m_a, m_b, 1.0f);
    } else if (m_b.body != nullptr) {
      RunOneBody(m_b, m_a, -1.0f);
    }
  }

 private:
  void RunTwoBodies() {
    const Vector3D& n = m_contact.normal;
    if (std::isnan(n.x) || std::isnan(n.y)) {
      ZOVAssert("physicssystem.cpp", 291, "Collision Normal is NAN");
    }
    if (m_contact.contactPoints.empty()) m_contact.ignored = true;
    for (const Vector3D& point : m_contact.contactPoints) {
      const Vector3D arm_a = point - m_a.Center();
      const Vector3D arm_b = point - m_b.Center();
      m_contact.relativeVelocity = VelocityAt(*m_a.body, arm_a) - VelocityAt(*m_b.body, arm_b);
      m_contact.normalVelocity = Dot(m_contact.relativeVelocity, n);
      if (!TellBoth(m_a, m_b)) return;
      if (!m_contact.ignored && m_contact.normalVelocity < 0.0f) Collide(arm_a, arm_b);
    }
    if (!m_contact.ignored) Separate();
  }

  /// The impulse between two bodies at a point (Hecker, "Physics, Part 3: Collision Response",
  /// 1997).
  void Collide(const Vector3D& arm_a, const Vector3D& arm_b) {
    RigidBody& a = *m_a.body;
    RigidBody& b = *m_b.body;
    const float rest = std::min(a.m_rest, b.m_rest);
    const float cross_a = Cross(arm_a, m_contact.normal);
    const float cross_b = Cross(arm_b, m_contact.normal);
    const float size = -(rest + 1.0f) * m_contact.normalVelocity /
                       (a.m_inv_mass + b.m_inv_mass + cross_a * cross_a * a.m_inv_inertia +
                        cross_b * cross_b * b.m_inv_inertia);
    const Vector3D impulse = m_contact.normal * size;
    Push(&a, arm_a, impulse);
    Pull(&b, arm_b, impulse);
  }

  /// Shares the penetration out by the inverse masses.
  void Separate() {
    const float share =
        std::max(m_contact.penetration, 0.0f) / (m_a.body->m_inv_mass + m_b.body->m_inv_mass);
    const Vector3D correction = m_contact.normal * share;
    m_a.Move(correction * m_a.body->m_inv_mass);
    m_b.Move(correction * -m_b.body->m_inv_mass);
  }

  /// `side` has the body. Its velocity is deliberately measured against the unturned normal on both
  /// sides, so that a body that is B is not bounced by its approach, only pushed out.
  void RunOneBody(const Side& side, const Side& other, float outward) {
    if (m_contact.contactPoints.empty()) m_contact.ignored = true;
    const Vector3D& n = m_contact.normal;
    for (const Vector3D& point : m_contact.contactPoints) {
      const Vector3D arm = point - side.Center();
      const float approach = Dot(VelocityAt(*side.body, arm), n);
      if (!TellBoth(side, other)) return;
      if (!m_contact.ignored && approach < 0.0f) Bounce(side.body, arm, approach);
    }
    if (!m_contact.ignored) side.Move(n * m_contact.penetration * outward);
  }

  void Bounce(RigidBody* body, const Vector3D& arm, float approach) {
    const float cross = Cross(arm, m_contact.normal);
    const float size = -(body->m_rest + 1.0f) * approach /
                       (body->m_inv_mass + cross * cross * body->m_inv_inertia);
    Push(body, arm, m_contact.normal * size);
  }

  /// Records the point and calls both sides. False if a callback destroyed all objects.
  bool TellBoth(const Side& first, const Side& second) {
    m_current.push_back({m_contact.objectA, m_contact.objectB, m_contact});
    const bool is_new = !m_previous.Contains(m_contact.objectA, m_contact.objectB);
    using Dispatch = void (GameObj::*)(ContactInfo*);
    const auto tell = [this](const Side& side, Dispatch dispatch) {
      if (g_game_obj_factory->ClearCount() == m_clears) (side.object->*dispatch)(&m_contact);
    };
    tell(first, &GameObj::DispatchCollisionStay);
    tell(second, &GameObj::DispatchCollisionStay);
    if (is_new) {
      tell(first, &GameObj::DispatchCollisionEnter);
      tell(second, &GameObj::DispatchCollisionEnter);
    }
    return g_game_obj_factory->ClearCount() == m_clears;
  }

  ContactInfo& m_contact;
  ContactList& m_current;
  ContactList& m_previous;
  Side m_a;
  Side m_b;
  std::uint64_t m_clears = g_game_obj_factory->ClearCount();
};

}  // namespace

void ResolveContact(const BodyTables& tables, ContactInfo* contact, ContactList* current,
                    ContactList* previous) {
  Resolution(tables, contact, current, previous).Run();
}

void PrefetchContact(const BodyTables& tables, const ContactInfo& contact) {
  for (const std::uint32_t id : {contact.objectA, contact.objectB}) {
    if (const RigidBody* body = tables.bodies.Find(id)) {
      Prefetch(&body->m_vel);
      Prefetch(&body->m_inv_inertia);
      Prefetch(&body->m_rest);
    }
    if (const Transform* transform = tables.transforms.Find(id)) Prefetch(&transform->m_local_pos);
  }
}

}  // namespace ZOVEngine
