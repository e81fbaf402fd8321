#include "support/inspected.h"

#include <gtest/gtest.h>

#include <rttr/type>

namespace carapace_test {
namespace {

std::string Text(const rttr::property& property, const char* key) {
  return property.get_metadata(std::string(key)).get_value<std::string>();
}

}  // namespace

std::vector<std::string> InspectedFields(const std::string& class_name,
                                         const std::string& display_mode) {
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::" + class_name);
  EXPECT_TRUE(type.is_valid()) << class_name;
  EXPECT_TRUE(type.get_metadata("isInspect").to_bool()) << class_name;
  EXPECT_EQ(type.get_metadata("componentname").get_value<std::string>(), class_name);
  std::vector<std::string> fields;
  for (const rttr::property& property : type.get_properties()) {
    if (property.get_declaring_type() != type) continue;
    const std::string name = property.get_name().to_string();
    EXPECT_TRUE(property.get_metadata("is_inspect").to_bool()) << name;
    EXPECT_EQ(Text(property, "DisplayMode"), display_mode) << name;
    fields.push_back(name + "|" + Text(property, "typeinfo") + "|" + Text(property, "name"));
  }
  return fields;
}

}  // namespace carapace_test
