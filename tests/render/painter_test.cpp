#include "render/painter.h"

#include <gtest/gtest.h>

#include "render/components/imodel.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;
using Kind = DrawCommand::Kind;

class PainterTest : public testing::Test {
 protected:
  PainterTest() { painter.Begin(&textures); }

  const std::vector<DrawCommand>& Draws() const { return painter.GetFrame().commands; }
  const DrawCommand& Last() const { return Draws().back(); }
  void DrawQuad() { painter.DrawQuad(Program::kDefault, Placement(), kWhite); }
  void ExpectWindow(float left, float right) {
    EXPECT_EQ(Last().window.u_left, left);
    EXPECT_EQ(Last().window.u_right, right);
  }

  TextureMap textures{{"one", 1}, {"two", 2}};
  Painter painter;
};

// --- Textures ---

TEST_F(PainterTest, TheBoundTextureLastsUntilAnotherIsBound) {
  painter.BindTexture("one");
  DrawQuad();
  DrawQuad();
  painter.BindTexture("two");
  DrawQuad();
  ASSERT_EQ(Draws().size(), 3u);
  EXPECT_EQ(Draws()[0].texture, 1u);
  EXPECT_EQ(Draws()[1].texture, 1u);
  EXPECT_EQ(Draws()[2].texture, 2u);
}

TEST_F(PainterTest, TheBoundTextureLastsIntoTheNextFrame) {
  painter.BindTexture("two");
  painter.Begin(&textures);
  DrawQuad();
  EXPECT_EQ(Last().texture, 2u);
}

TEST_F(PainterTest, AnUnknownKeyIsInsertedWithNumberZero) {
  painter.BindTexture("unknown");
  DrawQuad();
  EXPECT_EQ(Last().texture, 0u);
  EXPECT_EQ(textures.count("unknown"), 1u);
}

TEST_F(PainterTest, AKeyThatComesAgainIsFoundAgainAfterOthers) {
  for (const char* key : {"one", "two", "one", "one"}) {
    painter.BindTexture(key);
    DrawQuad();
  }
  EXPECT_EQ(Draws()[2].texture, 1u);
  EXPECT_EQ(Draws()[3].texture, 1u);
}

TEST_F(PainterTest, EachFrameLooksItsKeysUpAnew) {
  painter.BindTexture("one");
  textures.clear();
  textures["one"] = 9;
  painter.Begin(&textures);
  painter.BindTexture("one");
  DrawQuad();
  EXPECT_EQ(Last().texture, 9u);
}

// --- The shared quad ---

TEST_F(PainterTest, TheSharedQuadShowsOnlyOnceItIsUploaded) {
  painter.SetQuad(0.25f, 0.5f);
  DrawQuad();
  ExpectWindow(0.0f, 1.0f);
  painter.UploadQuad();
  DrawQuad();
  ExpectWindow(0.25f, 0.5f);
}

TEST_F(PainterTest, AnUploadedWindowLeavesTheSharedQuadAsItIs) {
  painter.SetQuad(0.25f, 0.5f);
  painter.Upload({0.0f, 5.0f, 0.0f, 5.0f});
  DrawQuad();
  ExpectWindow(0.0f, 5.0f);
  EXPECT_EQ(Last().window.v_bottom, 5.0f);
  painter.UploadQuad();
  DrawQuad();
  ExpectWindow(0.25f, 0.5f);
  EXPECT_EQ(Last().window.v_bottom, 1.0f);
}

TEST_F(PainterTest, TheQuadAndWhatWasUploadedLastIntoTheNextFrame) {
  painter.SetQuad(0.25f, 0.5f);
  painter.Upload({0.5f, 0.75f, 0.0f, 1.0f});
  painter.Begin(&textures);
  DrawQuad();
  ExpectWindow(0.5f, 0.75f);
  EXPECT_EQ(painter.Quad().u_left, 0.25f);
}

TEST_F(PainterTest, TheNumberOfIndicesChoosesNothingATriangleOrTheQuad) {
  const std::pair<std::size_t, std::size_t> kDraws[] = {{0, 0}, {2, 0}, {3, 1},
                                                        {5, 1}, {6, 1}, {900, 1}};
  for (const auto& [indices, draws] : kDraws) {
    painter.Begin(&textures);
    painter.DrawQuadIndices(Program::kDefault, Placement(), kWhite, indices);
    ASSERT_EQ(Draws().size(), draws) << indices;
    if (draws != 0) EXPECT_EQ(Last().kind, indices < 6 ? Kind::kMesh : Kind::kQuad) << indices;
  }
}

// --- Commands ---

TEST_F(PainterTest, ADrawCarriesItsProgramPlacementAndColour) {
  const Placement placement{Vector3D(1.0f, 2.0f, 3.0f), 4.0f, Vector3D(5.0f, 6.0f, 7.0f)};
  painter.DrawQuad(Program::kLight, placement, {0.1f, 0.2f, 0.3f, 0.4f});
  EXPECT_EQ(Last().program, Program::kLight);
  EXPECT_EQ(Last().placement.translate, placement.translate);
  EXPECT_EQ(Last().placement.rotate_radians, 4.0f);
  EXPECT_EQ(Last().placement.scale, placement.scale);
  EXPECT_EQ(Last().colour[3], 0.4f);
}

TEST_F(PainterTest, AModelOfOneVertexStandsForTheSharedQuad) {
  iModel model(nullptr);
  EXPECT_FALSE(IsSharedQuad(model));
  model.m_vertices.resize(1);
  EXPECT_TRUE(IsSharedQuad(model));
  model.m_vertices.clear();
  EXPECT_FALSE(IsSharedQuad(model));
}

TEST_F(PainterTest, AModelIsCopiedWithItsTextureCoordinates) {
  const iModel model(nullptr);
  painter.DrawModel(Program::kDefault, Placement(), kWhite, model);
  const Frame& frame = painter.GetFrame();
  ASSERT_EQ(frame.vertices.size(), 4u);
  EXPECT_EQ(frame.vertices[1].position, model.m_vertices[1].position);
  EXPECT_EQ(frame.vertices[1].u, model.m_vertices[1].u);
  EXPECT_EQ(frame.vertices[1].v, model.m_vertices[1].v);
  EXPECT_EQ(frame.indices, model.m_index_buffer);
}

TEST_F(PainterTest, OutlinesUseTheDefaultProgram) {
  const iModel model(nullptr);
  painter.DrawQuadOutline(Placement(), kWhite);
  painter.DrawModelOutline(Placement(), kWhite, model);
  ASSERT_EQ(Draws().size(), 2u);
  for (const DrawCommand& draw : Draws()) {
    EXPECT_EQ(draw.kind, Kind::kOutline);
    EXPECT_EQ(draw.program, Program::kDefault);
    EXPECT_EQ(draw.count, 8u);
  }
  EXPECT_EQ(Draws()[1].base_vertex, 4u);
}

TEST_F(PainterTest, ASinglePointHasNoOutline) {
  iModel model(nullptr);
  model.m_vertices.resize(1);
  painter.DrawModelOutline(Placement(), kWhite, model);
  EXPECT_TRUE(Draws().empty());
}

TEST_F(PainterTest, InstancesShowTheUploadedQuad) {
  painter.GetFrame().instances.resize(3);
  painter.SetQuad(0.25f, 0.5f);
  painter.UploadQuad();
  painter.DrawInstances({1.0f, 0.5f, 0.0f, 1.0f});
  EXPECT_EQ(Last().kind, Kind::kInstances);
  EXPECT_EQ(Last().program, Program::kInstance);
  EXPECT_EQ(Last().count, 3u);
  EXPECT_EQ(Last().colour[1], 0.5f);
  ExpectWindow(0.25f, 0.5f);
}

TEST_F(PainterTest, ATextIsTheGlyphsFromItsFirstOneOn) {
  painter.GetFrame().glyphs.resize(5);
  painter.DrawText(2, kWhite);
  EXPECT_EQ(Last().first, 2u);
  EXPECT_EQ(Last().count, 3u);
  painter.DrawText(5, kWhite);
  EXPECT_EQ(Draws().size(), 1u) << "no glyphs make no draw";
}

TEST_F(PainterTest, ANewFrameIsEmpty) {
  DrawQuad();
  painter.Begin(&textures);
  EXPECT_TRUE(Draws().empty());
}

}  // namespace
}  // namespace carapace_test
