#include "render/components/font.h"

#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::Font;
  ZOVEngine::ComponentRegistration<Font>("Font").Field("m_text", &Font::m_text, "std::string",
                                                       "Text");
}
