// The rules of form against the game's own reader: what it reads without a report.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

#include "editor/leveldraft.h"
#include "editor/levelrules.h"
#include "jsonunserializer.h"
#include "objects/fieldforms.h"
#include "objects/gameobjfactory.h"
#include "support/levelgame.h"
#include "support/reports.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using ::testing::IsEmpty;

const KnownAssets& FormAssets() {
  static const KnownAssets known = DraftAssets();
  return known;
}

/// The broken rules that know the components and their fields.
std::set<std::string> FormFaults(const LevelDraft& draft) {
  std::set<std::string> faults;
  for (const LevelProblem& problem : CheckLevel(draft.Text(), FormAssets())) {
    const std::string rule = problem.rule;
    for (const char* kind : {"component-unknown", "field-absent", "field-f", "field-whole"}) {
      if (rule.starts_with(kind)) faults.insert(rule + ": " + problem.text);
    }
  }
  return faults;
}

/// The names of all components, and what a new one of each writes.
std::map<std::string, std::string> WrittenComponents() {
  std::map<std::string, std::string> written;
  World world;
  for (const auto& [type, table] : *g_component_tables) {
    GameObj owner;
    owner.id = 0;
    JsonWriter writer;
    writer.Out().json->StartObject();
    GameComponentBase* component = table->Add(&owner);
    component->Serialize(writer.Out());
    writer.Out().json->EndObject();
    table->Remove(&owner);
    written[g_game_obj_factory->TypeName(type)] = writer.Text();
  }
  return written;
}

TEST(LevelRulesForm, EveryComponentIsKnownWithTheKeysThatItWrites) {
  const auto written = WrittenComponents();
  EXPECT_GT(written.size(), 30u);
  for (const auto& [name, fields] : written) {
    LevelDraft draft;
    draft.Add(R"({"name": "new", "active": true, "components": [], "Childs": []})");
    draft.AddComponent(draft.Find("new"), name, fields);
    EXPECT_THAT(FormFaults(draft), IsEmpty()) << name;
  }
}

TEST(LevelRulesForm, EveryKeyThatAComponentWritesIsChecked) {
  for (const auto& [name, fields] : WrittenComponents()) {
    LevelDraft draft;
    draft.Add(R"({"name": "new", "active": true, "components": [], "Childs": []})");
    draft.AddComponent(draft.Find("new"), name, fields);
    for (auto& field : draft.Find("new")[name.c_str()].GetObject()) {
      Json kept = draft.Copy(field.value);
      field.value.SetObject();
      EXPECT_EQ(FormFaults(draft).size(), 1u) << name << " " << field.name.GetString();
      field.value = kept;
    }
  }
}

TEST(LevelRulesForm, NoOtherNameIsAComponent) {
  const auto written = WrittenComponents();
  for (const auto& [name, forms] : ListedForms()) {
    if (written.contains(name)) continue;
    LevelDraft draft;
    draft.AddComponent(draft.Find("lamp"), name, "{}");
    EXPECT_EQ(FormFaults(draft).size(), 1u) << name;
  }
}

/// Damages values of a level at random, the same for the same seed.
class Vandal {
 public:
  explicit Vandal(std::uint32_t seed) : m_random(seed) {}

  void Damage(LevelDraft* draft) {
    rapidjson::Document* files[] = {&draft->objects, &draft->objects, &draft->objects,
                                    &draft->tiles,   &draft->map,     &draft->level};
    rapidjson::Document& file = *files[Below(6)];
    Json* value = &file;
    Json* parent = nullptr;
    // The deeper the more values there are, so a walk goes down until it can go no further, and
    // then some steps back.
    for (std::size_t depth = 2 + Below(12); depth > 0; --depth) {
      Json* inner = Inner(value);
      if (inner == nullptr) break;
      parent = value;
      value = inner;
    }
    Change(draft, parent, value);
  }

 private:
  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
  }

  Json* Inner(Json* value) {
    if (value->IsArray() && !value->Empty()) {
      return &(*value)[static_cast<unsigned>(Below(value->Size()))];
    }
    if (value->IsObject() && value->MemberCount() > 0) {
      return &(value->MemberBegin() + static_cast<long>(Below(value->MemberCount())))->value;
    }
    return nullptr;
  }

  void Change(LevelDraft* draft, Json* parent, Json* value) {
    static const char* const kOthers[] = {"5",     "-1",   "2.5",    "0",         "1e39",
                                          "\"a\"", "[]",   "{}",     "null",      "true",
                                          "false", "[1]",  "[1, 2]", "[1, 2, 3]", "[\"a\"]",
                                          "[[]]",  "\"\"", "150001", "[2, 1]",    "[{}]"};
    if (parent == nullptr) return Set(draft, value, kOthers[Below(20)]);
    switch (Below(4)) {
      case 0:
        return Remove(parent, value);
      case 1:
        return Double(draft, parent, value);
      default:
        return Set(draft, value, kOthers[Below(20)]);
    }
  }

  static void Set(LevelDraft* draft, Json* value, const char* text) {
    *value = draft->Parsed(text);
  }

  static void Remove(Json* parent, Json* value) {
    if (parent->IsArray()) {
      parent->Erase(value);
      return;
    }
    for (auto member = parent->MemberBegin(); member != parent->MemberEnd(); ++member) {
      if (&member->value != value) continue;
      parent->EraseMember(member);
      return;
    }
  }

  /// Repeats an entry of a list; gives a member another key.
  static void Double(LevelDraft* draft, Json* parent, Json* value) {
    if (parent->IsArray()) {
      parent->PushBack(draft->Copy(*value), draft->objects.GetAllocator());
      return;
    }
    for (auto& member : parent->GetObject()) {
      if (&member.value == value) member.name.SetString("another");
    }
  }

  std::mt19937 m_random;
};

/// How many levels are damaged: enough for every run, or what the environment says.
std::uint32_t DamagedLevels() {
  const char* text = std::getenv("CARAPACE_DAMAGED_LEVELS");
  return text == nullptr ? 60 : static_cast<std::uint32_t>(std::atoi(text));
}

/// The report of loading the level, of building it and of its first steps, or what was thrown.
std::string ReportOfPlaying(const LevelText& text) {
  const LevelPaths paths(text.name);
  const Files files = {{paths.level, text.level},
                       {paths.tile_map, text.map},
                       {paths.tiles, text.tiles},
                       {paths.objects, text.objects}};
  std::string report;
  OutputOf([&] {
    report = ReportOf([&] {
      try {
        LevelGame game(text.name, 1, files);
        game.world.Step(3);
      } catch (const std::out_of_range& thrown) {
        report = thrown.what();
        throw;
      }
    });
  });
  return report;
}

TEST(LevelRulesForm, ALevelWithoutErrorsLoadsAndRunsWhateverWasDoneToIt) {
  std::uint32_t sound = 0;
  std::uint32_t ended = 0;
  const std::uint32_t damaged = DamagedLevels();
  for (std::uint32_t seed = 0; seed < damaged; ++seed) {
    LevelDraft draft;
    Vandal(seed).Damage(&draft);
    const LevelText text = draft.Text();
    if (HasError(CheckLevel(text, FormAssets()))) {
      ++ended;
      continue;
    }
    ++sound;
    EXPECT_EQ(ReportOfPlaying(text), "") << "seed " << seed;
  }
  EXPECT_GT(sound, damaged / 10);
  EXPECT_GT(ended, damaged / 4);
}

}  // namespace
}  // namespace carapace_test
