#include "support/fuzztargets.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

#include "game/levels/levelobjects.h"
#include "jsonunserializer.h"
#include "objects/gameobjfactory.h"
#include "physics/collidersystem.h"
#include "physicssystem.h"
#include "platform/windowsystem.h"
#include "render/graphicsconfig.h"
#include "render/images/image.h"
#include "render/rendersystem.h"
#include "support/reports.h"

namespace carapace_test {

using namespace ZOVEngine;

namespace {

constexpr int kSteps = 3;

void Require(bool condition, const char* what) {
  if (condition) return;
  std::cerr << what << std::endl;
  std::abort();
}

/// Runs `body` to its end, to a report, or to one of the tables' exceptions; all three are ways in
/// which the program answers its data. Returns true for the first.
bool Finishes(const std::function<void()>& body) {
  bool finished = false;
  OutputOf([&] {
    ReportOf([&] {
      try {
        body();
        finished = true;
      } catch (const std::out_of_range&) {
      }
    });
  });
  return finished;
}

/// A directory in which no log can be written: thousands of reports would fill the disk.
void KeepLogAway(const TempDirectory& directory) {
  directory.Write("log_file.log/in-the-way", "");
}

/// A factory with systems that register tables with it. As in the engine, it is deleted first.
struct TablesOfData {
  TablesOfData() : factory(std::make_unique<GameObjFactory>()) { factory->Init(); }
  ~TablesOfData() { factory.reset(); }
  TablesOfData(const TablesOfData&) = delete;
  TablesOfData& operator=(const TablesOfData&) = delete;

  std::unique_ptr<GameObjFactory> factory;
  PhysicsSystem physics;
  RenderSystem render;
};

/// Reads all records of the text as an object file holds them; returns false when it has none.
bool ReadObjects(const std::string& text) {
  JsonDocument document;
  document.ParseText(text, "fuzz.json");
  const Value* records = FindValue(document.Root(), "GameObjFactory");
  if (records == nullptr || !records->IsArray()) return false;
  for (const Value& record : records->GetArray()) g_game_obj_factory->ReadObject(record);
  return true;
}

std::string WriteObjects() {
  JsonWriter writer;
  WriteLevelObjects(writer.Out());
  return writer.Text();
}

/// What was written must read as what it was, unless its families are too deep to be read at all.
void CheckRoundTrip() {
  const std::string first = WriteObjects();
  g_game_obj_factory->ClearObjects();
  bool read = false;
  const bool finished = Finishes([&] { read = ReadObjects(first); });
  if (!read) return;
  Require(finished, "a written level cannot be read");
  Require(WriteObjects() == first, "a written level is not the one that was read");
}

void FuzzWindow(const TempDirectory& directory, const std::string& text) {
  directory.Write("Resources/Archetypes/WinInit.json", text);
  FakeNative native;
  Finishes([&] {
    WindowSystem window;
    SetAssertBox([](const std::string&, const std::string&) { throw std::out_of_range("report"); });
    window.Init();
    Require(window.m_width >= 1 && window.m_height >= 1, "a window without an extent");
  });
}

void FuzzGraphics(const std::string& text) {
  Finishes([&] {
    TablesOfData tables;
    JsonDocument document;
    document.ParseText(text, "graphics.json");
    ReadGraphicsConfig(document.Root(), &tables.render);
    JsonWriter writer;
    WriteGraphicsConfig(writer.Out(), tables.render);
    JsonDocument written;
    written.ParseText(writer.Text(), "written");
    const std::vector<std::string> paths = tables.render.m_texture_paths;
    ReadGraphicsConfig(written.Root(), &tables.render);
    Require(tables.render.m_texture_paths == paths, "the list of textures has changed");
  });
}

void FuzzCollisions(const TempDirectory& directory, const std::string& text) {
  directory.Write("Resources/CollisionInfo.json", text);
  Finishes([] {
    TablesOfData tables;
    const auto first = std::make_unique<ColliderSystem>();
    tables.factory.reset();
  });
}

void FuzzArchetype(const std::string& text) {
  Finishes([&] {
    TablesOfData tables;
    JsonDocument document;
    document.ParseText(text, "archetype.json");
    GameObj* archetype = tables.factory->ReadArchetype(document.Root());
    tables.factory->Clone(archetype, false);
    tables.factory->Destroy(0);
  });
}

}  // namespace

ObjectFileTarget::ObjectFileTarget() {
  KeepLogAway(m_world.Directory());
}

void ObjectFileTarget::Run(const std::string& data) {
  if (Finishes([&] { ReadObjects(data); })) {
    Finishes([&] { m_world.Step(kSteps); });
    CheckRoundTrip();
  }
  g_game_obj_factory->ClearObjects();
}

SettingsTarget::SettingsTarget() {
  KeepLogAway(m_directory);
}

void SettingsTarget::Run(const std::string& data) {
  if (data.empty()) return;
  const std::string text = data.substr(1);
  switch (static_cast<unsigned char>(data[0]) % 4u) {
    case 0:
      return FuzzWindow(m_directory, text);
    case 1:
      return FuzzGraphics(text);
    case 2:
      return FuzzCollisions(m_directory, text);
    default:
      return FuzzArchetype(text);
  }
}

void ImageTarget::Run(const std::string& data) {
  m_directory.Write("picture", data);
  const std::optional<Image> image = LoadImage("picture");
  if (!image) return;
  Require(image->width > 0 && image->width <= kMaxImageSide, "a width out of bounds");
  Require(image->height > 0 && image->height <= kMaxImageSide, "a height out of bounds");
  Require(image->pixels.size() ==
              4u * static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height),
          "pixels that are not as many as the picture's size tells");
}

}  // namespace carapace_test
