#include "editor/leveldocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kText = R"({"GameObjFactory": [
  {"name": "a", "active": true, "components": ["Light"], "Light": {"m_x": 1}, "Childs": [
    {"name": "b", "active": false, "components": [], "Childs": []}]}]})";

class LevelDocumentTest : public ::testing::Test {
 protected:
  LevelDocumentTest() { EXPECT_TRUE(m_document.SetText(kText)); }
  LevelDocument m_document;
};

TEST_F(LevelDocumentTest, APathLeadsToItsRecord) {
  EXPECT_EQ(m_document.Name({0}), "a");
  EXPECT_EQ(m_document.Name({0, 0}), "b");
  EXPECT_FALSE(m_document.Has({1}));
  EXPECT_FALSE(m_document.Has({0, 0, 0}));
  EXPECT_FALSE(m_document.Has({}));
  EXPECT_THAT(m_document.Components({0}), ElementsAre("Light"));
}

TEST_F(LevelDocumentTest, FieldsAreSetAsTheyAreRead) {
  const std::string fields = m_document.Fields({0}, "Light");
  m_document.SetFields({0}, "Light", R"({"m_x": 2})");
  EXPECT_THAT(m_document.Text(), HasSubstr("\"m_x\": 2"));
  m_document.SetFields({0}, "Light", fields);
  EXPECT_EQ(m_document.Fields({0}, "Light"), fields);
}

TEST_F(LevelDocumentTest, AnObjectsOwnFieldsAreItsNameAndWhetherItIsActive) {
  m_document.SetFields({0, 0}, "", R"({"name": "c", "active": true})");
  EXPECT_EQ(m_document.Name({0, 0}), "c");
  EXPECT_THAT(m_document.Fields({0, 0}, ""), HasSubstr("true"));
}

TEST_F(LevelDocumentTest, TextThatIsNoObjectFileIsRefused) {
  for (const char* text : {"", "[]", "{}", R"({"GameObjFactory": 1})", "{\"GameObjFactory\": ["}) {
    EXPECT_FALSE(m_document.SetText(text)) << text;
  }
  EXPECT_EQ(m_document.Name({0}), "a");
}

TEST_F(LevelDocumentTest, ManyChangesDoNotFillTheMemory) {
  const std::string before = m_document.Text();
  for (int i = 0; i < 200'000; ++i) m_document.SetFields({0}, "Light", R"({"m_x": 3})");
  EXPECT_LT(m_document.Json().GetAllocator().Capacity(), 4'000'000u);
  m_document.SetFields({0}, "Light", R"({"m_x": 1})");
  EXPECT_EQ(m_document.Text(), before);
}

}  // namespace
}  // namespace ZOVEngine
