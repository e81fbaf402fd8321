#pragma once

#include "core/contactinfo.h"
#include "physics/contactlist.h"

namespace ZOVEngine {

/// What a contact does: calls the logic components of both sides, then changes velocities, then
/// pushes the sides apart, once and at full strength.
///
/// For each contact point both sides get Stay, and before the impulse Enter too if the pair is not
/// in `previous`; the point is recorded in `current`. A callback may set the contact's `ignored`
/// flag to let it pass through. A contact without points does nothing. Ends the program with a
/// report when a normal between two bodies is no number; two immovable bodies in contact get
/// positions that are no numbers.
void ResolveContact(ContactInfo* contact, ContactList* current, ContactList* previous);

}  // namespace ZOVEngine
