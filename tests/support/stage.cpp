#include "support/stage.h"

#include <gtest/gtest.h>

#include "audio/audiosource.h"
#include "physicssystem.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

GameObj* RequireObject(GameObj* object, const std::string& name) {
  if (object == nullptr) throw std::out_of_range("no object \"" + name + "\"");
  return object;
}

}  // namespace

GameObj* Stage::Find(const std::string& name) const {
  return RequireObject(world.Find(name), name);
}

GameObj* Stage::FindChild(const std::string& parent, const std::string& name) const {
  return RequireObject(FirstChildNamed(Find(parent), name), parent + "/" + name);
}

ContactInfo Stage::Between(const std::string& a, const std::string& b) const {
  ContactInfo contact;
  contact.objectA = Find(a)->id;
  contact.objectB = Find(b)->id;
  return contact;
}

void Stage::Derive() {
  g_physics_system->UpdateWorldTransforms();
}

bool AsksFor(GameObj* object, const std::string& sound) {
  const auto& sounds = object->GetComponent<AudioSource>()->sounds;
  const auto found = sounds.find(sound);
  return found != sounds.end() && found->second.start_play;
}

void Hush(GameObj* object) {
  object->GetComponent<AudioSource>()->sounds.clear();
}

void ExpectNear(const Vector3D& actual, float x, float y) {
  EXPECT_NEAR(actual.x, x, 1e-3f);
  EXPECT_NEAR(actual.y, y, 1e-3f);
}

}  // namespace carapace_test
