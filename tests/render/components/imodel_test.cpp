#include "render/components/imodel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/reports.h"

namespace ZOVEngine {
namespace {

using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::RecordOf;
using carapace_test::ReportOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(IModel, ANewOneIsTheUnitSquareFromItsUpperLeftCornerClockwise) {
  const iModel model(nullptr);
  const float expected[4][5] = {{-0.5f, 0.5f, 1, 0, 0},
                                {0.5f, 0.5f, 1, 1, 0},
                                {0.5f, -0.5f, 1, 1, 1},
                                {-0.5f, -0.5f, 1, 0, 1}};
  ASSERT_THAT(model.m_vertices, SizeIs(4));
  for (std::size_t i = 0; i < 4; ++i) {
    const Vertex& vertex = model.m_vertices[i];
    EXPECT_EQ(vertex.position, Vector3D(expected[i][0], expected[i][1], expected[i][2])) << i;
    EXPECT_EQ(vertex.u, expected[i][3]) << i;
    EXPECT_EQ(vertex.v, expected[i][4]) << i;
    EXPECT_EQ(vertex.r, 255) << i;
    EXPECT_EQ(vertex.a, 255) << i;
  }
  EXPECT_THAT(model.m_index_buffer, ElementsAre(0u, 1u, 3u, 1u, 2u, 3u));
}

TEST(IModel, ARowIsPlaceThenTextureThenColour) {
  iModel model(nullptr);
  ReadRecord(R"({"m_vertices": [[1, 2, 3, 0.25, 0.75, 10, 20, 30, 40]], "m_index_buffer": [7]})",
             model);
  ASSERT_THAT(model.m_vertices, SizeIs(1));
  const Vertex& vertex = model.m_vertices[0];
  EXPECT_EQ(vertex.position, Vector3D(1, 2, 3));
  EXPECT_EQ(vertex.u, 0.25f);
  EXPECT_EQ(vertex.v, 0.75f);
  EXPECT_THAT((std::vector<int>{vertex.r, vertex.g, vertex.b, vertex.a}),
              ElementsAre(10, 20, 30, 40));
  EXPECT_THAT(model.m_index_buffer, ElementsAre(7u));
}

TEST(IModel, EachListReplacesTheOneThatWasThere) {
  iModel model(nullptr);
  OutputOf([&] { ReadRecord(R"({"m_vertices": []})", model); });
  EXPECT_THAT(model.m_vertices, IsEmpty());
  EXPECT_THAT(model.m_index_buffer, SizeIs(6)) << "the list that is missing stays";
  OutputOf([&] { ReadRecord(R"({"m_index_buffer": []})", model); });
  EXPECT_THAT(model.m_index_buffer, IsEmpty());
}

TEST(IModel, OnlyTheLowBitsOfAColourAreKept) {
  iModel model(nullptr);
  ReadRecord(R"({"m_vertices": [[0, 0, 0, 0, 0, 256, 257, -1, 511]], "m_index_buffer": []})",
             model);
  const Vertex& vertex = model.m_vertices.at(0);
  EXPECT_THAT((std::vector<int>{vertex.r, vertex.g, vertex.b, vertex.a}),
              ElementsAre(0, 1, 255, 255));
}

TEST(IModel, WhatIsWrittenIsReadBack) {
  iModel model(nullptr);
  ReadRecord(R"({"m_vertices": [[1, 2, 3, 4, 5, 6, 7, 8, 9], [0, 0, 0, 0, 0, 255, 0, 0, 0]],
                 "m_index_buffer": [1, 0, 1]})",
             model);
  const std::string once = RecordOf(model);
  iModel again(nullptr);
  ReadRecord(once, again);
  EXPECT_EQ(RecordOf(again), once);
}

TEST(IModel, ARowOfAnotherLengthIsReported) {
  for (const char* row :
       {"[]", "[1, 2, 3, 4, 5, 6, 7, 8]", "[1, 2, 3, 4, 5, 6, 7, 8, 9, 10]", "5"}) {
    iModel model(nullptr);
    const std::string record = std::string(R"({"m_vertices": [)") + row + "]}";
    EXPECT_THAT(ReportOf([&] { ReadRecord(record, model); }),
                HasSubstr("key \"m_vertices\": expected rows of 9 numbers"))
        << row;
  }
}

TEST(IModel, AListThatIsNoneIsReported) {
  iModel model(nullptr);
  EXPECT_THAT(ReportOf([&] { ReadRecord(R"({"m_vertices": 5})", model); }),
              HasSubstr("key \"m_vertices\": expected an array of rows"));
  EXPECT_THAT(ReportOf([&] { ReadRecord(R"({"m_vertices": [], "m_index_buffer": {}})", model); }),
              HasSubstr("key \"m_index_buffer\": expected an array of integers"));
}

}  // namespace
}  // namespace ZOVEngine
