#include "editor/canvas/canvas.h"

#include <random>

#include "editor/canvas/canvasstage.h"
#include "editor/canvas/dragtool.h"
#include "editor/canvas/objectbounds.h"
#include "editor/canvas/snapping.h"
#include "game/units/enemy.h"
#include "physics/components/colliderholder.h"

namespace ZOVEngine {
namespace {

using carapace_test::Record;
using carapace_test::TransformAt;

constexpr const char* kEnemyFields =
    R"({"m_health": 1, "m_max_health": 1, "m_alive": true, "m_selected_first_weapon": true,
        "m_boss": false, "m_waypoints": [[1.5, 2.5, 1.0], [3.0, 4.0, 1.0]], "m_move_speed": 10.0,
        "m_move_limit": 1.0, "m_snap_range": 10.0})";

/// A small level of its own, and an author who works in it at random.
class RandomAuthor : public carapace_test::CanvasStage {
 protected:
  RandomAuthor() {
    NewLevel level;
    level.name = "Random";
    EXPECT_TRUE(editor->Create(level));
    const std::string part = Record("part", {{"Transform", TransformAt(3.0f, 4.0f)}});
    const std::string enemy = Record(
        "enemy",
        {{"Transform", TransformAt(10.0f, 20.0f, 1.0f, 90.0f, 30.0f)}, {"Enemy", kEnemyFields}},
        {part, part});
    const std::string lamp = Record("lamp", {{"Transform", TransformAt(-7.0f, 0.5f)}});
    editor->Do(editor->scene.Insert({}, {enemy, lamp, enemy, lamp, lamp}, "Begin"));
    editor->history.Clear();
  }

  std::size_t Draw(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  }
  float DrawOffset() { return std::uniform_real_distribution<float>(-300.0f, 300.0f)(random); }
  const SceneEntry& DrawEntry() { return index.Entries()[Draw(index.Entries().size())]; }

  void Drag() {
    editor->selection = {DrawEntry().path};
    editor->selection.push_back(DrawEntry().path);
    const auto mode = static_cast<std::uint32_t>(Draw(3));
    DragTool drag;
    if (!drag.Begin(index.SelectedTopmost(editor->selection), Handle::kBody, mode, {}, {})) return;
    const SnapGrid grid = Draw(2) == 0 ? SnapGrid() : SnapGrid(60.0f);
    for (int step = 0; step < 3; ++step) {
      const float x = DrawOffset();
      const float y = DrawOffset();
      drag.Update(Vector3D(x, y, 0.0f), grid);
    }
    drag.End(*editor);
  }
  void Delete() { editor->Do(editor->scene.Delete({DrawEntry().path})); }
  void Duplicate() { editor->Do(editor->scene.Duplicate({DrawEntry().path}, 60.0f, 0.0f)); }
  void Reparent() {
    const ObjectPath child = DrawEntry().path;
    const ObjectPath parent = Draw(3) == 0 ? ObjectPath() : DrawEntry().path;
    if (auto command = editor->scene.Reparent(child, parent)) editor->Do(std::move(command));
  }
  void Rename() {
    const SceneEntry& entry = DrawEntry();
    ObjectGesture gesture;
    gesture.Begin({entry.path});
    entry.object->name = "n" + std::to_string(Draw(1000));
    if (auto command = gesture.End(&editor->document, "Rename")) editor->Do(std::move(command));
  }
  void BendPatrol() {
    const SceneEntry& entry = DrawEntry();
    if (!entry.object->HasComponent<Enemy>()) return;
    ObjectGesture gesture;
    gesture.Begin({entry.path}, "Enemy");
    std::vector<Vector3D>& waypoints = entry.object->GetComponent<Enemy>()->m_waypoints;
    if (waypoints.empty() || Draw(2) == 0) {
      waypoints.emplace_back(DrawOffset(), 0.0f, 1.0f);
    } else {
      waypoints.pop_back();
    }
    if (auto command = gesture.End(&editor->document, "Bend")) editor->Do(std::move(command));
  }

  void Gesture() {
    index.Refresh(editor->document);
    const std::size_t objects = index.Entries().size();
    const std::size_t kind = Draw(10);
    if (kind == 0 && objects > 3) Delete();
    if (kind == 1 && objects < 30) Duplicate();
    if (kind == 2) Reparent();
    if (kind == 3) Rename();
    if (kind == 4) BendPatrol();
    if (kind > 4) Drag();
  }

  std::mt19937 random{20261122};
  SceneIndex index;
};

TEST_F(RandomAuthor, AThousandGesturesAreUndoneAndRedoneToTheByte) {
  std::vector<std::string> texts = {Text()};
  while (editor->history.Size() < 1000) {
    Gesture();
    if (editor->history.Size() == texts.size()) texts.push_back(Text());
    ASSERT_EQ(texts.size(), editor->history.Size() + 1);
  }
  for (std::size_t i = 1000; i-- > 0;) {
    editor->Undo();
    ASSERT_EQ(Text(), texts[i]) << "undone " << editor->history.Label(i);
  }
  for (std::size_t i = 1; i <= 1000; ++i) {
    editor->Redo();
    ASSERT_EQ(Text(), texts[i]) << "done again " << editor->history.Label(i - 1);
  }
}

class CanvasTest : public carapace_test::CanvasStage {};

TEST_F(CanvasTest, DoesNothingWithoutAnOpenLevel) {
  editor->Close();
  Click(-720.0f, 240.0f);
  Tap(Key::kDelete);
  EXPECT_TRUE(editor->selection.empty());
}

TEST_F(CanvasTest, TheRightButtonThatTookADragBackIsNotTheViews) {
  Click(-720.0f, 240.0f);
  Drag(-720.0f, 240.0f, -600.0f, 240.0f, false);
  ImGui::GetIO().MouseDown[1] = true;
  Frame();
  EXPECT_TRUE(canvas->TakesRightButton());
  Release();
  EXPECT_TRUE(canvas->TakesRightButton()) << "while it is held";
  ImGui::GetIO().MouseDown[1] = false;
  Frame();
  EXPECT_FALSE(canvas->TakesRightButton());
  ImGui::GetIO().MouseDown[1] = true;
  Frame();
  EXPECT_FALSE(canvas->TakesRightButton()) << "there was nothing to take back";
}

TEST_F(CanvasTest, AScaledUnitIsSavedWithTheColliderThatFollowsItsSize) {
  g_editor.m_edit_mode = EDIT_SCALE;
  Click(-720.0f, 240.0f);
  editor->snap = false;
  const std::string collider = editor->document.Fields(Path("player1"), "ColliderHolder");
  auto* transform = world.Find("player1")->GetComponent<Transform>();
  const ObjectBounds bounds = {transform->m_world_pos, 45.0f, 45.0f,
                               DegreesToRadians(transform->m_world_rotate)};
  const Vector3D corner = bounds.Corners()[2];
  const Vector3D twice = transform->m_world_pos + (corner - transform->m_world_pos) * 2.0f;
  Drag(corner.x, corner.y, twice.x, twice.y);
  EXPECT_NEAR(transform->m_local_scale.x, 180.0f, 0.1f);
  EXPECT_EQ(editor->document.Fields(Path("player1"), "ColliderHolder"), collider);
  auto* holder = world.Find("player1")->GetComponent<ColliderHolder>();
  holder->m_collider->UpdateCollider(*transform);
  const float least = holder->m_collider->m_min.x, most = holder->m_collider->m_max.x;
  EXPECT_NEAR(most - least, 180.0f * holder->m_collider->m_local_scale.x, 0.2f);
}

}  // namespace
}  // namespace ZOVEngine
