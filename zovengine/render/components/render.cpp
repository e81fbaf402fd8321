#include "render/components/render.h"

#include "jsonunserializer.h"
#include "objects/componentmanager.h"
#include "physics/components/transform.h"

namespace ZOVEngine {

Render::Render(GameObj* owner) : GameComponentBase(owner) {
  if (owner->HasComponent<Transform>()) OwnTransform();
}

Transform* Render::OwnTransform() {
  if (m_transform_owner != m_owner) {
    m_transform = m_owner->GetComponent<Transform>();
    m_transform_owner = m_owner;
  }
  return m_transform;
}

void Render::Unserialize(const Value& value) {
  ReadValue(value, "m_tile", &m_tile);
  ReadValue(value, "m_visible", &m_visible);
  ReadValue(value, "m_zLayer", &m_zLayer);
  ReadValue(value, "m_tex", &m_tex);
  ReadValue(value, "m_hl_tex", &m_hl_tex);
  ReadVector4(value, "m_colour", &m_colour);
  ReadValue(value, "m_shader", &m_shader);
}

void Render::Serialize(Writer& writer) {
  WriteValue(writer, "m_tile", m_tile);
  WriteValue(writer, "m_visible", m_visible);
  WriteValue(writer, "m_zLayer", m_zLayer);
  WriteValue(writer, "m_tex", m_tex);
  WriteValue(writer, "m_hl_tex", m_hl_tex);
  WriteVector4(writer, "m_colour", m_colour);
  WriteValue(writer, "m_shader", m_shader);
}

}  // namespace ZOVEngine
