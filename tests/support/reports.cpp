#include "support/reports.h"

#include <iostream>
#include <sstream>

#include "jsonunserializer.h"
#include "objects/gamecomponentbase.h"
#include "zovassert.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

/// Swaps the buffer of standard output for its life.
class CoutTo {
 public:
  explicit CoutTo(std::streambuf* buffer) : m_before(std::cout.rdbuf(buffer)) {}
  ~CoutTo() { std::cout.rdbuf(m_before); }
  CoutTo(const CoutTo&) = delete;
  CoutTo& operator=(const CoutTo&) = delete;

 private:
  std::streambuf* m_before;
};

struct Report {
  std::string text;
};

void AppendKeys(const Value& value, const std::string& prefix, std::vector<std::string>* keys) {
  if (value.IsArray()) {
    for (const Value& entry : value.GetArray()) AppendKeys(entry, prefix, keys);
  }
  if (!value.IsObject()) return;
  for (const auto& member : value.GetObject()) {
    const std::string key = prefix + member.name.GetString();
    keys->push_back(key);
    AppendKeys(member.value, key + ".", keys);
  }
}

}  // namespace

std::string OutputOf(const std::function<void()>& body) {
  std::ostringstream out;
  {
    const CoutTo redirected(out.rdbuf());
    body();
  }
  return out.str();
}

std::string ReportOf(const std::function<void()>& body) {
  SetAssertBox([](const std::string&, const std::string& text) { throw Report{text}; });
  std::string text;
  try {
    body();
  } catch (const Report& report) {
    text = report.text;
  }
  SetAssertBox(nullptr);
  return text;
}

std::vector<std::string> KeysOf(const std::string& json) {
  JsonDocument document;
  document.ParseText(json, "keys");
  std::vector<std::string> keys;
  AppendKeys(document.Root(), "", &keys);
  return keys;
}

std::string RecordOf(GameComponentBase& component) {
  JsonWriter writer;
  writer.Out().json->StartObject();
  component.Serialize(writer.Out());
  writer.Out().json->EndObject();
  return writer.Text();
}

void ReadRecord(const std::string& json, GameComponentBase& component) {
  JsonDocument document;
  document.ParseText(json, "record");
  component.Unserialize(document.Root());
}

}  // namespace carapace_test
