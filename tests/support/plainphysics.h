#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/base/vector3d.h"

namespace carapace_test {

using ZOVEngine::Vector3D;

struct PlainTransform {
  Vector3D local_pos{0.0f, 0.0f, 1.0f};
  Vector3D local_scale{1.0f, 1.0f, 1.0f};
  float local_rotate = 0.0f;
  Vector3D prev_pos{0.0f, 0.0f, 1.0f};
  float prev_rotate = 0.0f;
  Vector3D world_pos{0.0f, 0.0f, 1.0f};
  Vector3D world_scale{0.0f, 0.0f, 1.0f};
  float world_rotate = 0.0f;
  bool rotate_with_parent = true;
};

/// A timed force, or with `torque` alone a timed torque.
struct PlainForce {
  float age = 0.0f;
  float lifetime = 0.0f;
  bool active = true;
  Vector3D direction;
  float magnitude = 0.0f;
  float torque = 0.0f;
};

struct PlainBody {
  bool active = true;
  Vector3D prev_vel, vel, accel;
  float rot_vel = 0.0f, rot_accel = 0.0f;
  float inv_mass = 1.0f, inv_inertia = 1.0f;
  float drag = 0.0f, angular_drag = 0.0f, rest = 0.0f;
  std::vector<PlainForce> forces, torques;
};

struct PlainShape {
  std::string type = "Box";  ///< "Box", "Circle" or "Polygon"
  std::string category = "Default";
  bool active = true;
  Vector3D local_scale{1.0f, 1.0f, 1.0f};
  float local_rot = 0.0f;
  Vector3D local_pos{0.0f, 0.0f, 1.0f};
  std::vector<Vector3D> local_vertices;
  std::vector<Vector3D> world_vertices;
  Vector3D center{0.0f, 0.0f, 1.0f};
  Vector3D min{0.0f, 0.0f, 1.0f};
  Vector3D max{0.0f, 0.0f, 1.0f};
  float radius = 0.0f;

  /// Takes the type and, for a box, its four vertices.
  void SetType(const std::string& name);
};

struct PlainObject {
  int parent = -1;
  bool moves_while_paused = false;
  PlainTransform transform;
  std::optional<PlainBody> body;
  std::optional<PlainShape> shape;
};

struct PlainContact {
  bool collided = false;
  std::uint32_t a = 0, b = 0;
  Vector3D normal;
  float penetration = 0.0f;
  std::vector<Vector3D> points;
  Vector3D relative_velocity;
  float normal_velocity = 0.0f;
  bool ignored = false;
};

struct PlainPair {
  std::uint32_t a = 0, b = 0;
  PlainContact contact;
};

/// A node of the tree, with its objects as indices.
struct PlainNode {
  int level = 0;
  std::vector<std::uint32_t> objects;
  std::vector<PlainNode> children;
  Vector3D min{-960.0f, -540.0f, 1.0f};
  Vector3D max{960.0f, 540.0f, 1.0f};
  float width = 1920.0f, height = 1080.0f;
};

enum class PlainEvent { kExit, kStay, kEnter };

// The pair tests, alone.
bool PlainBoxBox(const PlainShape& a, const PlainShape& b, PlainContact* contact);
bool PlainPolygonPolygon(const PlainShape& a, const PlainShape& b, PlainContact* contact);
bool PlainCircleCircle(const PlainShape& a, const PlainShape& b, PlainContact* contact);
bool PlainCirclePolygon(const PlainShape& a, const PlainShape& b, PlainContact* contact);
bool PlainPolygonCircle(const PlainShape& a, const PlainShape& b, PlainContact* contact);
void PlainUpdateShape(const PlainTransform& transform, PlainShape* shape);

/// The physics of the game once more, plain and slow, for comparison with the engine's.
///
/// An object's id is its index in `objects`; the tables' order is that of the objects. Every search
/// is linear and every list is made anew. The float operations stand in one order only, so that the
/// engine's numbers must be the same to the bit. Fill `objects` and `masks`, then Start, then Step;
/// what one step found stands in the public lists until the next.
class PlainPhysics {
 public:
  void Start() { UpdateWorldTransforms(); }
  /// One step of the whole engine; `paused` as the engine's flag.
  void Step(bool paused);
  /// Parts of a step, for tests that stop in between.
  void UpdatePhysics(bool paused);
  void UpdateColliders();
  void UpdateWorldTransforms();
  void AddForce(std::uint32_t id, const Vector3D& direction, float magnitude, float duration);
  void AddTorque(std::uint32_t id, float torque, float duration);
  bool CheckCollision(std::uint32_t a, std::uint32_t b, PlainContact* contact);

  std::vector<PlainObject> objects;
  std::map<std::string, int> masks;
  /// Called for each callback of an object, which may change the contact and the objects' data.
  std::function<void(std::uint32_t object, PlainEvent event, PlainContact* contact)> on_event;

  std::vector<PlainPair> current, previous;
  std::vector<PlainContact> contacts;  ///< of this step, before they were resolved
  PlainNode tree;
  bool nan_normal = false;  ///< a contact of two bodies had a normal that is no number

 private:
  void DeriveWorld(PlainObject* object);
  void DetectExits();
  void Integrate(PlainObject* object);
  std::vector<std::uint32_t> Candidates(std::uint32_t id);
  void FindContacts(const std::vector<std::uint32_t>& working);
  void Resolve(PlainContact* contact);
  void ResolveSingle(PlainContact* contact);
  void Record(const PlainContact& contact);
  bool WasThere(const PlainContact& contact) const;
  void Call(std::uint32_t object, PlainEvent event, PlainContact* contact);
  void Announce(std::uint32_t first, std::uint32_t second, PlainContact* contact);
  int IndexIn(const PlainNode& node, std::uint32_t id) const;
  void Insert(PlainNode* node, std::uint32_t id);
  void Collect(const PlainNode& node, std::uint32_t id, std::vector<std::uint32_t>* out) const;
};

}  // namespace carapace_test
