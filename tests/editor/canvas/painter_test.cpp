#include "editor/canvas/painter.h"

#include "editor/canvas/canvasstage.h"

namespace ZOVEngine {
namespace {

class CanvasPainterTest : public carapace_test::CanvasStage {
 protected:
  /// The vertices of what `draw` draws.
  template <class Draw>
  int Drawn(Draw draw) {
    ImGui::NewFrame();
    {
      const CanvasView view;
      CanvasPainter painter(view, CanvasPainter::kToolVertices);
      draw(painter);
    }
    const int vertices = ImGui::GetBackgroundDrawList()->VtxBuffer.Size;
    ImGui::Render();
    return vertices;
  }
};

TEST_F(CanvasPainterTest, WhatLiesOutsideOfThePictureIsLeftOut) {
  const Vector3D inside(0.0f, 0.0f, 0.0f), outside(5000.0f, 0.0f, 0.0f);
  EXPECT_GT(Drawn([&](CanvasPainter& p) { p.Dot(inside, 5.0f, 0xffffffff); }), 0);
  EXPECT_EQ(Drawn([&](CanvasPainter& p) { p.Dot(outside, 5.0f, 0xffffffff); }), 0);
  EXPECT_EQ(Drawn([&](CanvasPainter& p) { p.Circle(outside, 50.0f, 0xffffffff); }), 0);
  EXPECT_EQ(Drawn([&](CanvasPainter& p) {
              p.Line(outside, Vector3D(5000.0f, 900.0f, 0.0f), 0xffffffff);
            }),
            0);
}

TEST_F(CanvasPainterTest, ALineThroughThePictureIsDrawnThoughItsEndsAreOutside) {
  const Vector3D left(-5000.0f, 0.0f, 0.0f), right(5000.0f, 0.0f, 0.0f);
  EXPECT_GT(Drawn([&](CanvasPainter& p) { p.Line(left, right, 0xffffffff); }), 0);
}

TEST_F(CanvasPainterTest, DrawsNoMoreThanAListHolds) {
  const int vertices = Drawn([](CanvasPainter& p) {
    for (int i = 0; i < 20000; ++i) p.Circle(Vector3D(), 100.0f, 0xffffffff);
  });
  EXPECT_GE(vertices, CanvasPainter::kToolVertices);
  EXPECT_LT(vertices, 65536);
}

TEST_F(CanvasPainterTest, AShapeWithoutPointsIsNothing) {
  EXPECT_EQ(Drawn([](CanvasPainter& p) { p.Outline(nullptr, 0, 0xffffffff); }), 0);
}

}  // namespace
}  // namespace ZOVEngine
