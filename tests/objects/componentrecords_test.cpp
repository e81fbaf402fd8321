// The records of the components: keys and their order, defaults, and what survives a file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "jsonunserializer.h"
#include "objects/componentclasses.h"
#include "objects/gameobjfactory.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ComponentClassNames;
using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::World;
using ::testing::ElementsAreArray;
using ::testing::UnorderedElementsAreArray;

struct RecordCase {
  std::string component;
  std::vector<std::string> written;     ///< keys in the order of writing
  std::vector<std::string> complaints;  ///< lines about an empty record, in the order of reading
};

std::string Missing(const std::string& key) {
  return "Cant find Key: " + key + "\n";
}
std::string MissingVector(const std::string& key) {
  return key + " not found\n";
}

const std::vector<RecordCase>& Cases() {
  static const std::vector<RecordCase> cases = {
      {"Transform",
       {"m_pos", "m_scale", "m_rotate", "m_world_scale", "m_world_rotate", "m_world_pos",
        "m_rotate_with_parent"},
       {MissingVector("m_pos"), MissingVector("m_scale"), Missing("m_rotate"),
        Missing("m_rotate_with_parent"), MissingVector("m_world_scale"), Missing("m_world_rotate"),
        MissingVector("m_world_pos")}},
      {"RigidBody",
       {"m_vel", "m_accel", "m_mass", "m_inertia", "m_sleeper_vel", "m_sleeper_rot_vel", "m_drag",
        "m_angular_drag", "m_rest"},
       {MissingVector("m_vel"), MissingVector("m_accel"), Missing("m_mass"), Missing("m_inertia"),
        MissingVector("m_sleeper_vel"), Missing("m_sleeper_rot_vel"), Missing("m_drag"),
        Missing("m_angular_drag"), Missing("m_rest")}},
      {"ColliderHolder",
       {"m_active", "m_layer", "m_collider_type", "bitmask_category", "m_local_scale",
        "m_local_pos", "m_local_rot"},
       {Missing("m_active"), Missing("m_layer"), Missing("m_collider_type"),
        Missing("bitmask_category"), MissingVector("m_local_scale"), MissingVector("m_local_pos"),
        Missing("m_local_rot")}},
      {"Render",
       {"m_tile", "m_visible", "m_zLayer", "m_tex", "m_hl_tex", "m_colour", "m_shader"},
       {Missing("m_tile"), Missing("m_visible"), Missing("m_zLayer"), Missing("m_tex"),
        Missing("m_hl_tex"), Missing("m_colour"), Missing("m_shader")}},
      {"iModel",
       {"m_vertices", "m_index_buffer"},
       {Missing("m_vertices"), Missing("m_index_buffer")}},
      {"StateC", {"m_state"}, {Missing("m_state")}},
      {"Animation",
       {"m_timer", "m_currStep", "m_spawn_frames", "m_death_frames", "m_once_frames",
        "m_loop_frames", "m_spawn", "m_death", "m_once", "m_loop", "m_time_per_frame"},
       {Missing("m_timer"), Missing("m_currStep"), Missing("m_spawn_frames"),
        Missing("m_death_frames"), Missing("m_once_frames"), Missing("m_loop_frames"),
        Missing("m_spawn"), Missing("m_death"), Missing("m_once"), Missing("m_loop"),
        Missing("m_time_per_frame")}},
      {"Font", {"m_text", "m_colour"}, {Missing("m_text"), Missing("m_colour")}},
      {"Light",
       {"m_active", "m_pos", "m_diffuse", "m_specular", "m_ambient", "m_diffuseStr",
        "m_specularStr", "m_ambientStr"},
       {Missing("m_active"), MissingVector("m_pos"), MissingVector("m_diffuse"),
        MissingVector("m_specular"), MissingVector("m_ambient"), Missing("m_diffuseStr"),
        Missing("m_specularStr"), Missing("m_ambientStr")}},
      {"Camera",
       {"m_offset", "m_shakemag", "m_xlimit", "m_ylimit"},
       {MissingVector("m_offset"), Missing("m_shakemag"), Missing("m_xlimit"),
        Missing("m_ylimit")}},
      {"Particle", {}, {}},
      {"SplashController", {}, {}},
      {"AIComp", {}, {}},
  };
  return cases;
}

/// A new component of the class on an object of its own, read from `record`.
GameComponentBase& NewComponent(const std::string& class_name, const std::string& record = "{}") {
  JsonDocument document;
  document.ParseText(Record("owner", {{class_name, record}}), "owner.json");
  GameObj* owner = nullptr;
  OutputOf([&] { owner = g_game_obj_factory->ReadObject(document.Root()); });
  return *g_game_obj_factory->Table(owner->components.back()).Get(owner);
}

/// The record that a new component writes; a class of lists alone gets one entry in each.
std::string SampleRecord(const std::string& class_name) {
  if (class_name != "AudioSource") return RecordOf(NewComponent(class_name));
  return RecordOf(NewComponent(
      class_name, R"({"sounds": ["a"], "loop": [false], "is_3D": [false], "start_play": [false],
                      "sound_type": ["SFX"], "volume": [0.5]})"));
}

/// Puts another value of the same kind in the place of every value, each different from the others.
class Changer {
 public:
  void Change(rapidjson::Value* value, rapidjson::Document* document) {
    if (value->IsArray()) {
      for (rapidjson::Value& entry : value->GetArray()) Change(&entry, document);
    } else if (value->IsObject()) {
      for (auto& member : value->GetObject()) Change(&member.value, document);
    } else if (value->IsBool()) {
      value->SetBool(!value->GetBool());
    } else if (value->IsString()) {
      const std::string text = "text " + std::to_string(++m_count);
      const bool type = std::string(value->GetString()) == "Box";
      value->SetString(type ? "Circle" : text, document->GetAllocator());
    } else if (value->IsDouble()) {
      value->SetDouble(++m_count + 0.5);
    } else if (value->IsInt()) {
      value->SetInt(++m_count);
    }
  }

 private:
  int m_count = 0;
};

/// The text of a JSON object with all its values changed; `reversed` turns the order of its keys.
std::string Changed(const std::string& json, bool reversed) {
  rapidjson::Document document;
  document.Parse(json);
  Changer().Change(&document, &document);
  std::vector<std::string> keys;
  for (const auto& member : document.GetObject()) keys.emplace_back(member.name.GetString());
  if (reversed) std::reverse(keys.begin(), keys.end());
  rapidjson::Document out(rapidjson::kObjectType, &document.GetAllocator());
  for (const std::string& key : keys) {
    out.AddMember(rapidjson::Value(key, document.GetAllocator()), document[key],
                  document.GetAllocator());
  }
  JsonWriter writer;
  out.Accept(*writer.Out().json);
  return writer.Text();
}

/// The order of keys and the complaints, where a class lists them above.
class ComponentKeys : public ::testing::TestWithParam<RecordCase> {
 protected:
  World world;
};

TEST_P(ComponentKeys, KeysAreWrittenInTheirOrder) {
  std::vector<std::string> keys;
  for (const std::string& key : KeysOf(RecordOf(NewComponent(GetParam().component)))) {
    if (key.find('.') == std::string::npos) keys.push_back(key);
  }
  EXPECT_THAT(keys, ElementsAreArray(GetParam().written));
}

TEST_P(ComponentKeys, AnEmptyRecordIsComplainedAboutAndKeepsTheDefaults) {
  GameComponentBase& component = NewComponent(GetParam().component);
  const std::string before = RecordOf(component);
  std::string expected;
  for (const std::string& line : GetParam().complaints) expected += line;
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", component); }), expected);
  EXPECT_EQ(RecordOf(component), before);
}

INSTANTIATE_TEST_SUITE_P(All, ComponentKeys, ::testing::ValuesIn(Cases()),
                         [](const auto& test) { return test.param.component; });

/// The rules that the record of every class keeps.
class ComponentRecord : public ::testing::TestWithParam<std::string> {
 protected:
  World world;
};

TEST_P(ComponentRecord, EveryFieldSurvivesAFile) {
  const std::string sample = SampleRecord(GetParam());
  const std::string changed = Changed(sample, false);
  if (!KeysOf(sample).empty()) {
    ASSERT_NE(changed, sample);
  }
  GameComponentBase& component = NewComponent(GetParam());
  EXPECT_EQ(OutputOf([&] { ReadRecord(changed, component); }), "");
  EXPECT_EQ(RecordOf(component), changed);
}

TEST_P(ComponentRecord, TheOrderOfTheInputDoesNotMatter) {
  const std::string sample = SampleRecord(GetParam());
  GameComponentBase& component = NewComponent(GetParam());
  ReadRecord(Changed(sample, true), component);
  EXPECT_EQ(RecordOf(component), Changed(sample, false));
}

TEST_P(ComponentRecord, ACloneWritesTheSameRecord) {
  GameComponentBase& component = NewComponent(GetParam());
  ReadRecord(Changed(RecordOf(component), false), component);
  GameObj* clone = g_game_obj_factory->Clone(component.m_owner, true);
  GameComponentBase& copy = *g_game_obj_factory->Table(clone->components.back()).Get(clone);
  EXPECT_NE(&copy, &component);
  // Switching the clone on writes two of the fields.
  component.m_active = true;
  component.OwnerSetActive(true);
  EXPECT_EQ(RecordOf(copy), RecordOf(component));
}

TEST_P(ComponentRecord, ARecordThatIsNoObjectIsReadAsAnEmptyOne) {
  GameComponentBase& component = NewComponent(GetParam());
  const std::string before = RecordOf(component);
  for (const char* json : {"5", "[1, 2]", "null", "\"text\"", "true"}) {
    OutputOf([&] { ReadRecord(json, component); });
    EXPECT_EQ(RecordOf(component), before) << json;
  }
}

INSTANTIATE_TEST_SUITE_P(All, ComponentRecord, ::testing::ValuesIn(ComponentClassNames()),
                         [](const auto& test) { return test.param; });

TEST(ComponentRecords, AllRegisteredClassesAreTested) {
  const World world;
  std::vector<std::string> registered;
  for (const auto& [type, table] : *g_component_tables) {
    registered.push_back(g_game_obj_factory->TypeName(type));
  }
  EXPECT_THAT(ComponentClassNames(), UnorderedElementsAreArray(registered));
}

}  // namespace
}  // namespace ZOVEngine
