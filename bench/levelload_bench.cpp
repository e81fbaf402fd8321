// From an object file to objects, against a bare parse of the same text by the JSON library.
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "ratio.h"
#include "render/components/animation.h"
#include "render/components/font.h"
#include "render/components/imodel.h"
#include "render/components/light.h"
#include "render/components/render.h"

namespace {

using namespace ZOVEngine;

constexpr std::size_t kFileSize = 1'000'000;
constexpr double kTarget = 6.0;
constexpr const char* kSubject = "LoadObjects";
constexpr const char* kPeer = "BareParse";

/// Makes units as a level has them: a body with sprite and collider, and a label and a lamp as
/// children, at places and angles of many digits.
class UnitMaker {
 public:
  GameObj* Make() {
    GameObj* unit = Object("unit_" + std::to_string(g_game_obj_factory->m_objects.size()));
    Place(unit);
    unit->AddComponent<RigidBody>();
    unit->AddComponent<ColliderHolder>();
    unit->AddComponent<Render>();
    unit->AddComponent<iModel>();
    unit->AddComponent<StateC>();
    unit->AddComponent<Animation>();
    GameObj* label = Child(unit, "label");
    label->AddComponent<Font>();
    GameObj* lamp = Child(unit, "lamp");
    lamp->AddComponent<Light>();
    return unit;
  }

 private:
  static GameObj* Object(const std::string& name) {
    auto* object = new GameObj;
    object->name = name;
    object->id = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
    g_game_obj_factory->m_objects.push_back(object);
    return object;
  }

  GameObj* Child(GameObj* parent, const std::string& name) {
    GameObj* child = Object(name);
    child->parent = parent;
    parent->children.push_back(child);
    Place(child);
    return child;
  }

  void Place(GameObj* object) {
    object->AddComponent<Transform>();
    std::uniform_real_distribution<float> place(-960.0f, 960.0f);
    Transform& transform = *object->GetComponent<Transform>();
    transform.m_local_pos = transform.m_world_pos = Vector3D(place(m_random), place(m_random), 1);
    transform.m_local_rotate = transform.m_world_rotate = place(m_random);
  }

  std::mt19937 m_random{1};
};

/// A factory with the tables of a level, and an object file of 1 MB in the temporary directory.
class Level {
 public:
  Level() {
    factory->Init();
    factory->RegisterComponent<Transform>("Transform");
    factory->RegisterComponent<RigidBody>("RigidBody");
    factory->RegisterComponent<ColliderHolder>("ColliderHolder");
    factory->RegisterComponent<Render>("Render");
    factory->RegisterComponent<Animation>("Animation");
    factory->RegisterComponent<Font>("Font");
    text = MakeText();
    path = (std::filesystem::temp_directory_path() / "carapace-levelload-bench.json").string();
    std::ofstream(path, std::ios::binary) << text;
  }
  ~Level() {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
  }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

  std::unique_ptr<GameObjFactory> factory = std::make_unique<GameObjFactory>();
  std::string text;
  std::string path;

 private:
  std::string MakeText() const {
    UnitMaker units;
    JsonWriter writer;
    writer.Out().json->StartObject();
    WriteKey(writer.Out(), "GameObjFactory");
    writer.Out().json->StartArray();
    while (writer.Out().buffer->GetSize() < kFileSize) WriteObject(writer.Out(), units.Make());
    writer.Out().json->EndArray();
    writer.Out().json->EndObject();
    factory->ClearObjects();
    return writer.Text();
  }
};

Level& TheLevel() {
  static Level level;
  return level;
}

void LoadObjects(benchmark::State& state) {
  Level& level = TheLevel();
  for (auto _ : state) {
    level.factory->LoadObjects(level.path);
    state.PauseTiming();
    state.counters["objects"] = static_cast<double>(level.factory->m_objects.size());
    level.factory->ClearObjects();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(level.text.size()));
}

void BareParse(benchmark::State& state) {
  const Level& level = TheLevel();
  for (auto _ : state) {
    rapidjson::Document document;
    document.Parse<rapidjson::kParseIterativeFlag>(level.text.data(), level.text.size());
    benchmark::DoNotOptimize(document.IsObject());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(level.text.size()));
}

constexpr int kRepetitions = 7;
BENCHMARK(LoadObjects)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);
BENCHMARK(BareParse)->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);

}  // namespace

int main(int argc, char** argv) {
  return carapace_bench::RunAgainstPeer(argc, argv, kSubject, kPeer, kTarget);
}
