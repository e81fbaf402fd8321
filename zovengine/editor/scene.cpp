#include "editor/scene.h"

#include "audio/audiosource.h"
#include "editor/editorview.h"
#include "editor/leveldocument.h"
#include "game/levels/levelobjects.h"
#include "game/turns/gamecontroller.h"
#include "game/units/enemy.h"
#include "game/units/player.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "objects/statec.h"
#include "physics/components/colliderholder.h"
#include "physics/components/transform.h"
#include "render/components/animation.h"
#include "render/components/particlesystemc.h"

namespace ZOVEngine {
namespace {

constexpr const char* kOpenLevel = "the open level";  ///< in reports, in place of a path

void ReadObjects(const Value& root) {
  for (const Value& record : RequireValue(root, "GameObjFactory").GetArray()) {
    g_game_obj_factory->ReadObject(record);
  }
}

void ReadTiles(const std::string& text) {
  JsonDocument document;
  document.ParseText(text, kOpenLevel);
  if (document.Root().IsObject()) ReadObjects(document.Root());
}

/// A file's "active" marks the object alone; an erased tile is hidden as well.
void HideErasedTiles() {
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (IsTile(object) && !object->active) object->SetActive(false);
  }
}

/// A level that is edited does not start: its controller would load the tiles of the saved level.
void HoldControllers() {
  for (GameController* controller : ComponentTable<GameController>().Components()) {
    controller->m_init = true;
  }
}

/// Contacts are resolved in a pause too, and would push apart what the author lays together.
void HoldColliders() {
  for (ColliderHolder* holder : ComponentTable<ColliderHolder>().Components()) {
    holder->m_active = false;
  }
}

void HoldSounds() {
  for (AudioSource* source : ComponentTable<AudioSource>().Components()) {
    for (auto& [name, sound] : source->sounds) sound.start_play = false;
  }
}

bool IsUnit(const GameObj* object) {
  return object->HasComponent<Player>() || object->HasComponent<Enemy>();
}

/// Shows the plain image of a unit, and of what loops the first frame: nothing is set in motion.
void HoldAnimations() {
  constexpr float kNever = -1.0e9f;  // a timer that no step moves (unit: seconds)
  for (Animation* animation : ComponentTable<Animation>().Components()) {
    if (!animation->m_owner->HasComponent<StateC>()) continue;
    std::string& state = animation->m_owner->GetComponent<StateC>()->m_state;
    if (state == "spawn") state = "default";
    if (animation->m_loop.empty() || IsUnit(animation->m_owner)) continue;
    state = "loop";
    animation->m_currStep = 0.0f;
    animation->m_timer = kNever;
  }
}

/// Particles would make every frame another one, and the picture of a level dear to draw.
void HoldParticles() {
  for (ParticleSystemC* system : ComponentTable<ParticleSystemC>().Components()) {
    system->m_emitting = false;
  }
}

void HoldWhatRuns() {
  HoldColliders();
  HoldParticles();
  HoldSounds();
  HoldAnimations();
}

/// True for the classes of which a scene that is edited holds something.
bool IsHeld(const std::string& component) {
  return component == "ColliderHolder" || component == "AudioSource" || component == "Animation" ||
         component == "StateC" || component == "ParticleSystemC";
}

void DeriveTransforms() {
  for (Transform* transform : ComponentTable<Transform>().Components()) transform->DeriveWorld();
}

/// The component of this class name, or null.
GameComponentBase* FindComponent(GameObj* object, const std::string& component) {
  for (const ComponentType type : object->components) {
    if (g_game_obj_factory->TypeName(type) != component) continue;
    return g_game_obj_factory->Table(type).Get(object);
  }
  return nullptr;
}

void SetOwnFields(GameObj* object, const Value& fields) {
  ReadValue(fields, "name", &object->name);
  ReadValue(fields, "active", &object->active);
}

}  // namespace

std::string TilesText() {
  JsonWriter writer;
  writer.Out().json->StartObject();
  WriteKey(writer.Out(), "GameObjFactory");
  writer.Out().json->StartArray();
  for (GameObj* object : g_game_obj_factory->m_objects) {
    if (IsTile(object)) WriteObject(writer.Out(), object);
  }
  writer.Out().json->EndArray();
  writer.Out().json->EndObject();
  return writer.Text();
}

void BuildScene(const LevelDocument& document, const std::string& tiles, SceneUse use) {
  const Vector3D camera = EditorCameraPosition();
  g_game_obj_factory->ClearObjects();
  {
    const JsonTrail::FileScope file(kOpenLevel);
    ReadObjects(document.Json());
  }
  ReadTiles(tiles);
  HideErasedTiles();
  if (use == SceneUse::kEdit) {
    HoldControllers();
    HoldWhatRuns();
  }
  MakeEditorCamera(camera);
  DeriveTransforms();
}

std::string LiveFields(GameObj* object, const std::string& component) {
  JsonWriter writer;
  writer.Out().json->StartObject();
  if (component.empty()) {
    WriteValue(writer.Out(), "name", object->name);
    WriteValue(writer.Out(), "active", object->active);
  } else if (GameComponentBase* own = FindComponent(object, component)) {
    own->Serialize(writer.Out());
  } else {
    return "";
  }
  writer.Out().json->EndObject();
  return writer.Text();
}

void SetLiveFields(GameObj* object, const std::string& component, const std::string& text) {
  JsonDocument document;
  document.ParseText(text, kOpenLevel);
  const JsonTrail::ObjectScope scope(object->name);
  if (component.empty()) {
    SetOwnFields(object, document.Root());
  } else if (GameComponentBase* own = FindComponent(object, component)) {
    own->Unserialize(document.Root());
    if (IsHeld(component)) HoldWhatRuns();
  }
}

}  // namespace ZOVEngine
