#include "ui/buttons/glossarytabs.h"

#include <gtest/gtest.h>

#include "ui/interfaceworlds.h"

namespace ZOVEngine {
namespace {

using carapace_test::ButtonRecord;
using carapace_test::LevelScreen;
using carapace_test::PieceRecord;

TEST(GlossaryTabs, OnlyThePiecesOfTheirGlossaryChange) {
  const LevelScreen level({PieceRecord("ui_pause_glossary_img", {}),
                           PieceRecord("menu_glossary_img", {}),
                           ButtonRecord("default", "here", {}, "menu_glossary_weapons")});
  ShowSurroundingsTab(level.Find("level"), kPauseGlossary);
  EXPECT_EQ(level.Sprite("ui_pause_glossary_img").m_tex, kSurroundingsPage);
  EXPECT_EQ(level.Sprite("menu_glossary_img").m_tex, "rest");
  EXPECT_EQ(level.Of<Button>("menu_glossary_weapons").m_default_tex, "rest");
}

TEST(GlossaryTabs, AScreenWithoutAGlossaryStaysAsItIs) {
  const LevelScreen level({PieceRecord("other", {})});
  ShowWeaponsTab(level.Find("level"), kPauseGlossary);
  EXPECT_EQ(level.Sprite("other").m_tex, "rest");
}

}  // namespace
}  // namespace ZOVEngine
