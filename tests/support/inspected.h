#pragma once

#include <string>
#include <vector>

namespace carapace_test {

/// What the inspector shows of a component class, "name|typeinfo|label" for each field that the
/// class itself declares, in order. Expects that the class and its fields say that they are to be
/// inspected, and that each field is displayed in `display_mode`.
std::vector<std::string> InspectedFields(const std::string& class_name,
                                         const std::string& display_mode = "default");

}  // namespace carapace_test
