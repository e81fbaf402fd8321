#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "autoplay/levelrun.h"
#include "game/turns/gamecontroller.h"
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

/// Hides the crosshair while it exists.
struct NoCrosshair {
  NoCrosshair() { ZOVEngine::g_show_system_cursor = true; }
  ~NoCrosshair() { ZOVEngine::g_show_system_cursor = false; }
  NoCrosshair(const NoCrosshair&) = delete;
  NoCrosshair& operator=(const NoCrosshair&) = delete;
};

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

/// A level whose pictures are compared.
class PicturedLevel {
 public:
  explicit PicturedLevel(const std::string& level)
      : m_name(level), m_game(level, kSeed, ShippedPictures()) {}

  /// Compares the picture after so many steps from the level's start.
  void ExpectAfter(int steps) {
    m_game.world.Step(steps - m_steps);
    m_steps = steps;
    Expect(std::to_string(steps));
  }
  /// Compares the picture when the player's first unit has got its turn and its ring has closed.
  void ExpectAtFirstTurn() {
    const ZOVEngine::GameController& controller = *ZOVEngine::FindTurnController();
    for (int i = 0; i < kLongestRound && controller.m_state != ZOVEngine::TURN_PLAYER_MOVE; ++i) {
      m_game.world.Step();
    }
    ASSERT_EQ(controller.m_state, ZOVEngine::TURN_PLAYER_MOVE);
    m_game.world.Step(kRingSteps);
    Expect("turn");
  }

 private:
  static constexpr std::uint32_t kSeed = 2026;
  static constexpr int kLongestRound = 6000;  ///< (unit: steps)
  static constexpr int kRingSteps = 60;

  void Expect(const std::string& moment) {
    EXPECT_EQ(MismatchWithCommitted(m_name + "_" + moment, Drawn(m_game.world.device), kTolerance),
              "");
  }

  /// Without the crosshair: how far it has turned depends on what the process drew before.
  const NoCrosshair m_no_crosshair;
  std::string m_name;
  LevelGame m_game;
  int m_steps = 0;
};

TEST(GLLevels, TheRangeLooksAsItDidAtTheStartAfterASecondAndAfterTenSeconds) {
  PicturedLevel level("Level00");
  for (const int steps : {0, 60, 600}) level.ExpectAfter(steps);
}

TEST(GLLevels, TheRangeLooksAsItDidWhenAUnitAims) {
  PicturedLevel level("Level00");
  level.ExpectAtFirstTurn();
}

TEST(GLLevels, TheBosssLevelLooksAsItDidWhenItSpawnsAndWhenItAims) {
  PicturedLevel level("Level04");
  for (const int steps : {20, 600}) level.ExpectAfter(steps);
}

}  // namespace
}  // namespace carapace_test
