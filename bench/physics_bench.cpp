// A step of this engine's bodies and contacts beside Box2D's, in one run: square boxes without
// gravity, with drag, in a walled field of 1920 by 1080 units with tiles in it.
//
// Timed is the processor time of one step on the main thread: physics and collision systems here,
// b2World::Step with 8 velocity and 3 position iterations there, continuous collision and sleeping
// off. Both start from the same boxes with the same speeds, which go with the side, so that the
// fields are alike at every size. `contacts` is the mean number of contact points of a step, `deep`
// that of pairs found deeper than one unit, `allocations` the mean number of allocations a step
// after the warm-up.

#include <benchmark/benchmark.h>
#include <box2d/box2d.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "allocations.h"
#include "core/engine.h"
#include "objects/gameobjfactory.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "threadclock.h"

namespace {

using carapace_bench::ThreadMicroseconds;
using ZOVEngine::Vector3D;

constexpr float kStep = 1.0f / 60.0f;
constexpr float kHalfWidth = 960.0f, kHalfHeight = 540.0f;
constexpr float kWall = 40.0f;     ///< thickness (unit: world units)
constexpr float kTile = 60.0f;     ///< side of a tile
constexpr float kTopSpeed = 8.0f;  ///< (unit: sides of a box per second)
constexpr float kTopSpin = 90.0f;  ///< (unit: degrees per second)
constexpr float kDrag = 0.2f;
constexpr float kRest = 0.3f;
constexpr int kWarmUp = 120;  ///< steps
constexpr int kSteps = 900;
constexpr float kDeep = 1.0f;  ///< (unit: world units)

struct Box {
  float x, y, width, height;
  float vx = 0, vy = 0, spin = 0;
  bool fixed = true;
};

/// Walls, tiles, and `count` boxes of side `side` that do not overlap at the start.
std::vector<Box> MakeField(int count, float side) {
  std::vector<Box> boxes = {
      {0, kHalfHeight - kWall / 2, 2 * kHalfWidth, kWall},
      {0, kWall / 2 - kHalfHeight, 2 * kHalfWidth, kWall},
      {kHalfWidth - kWall / 2, 0, kWall, 2 * kHalfHeight - 2 * kWall},
      {kWall / 2 - kHalfWidth, 0, kWall, 2 * kHalfHeight - 2 * kWall},
  };
  for (int column = -2; column <= 2; ++column) {
    for (int row = -1; row <= 1; ++row) {
      boxes.push_back(
          {300.0f * static_cast<float>(column), 250.0f * static_cast<float>(row), kTile, kTile});
    }
  }
  const std::size_t fixed = boxes.size();
  std::mt19937 random(7);
  const auto between = [&random](float low, float high) {
    return low + (high - low) * static_cast<float>(random() >> 8) / 16777216.0f;
  };
  const float pitch = side * 1.5f;
  const float edge = kWall + side;
  std::vector<Box> free;
  for (float y = edge - kHalfHeight; y < kHalfHeight - edge; y += pitch) {
    for (float x = edge - kHalfWidth; x < kHalfWidth - edge; x += pitch) {
      const auto covers = [=](const Box& b) {
        return std::abs(b.x - x) < (b.width + pitch) / 2 &&
               std::abs(b.y - y) < (b.height + pitch) / 2;
      };
      if (std::any_of(boxes.begin(), boxes.begin() + static_cast<long>(fixed), covers)) continue;
      free.push_back({x, y, side, side, side * between(-kTopSpeed, kTopSpeed),
                      side * between(-kTopSpeed, kTopSpeed), between(-kTopSpin, kTopSpin), false});
    }
  }
  std::shuffle(free.begin(), free.end(), random);
  free.resize(std::min(free.size(), static_cast<std::size_t>(count)));
  boxes.insert(boxes.end(), free.begin(), free.end());
  return boxes;
}

/// This engine's objects, physics and collisions, without window, picture and sound.
class OurField {
 public:
  explicit OurField(const std::vector<Box>& boxes) {
    ZOVEngine::g_engine = &m_engine;
    m_engine.systems = {&m_factory, &m_physics, &m_colliders};
    for (const Box& box : boxes) Add(box);
    for (ZOVEngine::System* system : m_engine.systems) system->Init();
  }
  ~OurField() { ZOVEngine::g_engine = nullptr; }

  void Step() {
    m_physics.UpdateWorldTransforms();
    m_physics.Update(kStep);
    m_colliders.Update(kStep);
  }

  std::size_t Contacts() const { return m_physics.current.size(); }

  int DeepPairs() const {
    int deep = 0;
    const ZOVEngine::ContactPair* last = nullptr;
    for (const ZOVEngine::ContactPair& pair : m_physics.current) {
      // A pair has a record for each of its points.
      const bool again = last && last->objectA == pair.objectA && last->objectB == pair.objectB;
      deep += !again && pair.contact.penetration > kDeep;
      last = &pair;
    }
    return deep;
  }

 private:
  void Add(const Box& box) {
    auto* object = new ZOVEngine::GameObj;
    object->id = static_cast<std::uint32_t>(m_factory.m_objects.size());
    m_factory.m_objects.push_back(object);
    object->AddComponent<ZOVEngine::Transform>();
    auto* transform = object->GetComponent<ZOVEngine::Transform>();
    transform->m_local_scale = Vector3D(box.width, box.height, 1.0f);
    object->SetPosition(Vector3D(box.x, box.y, 1.0f));
    object->AddComponent<ZOVEngine::ColliderHolder>();
    if (box.fixed) return;
    object->AddComponent<ZOVEngine::RigidBody>();
    auto* body = object->GetComponent<ZOVEngine::RigidBody>();
    body->m_vel = Vector3D(box.vx, box.vy, 0.0f);
    body->m_rot_vel = box.spin;
    body->m_inertia = box.width * box.width / 6.0f;
    body->m_inv_inertia = 1.0f / body->m_inertia;
    body->m_drag = body->m_angular_drag = kDrag;
    body->m_rest = kRest;
  }

  ZOVEngine::Engine m_engine;
  ZOVEngine::GameObjFactory m_factory;
  ZOVEngine::PhysicsSystem m_physics;
  ZOVEngine::ColliderSystem m_colliders;
};

/// The same field in Box2D, which wants bodies of about a metre.
class PeerField {
 public:
  explicit PeerField(const std::vector<Box>& boxes) {
    m_world.SetContinuousPhysics(false);
    m_world.SetAllowSleeping(false);
    for (const Box& box : boxes) Add(box);
  }

  void Step() { m_world.Step(kStep, 8, 3); }

  std::size_t Contacts() const {
    std::size_t points = 0;
    for (const b2Contact* contact = m_world.GetContactList(); contact;
         contact = contact->GetNext()) {
      if (contact->IsTouching())
        points += static_cast<std::size_t>(contact->GetManifold()->pointCount);
    }
    return points;
  }

  int DeepPairs() const {
    int deep = 0;
    for (const b2Contact* contact = m_world.GetContactList(); contact;
         contact = contact->GetNext()) {
      if (!contact->IsTouching()) continue;
      b2WorldManifold manifold;
      contact->GetWorldManifold(&manifold);
      const float depth = -std::min(manifold.separations[0], contact->GetManifold()->pointCount > 1
                                                                 ? manifold.separations[1]
                                                                 : manifold.separations[0]);
      deep += depth > kDeep * kMetres;
    }
    return deep;
  }

 private:
  static constexpr float kMetres = 0.05f;  ///< of a unit

  void Add(const Box& box) {
    b2BodyDef definition;
    definition.type = box.fixed ? b2_staticBody : b2_dynamicBody;
    definition.position.Set(box.x * kMetres, box.y * kMetres);
    definition.linearVelocity.Set(box.vx * kMetres, box.vy * kMetres);
    definition.angularVelocity = box.spin * b2_pi / 180.0f;
    definition.linearDamping = definition.angularDamping = kDrag;
    definition.allowSleep = false;
    b2PolygonShape shape;
    shape.SetAsBox(box.width * kMetres / 2, box.height * kMetres / 2);
    b2FixtureDef fixture;
    fixture.shape = &shape;
    fixture.density = 1.0f / (box.width * box.height * kMetres * kMetres);
    fixture.friction = 0.0f;
    fixture.restitution = kRest;
    m_world.CreateBody(&definition)->CreateFixture(&fixture);
  }

  b2World m_world{b2Vec2(0.0f, 0.0f)};
};

struct Result {
  double median = 0;  ///< (unit: microseconds)
  double p99 = 0;
  double deep = 0;
  double contacts = 0;
  double allocations = 0;
};

std::map<std::string, Result> g_results;

template <class Field>
void Steps(benchmark::State& state, const char* name) {
  const auto boxes =
      MakeField(static_cast<int>(state.range(0)), static_cast<float>(state.range(1)));
  for (auto _ : state) {
    Field field(boxes);
    for (int i = 0; i < kWarmUp; ++i) field.Step();
    std::vector<double> times;
    times.reserve(kSteps);
    Result result;
    for (int i = 0; i < kSteps; ++i) {
      const std::size_t before = carapace_bench::AllocationCount();
      const double start = ThreadMicroseconds();
      field.Step();
      const double end = ThreadMicroseconds();
      result.allocations +=
          static_cast<double>(carapace_bench::AllocationCount() - before) / kSteps;
      result.deep += static_cast<double>(field.DeepPairs()) / kSteps;
      result.contacts += static_cast<double>(field.Contacts()) / kSteps;
      times.push_back(end - start);
    }
    std::sort(times.begin(), times.end());
    result.median = times[kSteps / 2];
    result.p99 = times[kSteps * 99 / 100];
    state.SetIterationTime(result.median * 1e-6);
    g_results[name + std::to_string(state.range(0))] = result;
    state.counters["p99_us"] = result.p99;
    state.counters["contacts"] = result.contacts;
    state.counters["deep"] = result.deep;
    state.counters["allocations"] = result.allocations;
  }
}

void Ours(benchmark::State& state) {
  Steps<OurField>(state, "ours");
}
void Peer(benchmark::State& state) {
  Steps<PeerField>(state, "peer");
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Args({500, 24})->Args({2000, 12})->Args({5000, 8})->ArgNames({"boxes", "side"});
  bench->UseManualTime()->Iterations(1)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Ours)->Apply(Sizes);
BENCHMARK(Peer)->Apply(Sizes);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  for (const char* boxes : {"500", "2000", "5000"}) {
    const Result& ours = g_results[std::string("ours") + boxes];
    const Result& peer = g_results[std::string("peer") + boxes];
    std::printf(
        "%4s boxes: %.3f of Box2D's time (target 0.28); ours %.0f us, 99th percentile %.2f of the "
        "median (target 2), %.1f pairs deeper than 1 unit (Box2D %.1f), %.2f allocations\n",
        boxes, ours.median / peer.median, ours.median, ours.p99 / ours.median, ours.deep, peer.deep,
        ours.allocations);
  }
  std::printf("500 to 5000 boxes: %.1f times the time (target 16)\n",
              g_results["ours5000"].median / g_results["ours500"].median);
}
