#include "render/components/font.h"

#include "objects/fields.h"

namespace ZOVEngine {

template <class Visitor>
void Font::Fields(Visitor& visit) {
  visit("m_text", &Font::m_text, "Text");
  visit("m_colour", &Font::m_colour);
}
ZOV_COMPONENT_FIELDS(Font)

}  // namespace ZOVEngine
