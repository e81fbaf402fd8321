// What the level editor's canvas costs in a frame among thousands of objects: the mouse over them,
// a drag, all overlays. The time counts the whole frame of ImGui around it, without its drawing.
// Beside that, what it costs to undo a stroke over a large map.
#include <benchmark/benchmark.h>
#include <imgui.h>

#include <cstdio>
#include <memory>
#include <random>

#include "editor/canvas/canvas.h"
#include "editor/editordata.h"
#include "editor/editorview.h"
#include "editor/leveleditor.h"
#include "game/hazards/deathfield.h"
#include "game/hazards/environmentblackhole.h"
#include "game/hazards/environmentdamage.h"
#include "game/hazards/environmentrough.h"
#include "game/units/enemy.h"
#include "objects/gameobjfactory.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "ratio.h"
#include "render/components/imodel.h"
#include "render/components/render.h"

namespace {

using namespace ZOVEngine;

constexpr int kObjects = 2000;
constexpr int kEnemies = 200;    ///< among them
constexpr double kTarget = 2.0;  ///< for a frame (unit: milliseconds)
constexpr float kFrame = 1.0f / 60.0f;
constexpr const char* kSubjects[] = {"Hover", "DragStep", "AllOverlays"};
constexpr int kSide = 100;              ///< of the map that a stroke covers (unit: tiles)
constexpr double kStrokeTarget = 16.0;  ///< to undo it (unit: milliseconds)

/// An open level of many objects with image and collider, enemies with patrol paths among them, the
/// canvas over it, and ImGui without a window.
class Scene {
 public:
  Scene() {
    RegisterTables();
    MakeImGui();
    editor = std::make_unique<LevelEditor>();
    for (int i = 0; i < kObjects; ++i) MakeObject(i);
    WriteDocument();
    MakeCamera();
    g_editor.m_level_open = true;
    g_editor.m_tile_map.m_width = 32;
    g_editor.m_tile_map.m_height = 18;
    g_editor.m_tile_map.m_tile_size = 60;
  }
  ~Scene() {
    editor.reset();
    ImGui::DestroyContext();
    g_editor.m_editor_camera = nullptr;
  }
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  void Frame() {
    ImGui::GetIO().DeltaTime = kFrame;
    ImGui::NewFrame();
    canvas.Show(*editor);
    ImGui::Render();
  }
  static void MoveMouse(float x, float y) {
    const Vector3D at = WorldToWindow(Vector3D(x, y, 0.0f));
    ImGui::GetIO().MousePos = ImVec2(at.x, at.y);
  }

  std::unique_ptr<GameObjFactory> factory = std::make_unique<GameObjFactory>();
  std::unique_ptr<LevelEditor> editor;
  Canvas canvas;

 private:
  void RegisterTables() {
    factory->Init();
    factory->RegisterComponent<Transform>("Transform");
    factory->RegisterComponent<Render>("Render");
    factory->RegisterComponent<ColliderHolder>("ColliderHolder");
    factory->RegisterComponent<iModel>("iModel");
    factory->RegisterComponent<Enemy>("Enemy");
    factory->RegisterComponent<DeathField>("DeathField");
    factory->RegisterComponent<EnvironmentBlackhole>("EnvironmentBlackhole");
    factory->RegisterComponent<EnvironmentDamage>("EnvironmentDamage");
    factory->RegisterComponent<EnvironmentRough>("EnvironmentRough");
  }

  static void MakeImGui() {
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.DisplaySize = ImVec2(1920.0f, 1080.0f);
    io.IniFilename = nullptr;
    unsigned char* pixels = nullptr;
    int columns = 0, rows = 0;
    io.Fonts->GetTexDataAsRGBA32(&pixels, &columns, &rows);
  }

  GameObj* NewObject(const char* name) {
    auto* object = new GameObj;
    object->name = name;
    object->id = static_cast<std::uint32_t>(factory->m_objects.size());
    factory->m_objects.push_back(object);
    object->AddComponent<Transform>();
    return object;
  }

  void MakeObject(int i) {
    GameObj* object = NewObject("object");
    std::uniform_real_distribution<float> place(-1.0f, 1.0f);
    Transform& transform = *object->GetComponent<Transform>();
    const float x = place(m_random);
    const float y = place(m_random);
    transform.m_local_pos = Vector3D(x * 900.0f, y * 500.0f, 1.0f);
    transform.m_local_scale = Vector3D(40.0f, 40.0f, 1.0f);
    transform.m_local_rotate = x * 180.0f;
    transform.DeriveWorld();
    object->AddComponent<Render>();
    object->AddComponent<ColliderHolder>();
    object->GetComponent<ColliderHolder>()->SetType(i % 2 == 0 ? "Circle" : "Box");
    if (i >= kEnemies) return;
    object->AddComponent<Enemy>();
    object->GetComponent<Enemy>()->m_waypoints = {Vector3D(-x * 900.0f, y * 500.0f, 1.0f),
                                                  transform.m_local_pos};
  }

  void WriteDocument() {
    JsonWriter writer;
    writer.Out().json->StartObject();
    WriteKey(writer.Out(), "GameObjFactory");
    writer.Out().json->StartArray();
    for (GameObj* object : factory->m_objects) WriteObject(writer.Out(), object);
    writer.Out().json->EndArray();
    writer.Out().json->EndObject();
    editor->document.SetText(writer.Text());
  }

  void MakeCamera() {
    g_editor.m_editor_camera = NewObject("LECamera");
    g_editor.m_editor_camera->GetComponent<Transform>()->m_local_pos = Vector3D();
  }

  std::mt19937 m_random{1};
};

Scene& TheScene() {
  static Scene scene;
  return scene;
}

/// A mouse that goes over the picture while nothing is pressed.
void Sweep(benchmark::State& state) {
  Scene& scene = TheScene();
  float x = -900.0f;
  for (auto _ : state) {
    x = x < 900.0f ? x + 7.0f : -900.0f;
    Scene::MoveMouse(x, x * 0.5f);
    scene.Frame();
  }
}

void Hover(benchmark::State& state) {
  Sweep(state);
}

void DragStep(benchmark::State& state) {
  Scene& scene = TheScene();
  GameObj* topmost = scene.factory->m_objects[kObjects - 1];
  const Vector3D from = topmost->GetComponent<Transform>()->m_world_pos;
  Scene::MoveMouse(from.x, from.y);
  scene.Frame();
  ImGui::GetIO().MouseDown[0] = true;
  scene.Frame();
  float offset = 0.0f;
  for (auto _ : state) {
    offset = offset < 300.0f ? offset + 7.0f : 0.0f;
    Scene::MoveMouse(from.x + offset, from.y);
    scene.Frame();
  }
  Scene::MoveMouse(from.x, from.y);
  ImGui::GetIO().MouseDown[0] = false;
  scene.Frame();
}

void AllOverlays(benchmark::State& state) {
  EditorOverlays& shown = TheScene().editor->overlays;
  const EditorOverlays usual = shown;
  shown = {true, true, true, true, true, true};
  Sweep(state);
  shown = usual;
}

/// Undoes and does again in turn; both lay as many tiles. The last benchmark, for its tiles stay.
void UndoStroke(benchmark::State& state) {
  TileBook& tiles = TheScene().editor->tiles;
  TileMapInfo map;
  map.m_width = map.m_height = kSide;
  map.m_tile_size = 60;
  const TilePlaces places(map, false);
  TileStroke stroke(&tiles);
  for (int i = 0; i < kSide * kSide; ++i) {
    stroke.Paint(places.At(i % kSide, i / kSide), NewTile("Tile_Wall"));
  }
  const std::unique_ptr<EditCommand> command = stroke.End("Stroke");
  bool done = command != nullptr;
  for (auto _ : state) {
    if (done) {
      command->Undo();
    } else {
      command->Redo();
    }
    done = !done;
  }
  if (done) command->Undo();
}

constexpr int kRepetitions = 5;
BENCHMARK(Hover)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);
BENCHMARK(DragStep)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);
BENCHMARK(AllOverlays)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);
BENCHMARK(UndoStroke)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  carapace_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  for (const char* subject : kSubjects) {
    std::printf("%s: %.3f ms (target: at most %.1f)\n", subject, reporter.Median(subject), kTarget);
  }
  std::printf("UndoStroke: %.3f ms (target: at most %.1f)\n", reporter.Median("UndoStroke"),
              kStrokeTarget);
  return 0;
}
