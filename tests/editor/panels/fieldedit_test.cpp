#include "editor/panels/fieldedit.h"

#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

TEST(ReplaceField, PutsOneValueInPlaceOfAnother) {
  const std::string fields = R"({"a": 1, "b": [2, 3]})";
  EXPECT_EQ(ReplaceField(fields, "", "{}"), "{}");
  rapidjson::Document out;
  out.Parse(ReplaceField(fields, "b", "[4]").c_str());
  EXPECT_EQ(out["a"].GetInt(), 1);
  EXPECT_EQ(out["b"].Size(), 1u);
  EXPECT_EQ(ReplaceField(fields, "c", "5"), fields);
}

}  // namespace
}  // namespace ZOVEngine
