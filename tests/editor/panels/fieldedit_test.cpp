#include "editor/panels/fieldedit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/paneltest.h"

namespace ZOVEngine {
namespace {

using ::testing::HasSubstr;

TEST(ReplaceField, PutsOneValueInPlaceOfAnother) {
  const std::string fields = R"({"a": 1, "b": [2, 3]})";
  EXPECT_EQ(ReplaceField(fields, "", "{}"), "{}");
  rapidjson::Document out;
  out.Parse(ReplaceField(fields, "b", "[4]").c_str());
  EXPECT_EQ(out["a"].GetInt(), 1);
  EXPECT_EQ(out["b"].Size(), 1u);
  EXPECT_EQ(ReplaceField(fields, "c", "5"), fields);
}

/// The values of a field as text without spaces.
std::string Compact(const std::string& fields, const char* key) {
  rapidjson::Document json;
  json.Parse(fields.c_str());
  std::string text = ToText(json[key]);
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  return text;
}

TEST(ApplyDifference, TakesOverTheValueThatChanged) {
  const std::string before = R"({"a": 1, "b": true})", after = R"({"a": 5, "b": false})";
  EXPECT_EQ(Compact(ApplyDifference(R"({"a": 3, "b": true})", "a", before, after), "a"), "5");
  EXPECT_EQ(Compact(ApplyDifference(R"({"a": 3, "b": true})", "a", before, after), "b"), "true");
  EXPECT_EQ(ApplyDifference(R"({"c": 3})", "a", before, after), R"({"c": 3})");
}

TEST(ApplyDifference, OfAVectorTakesOverThePartsThatChanged) {
  const std::string before = R"({"at": [1.0, 2.0, 3.0]})", after = R"({"at": [1.0, 9.0, 3.0]})";
  EXPECT_EQ(Compact(ApplyDifference(R"({"at": [7.0, 8.0, 4.0]})", "at", before, after), "at"),
            "[7.0,9.0,4.0]");
  EXPECT_EQ(Compact(ApplyDifference(R"({"at": [7.0]})", "at", before, after), "at"),
            "[1.0,9.0,3.0]");
}

/// A panel of one row, which sets a field when it is told to.
class FieldEditTest : public carapace_test::PanelTest {
 protected:
  FieldEditTest() : PanelTest(390.0f, 600.0f) { Select("player1"); }

  void ShowPanel() override {
    edit.BeginFrame(*editor, editor->Primary());
    edit.StoredRow(*editor, component, key, [this](rapidjson::Document& value) {
      if (!set) return false;
      set(value);
      set = nullptr;
      return true;
    });
    edit.EndFrame(*editor);
  }
  void Set(const std::string& of_component, const std::string& of_key,
           std::function<void(rapidjson::Document&)> how) {
    component = of_component;
    key = of_key;
    set = std::move(how);
    Show(2);
  }
  std::string Fields(const std::string& object) const {
    return editor->document.Fields(PathOf(object), component);
  }

  FieldEdit edit;
  std::string component, key;
  std::function<void(rapidjson::Document&)> set;
};

TEST_F(FieldEditTest, WhatIsSetIsSetInAllSelectedObjectsInOneStep) {
  editor->selection = {PathOf("enemy1"), PathOf("player2"), PathOf("player1")};
  const std::string before = editor->document.Text();
  Set("Render", "m_zLayer", [](rapidjson::Document& value) { value.SetDouble(3.0); });
  for (const char* unit : {"player1", "player2", "enemy1"}) {
    EXPECT_EQ(Compact(Fields(unit), "m_zLayer"), "3.0") << unit;
  }
  EXPECT_NE(Compact(Fields("enemy2"), "m_zLayer"), "3.0");
  EXPECT_EQ(editor->history.Size(), 1u);
  editor->Undo();
  EXPECT_EQ(editor->document.Text(), before);
}

TEST_F(FieldEditTest, ANameIsThatOfOneObject) {
  editor->selection = {PathOf("enemy1"), PathOf("player1")};
  const ObjectPath other = editor->selection.front();
  Set("", "name", [](rapidjson::Document& value) { value.SetString("Ada"); });
  EXPECT_EQ(editor->document.Name(editor->Primary()), "Ada");
  EXPECT_EQ(editor->document.Name(other), "enemy1");
}

TEST_F(FieldEditTest, AValueOverWhichTheProgramWouldEndIsRefused) {
  const std::string before = editor->document.Text();
  Set("ColliderHolder", "m_collider_type",
      [](rapidjson::Document& value) { value.SetString("Star"); });
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_EQ(editor->history.Size(), 0u);
  EXPECT_THAT(LastLine(), HasSubstr("player1"));
}

TEST_F(FieldEditTest, SuchAValueIsNotShownMeanwhileEither) {
  const std::string before = editor->document.Text();
  Set("ColliderHolder", "",
      [](rapidjson::Document& fields) { fields["m_collider_type"].SetString("Star"); });
  EXPECT_EQ(editor->document.Text(), before);
  EXPECT_EQ(editor->history.Size(), 0u);
}

}  // namespace
}  // namespace ZOVEngine
