#include "objects/statec.h"

#include "objects/fields.h"

namespace ZOVEngine {

template <class Visitor>
void StateC::Fields(Visitor& visit) {
  visit("m_state", &StateC::m_state);
}
ZOV_COMPONENT_FILE(StateC)

}  // namespace ZOVEngine
