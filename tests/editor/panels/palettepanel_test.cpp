#include "editor/panels/palettepanel.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "editor/editorview.h"
#include "gameobj.h"
#include "physics/components/transform.h"
#include "support/paneltest.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::PanelTest;
using carapace_test::ShippedFile;
using ::testing::HasSubstr;

constexpr const char* kPalette = "Resources/Archetypes/Palette/";

class PalettePanelTest : public PanelTest {
 protected:
  PalettePanelTest() : PanelTest(765.0f, 290.0f, ImVec2(1920.0f, 1080.0f)) {
    const std::string folder = std::string(CARAPACE_SOURCE_DIR) + "/" + kPalette;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      const std::string path = kPalette + file.path().filename().string();
      world.Directory().Write(path, ShippedFile(path));
    }
    Show(2);
  }
  void ShowPanel() override { panel.Show(*editor); }

  /// The window's point at which the level's (x, y) is shown.
  static ImVec2 InWindow(float x, float y) {
    const Vector3D place = WorldToWindow(Vector3D(x, y, 0.0f));
    return ImVec2(place.x, place.y);
  }
  const Transform& Placed() const {
    return *ObjectAt(editor->Primary())->GetComponent<Transform>();
  }
  std::size_t Children() const { return ObjectAt(PathOf("level"))->children.size(); }

  PalettePanel panel;
};

TEST_F(PalettePanelTest, ShowsItsEntries) {
  for (const char* name : {"Player unit", "BASIC", "Rough floor"}) EXPECT_TRUE(Sees(name)) << name;
  ClickText("Lights");
  EXPECT_TRUE(Sees("Warm light"));
  EXPECT_FALSE(Sees("Rough floor"));
}

TEST_F(PalettePanelTest, TheSearchLeavesWhatFits) {
  Click(At("Search"));
  Type("rough");
  Show();
  EXPECT_TRUE(Sees("Rough floor"));
  EXPECT_FALSE(Sees("Damaging floor"));
}

TEST_F(PalettePanelTest, AClickOnAnEntryAndOneInTheLevelPutItThere) {
  const std::size_t before = Children();
  ClickText("Rough floor");
  EXPECT_EQ(Children(), before);
  Click(InWindow(150.0f, 75.0f));
  ASSERT_EQ(Children(), before + 1);
  EXPECT_EQ(ObjectAt(editor->Primary())->name, "EnvRough");
  EXPECT_NEAR(Placed().m_local_pos.x, 150.0f, 2.0f);
  EXPECT_NEAR(Placed().m_local_pos.y, 75.0f, 2.0f);
  EXPECT_EQ(editor->history.Size(), 1u);
  Click(InWindow(0.0f, 75.0f));
  EXPECT_EQ(Children(), before + 1) << "it is no longer in hand";
  editor->Undo();
  EXPECT_EQ(Children(), before);
}

TEST_F(PalettePanelTest, WithShiftAnEntryStaysInHand) {
  const std::size_t before = Children();
  ClickText("Rough floor");
  HoldShift(true);
  Click(InWindow(150.0f, 75.0f));
  Click(InWindow(300.0f, 75.0f));
  EXPECT_EQ(Children(), before + 2);
}

TEST_F(PalettePanelTest, EscapeLaysAnEntryDown) {
  const std::size_t before = Children();
  ClickText("Rough floor");
  Press(ImGuiKey_Escape);
  Click(InWindow(150.0f, 75.0f));
  EXPECT_EQ(Children(), before);
}

TEST_F(PalettePanelTest, AnEntryIsDraggedIntoTheLevel) {
  const std::size_t before = Children();
  Drag(At("Rough floor"), InWindow(-90.0f, 30.0f));
  ASSERT_EQ(Children(), before + 1);
  EXPECT_NEAR(Placed().m_local_pos.x, -90.0f, 2.0f);
}

TEST_F(PalettePanelTest, AnEntryThatIsLetGoOverThePanelIsNotInserted) {
  const std::size_t before = Children();
  Drag(At("Rough floor"), At("Search"));
  EXPECT_EQ(Children(), before);
}

TEST_F(PalettePanelTest, AHazardIsOneObject) {
  const std::size_t before = Children();
  ClickText("Black hole");
  Click(InWindow(150.0f, 75.0f));
  EXPECT_EQ(Children(), before + 1);
  EXPECT_EQ(editor->selection.size(), 1u);
}

TEST_F(PalettePanelTest, UnitsStandBehindTheUnitsAndHazardsBehindTheHazards) {
  ClickText("Enemy unit");
  Click(InWindow(150.0f, 75.0f));
  const ObjectPath unit = editor->Primary();
  EXPECT_GT(unit, PathOf("player1"));
  EXPECT_LT(unit, PathOf("aoe_indicator"));
  ClickText("Rough floor");
  Click(InWindow(0.0f, 75.0f));
  EXPECT_LT(editor->Primary(), PathOf("player1"));
}

TEST_F(PalettePanelTest, AWeaponIsGivenToTheSelectedUnit) {
  Select("player1");
  ClickText("Weapons");
  ClickText("VACUUM");
  const Value& unit = *editor->document.Find(PathOf("player1"));
  std::string shot;
  for (const Value& child : unit["Childs"].GetArray()) {
    if (std::string(child["name"].GetString()) == "Weapon0Projectile") shot = ToText(child);
  }
  EXPECT_NE(shot.find("ProjectileVacuum"), std::string::npos);
  EXPECT_NE(ToText(unit).find("Gun_Vacuum_Green"), std::string::npos);
  EXPECT_EQ(editor->history.Size(), 1u);
}

TEST_F(PalettePanelTest, AWeaponNeedsASelectedUnit) {
  ClickText("Weapons");
  ClickText("VACUUM");
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_THAT(LastLine(), HasSubstr("Select a player's or an enemy's unit"));
}

TEST_F(PalettePanelTest, EveryEntryIsInsertedAndLives) {
  std::vector<std::string> faults;
  const std::vector<PaletteEntry> entries = LoadPalette(&faults);
  EXPECT_THAT(faults, ::testing::IsEmpty());
  EXPECT_EQ(entries.size(), 42u);
  const std::size_t before = LevelObjects().size();
  for (const PaletteEntry& entry : entries) {
    InsertEntry(*editor, entry, 100.0f, 50.0f, {nullptr, nullptr});
    EXPECT_EQ(editor->selection.size(), entry.records.size()) << entry.name;
  }
  world.Step(3);
  EXPECT_GT(LevelObjects().size(), before + entries.size());
}

TEST_F(PalettePanelTest, ANewLevelBeginsWithWhatEveryLevelNeeds) {
  ASSERT_TRUE(editor->Create({"Fresh", 32, 18, 60}));
  const ObjectPath root = FindLevelRoot(editor->document);
  ASSERT_EQ(root.size(), 1u);
  EXPECT_THAT(editor->document.Fields(root, "GameController"),
              HasSubstr("Level Editor/Levels/Fresh/Fresh.json"));
  EXPECT_NE(PathOf("camera"), ObjectPath());
  EXPECT_NE(PathOf("ui_pause_resume"), ObjectPath());
}

}  // namespace
}  // namespace ZOVEngine
