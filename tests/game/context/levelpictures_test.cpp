#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "jsonunserializer.h"
#include "render/gldevice.h"
#include "render/graphicsconfig.h"
#include "render/passes/crosshairpass.h"
#include "render/rendersystem.h"
#include "support/glcontext.h"
#include "support/levelgame.h"
#include "support/picture.h"

namespace carapace_test {
namespace {

// Where bodies are is the same everywhere; only what the driver makes of edges and lamps differs.
constexpr Tolerance kTolerance{6, 0.3};
constexpr int kWidth = 960;
constexpr int kHeight = 540;

/// The settings of the picture, all textures and the font as they are shipped.
Files ShippedPictures() {
  Files files;
  files[ZOVEngine::kGraphicsConfigPath] = ShippedFile(ZOVEngine::kGraphicsConfigPath);
  ZOVEngine::JsonDocument settings;
  settings.ParseText(files[ZOVEngine::kGraphicsConfigPath], "graphics.json");
  std::vector<std::string> paths;
  std::string font;
  ZOVEngine::ReadStringArray(settings.Root(), "texPath", &paths);
  ZOVEngine::ReadValue(settings.Root(), "fontPath", &font);
  paths.push_back(font);
  for (const std::string& path : paths) files[path] = ShippedFile(path);
  return files;
}

/// Draws the last frame that a device was given, with all that it had been given before.
Picture Drawn(const FakeDevice& recorded) {
  const GLContext context(kWidth, kHeight);
  const auto device = ZOVEngine::MakeGLDevice(KeepBackBuffer, KeepInterval);
  EXPECT_EQ(device->Start(), "");
  for (const auto& [program, sources] : recorded.programs) {
    device->CompileProgram(program, sources.vertex, sources.fragment);
  }
  device->CreateResources(recorded.projection);
  for (const auto& [position, image] : recorded.textures) device->UploadTexture(position, image);
  for (const auto& [name, glyph] : recorded.glyphs) {
    device->UploadGlyph(glyph.width, glyph.height, glyph.coverage.data());
  }
  device->Execute(recorded.frame);
  Picture picture = context.ReadBack();
  device->Release();
  return picture;
}

/// Compares the level with its pictures after each of these numbers of steps.
void ExpectPictures(const std::string& level, const std::vector<int>& moments) {
  constexpr std::uint32_t kSeed = 2026;
  // Without the crosshair: how far it has turned depends on what the process drew before.
  ZOVEngine::g_show_system_cursor = true;
  LevelGame game(level, kSeed, ShippedPictures());
  int steps = 0;
  for (const int moment : moments) {
    game.world.Step(moment - steps);
    steps = moment;
    const std::string name = level + "_" + std::to_string(moment);
    EXPECT_EQ(MismatchWithCommitted(name, Drawn(game.world.device), kTolerance), "");
  }
  ZOVEngine::g_show_system_cursor = false;
}

TEST(GLLevels, TheRangeLooksAsItDidAtTheStartAfterASecondAndAfterTenSeconds) {
  ExpectPictures("Level00", {0, 60, 600});
}

TEST(GLLevels, TheFirstLevelLooksAsItDidWhenTanksSpawnWalkAndAim) {
  ExpectPictures("Level01", {20, 150, 600});
}

TEST(GLLevels, TheBosssLevelLooksAsItDidWhenItSpawnsAndWhenItAims) {
  ExpectPictures("Level04", {20, 600});
}

}  // namespace
}  // namespace carapace_test
