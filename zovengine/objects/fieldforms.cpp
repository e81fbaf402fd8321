#include "objects/fieldforms.h"

#include <utility>

namespace ZOVEngine {
namespace {

std::map<std::string, FieldEntries>& Forms() {
  static std::map<std::string, FieldEntries> forms;
  return forms;
}

}  // namespace

const std::map<std::string, FieldEntries>& ListedForms() {
  return Forms();
}

bool ListForms(const char* class_name, FieldEntries entries) {
  Forms()[class_name] = std::move(entries);
  return true;
}

}  // namespace ZOVEngine
