#include "leveleditorcomponentedit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <imgui_internal.h>

#include <rttr/registration>

#include "core/base/vector3d.h"
#include "gameobj.h"
#include "objects/gamecomponentbase.h"
#include "physics/components/rigidbody.h"
#include "support/imguiframe.h"
#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::ImGuiContextForTest;

/// One field of every type that has an editor.
struct Subject {
  float real = 1.5f;
  std::uint32_t natural = 7;
  int whole = -3;
  short small = 4;
  std::size_t count = 9;
  bool flag = true;
  std::string text = "shell";
  Vector3D place{1.0f, 2.0f, 3.0f};
  float fixed = 12.0f;
  float bounded = 100.0f;
  double none = 0.0;
  float watched = 2.0f;
  int writes = 0;  ///< of `watched`

  float Watched() const { return watched; }
  void SetWatched(float value) {
    watched = value;
    ++writes;
  }
};

template <class Class, class Member>
void Add(Class& type, const char* name, Member member, const std::string& typeinfo) {
  type.property(name, member)(
      rttr::metadata("is_inspect", true), rttr::metadata("DisplayMode", std::string("default")),
      rttr::metadata("typeinfo", typeinfo), rttr::metadata("name", std::string(name)));
}

RTTR_REGISTRATION {
  rttr::registration::class_<Subject> type("ZOVEngine::InspectedSubject");
  Add(type, "real", &Subject::real, "float");
  Add(type, "natural", &Subject::natural, "unsigned");
  Add(type, "whole", &Subject::whole, "int");
  Add(type, "small", &Subject::small, "short");
  Add(type, "count", &Subject::count, "size_t");
  Add(type, "flag", &Subject::flag, "bool");
  Add(type, "text", &Subject::text, "std::string");
  Add(type, "place", &Subject::place, "Vector3");
  Add(type, "none", &Subject::none, "double");
  type.property("watched", &Subject::Watched, &Subject::SetWatched)(
      rttr::metadata("typeinfo", std::string("float")),
      rttr::metadata("name", std::string("watched")), rttr::metadata("min", 9.0f),
      rttr::metadata("max", 9.0f));
  type.property("fixed", &Subject::fixed)(rttr::metadata("typeinfo", std::string("float")),
                                          rttr::metadata("name", std::string("fixed")),
                                          rttr::metadata("min", 5.0f), rttr::metadata("max", 5.0f));
  type.property("bounded", &Subject::bounded)(
      rttr::metadata("typeinfo", std::string("float")),
      rttr::metadata("name", std::string("bounded")),
      rttr::metadata(std::string("min"), rttr::variant(0.0)),
      rttr::metadata(std::string("max"), rttr::variant(10.0)));
}

constexpr float kFarRight = 340.0f;  ///< of a window 400 wide (unit: pixels)
/// Of the rows' columns: without a border there is nothing to resize them by.
constexpr ImGuiOldColumnFlags kFixed = ImGuiOldColumnFlags_NoBorder;

class ComponentEditTest : public ::testing::Test {
 protected:
  void Display(const char* name) {
    const rttr::property property = rttr::type::get<Subject>().get_property(name);
    DisplayProperty(property, property.get_value(subject), subject);
  }

  /// Shows one property in a frame, as the inspector does.
  void Show(const char* name) {
    context.Frame([&] {
      Display(name);
      widget = GImGui->LastItemData.Rect.GetCenter();
      widget_id = GImGui->LastItemData.ID;
      columns_open = ImGui::GetCurrentWindow()->DC.CurrentColumns != nullptr;
    });
  }

  /// The left edge of the row's widget when columns of this count and these flags, of which the
  /// second begins far to the right, are open before it.
  float WidgetBehindColumns(int count, ImGuiOldColumnFlags flags) {
    float left = 0.0f;
    for (int frame = 0; frame < 2; ++frame) {
      context.Frame([&] {
        ImGui::BeginColumns("other", count, flags);
        ImGui::SetColumnOffset(1, kFarRight);
        Display("real");
        left = GImGui->LastItemData.Rect.Min.x;
      });
    }
    return left;
  }

  /// Shows it until a click on its widget is done.
  void ClickOn(const char* name) {
    Show(name);
    Show(name);
    ImGuiContextForTest::MoveMouse(widget.x, widget.y);
    Show(name);
    ImGuiContextForTest::HoldMouse(true);
    Show(name);
    ImGuiContextForTest::HoldMouse(false);
    Show(name);
    Show(name);
  }

  ImGuiContextForTest context{400.0f, 300.0f};
  Subject subject;
  ImVec2 widget;
  ImGuiID widget_id = 0;
  bool columns_open = false;
};

TEST_F(ComponentEditTest, EveryRowOfTheTableShowsItsValueAndKeepsIt) {
  for (const char* name : {"real", "natural", "whole", "small", "count", "flag", "text", "place"}) {
    Show(name);
    Show(name);
    EXPECT_FALSE(columns_open) << name;
  }
  const Subject fresh;
  EXPECT_EQ(subject.real, fresh.real);
  EXPECT_EQ(subject.natural, fresh.natural);
  EXPECT_EQ(subject.whole, fresh.whole);
  EXPECT_EQ(subject.small, fresh.small);
  EXPECT_EQ(subject.count, fresh.count);
  EXPECT_EQ(subject.flag, fresh.flag);
  EXPECT_EQ(subject.text, fresh.text);
  EXPECT_EQ(subject.place, fresh.place);
}

TEST_F(ComponentEditTest, AClickOnASliderSetsANumberOfItsType) {
  for (const char* name : {"real", "natural", "whole", "small", "count"}) ClickOn(name);
  EXPECT_NEAR(subject.real, 0.0f, 100.0f) << "the middle of the bounds";
  EXPECT_NE(subject.real, 1.5f);
  EXPECT_NE(subject.natural, 7u);
  EXPECT_NE(subject.whole, -3);
  EXPECT_NE(subject.small, 4);
  EXPECT_NE(subject.count, 9u);
}

TEST_F(ComponentEditTest, AClickOnACheckBoxTurnsTheFlag) {
  ClickOn("flag");
  EXPECT_FALSE(subject.flag);
  ClickOn("flag");
  EXPECT_TRUE(subject.flag);
}

TEST_F(ComponentEditTest, WhatIsTypedIntoATextFieldIsTheText) {
  ClickOn("text");
  ImGui::GetIO().AddInputCharacter('!');
  Show("text");
  Show("text");
  EXPECT_NE(subject.text.find('!'), std::string::npos);
  EXPECT_EQ(subject.text.size(), 6u);
}

TEST_F(ComponentEditTest, ALongTextIsNotCutByBeingShown) {
  subject.text.assign(6000, 'x');
  Show("text");
  Show("text");
  EXPECT_EQ(subject.text.size(), 6000u);
}

TEST_F(ComponentEditTest, ATextOfItsWholeRoomTakesNoMore) {
  subject.text.assign(4998, 'x');
  ClickOn("text");
  for (int typed = 0; typed < 3; ++typed) {
    ImGui::GetIO().AddInputCharacter('!');
    Show("text");
  }
  Show("text");
  EXPECT_EQ(subject.text.size(), 4999u);
}

TEST_F(ComponentEditTest, WhatIsTypedIntoTheLastFieldOfAVectorIsItsZ) {
  ClickOn("place");
  ImGui::GetIO().AddInputCharacter('8');
  Show("place");
  Show("place");
  EXPECT_EQ(subject.place.x, 1.0f);
  EXPECT_EQ(subject.place.y, 2.0f);
  EXPECT_NE(subject.place.z, 3.0f);
}

TEST_F(ComponentEditTest, ASliderWithEqualBoundsLeavesTheValueUntilItIsTouched) {
  Show("fixed");
  Show("fixed");
  EXPECT_EQ(subject.fixed, 12.0f);
}

TEST_F(ComponentEditTest, TheValueIsWrittenBackInEveryFrameWhetherItChangedOrNot) {
  for (int frame = 1; frame <= 3; ++frame) {
    Show("watched");
    EXPECT_EQ(subject.writes, frame);
  }
  EXPECT_EQ(subject.watched, 2.0f);
}

TEST_F(ComponentEditTest, AWholeNumberIsCutTo32BitsByBeingShown) {
  subject.count = (std::size_t{3} << 32) + 5;
  Show("count");
  EXPECT_EQ(subject.count, 5u);
}

TEST_F(ComponentEditTest, AWidgetIsKnownByTheNameOfItsField) {
  const auto id = [this](const char* label) {
    ImGuiID found = 0;
    context.Frame([&] { found = ImGui::GetID(label); });
    return found;
  };
  for (const auto& [name, label] : {std::pair("real", "##realEdit"),
                                    {"whole", "##wholeEdit"},
                                    {"flag", "##flagEdit"},
                                    {"text", "##textEdit"},
                                    {"place", "##placeEditZ"}}) {
    Show(name);
    EXPECT_EQ(widget_id, id(label)) << name;
  }
}

TEST_F(ComponentEditTest, ASliderKeepsToTheBoundsOfItsField) {
  ClickOn("bounded");
  EXPECT_NEAR(subject.bounded, 5.0f, 3.0f) << "the middle of the bounds";
}

TEST_F(ComponentEditTest, FieldsWithNaturalBoundsAreRegisteredWithThem) {
  const rttr::property rest = rttr::type::get<RigidBody>().get_property("m_rest");
  EXPECT_EQ(rest.get_metadata(std::string("min")).to_double(), 0.0);
  EXPECT_EQ(rest.get_metadata(std::string("max")).to_double(), 1.0);
}

TEST_F(ComponentEditTest, ColumnsOfAnotherCountAreEnded) {
  context.Frame([&] {
    ImGui::BeginColumns("other", 3, 0);
    const rttr::property property = rttr::type::get<Subject>().get_property("real");
    DisplayProperty(property, property.get_value(subject), subject);
    EXPECT_EQ(ImGui::GetCurrentWindow()->DC.CurrentColumns, nullptr);
  });
}

TEST_F(ComponentEditTest, FixedColumnsOfTheSameCountAreKept) {
  EXPECT_GE(WidgetBehindColumns(2, kFixed), kFarRight);
}

TEST_F(ComponentEditTest, ColumnsThatCanBeResizedAreEnded) {
  EXPECT_LT(WidgetBehindColumns(2, ImGuiOldColumnFlags_None), kFarRight);
}

TEST_F(ComponentEditTest, AVectorTakesFourColumns) {
  for (int frame = 0; frame < 2; ++frame) {
    context.Frame([&] {
      ImGui::BeginColumns("other", 4, kFixed);
      ImGui::SetColumnOffset(3, kFarRight);
      Display("place");
      EXPECT_GE(GImGui->LastItemData.Rect.Min.x, kFarRight) << "Z lies in the last one";
    });
  }
}

TEST_F(ComponentEditTest, TheDefaultModeShowsThePropertyByItsType) {
  context.Frame([&] {
    const rttr::property property = rttr::type::get<Subject>().get_property("watched");
    g_display_modes["default"](property, property.get_value(subject), subject);
  });
  EXPECT_EQ(subject.writes, 1);
}

TEST_F(ComponentEditTest, TheTablesHaveTheirRows) {
  EXPECT_EQ(g_display_modes.size(), 1u);
  EXPECT_EQ(g_display_modes.count("default"), 1u);
  const std::set<std::string> rows = {"float",   "unsigned", "int",      "short",
                                      "size_t",  "bool",     "string",   "std::string",
                                      "Vector3", "double",   "Matrix4x4"};
  std::set<std::string> found;
  for (const auto& [name, editor] : g_property_editors) found.insert(name);
  EXPECT_EQ(found, rows);
}

TEST_F(ComponentEditTest, ATypeWithoutAnEditorThrows) {
  auto editors = g_property_editors;
  g_property_editors.erase("float");
  context.Frame([&] {
    const rttr::property property = rttr::type::get<Subject>().get_property("real");
    EXPECT_THROW(DisplayProperty(property, property.get_value(subject), subject),
                 std::bad_function_call);
  });
  g_property_editors = std::move(editors);
}

TEST(ComponentEditDeathTest, ATypeWithoutAWidgetIsReported) {
  EXPECT_DEATH(EditNone(rttr::type::get<Subject>().get_property("none"), {}, {}),
               "Something Wrong \\(leveleditorcomponentedit.cpp, Line 140\\)");
}

}  // namespace
}  // namespace ZOVEngine
