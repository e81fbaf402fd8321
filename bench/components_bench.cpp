// GetComponent at random over many objects, against the plain form of the same table: a hash map by
// type of ordered maps by id.
#include <map>
#include <memory>
#include <random>
#include <unordered_map>

#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"
#include "ratio.h"

namespace {

using namespace ZOVEngine;

constexpr std::size_t kObjects = 10'000;
constexpr std::size_t kLookups = 1 << 16;
constexpr double kTarget = 0.15;
constexpr const char* kSubject = "GetComponent";
constexpr const char* kPeer = "MapOfMaps";

using PlainTables = std::unordered_map<ComponentType, std::map<std::uint32_t, GameComponentBase*>>;

/// Objects with three components each, in the engine's tables and in the plain ones, and a random
/// order in which they are asked.
class Scene {
 public:
  Scene() {
    factory->RegisterComponent<Transform>("Transform");
    factory->RegisterComponent<RigidBody>("RigidBody");
    factory->RegisterComponent<StateC>("StateC");
    for (std::size_t i = 0; i < kObjects; ++i) AddObject(static_cast<std::uint32_t>(i));
    std::mt19937 random(1);
    for (std::size_t i = 0; i < kLookups; ++i) {
      order.push_back(factory->m_objects[random() % kObjects]);
    }
  }

  std::unique_ptr<GameObjFactory> factory = std::make_unique<GameObjFactory>();
  PlainTables plain;
  std::vector<GameObj*> order;

 private:
  void AddObject(std::uint32_t id) {
    auto* object = new GameObj;
    object->id = id;
    factory->m_objects.push_back(object);
    Add<Transform>(object);
    Add<RigidBody>(object);
    Add<StateC>(object);
  }

  template <class T>
  void Add(GameObj* object) {
    object->AddComponent<T>();
    plain[&typeid(T)][object->id] = object->GetComponent<T>();
  }
};

Scene& TheScene() {
  static Scene scene;
  return scene;
}

template <class T>
T* PlainGet(const PlainTables& tables, const GameObj& object) {
  return static_cast<T*>(tables.at(&typeid(T)).at(object.id));
}

void GetComponent(benchmark::State& state) {
  const Scene& scene = TheScene();
  for (auto _ : state) {
    for (GameObj* object : scene.order) {
      benchmark::DoNotOptimize(object->GetComponent<Transform>());
      benchmark::DoNotOptimize(object->GetComponent<RigidBody>());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(2 * kLookups));
}

void MapOfMaps(benchmark::State& state) {
  const Scene& scene = TheScene();
  for (auto _ : state) {
    for (const GameObj* object : scene.order) {
      benchmark::DoNotOptimize(PlainGet<Transform>(scene.plain, *object));
      benchmark::DoNotOptimize(PlainGet<RigidBody>(scene.plain, *object));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(2 * kLookups));
}

constexpr int kRepetitions = 7;
BENCHMARK(GetComponent)->Unit(benchmark::kMicrosecond)->Repetitions(kRepetitions);
BENCHMARK(MapOfMaps)->Unit(benchmark::kMicrosecond)->Repetitions(kRepetitions);

}  // namespace

int main(int argc, char** argv) {
  return carapace_bench::RunAgainstPeer(argc, argv, kSubject, kPeer, kTarget);
}
