#pragma once

#include "core/contactinfo.h"
#include "objects/componentmanager.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physics/contactlist.h"

namespace ZOVEngine {

/// The tables of what a contact moves, by object id.
struct BodyTables {
  ComponentManager<Transform>& transforms;
  ComponentManager<RigidBody>& bodies;
  ComponentManager<ColliderHolder>& holders;
};

/// What a contact does: calls the logic components of both sides, then changes velocities, then
/// pushes the sides apart, once and at full strength.
///
/// For each contact point both sides get Stay, and before the impulse Enter too if the pair is not
/// in `previous`; the point is recorded in `current`. A callback may set the contact's `ignored`
/// flag to let it pass through. A contact without points does nothing. Ends the program with a
/// report when a normal between two bodies is no number; two immovable bodies in contact get
/// positions that are no numbers.
void ResolveContact(const BodyTables& tables, ContactInfo* contact, ContactList* current,
                    ContactList* previous);
/// Begins to load what ResolveContact will want of a contact's objects.
void PrefetchContact(const BodyTables& tables, const ContactInfo& contact);

}  // namespace ZOVEngine
