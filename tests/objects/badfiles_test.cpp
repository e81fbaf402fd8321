// Every file of the program in every broken form: the documented lines, or a report, and never
// anything else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/app/loadscreen.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/collidersystem.h"
#include "platform/windowsystem.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Files;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::ReportOf;
using carapace_test::ShippedFile;
using carapace_test::World;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kSettings = "Resources/Archetypes/WinInit.json";
constexpr const char* kGraphics = "Resources/Textures/graphics.json";
constexpr const char* kCollisions = "Resources/CollisionInfo.json";
constexpr const char* kArchetype = "Resources/Archetypes/GameObjects/particle_test.json";
constexpr const char* kScreen = "Level Editor/Levels/MainMenu/MainMenu.json";
constexpr const char* kObjects = "Level Editor/Levels/MainMenu/Entity/Units.json";

/// Bytes between two places where a file is cut short.
constexpr std::size_t kCutStep = 50;

std::string Nested(const std::string& open, const std::string& close) {
  constexpr int kDepth = 100'000;
  std::string text;
  for (int i = 0; i < kDepth; ++i) text += open;
  for (int i = 0; i < kDepth; ++i) text += close;
  return text;
}

/// Texts that are no JSON object, by what they are.
const std::vector<std::pair<std::string, std::string>>& NoObjects() {
  static const std::vector<std::pair<std::string, std::string>> texts = {
      {"blank", " \n"},
      {"null", "null"},
      {"array", "[]"},
      {"number", "5"},
      {"string", "\"text\""},
      {"true", "true"},
      {"unclosed", "{"},
      {"not a number", "{\"winwidth\": NaN, \"m_pos\": [NaN, 0, 0]}"},
      {"too big", "{\"winwidth\": 1e999}"},
      {"bytes", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)},
      {"byte order mark", "\xEF\xBB\xBF{}"},
      {"utf-16", std::string("\xFF\xFE{\0}\0", 6)},
      {"deep arrays", Nested("[", "]")},
      {"deep objects", Nested("{\"Childs\":[", "]}")},
      {"deep opening", std::string(100'000, '{')},
  };
  return texts;
}

/// The world's start with one file replaced; returns what it printed.
std::string OutputOfStart(const Files& files, const std::function<void()>& look) {
  return OutputOf([&] {
    const World world(files);
    look();
  });
}

std::vector<std::string> CutsOf(const std::string& text) {
  std::vector<std::string> cuts;
  // An empty text would remove the file from the world; a world without it is a test of its own.
  for (std::size_t size = 1; size < text.size(); size += kCutStep) {
    cuts.push_back(text.substr(0, size));
  }
  return cuts;
}

// Settings

void ExpectNoSettings(const std::string& text, const std::string& what) {
  const std::string output = OutputOfStart({{kSettings, text}}, [&] {
    EXPECT_EQ(g_window_system->m_title, "") << what;
    EXPECT_EQ(g_window_system->m_name, "") << what;
    EXPECT_FALSE(g_window_system->m_fullscreen) << what;
    EXPECT_GE(g_window_system->m_width, 1) << what;
    EXPECT_GE(g_window_system->m_height, 1) << what;
  });
  for (const char* key : {"name", "title", "Activate_Console", "Activate_ImGui", "fullscreen",
                          "winwidth", "winheight"}) {
    EXPECT_THAT(output, HasSubstr(std::string("Cant find Key: ") + key + "\n")) << what;
  }
}

TEST(BadSettings, ATextThatIsNoObjectMissesEveryKey) {
  for (const auto& [what, text] : NoObjects()) ExpectNoSettings(text, what);
  ExpectNoSettings("{}", "empty object");
}

TEST(BadSettings, AFileCutShortMissesEveryKey) {
  for (const std::string& cut : CutsOf(ShippedFile(kSettings))) ExpectNoSettings(cut, cut);
}

TEST(BadSettings, SizesBeyondReasonAreHeldWithinBounds) {
  for (const char* size : {"0", "-5", "2147483647", "-2147483648", "4294967295", "1e300", "0.5",
                           "18446744073709551615"}) {
    const std::string number(size);
    const World world({{kSettings, R"({"name": "a", "title": "b", "winwidth": )" + number +
                                       R"(, "winheight": )" + number + "}"}});
    EXPECT_GE(g_window_system->m_width, 1) << size;
    EXPECT_LE(g_window_system->m_width, 16384) << size;
    EXPECT_GE(g_window_system->m_height, 1) << size;
    EXPECT_LE(g_window_system->m_height, 16384) << size;
  }
}

// Graphics

void ExpectNoGraphics(const std::string& text, const std::string& what) {
  const std::string output = OutputOfStart({{kGraphics, text}}, [&] {
    EXPECT_THAT(g_render_system->m_texture_paths, IsEmpty()) << what;
    EXPECT_EQ(g_render_system->m_font_path, "") << what;
    EXPECT_FALSE(g_render_system->m_vsync) << what;
  });
  for (const char* key :
       {"texPath", "fontPath", "vshader", "fshader", "fontvshader", "fontfshader",
        "instancevshader", "instancefshader", "lightvshader", "lightfshader", "vsync"}) {
    EXPECT_THAT(output, HasSubstr(std::string("Cant find Key: ") + key + "\n")) << what;
  }
}

TEST(BadGraphics, ATextThatIsNoObjectMissesEveryKey) {
  for (const auto& [what, text] : NoObjects()) ExpectNoGraphics(text, what);
}

TEST(BadGraphics, AFileCutShortMissesEveryKey) {
  for (const std::string& cut : CutsOf(ShippedFile(kGraphics))) ExpectNoGraphics(cut, cut);
}

// Collision groups

void ExpectNoCollisions(const std::string& text, const std::string& what) {
  const std::string output = OutputOfStart({{kCollisions, text}}, [&] {
    EXPECT_THAT(g_collider_system->m_groups, IsEmpty()) << what;
    EXPECT_THAT(g_collider_system->m_masks, IsEmpty()) << what;
  });
  for (const char* key : {"str_grp", "int_grp", "str_bm", "int_bm"}) {
    EXPECT_THAT(output, HasSubstr(std::string("Cant find Key: ") + key + "\n")) << what;
  }
}

TEST(BadCollisions, ATextThatIsNoObjectMissesEveryKey) {
  for (const auto& [what, text] : NoObjects()) ExpectNoCollisions(text, what);
}

TEST(BadCollisions, AFileCutShortMissesEveryKey) {
  for (const std::string& cut : CutsOf(ShippedFile(kCollisions))) ExpectNoCollisions(cut, cut);
}

// Files that are read while the engine runs

class BadFile : public ::testing::Test {
 protected:
  /// Reads `text` as an archetype; returns the report.
  std::string ReportOfArchetype(const std::string& text) {
    world.Directory().Write("bad.json", text);
    std::string report;
    OutputOf(
        [&] { report = ReportOf([] { g_game_obj_factory->LoadArchetype("bad", "bad.json"); }); });
    return report;
  }

  std::string ReportOfScreen(const std::string& text) {
    world.Directory().Write("bad.json", text);
    std::string report;
    OutputOf([&] { report = ReportOf([] { LoadScreen("bad.json"); }); });
    return report;
  }

  /// Reads `text` as an object file; returns the report, and in `*output` what was printed.
  std::string ReportOfObjects(const std::string& text, std::string* output) {
    world.Directory().Write("bad.json", text);
    std::string report;
    *output =
        OutputOf([&] { report = ReportOf([] { g_game_obj_factory->LoadObjects("bad.json"); }); });
    return report;
  }

  std::string ReportOfObjects(const std::string& text) {
    std::string output;
    return ReportOfObjects(text, &output);
  }

  World world;
};

TEST_F(BadFile, AnArchetypeThatIsNoObjectLacksItsChildren) {
  for (const auto& [what, text] : NoObjects()) {
    EXPECT_THAT(ReportOfArchetype(text), AllOf(HasSubstr("bad.json"), HasSubstr("\"Childs\"")))
        << what;
  }
  EXPECT_THAT(ReportOfArchetype(""), HasSubstr("\"Childs\""));
}

TEST_F(BadFile, AnArchetypeCutShortLacksItsChildren) {
  for (const std::string& cut : CutsOf(ShippedFile(kArchetype))) {
    EXPECT_THAT(ReportOfArchetype(cut), AllOf(HasSubstr("bad.json"), HasSubstr("\"Childs\"")));
  }
}

TEST_F(BadFile, AScreenThatIsNoObjectMissesItsObjects) {
  for (const auto& [what, text] : NoObjects()) {
    EXPECT_THAT(ReportOfScreen(text), HasSubstr("] file not found")) << what;
  }
}

TEST_F(BadFile, AScreenCutShortMissesItsObjects) {
  for (const std::string& cut : CutsOf(ShippedFile(kScreen))) {
    EXPECT_THAT(ReportOfScreen(cut), HasSubstr("] file not found"));
  }
}

TEST_F(BadFile, AnObjectFileThatIsNoObjectIsToldAndLoadsNothing) {
  std::string output;
  for (const auto& [what, text] : NoObjects()) {
    EXPECT_EQ(ReportOfObjects(text, &output), "") << what;
    EXPECT_EQ(output, "bad.json Not Object\n") << what;
  }
  EXPECT_EQ(ReportOfObjects("", &output), "");
  EXPECT_EQ(output, "bad.json Not Object\n");
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
}

TEST_F(BadFile, AnObjectFileCutShortIsToldAndLoadsNothing) {
  std::string output;
  for (const std::string& cut : CutsOf(ShippedFile(kObjects))) {
    EXPECT_EQ(ReportOfObjects(cut, &output), "");
    EXPECT_EQ(output, "bad.json Not Object\n");
  }
  EXPECT_THAT(g_game_obj_factory->m_objects, IsEmpty());
}

TEST_F(BadFile, AnObjectFileNeedsItsArray) {
  EXPECT_THAT(ReportOfObjects("{}"), HasSubstr("\"GameObjFactory\""));
  for (const char* value : {"{}", "null", "5", "\"text\"", "true"}) {
    EXPECT_THAT(ReportOfObjects(std::string("{\"GameObjFactory\": ") + value + "}"),
                AllOf(HasSubstr("bad.json"), HasSubstr("\"GameObjFactory\"")))
        << value;
  }
}

TEST_F(BadFile, ARecordThatIsNoObjectLacksItsChildren) {
  for (const char* record : {"5", "null", "[]", "\"text\"", "{}"}) {
    EXPECT_THAT(ReportOfObjects(std::string("{\"GameObjFactory\": [") + record + "]}"),
                HasSubstr("\"Childs\""))
        << record;
  }
}

TEST_F(BadFile, ObjectsBeforeABadRecordAreThere) {
  ReportOfObjects("{\"GameObjFactory\": [" + Record("good", {}) + ", 5]}");
  EXPECT_NE(world.Find("good"), nullptr);
}

/// A record with one of its keys replaced.
std::string FileWith(const std::string& key, const std::string& value) {
  std::string record = "{";
  for (const auto& [own_key, own_value] :
       std::vector<std::pair<std::string, std::string>>{{"name", "\"fly\""},
                                                        {"active", "true"},
                                                        {"components", "[\"Transform\"]"},
                                                        {"Transform", "{\"m_pos\": [0, 0, 0]}"},
                                                        {"Childs", "[]"}}) {
    if (record.size() > 1) record += ", ";
    record += "\"" + own_key + "\": " + (own_key == key ? value : own_value);
  }
  return "{\"GameObjFactory\": [" + record + "}]}";
}

TEST_F(BadFile, AKeyOfARecordWithAValueOfAnotherTypeIsReported) {
  EXPECT_EQ(ReportOfObjects(FileWith("", "")), "") << "the record as such is sound";
  for (const char* value : {"5", "null", "[]", "{}", "true"}) {
    EXPECT_THAT(ReportOfObjects(FileWith("name", value)), HasSubstr("\"name\"")) << value;
  }
  for (const char* value : {"5", "null", "{}", "\"Transform\"", "[5]", "[null]", "[[]]"}) {
    EXPECT_THAT(ReportOfObjects(FileWith("components", value)), HasSubstr("\"components\""))
        << value;
  }
  for (const char* value : {"5", "null", "{}", "\"text\"", "true"}) {
    EXPECT_THAT(ReportOfObjects(FileWith("Childs", value)), HasSubstr("\"Childs\"")) << value;
  }
  for (const char* value : {"5", "null", "{}", "\"text\""}) {
    EXPECT_EQ(ReportOfObjects(FileWith("active", value)), "") << "anything else is false";
  }
}

TEST_F(BadFile, AFieldWithAValueOfAnotherTypeIsReportedWithItsPlace) {
  for (const char* value : {"5", "[1, 2]", "[1, 2, 3, 4]", "[1, 2, \"3\"]", "null", "{}"}) {
    EXPECT_THAT(ReportOfObjects(FileWith("Transform", std::string("{\"m_pos\": ") + value + "}")),
                AllOf(HasSubstr("bad.json"), HasSubstr("\"fly\""), HasSubstr("\"Transform\""),
                      HasSubstr("\"m_pos\"")))
        << value;
  }
}

TEST_F(BadFile, DeepFamiliesAreReadDownToTheLimit) {
  const auto family = [](int generations) {
    std::string text = Record("youngest", {});
    for (int i = 1; i < generations; ++i) text = Record("parent", {}, {text});
    return "{\"GameObjFactory\": [" + text + "]}";
  };
  std::string output;
  // Each generation is an object and an array; the file's own root and list and the innermost
  // empty lists come on top.
  EXPECT_EQ(ReportOfObjects(family(127), &output), "");
  EXPECT_EQ(g_game_obj_factory->m_objects.size(), 127u);
  EXPECT_EQ(ReportOfObjects(family(128), &output), "");
  EXPECT_EQ(output, "bad.json Not Object\n");
}

TEST_F(BadFile, HugeNumbersRunForAWhile) {
  const std::string place = R"({"m_pos": [1e300, -1e300, 3e38], "m_scale": [1e38, 1e300, 1],
      "m_rotate": 1e300, "m_rotate_with_parent": true, "m_world_scale": [1, 1, 1],
      "m_world_rotate": 0, "m_world_pos": [0, 0, 0]})";
  world.LoadObjects(
      Record("huge", {{"Transform", place}}, {Record("child", {{"Transform", place}})}));
  world.Step(5);
  JsonWriter writer;
  WriteObject(writer.Out(), world.Find("huge"));
  JsonDocument document;
  document.ParseText(writer.Text(), "written");
  EXPECT_TRUE(document.Root().IsObject()) << "what is written is JSON all the same";
}

// Files that are not there

void StartWithout(const std::string& path) {
  const World world(Files{{path, ""}});
}

TEST(MissingFileDeathTest, EachFileOfTheStartIsReportedByItsPath) {
  EXPECT_DEATH(StartWithout(kSettings), "Resources/Archetypes/WinInit\\.jsonfile not found");
  EXPECT_DEATH(StartWithout(kGraphics), "Resources/Textures/graphics\\.jsonfile not found");
  EXPECT_DEATH(StartWithout(kCollisions), "Resources/CollisionInfo\\.jsonfile not found");
  EXPECT_DEATH(StartWithout("Level Editor/Levels/SplashScreen/SplashScreen.json"),
               "SplashScreen\\.jsonfile not found");
  EXPECT_DEATH(StartWithout("Level Editor/Levels/SplashScreen/Entity/Units.json"),
               "SplashScreen/Entity/Units\\.jsonfile not found");
}

TEST(BadArchetypeDeathTest, AMalformedArchetypeEndsTheStart) {
  EXPECT_DEATH(World(Files{{kArchetype, "{\"name\": "}}),
               "particle_test\\.json: key \"Childs\": the key is missing");
}

}  // namespace
}  // namespace ZOVEngine
