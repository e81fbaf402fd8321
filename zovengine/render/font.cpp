#include "render/font.h"

#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::Font;
  rttr::registration::class_<Font>("ZOVEngine::Font")(rttr::metadata("isInspect", true),
                                                      rttr::metadata("componentname", "Font"))
      .property("m_text", &Font::m_text)(ZOVEngine::FieldMetadata("std::string", "Text"));
}
