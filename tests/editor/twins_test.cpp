#include "editor/twins.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/editortest.h"
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
    const ObjectPath root = {0};
    std::vector<Saved> out;
    for (std::uint32_t i = 1; i < document.Children(root)->Size(); ++i) {
      const ObjectPath path = {0, i}, before = {0, i - 1};
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
  for (std::uint32_t i = 0; i < document.Children({0})->Size(); ++i) {
    if (document.Name({0, i}) != "EnvBlackholeTwin") continue;
    document.Json()[kRoots][0][kChildren][i]["Transform"]["m_pos"][0].SetDouble(-5.0);
  }
  ASSERT_NE(document.Text(), text);
  FoldTwins(&document.Json()[kRoots]);
  EXPECT_TRUE(TextWithTwins(document) == text);
}

TEST(Twins, AHazardWithoutALoopAndALoopWithoutAHazardHaveNone) {
  for (const char* components :
       {R"("EnvironmentRough": {})", R"("Animation": {"m_loop": "Sheet"})",
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
