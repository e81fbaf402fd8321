#pragma once

#include "core/contactinfo.h"
#include "objects/componentmanager.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "physics/contactlist.h"

namespace ZOVEngine {

/// The tables of the components that a contact reads or changes.
struct BodyTables {
  ComponentManager<Transform>& transforms;
  ComponentManager<RigidBody>& bodies;
  ComponentManager<ColliderHolder>& holders;
};

/// Resolves a contact: calls the logic components of both sides, changes the velocities, and pushes
/// the sides apart, once and at full strength.
///
/// For each contact point both sides get Stay, and before the impulse Enter too if the pair is not
/// in `previous`; the point is recorded in `current`. A callback may set the contact's `ignored`
/// flag to let it pass through. A contact without points does nothing. Ends the program with a
/// report when a normal between two bodies is not a number. Two immovable bodies in contact get
/// positions that are not numbers.
void ResolveContact(const BodyTables& tables, ContactInfo* contact, ContactList* current,
                    ContactList* previous);
/// Begins to load the memory that ResolveContact will read for a contact.
void PrefetchContact(const BodyTables& tables, const ContactInfo& contact);

}  // namespace ZOVEngine
