#include "objects/jsontrail.h"

#include <utility>

#include "jsonunserializer.h"
#include "objects/rapidjsonconfig.h"

namespace ZOVEngine {
namespace {

struct Place {
  std::string file;
  std::string object;
  std::string component;
  std::string key;
};

Place& Current() {
  static Place place;
  return place;
}

void ClearComponent() {
  Current().component.clear();
  Current().key.clear();
}

void Append(std::string* text, const char* kind, const std::string& name) {
  if (name.empty()) return;
  if (!text->empty()) *text += ": ";
  *text += kind + (" \"" + name + "\"");
}

}  // namespace

JsonTrail::FileScope::FileScope(std::string path)
    : m_path(std::exchange(Current().file, std::move(path))),
      m_object(std::exchange(Current().object, std::string())) {
  ClearComponent();
}

JsonTrail::FileScope::~FileScope() {
  Current().file = std::move(m_path);
  Current().object = std::move(m_object);
  ClearComponent();
}

JsonTrail::ObjectScope::ObjectScope(const std::string& name)
    : m_outer(std::exchange(Current().object, name)) {
  ClearComponent();
}

JsonTrail::ObjectScope::~ObjectScope() {
  Current().object = std::move(m_outer);
  ClearComponent();
}

void JsonTrail::EnterComponent(const char* name) {
  Current().component = name;
  Current().key.clear();
}

void JsonTrail::EnterKey(const char* key) {
  Current().key = key;
}

std::string JsonTrail::Describe() {
  const Place& place = Current();
  std::string text = place.file;
  Append(&text, "object", place.object);
  Append(&text, "component", place.component);
  Append(&text, "key", place.key);
  return text;
}

void FailReading(const std::string& what) {
  const std::string place = JsonTrail::Describe();
  ZOV_ASSERT(false, place.empty() ? what : place + ": " + what);
  __builtin_unreachable();
}

void JsonAssertFailed(const char* expression, const char* file, int line) {
  const std::string place = JsonTrail::Describe();
  const std::string what = std::string("JSON assertion ") + expression;
  ZOVAssert(SourceFileName(file), static_cast<std::uint32_t>(line),
            place.empty() ? what : place + ": " + what);
}

}  // namespace ZOVEngine
