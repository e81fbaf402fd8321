// docs/formats.md against the records that the components write.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "objects/componentclasses.h"
#include "objects/gameobjfactory.h"
#include "support/reports.h"
#include "support/tempdirectory.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ComponentClassNames;
using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::ShippedFile;
using carapace_test::World;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A section of the page: its heading and the lines below it.
struct Section {
  std::string heading;
  std::vector<std::string> lines;
};

std::vector<Section> Sections(const std::string& page) {
  std::vector<Section> sections;
  std::istringstream stream(page);
  for (std::string line; std::getline(stream, line);) {
    if (line.rfind('#', 0) == 0) {
      sections.push_back({line, {}});
    } else if (!sections.empty()) {
      sections.back().lines.push_back(line);
    }
  }
  return sections;
}

/// The sections with the class in their heading, or, if there is none, those that name it as code.
std::vector<Section> SectionsAbout(const std::vector<Section>& sections,
                                   const std::string& class_name) {
  const std::regex whole_word("\\b" + class_name + "\\b");
  std::vector<Section> headed;
  std::vector<Section> naming;
  for (const Section& section : sections) {
    if (std::regex_search(section.heading, whole_word)) headed.push_back(section);
    const bool named = std::any_of(
        section.lines.begin(), section.lines.end(),
        [&](const auto& line) { return line.find("`" + class_name + "`") != std::string::npos; });
    if (named) naming.push_back(section);
  }
  return headed.empty() ? naming : headed;
}

/// The first cells of all rows of tables.
std::string KeyCells(const std::vector<Section>& sections) {
  std::string cells;
  for (const Section& section : sections) {
    for (const std::string& line : section.lines) {
      if (line.rfind("| ", 0) == 0) cells += line.substr(0, line.find('|', 1)) + "\n";
    }
  }
  return cells;
}

/// The keys that a new component of the class writes, without those of nested objects.
std::vector<std::string> OwnKeys(World& world, const std::string& class_name) {
  OutputOf([&] { world.LoadObjects(Record(class_name, {{class_name, "{}"}})); });
  GameObj* object = world.Find(class_name);
  std::vector<std::string> keys;
  GameComponentBase& component = *g_game_obj_factory->Table(object->components.back()).Get(object);
  for (const std::string& key : KeysOf(RecordOf(component))) {
    if (key.find('.') == std::string::npos) keys.push_back(key);
  }
  return keys;
}

TEST(ComponentFormats, EveryKeyIsDocumented) {
  World world;
  const std::vector<Section> page = Sections(ShippedFile("docs/formats.md"));
  for (const std::string& name : ComponentClassNames()) {
    const std::vector<Section> about = SectionsAbout(page, name);
    EXPECT_THAT(about, Not(IsEmpty())) << name;
    const std::string cells = KeyCells(about);
    for (const std::string& key : OwnKeys(world, name)) {
      EXPECT_THAT(cells, HasSubstr("`" + key + "`")) << name;
    }
  }
}

}  // namespace
}  // namespace ZOVEngine
