#include "physics/collidersystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rttr/type>

#include <cmath>
#include <limits>
#include <memory>

#include "core/base/profile.h"
#include "physics/physicsfixture.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::ContactListener;
using carapace_test::Files;
using carapace_test::Mover;
using carapace_test::OutputOf;
using carapace_test::PhysicsFixture;
using carapace_test::Record;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr const char* kFile = "Resources/CollisionInfo.json";

Files CollisionInfo(const std::string& text) {
  return {{kFile, text}};
}

/// The text without white space.
std::string Dense(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
  return text;
}

TEST(ColliderSystemFile, FillsBothMaps) {
  World world(CollisionInfo(R"({"str_grp": ["Wall", "Default"], "int_grp": [2, 1],
                                "str_bm": ["Wall", "Ghost"], "int_bm": [7, -1]})"));
  EXPECT_THAT(g_collider_system->m_groups, ElementsAre(Pair("Default", 1), Pair("Wall", 2)));
  EXPECT_THAT(g_collider_system->m_masks, ElementsAre(Pair("Ghost", -1), Pair("Wall", 7)));
}

TEST(ColliderSystemFile, TheEntriesOfANewSystemGiveWayToTheFile) {
  World world(CollisionInfo(R"({"str_grp": ["Wall"], "int_grp": [2], "str_bm": ["Wall"],
                                "int_bm": [7]})"));
  EXPECT_EQ(g_collider_system->m_masks.count("Default"), 0u);
}

TEST(ColliderSystemFile, CategoriesAreReadAsFarAsTheGroupsReach) {
  World world(CollisionInfo(R"({"str_grp": ["A"], "int_grp": [1, 2, 3],
                                "str_bm": ["X", "Y", "Z"], "int_bm": [4, 5, 6]})"));
  EXPECT_THAT(g_collider_system->m_groups, ElementsAre(Pair("A", 1)));
  EXPECT_THAT(g_collider_system->m_masks, ElementsAre(Pair("X", 4)));
}

TEST(ColliderSystemFile, TheTeardownWritesItBackSorted) {
  World world(CollisionInfo(R"({"str_grp": ["Wall", "Barrier"], "int_grp": [2, 3],
                                "str_bm": ["Zone", "Ghost"], "int_bm": [7, 0]})"));
  const std::string output = OutputOf([&] { world.Shutdown(); });
  EXPECT_THAT(output, HasSubstr("Destructor of ColliderSystem\n"));
  EXPECT_EQ(Dense(world.Directory().Read(kFile)),
            R"({"str_grp":["Barrier","Wall"],"int_grp":[3,2],)"
            R"("str_bm":["Ghost","Zone"],"int_bm":[0,7]})");
}

TEST(ColliderSystemFile, TheShippedFileComesBackAsItIs) {
  World world;
  world.Shutdown();
  EXPECT_EQ(Dense(world.Directory().Read(kFile)), Dense(carapace_test::ShippedFile(kFile)));
}

TEST(ColliderSystemFile, ACategoryThatWasAddedIsWritten) {
  World world;
  g_collider_system->m_masks["New"] = 0;
  world.Shutdown();
  EXPECT_THAT(world.Directory().Read(kFile), HasSubstr("\"New\""));
}

TEST(ColliderSystemFile, MissingListsArePrintedAndEmpty) {
  std::string output;
  {
    std::unique_ptr<World> world;
    output = OutputOf([&] { world = std::make_unique<World>(CollisionInfo("{}")); });
    EXPECT_THAT(g_collider_system->m_groups, IsEmpty());
    EXPECT_THAT(g_collider_system->m_masks, IsEmpty());
  }
  for (const char* key : {"str_grp", "int_grp", "str_bm", "int_bm"}) {
    EXPECT_THAT(output, HasSubstr(std::string("Cant find Key: ") + key + "\n"));
  }
}

TEST(ColliderSystemFile, AMalformedFileLeavesEmptyMaps) {
  World world(CollisionInfo("{\"str_grp\": ["));
  EXPECT_THAT(g_collider_system->m_groups, IsEmpty());
  EXPECT_THAT(g_collider_system->m_masks, IsEmpty());
}

TEST(ColliderSystemDeathTest, AListShorterThanTheGroupsEndsTheProgram) {
  const char* const kFiles[] = {
      R"({"str_grp": ["A"], "int_grp": [], "str_bm": ["A"], "int_bm": [1]})",
      R"({"str_grp": ["A"], "int_grp": [1], "str_bm": [], "int_bm": [1]})",
      R"({"str_grp": ["A"], "int_grp": [1], "str_bm": ["A"], "int_bm": []})",
      R"({"str_grp": ["A"], "int_grp": [1], "str_bm": ["A"]})"};
  for (const char* text : kFiles) {
    EXPECT_DEATH(World world(CollisionInfo(text)), "");
  }
}

TEST(ColliderSystemDeathTest, AMissingFileEndsTheProgram) {
  carapace_test::TempDirectory directory;
  EXPECT_DEATH(
      {
        GameObjFactory factory;
        ColliderSystem system;
      },
      "Resources/CollisionInfo\\.jsonfile not found");
}

TEST(ColliderSystem, SetDebugReachesEveryHolderByName) {
  World world;
  world.LoadObjects(Record("a", {{"ColliderHolder", "{}"}}) + "," +
                    Record("b", {{"ColliderHolder", "{}"}}));
  const rttr::type type = rttr::type::get_by_name("ZOVEngine::ColliderSystem");
  EXPECT_EQ(type.get_metadata("systemname").get_value<std::string>(), "ColliderSystem");
  type.get_method("SetDebug").invoke(*g_collider_system, true);
  EXPECT_TRUE(world.Find("a")->GetComponent<ColliderHolder>()->m_debug);
  EXPECT_TRUE(world.Find("b")->GetComponent<ColliderHolder>()->m_debug);
}

// Who meets whom

class PairingTest : public PhysicsFixture {
 protected:
  /// Two circles of diameter 10 that overlap; `category` of the first.
  void AddTwo(const std::string& body, const std::string& category = "Default",
              const std::string& other_category = "Default") {
    Add({.name = "a", .size = kTen, .body = body, .shape = "Circle", .category = category});
    Add({.name = "b",
         .at = Vector3D(4, 0, 1),
         .size = kTen,
         .shape = "Circle",
         .category = other_category});
  }
  std::vector<std::string> StepPairs() {
    world.Step();
    return Pairs();
  }
  /// Static boxes far from each other in the lower left of the field, which touch nothing.
  void AddBystanders(int count) {
    for (int i = 0; i < count; ++i) {
      Add({.name = "x", .at = Vector3D(-900.0f + 70.0f * static_cast<float>(i), -500, 1)});
    }
  }
  /// A circle at (x, y), with a body.
  GameObj* AddRound(const std::string& name, float x, float y, float diameter) {
    return Add({.name = name,
                .at = Vector3D(x, y, 1),
                .size = Vector3D(diameter, diameter, 1),
                .body = Mover(),
                .shape = "Circle"});
  }

  static constexpr Vector3D kTen{10, 10, 1};
};

TEST_F(PairingTest, TwoStaticObjectsDoNotMeet) {
  AddTwo("");
  EXPECT_THAT(StepPairs(), IsEmpty());
}

TEST_F(PairingTest, ABodyOnEitherSideIsEnough) {
  AddTwo(Mover());
  EXPECT_THAT(StepPairs(), ElementsAre("a-b"));
  EXPECT_EQ(spy->contacts[0].objectA, 0u);
  EXPECT_EQ(spy->contacts[0].objectB, 1u);
  EXPECT_TRUE(spy->contacts[0].collided);
  EXPECT_FALSE(spy->contacts[0].ignored);
}

TEST_F(PairingTest, APairIsReportedOnceThoughItIsFoundFromBothEnds) {
  AddTwo(Mover());
  AddRound("c", 0, 4, 10);
  EXPECT_THAT(StepPairs(), ElementsAre("a-b", "a-c", "b-c"));
}

TEST_F(PairingTest, EveryStepBroadcastsOneMessageEvenWithoutContacts) {
  world.Step();
  EXPECT_EQ(spy->messages, 1);
  EXPECT_THAT(spy->contacts, IsEmpty());
  g_engine->paused = true;
  world.Step();
  EXPECT_EQ(spy->messages, 2) << "a pause does not stop the search";
}

TEST_F(PairingTest, CategoriesMeetWhenTheirMasksShareABit) {
  g_collider_system->m_masks = {{"One", 1}, {"Two", 2}, {"Three", 3}, {"None", 0}};
  AddTwo(Mover(), "One", "Two");
  EXPECT_THAT(StepPairs(), IsEmpty());
  ColliderHolder& other = Of<ColliderHolder>(world.Find("b"));
  for (const auto& [category, count] :
       {std::pair{"Three", 1u}, std::pair{"None", 0u}, std::pair{"One", 1u}}) {
    LocalPosition(world.Find("a")) = Vector3D(0, 0, 1);
    other.bitmask_category = category;
    EXPECT_EQ(StepPairs().size(), count) << category;
  }
}

TEST_F(PairingTest, AMaskThatChangesCountsFromTheNextStep) {
  AddTwo(Mover());
  EXPECT_EQ(StepPairs().size(), 1u);
  g_collider_system->m_masks["Default"] = 0;
  LocalPosition(world.Find("a")) = Vector3D(0, 0, 1);
  EXPECT_THAT(StepPairs(), IsEmpty());
}

TEST_F(PairingTest, AnUnknownCategoryTouchesNothingAndIsWrittenWithTheMask0) {
  AddTwo(Mover(), "Stranger");
  EXPECT_THAT(StepPairs(), IsEmpty());
  ASSERT_EQ(g_collider_system->m_masks.count("Stranger"), 1u);
  EXPECT_EQ(g_collider_system->m_masks["Stranger"], 0);
  world.Shutdown();
  EXPECT_THAT(world.Directory().Read(kFile), HasSubstr("\"Stranger\""));
}

TEST_F(PairingTest, TwoObjectsOfOneUnknownCategoryDoNotMeet) {
  AddTwo(Mover(), "Stranger", "Stranger");
  EXPECT_THAT(StepPairs(), IsEmpty());
}

TEST_F(PairingTest, TwoStaticStrangersAreNotEvenLookedUp) {
  AddTwo("", "Stranger", "Stranger");
  world.Step();
  EXPECT_EQ(g_collider_system->m_masks.count("Stranger"), 0u);
}

TEST_F(PairingTest, AStrangerIsLookedUpThoughItsBoundsAreApart) {
  // Both stand in the root, and the masks are asked before the bounds.
  Add({.name = "a", .body = Mover(), .category = "Stranger"});
  Add({.name = "b", .at = Vector3D(500, 300, 1)});
  world.Step();
  EXPECT_EQ(g_collider_system->m_masks.count("Stranger"), 1u);
}

TEST_F(PairingTest, BoundsThatTouchExactlyAreTested) {
  Add({.name = "a", .body = Mover()});
  Add({.name = "b", .at = Vector3D(2, 0, 1)});
  EXPECT_THAT(StepPairs(), ElementsAre("a-b"));
  EXPECT_EQ(spy->contacts[0].penetration, 0.0f);
  EXPECT_EQ(spy->contacts[0].contactPoints.size(), 2u);
}

TEST_F(PairingTest, BoundsApartInEitherDirectionAreNotTested) {
  ContactInfo contact;
  GameObj* a = Add({.name = "a", .body = Mover()});
  GameObj* b = Add({.name = "b"});
  world.Step();
  ColliderHolder& holder_a = Of<ColliderHolder>(a);
  ColliderHolder& holder_b = Of<ColliderHolder>(b);
  EXPECT_TRUE(g_collider_system->CheckCollision(&holder_a, &holder_b, &contact));
  for (const Vector3D& by :
       {Vector3D(3, 0, 0), Vector3D(-3, 0, 0), Vector3D(0, 3, 0), Vector3D(0, -3, 0)}) {
    // The bounds alone are moved: the shapes overlap as before.
    holder_b.m_collider->m_min += by;
    holder_b.m_collider->m_max += by;
    EXPECT_FALSE(g_collider_system->CheckCollision(&holder_a, &holder_b, &contact));
    EXPECT_FALSE(g_collider_system->CheckCollision(&holder_b, &holder_a, &contact));
    holder_b.m_collider->m_min -= by;
    holder_b.m_collider->m_max -= by;
  }
}

TEST_F(PairingTest, CheckCollisionChoosesTheTestByTheTwoKinds) {
  // A circle against a polygon takes the distance as its depth, whichever side it is on.
  struct Case {
    const char* a;
    const char* b;
    float depth;
  };
  const Case cases[] = {
      {"Box", "Box", 0.5f},         {"Box", "Polygon", 0.5f},   {"Polygon", "Box", 0.5f},
      {"Polygon", "Polygon", 0.5f}, {"Circle", "Circle", 0.5f}, {"Circle", "Box", 0.5f},
      {"Circle", "Polygon", 0.5f},  {"Box", "Circle", 0.5f},    {"Polygon", "Circle", 0.5f}};
  for (const Case& kinds : cases) {
    const std::string square = "[[-0.5, 0.5, 1], [0.5, 0.5, 1], [0.5, -0.5, 1], [-0.5, -0.5, 1]]";
    const auto vertices = [&](const std::string& kind) {
      return kind == "Polygon" ? square : std::string();
    };
    GameObj* a =
        Add({.name = "a", .body = Mover(), .shape = kinds.a, .vertices = vertices(kinds.a)});
    GameObj* b = Add(
        {.name = "b", .at = Vector3D(1.5f, 0, 1), .shape = kinds.b, .vertices = vertices(kinds.b)});
    world.Step();
    ASSERT_THAT(Pairs(), ElementsAre("a-b")) << kinds.a << kinds.b;
    EXPECT_EQ(spy->contacts[0].penetration, kinds.depth) << kinds.a << kinds.b;
    EXPECT_EQ(spy->contacts[0].normal, Vector3D(-1, 0, 0)) << kinds.a << kinds.b;
    EXPECT_EQ(LocalPosition(a), Vector3D(-0.5f, 0, 1));
    EXPECT_EQ(LocalPosition(b), Vector3D(1.5f, 0, 1));
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(PairingTest, AnUnknownKindIsReportedAsTheTableDoes) {
  GameObj* a = Add({.name = "a", .body = Mover()});
  GameObj* b = Add({.name = "b"});
  world.Step();
  ContactInfo contact;
  const auto message = [&](GameObj* one, GameObj* other) -> std::string {
    try {
      g_collider_system->CheckCollision(&Of<ColliderHolder>(one), &Of<ColliderHolder>(other),
                                        &contact);
    } catch (const std::out_of_range& error) {
      return error.what();
    }
    return "";
  };
  Of<ColliderHolder>(b).m_collider_type = "Capsule";
  EXPECT_EQ(message(a, b), "invalid unordered_map<K, T> key");
  EXPECT_EQ(message(b, a), "invalid unordered_map<K, T> key");
  Of<ColliderHolder>(b).bitmask_category = "Stranger";
  EXPECT_EQ(message(a, b), "") << "the masks are asked first";
}

// Who takes part

TEST_F(PairingTest, AnInactiveHolderTakesNoPart) {
  Add({.name = "a", .size = kTen, .body = Mover(), .shape = "Circle"});
  GameObj* b = Add({.name = "b",
                    .at = Vector3D(4, 0, 1),
                    .size = kTen,
                    .shape = "Circle",
                    .holder_active = false});
  EXPECT_THAT(StepPairs(), IsEmpty());
  EXPECT_EQ(Of<ColliderHolder>(b).m_collider->m_center, Vector3D(0, 0, 1))
      << "its shape is not even placed";
  Of<ColliderHolder>(b).m_active = true;
  EXPECT_THAT(StepPairs(), ElementsAre("a-b"));
}

TEST_F(PairingTest, AnInactiveObjectWithAnActiveHolderTakesPart) {
  Add({.name = "a", .size = kTen, .body = Mover(), .shape = "Circle"});
  GameObj* b = Add({.name = "b",
                    .at = Vector3D(4, 0, 1),
                    .size = kTen,
                    .shape = "Circle",
                    .object_active = false});
  ASSERT_FALSE(b->active);
  EXPECT_THAT(StepPairs(), ElementsAre("a-b"));
}

TEST_F(PairingTest, ShapesFollowTheirWorldTransforms) {
  Add({.name = "a", .body = Mover()});
  GameObj* b = Add({.name = "b", .at = Vector3D(50, 0, 1)});
  EXPECT_THAT(StepPairs(), IsEmpty());
  LocalPosition(b) = Vector3D(1.5f, 0, 1);
  EXPECT_THAT(StepPairs(), ElementsAre("a-b"));
}

TEST_F(PairingTest, ObjectsOutsideTheFieldMeetToo) {
  AddBystanders(12);
  AddRound("a", 5000, 3000, 10);
  AddRound("b", 5004, 3000, 10);
  EXPECT_THAT(StepPairs(), ElementsAre("a-b"));
}

TEST_F(PairingTest, ChildrenStandWhereTheirParentPutsThem) {
  world.LoadObjects(
      Record("parent", {{"Transform", carapace_test::TransformAt(100, 50)}},
             {Record("child", {{"Transform", carapace_test::TransformAt(5, 0, 1, 2)},
                               {"RigidBody", Mover()},
                               {"ColliderHolder", "{\"m_collider_type\": \"Circle\"}"}})}));
  Add({.name = "wall", .at = Vector3D(106, 50, 1), .shape = "Circle"});
  EXPECT_THAT(StepPairs(), ElementsAre("child-wall"));
}

// Order and sides by the tree

TEST_F(PairingTest, InOneNodeTheEarlierInTheTableIsA) {
  AddRound("late", 300, 300, 10);
  AddRound("later", 304, 300, 10);
  EXPECT_THAT(StepPairs(), ElementsAre("late-later"));
}

TEST_F(PairingTest, TenObjectsDoNotSplitANodeElevenDo) {
  // The first straddles a midline, the second does not: once the root is split, the second stands
  // deeper, and only the deeper one sees the other.
  AddRound("wide", 0, 300, 20);
  AddRound("small", 12, 300, 10);
  AddBystanders(8);
  EXPECT_THAT(StepPairs(), ElementsAre("wide-small")) << "ten objects";
  g_game_obj_factory->ClearObjects();
  AddRound("wide", 0, 300, 20);
  AddRound("small", 12, 300, 10);
  AddBystanders(9);
  EXPECT_THAT(StepPairs(), ElementsAre("small-wide")) << "eleven objects";
}

TEST_F(PairingTest, AnInactiveHolderDoesNotFillANode) {
  AddRound("wide", 0, 300, 20);
  AddRound("small", 12, 300, 10);
  AddBystanders(9);
  Of<ColliderHolder>(g_game_obj_factory->m_objects.back()).m_active = false;
  EXPECT_THAT(StepPairs(), ElementsAre("wide-small"));
}

TEST_F(PairingTest, AChildNodeSplitsByItsOwnCount) {
  // Eleven in the upper right quarter; "wide" straddles that quarter's midline at x = 480.
  AddRound("wide", 480, 400, 20);
  AddRound("small", 492, 400, 10);
  for (int i = 0; i < 9; ++i) {
    Add({.name = "x", .at = Vector3D(50.0f + 30.0f * static_cast<float>(i), 50, 1)});
  }
  EXPECT_THAT(StepPairs(), ElementsAre("small-wide"));
}

TEST_F(PairingTest, AtLevel5ANodeNeverSplits) {
  // A node of level 5 is 60 by 33.75; the one at the field's centre has its midline at x = 30.
  // A twelfth object splits it at no other level: "wide" would stay above "small".
  AddRound("wide", 30, 15, 8);
  AddRound("small", 35, 15, 4);
  for (int i = 0; i < 20; ++i) {
    Add({.name = "x",
         .at = Vector3D(3.0f + 1.2f * static_cast<float>(i), 28, 1),
         .size = Vector3D(1, 1, 1)});
  }
  EXPECT_THAT(StepPairs(), ElementsAre("wide-small"));
}

TEST_F(PairingTest, OneLevelHigherTheNodeSplits) {
  // The same at level 4, whose node is 120 by 67.5 with its midlines at 60 and 33.75.
  AddRound("wide", 60, 15, 8);
  AddRound("small", 65, 15, 4);
  for (int i = 0; i < 9; ++i) {
    Add({.name = "x",
         .at = Vector3D(3.0f + 3.0f * static_cast<float>(i), 50, 1),
         .size = Vector3D(1, 1, 1)});
  }
  EXPECT_THAT(StepPairs(), ElementsAre("small-wide"));
}

TEST_F(PairingTest, AnObjectThatTouchesAMidlineStaysInItsNode) {
  // Each of these touches a midline of the field from one side and so stands in the root, above the
  // small one that comes later in the table.
  struct Case {
    Vector3D touching, inside;
  };
  const Case cases[] = {{Vector3D(-10, 300, 1), Vector3D(-22, 300, 1)},
                        {Vector3D(10, 300, 1), Vector3D(22, 300, 1)},
                        {Vector3D(300, 10, 1), Vector3D(300, 22, 1)},
                        {Vector3D(300, -10, 1), Vector3D(300, -22, 1)}};
  for (const Case& place : cases) {
    AddBystanders(10);
    AddRound("wide", place.touching.x, place.touching.y, 20);
    AddRound("small", place.inside.x, place.inside.y, 10);
    EXPECT_THAT(StepPairs(), ElementsAre("small-wide")) << place.touching.x << place.touching.y;
    g_game_obj_factory->ClearObjects();
    // A little off the line it goes down with the other, and the table decides.
    const Vector3D off = place.touching + (place.touching - place.inside) * -0.01f;
    AddBystanders(10);
    AddRound("wide", off.x, off.y, 20);
    AddRound("small", place.inside.x, place.inside.y, 10);
    EXPECT_THAT(StepPairs(), ElementsAre("wide-small")) << off.x << off.y;
    g_game_obj_factory->ClearObjects();
  }
}

TEST_F(PairingTest, AHolderMeetsTheDeepestNodeFirstAndTheRootLast) {
  AddRound("root", 0, 300, 40);      // straddles x = 0
  AddRound("quarter", 32, 270, 60);  // straddles y = 270, in the upper right quarter
  AddRound("deep", 18, 300, 10);
  AddRound("deep2", 20, 302, 10);
  AddBystanders(9);
  for (int i = 0; i < 10; ++i) {
    Add({.name = "x", .at = Vector3D(500.0f + 40.0f * static_cast<float>(i), 500, 1)});
  }
  EXPECT_THAT(StepPairs(), ElementsAre("quarter-root", "deep-deep2", "deep-quarter", "deep-root",
                                       "deep2-quarter", "deep2-root"));
}

// Results that depend on the sides

/// The vertices of a square, and of a needle into it, around the centres of their objects.
constexpr const char* kSquareVertices = "[[-1, 1, 1], [1, 1, 1], [1, -1, 1], [-1, -1, 1]]";
constexpr const char* kNeedleVertices = "[[-1.5, 0, 1], [-1.1, 0.8, 1], [1, -0.4, 1]]";

TEST_F(PairingTest, ASensorFoundFirstKeepsTheOtherSideFromBeingHeard) {
  const Vector3D unit(1, 1, 1);
  Add({.name = "square",
       .at = Vector3D(300, 300, 1),
       .size = unit,
       .body = Mover(),
       .shape = "Polygon",
       .vertices = kSquareVertices});
  Add({.name = "needle",
       .at = Vector3D(302, 300, 1),
       .size = unit,
       .body = Mover(),
       .shape = "Polygon",
       .vertices = kNeedleVertices});
  EXPECT_THAT(StepPairs(), ElementsAre("square-needle"));
  EXPECT_EQ(spy->contacts[0].contactPoints.size(), 0u);
  EXPECT_THAT(ContactListener::calls, IsEmpty());
}

TEST_F(PairingTest, TheSamePairTheOtherWayRoundIsAContact) {
  const Vector3D unit(1, 1, 1);
  Add({.name = "needle",
       .at = Vector3D(302, 300, 1),
       .size = unit,
       .body = Mover(),
       .shape = "Polygon",
       .vertices = kNeedleVertices});
  Add({.name = "square",
       .at = Vector3D(300, 300, 1),
       .size = unit,
       .body = Mover(),
       .shape = "Polygon",
       .vertices = kSquareVertices});
  EXPECT_THAT(StepPairs(), ElementsAre("needle-square"));
  EXPECT_EQ(spy->contacts[0].contactPoints.size(), 2u);
  EXPECT_EQ(ContactListener::calls.size(), 8u);
}

TEST_F(PairingTest, APairThatMissesOneWayIsTriedTheOtherWay) {
  // With the square as A its left edge is clipped against an edge far below it, and nothing is
  // left. With the triangle as A the square's right edge cuts the triangle's, and two points are
  // left. So the one that comes later in the table is A.
  const Vector3D unit(1, 1, 1);
  GameObj* square = Add({.name = "square",
                         .size = unit,
                         .body = Mover(),
                         .shape = "Polygon",
                         .vertices = "[[-2, 2, 1], [2, 2, 1], [2, -2, 1], [-2, -2, 1]]"});
  GameObj* triangle = Add({.name = "triangle",
                           .at = Vector3D(0, -5, 1),
                           .size = unit,
                           .body = Mover(),
                           .shape = "Polygon",
                           .vertices = "[[4, -2, 1], [1, 5, 1], [5, 1, 1]]"});
  EXPECT_THAT(StepPairs(), ElementsAre("triangle-square"));
  EXPECT_EQ(spy->contacts[0].normal, Vector3D(1, 0, 0));
  EXPECT_EQ(spy->contacts[0].penetration, 1.0f);
  ASSERT_EQ(spy->contacts[0].contactPoints.size(), 2u);
  EXPECT_EQ(spy->contacts[0].contactPoints[0], Vector3D(1, 0, 1));
  EXPECT_FLOAT_EQ(spy->contacts[0].contactPoints[1].x, 13.0f / 7.0f);
  EXPECT_EQ(LocalPosition(triangle), Vector3D(0.5f, -5, 1));
  EXPECT_EQ(LocalPosition(square), Vector3D(-0.5f, 0, 1));
}

// Besides

TEST_F(PairingTest, TheTimesAreRecorded) {
  for (const char* name : {"QuadTree Generation", "Collision"}) {
    ProfileTable().erase(name);
    world.Step();
    ASSERT_EQ(ProfileTable().count(name), 1u) << name;
    EXPECT_TRUE(ProfileTable()[name].isSystemTime) << name;
  }
}

TEST_F(PairingTest, ActiveHoldersWithTheDebugFlagAreDrawn) {
  Add({.name = "box"});
  Add({.name = "off", .holder_active = false});
  g_collider_system->SetDebug(true);
  g_collider_system->Update(kStep);
  EXPECT_EQ(g_render_system->m_lines.size(), 8u) << "four for the bounds, four for the edges";
  g_render_system->m_lines.clear();
  g_collider_system->SetDebug(false);
  g_collider_system->Update(kStep);
  EXPECT_EQ(g_render_system->m_lines.size(), 0u);
}

std::vector<std::pair<Vector3D, Vector3D>> Nodes() {
  std::vector<std::pair<Vector3D, Vector3D>> nodes;
  g_collider_system->Tree().ForEachNode(
      [&](const Vector3D& min, const Vector3D& max) { nodes.emplace_back(min, max); });
  return nodes;
}

TEST_F(PairingTest, TheTreeStartsAnewInEveryStep) {
  AddBystanders(10);
  AddRound("m", 300, 300, 10);
  world.Step();
  EXPECT_EQ(Nodes().size(), 5u);
  for (GameObj* object : g_game_obj_factory->m_objects) Of<ColliderHolder>(object).m_active = false;
  world.Step();
  ASSERT_EQ(Nodes().size(), 1u);
  EXPECT_EQ(Nodes()[0].first, Vector3D(-960, -540, 1));
  EXPECT_EQ(Nodes()[0].second, Vector3D(960, 540, 1));
}

TEST_F(PairingTest, ChildrenLieUpperLeftUpperRightLowerRightLowerLeft) {
  AddBystanders(10);
  AddRound("m", 300, 300, 10);
  world.Step();
  const auto corners = [](float x0, float y0, float x1, float y1) {
    return Pair(Vector3D(x0, y0, 1), Vector3D(x1, y1, 1));
  };
  EXPECT_THAT(Nodes(), ElementsAre(corners(-960, -540, 960, 540), corners(-960, 0, 0, 540),
                                   corners(0, 0, 960, 540), corners(0, -540, 960, 0),
                                   corners(-960, -540, 0, 0)));
}

}  // namespace
}  // namespace ZOVEngine
