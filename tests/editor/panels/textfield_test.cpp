#include "editor/panels/textfield.h"

#include <gtest/gtest.h>
#include <imgui.h>

#include "support/imguiframe.h"

namespace ZOVEngine {
namespace {

TEST(ContainsIgnoringCase, FindsAPartWhateverItsCase) {
  EXPECT_TRUE(ContainsIgnoringCase("Weapon0Barrel", "weapon0b"));
  EXPECT_TRUE(ContainsIgnoringCase("Weapon0Barrel", "BARREL"));
  EXPECT_TRUE(ContainsIgnoringCase("Weapon0Barrel", ""));
  EXPECT_TRUE(ContainsIgnoringCase("", ""));
  EXPECT_FALSE(ContainsIgnoringCase("Weapon0Barrel", "barrels"));
}

TEST(TextField, ALongTextKeepsItsLengthWhenItIsShown) {
  carapace_test::ImGuiContextForTest context(300.0f, 100.0f);
  std::string text(6000, 'x');
  context.Frame([&] { EXPECT_FALSE(TextField("##text", &text)); });
  EXPECT_EQ(text.size(), 6000u);
}

}  // namespace
}  // namespace ZOVEngine
