#include "editor/twins.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/editortest.h"
#include "editor/palette.h"
#include "jsonunserializer.h"

namespace ZOVEngine {
namespace {

using carapace_test::EditorTest;
using carapace_test::ShippedFile;

class TwinsOfEveryShippedLevel : public ::testing::TestWithParam<const char*> {};

TEST_P(TwinsOfEveryShippedLevel, ComeBackAsTheyWere) {
  LevelDocument document;
  ASSERT_TRUE(document.SetText(ShippedFile(LevelPaths(GetParam()).objects)));
  const std::string before = document.Text();
  FoldTwins(&document.Json()[kRoots]);
  EXPECT_EQ(document.Text().find("Twin\""), std::string::npos);
  EXPECT_TRUE(TextWithTwins(document) == before);
}

INSTANTIATE_TEST_SUITE_P(All, TwinsOfEveryShippedLevel,
                         ::testing::Values("Level00", "Level01", "Level02", "Level03", "Level04"),
                         [](const auto& test) { return test.param; });

/// The second level, which has three hazards with a twin.
class TwinsTest : public EditorTest {
 protected:
  TwinsTest() : EditorTest("Level02") { EXPECT_TRUE(editor->Open("Level02")); }

  /// What the saved file has of a hazard and of the record before it.
  struct Saved {
    std::string place, twins_name, twins_place;
  };
  std::vector<Saved> Save(const std::string& hazard) {
    EXPECT_TRUE(editor->Save());
    LevelDocument document;
    EXPECT_TRUE(document.SetText(Now()[LevelPaths("Level02").objects]));
    const ObjectPath root = FindLevelRoot(document);
    std::vector<Saved> out;
    for (std::uint32_t i = 1; i < document.Children(root)->Size(); ++i) {
      const ObjectPath path = {root[0], i}, before = {root[0], i - 1};
      const bool example = !document.Fields(path, "UIElement").empty();  // of the glossary
      if (document.Name(path) != hazard || example) continue;
      out.push_back({document.Fields(path, "Transform"), document.Name(before),
                     document.Fields(before, "Transform")});
    }
    return out;
  }

  ObjectPath Hazard() { return PathTo(world.Find("EnvBlackhole")); }
};

TEST_F(TwinsTest, AreNotAmongTheObjectsOfTheEditor) {
  EXPECT_EQ(world.Find("EnvBlackholeTwin"), nullptr);
  EXPECT_NE(world.Find("EnvBlackhole"), nullptr);
}

TEST_F(TwinsTest, MoveTurnAndScaleWithTheirHazard) {
  ObjectGesture gesture;
  gesture.Begin({Hazard()});
  Transform& transform = *ObjectAt(Hazard())->GetComponent<Transform>();
  transform.m_local_pos += Vector3D(60.0f, -30.0f, 0.0f);
  transform.m_local_rotate += 45.0f;
  transform.m_local_scale = Vector3D(240.0f, 200.0f, 1.0f);
  editor->Do(gesture.End(&editor->document, "Change"));
  const std::vector<Saved> saved = Save("EnvBlackhole");
  ASSERT_EQ(saved.size(), 1u);
  EXPECT_EQ(saved[0].twins_name, "EnvBlackholeTwin");
  EXPECT_EQ(saved[0].twins_place, saved[0].place);
  EXPECT_NE(saved[0].place.find("240.0"), std::string::npos);
}

TEST_F(TwinsTest, AreCopiedWithTheirHazard) {
  editor->Do(editor->scene.Duplicate({Hazard()}, 60.0f, 0.0f));
  const std::vector<Saved> saved = Save("EnvBlackhole");
  ASSERT_EQ(saved.size(), 2u);
  for (const Saved& hole : saved) {
    EXPECT_EQ(hole.twins_name, "EnvBlackholeTwin");
    EXPECT_EQ(hole.twins_place, hole.place);
  }
  EXPECT_NE(saved[0].place, saved[1].place);
}

TEST_F(TwinsTest, AreDeletedWithTheirHazard) {
  editor->Do(editor->scene.Delete({Hazard()}));
  EXPECT_TRUE(Save("EnvBlackhole").empty());
  EXPECT_TRUE(Save("EnvBlackholeTwin").empty());
}

TEST_F(TwinsTest, AreRenamedWithTheirHazard) {
  ObjectGesture gesture;
  gesture.Begin({Hazard()});
  ObjectAt(Hazard())->name = "Maw";
  editor->Do(gesture.End(&editor->document, "Rename"));
  const std::vector<Saved> saved = Save("Maw");
  ASSERT_EQ(saved.size(), 1u);
  EXPECT_EQ(saved[0].twins_name, "MawTwin");
}

TEST_F(TwinsTest, ATwinThatLiesElsewhereIsBroughtToItsHazard) {
  LevelDocument document;
  ASSERT_TRUE(document.SetText(files[LevelPaths("Level02").objects]));
  const std::string text = document.Text();
  const std::uint32_t root = FindLevelRoot(document)[0];
  for (std::uint32_t i = 0; i < document.Children({root})->Size(); ++i) {
    if (document.Name({root, i}) != "EnvBlackholeTwin") continue;
    document.Json()[kRoots][root][kChildren][i]["Transform"]["m_pos"][0].SetDouble(-5.0);
  }
  ASSERT_NE(document.Text(), text);
  FoldTwins(&document.Json()[kRoots]);
  EXPECT_TRUE(TextWithTwins(document) == text);
}

TEST_F(TwinsTest, APartOfAUnitHasATwinThatFollowsIt) {
  const std::vector<GameObj*>& parts = world.Find("player1")->children;
  std::uint32_t place = 0;
  while (parts[place]->name != "electricvfx") ++place;
  EXPECT_NE(parts[place - 1]->name, "electricvfxTwin");
  Move(PathTo(parts[place]), 30.0f, 0.0f);
  ObjectPath unit = PathTo(world.Find("player1"));
  const std::string moved = editor->document.Fields({unit[0], unit[1], place}, "Transform");
  EXPECT_TRUE(editor->Save());
  LevelDocument saved;
  ASSERT_TRUE(saved.SetText(Now()[LevelPaths("Level02").objects]));
  while (saved.Name(unit) != "player1") ++unit[1];  // the twins of hazards stand before it
  EXPECT_EQ(saved.Name({unit[0], unit[1], place}), "electricvfxTwin");
  EXPECT_EQ(saved.Fields({unit[0], unit[1], place}, "Transform"), moved);
  EXPECT_EQ(saved.Fields({unit[0], unit[1], place + 1}, "Transform"), moved);
}

/// The names of a document's records with their twins.
std::vector<std::string> NamesWithTwins(const std::string& records) {
  LevelDocument document;
  EXPECT_TRUE(document.SetText(R"({"GameObjFactory": [)" + records + "]}"));
  rapidjson::Document json;
  json.Parse(TextWithTwins(document).c_str());
  std::vector<std::string> names;
  for (const Value& record : json[kRoots].GetArray()) names.push_back(record["name"].GetString());
  return names;
}

/// A record that loops through a sheet.
std::string Looping(const std::string& name, const std::string& sheet,
                    const std::string& more = "") {
  return R"({"name": ")" + name + R"(", "Animation": {"m_loop": ")" + sheet + "\"}" + more + "}";
}

TEST(Twins, OfSpritesWithOneLoopTheFirstHasATwinAndTheOthersHaveTheOneBefore) {
  EXPECT_EQ(NamesWithTwins(Looping("a", "Blast") + "," + Looping("b", "Blast") + "," +
                           Looping("c", "Spark")),
            (std::vector<std::string>{"aTwin", "a", "b", "cTwin", "c"}));
}

TEST(Twins, EachHazardHasATwinOfItsOwn) {
  const std::string hole = R"(, "EnvironmentBlackhole": {})";
  EXPECT_EQ(NamesWithTwins(Looping("a", "Hole", hole) + "," + Looping("b", "Hole", hole)),
            (std::vector<std::string>{"aTwin", "a", "bTwin", "b"}));
}

TEST(Twins, ATwinIsDrawnInvisiblyEvenOfASpriteThatIsSwitchedOff) {
  LevelDocument document;
  ASSERT_TRUE(document.SetText(
      R"({"GameObjFactory": [)" +
      Looping("a", "Spark", R"(, "Render": {"m_visible": false, "m_colour": [1, 1, 1, 1]})") +
      "]}"));
  rapidjson::Document json;
  json.Parse(TextWithTwins(document).c_str());
  const Value& render = json[kRoots][0]["Render"];
  EXPECT_TRUE(render["m_visible"].GetBool());
  EXPECT_EQ(render["m_colour"][3].GetDouble(), 0.0);
}

TEST(Twins, WithoutALoopAndInTheInterfaceThereAreNone) {
  for (const char* components :
       {R"("EnvironmentRough": {})", R"("Animation": {"m_loop": ""})",
        R"("EnvironmentDamage": {}, "Animation": {"m_loop": ""})",
        R"("EnvironmentDamage": {}, "Animation": {"m_loop": "Sheet"}, "UIElement": {})"}) {
    LevelDocument document;
    ASSERT_TRUE(document.SetText(std::string(R"({"GameObjFactory": [{"name": "a", )") + components +
                                 "}]}"));
    EXPECT_EQ(TextWithTwins(document), document.Text()) << components;
  }
}

TEST(Twins, ARecordThatIsNoObjectIsLeftToTheRules) {
  LevelDocument document;
  ASSERT_TRUE(document.SetText(R"({"GameObjFactory": [7, {"name": 7, "Childs": 7}, null]})"));
  const std::string text = document.Text();
  FoldTwins(&document.Json()[kRoots]);
  EXPECT_EQ(TextWithTwins(document), text);
}

}  // namespace
}  // namespace ZOVEngine
