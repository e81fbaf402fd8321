#include "render/textureloader.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "objects/gameobjfactory.h"
#include "physics/components/transform.h"
#include "render/components/imodel.h"
#include "render/components/render.h"
#include "render/graphicsconfig.h"
#include "render/graphicsfiles.h"
#include "render/picturefiles.h"
#include "render/rendersystem.h"
#include "support/reports.h"
#include "support/scene.h"

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr const char* kLoadError = "ERROR: Failed to load texture.\n";

/// Settings with these images, and a screen with a sprite of the texture "shown".
class LoadingScene {
 public:
  LoadingScene(const std::vector<std::string>& names, const Files& images)
      : world(WithImages(names, images)) {
    AddSprite("shown");
  }

  static Files WithImages(std::vector<std::string> names, const Files& images) {
    for (std::string& name : names) name = "Resources/Textures/" + name;
    Files files = WithShaders(Config(names));
    for (const auto& [name, content] : images) files["Resources/Textures/" + name] = content;
    return files;
  }

  GameObj* AddSprite(const std::string& texture) {
    auto* object = new GameObj;
    object->id = static_cast<std::uint32_t>(g_game_obj_factory->m_objects.size());
    g_game_obj_factory->m_objects.push_back(object);
    object->AddComponent<Transform>();
    object->AddComponent<Render>();
    object->AddComponent<iModel>();
    Of<Render>(object).m_tex = texture;
    return object;
  }

  /// The number that the sprite's draw shows: it is drawn between background and crosshair.
  std::uint32_t ShownNumber() const { return world.device.frame.commands.at(1).texture; }

  World world;
};

TEST(TextureLoader, AFrameNeverShowsATextureThatIsNotInTheDevice) {
  std::vector<std::string> names{"default.tga"};
  Files images{{"default.tga", OnePixel(9, 9, 9)}};
  for (int i = 0; i < 200; ++i) {
    names.push_back(std::to_string(i) + ".tga");
    images[names.back()] = OnePixel(static_cast<std::uint8_t>(i), 0, 0);
  }
  LoadingScene scene(names, images);
  // From the end of the list, where the worker comes last.
  for (int i = 199; i >= 0; i -= 7) {
    scene.AddSprite(std::to_string(i));
    scene.world.Step();
    for (const DrawCommand& draw : scene.world.device.frame.commands) {
      ASSERT_EQ(scene.world.device.textures.count(draw.texture), 1u) << draw.texture;
    }
    EXPECT_EQ(scene.world.device.textures.at(static_cast<std::uint32_t>(i) + 1).pixels[0], i);
  }
}

TEST(TextureLoader, WhatNoFrameShowsComesBehindTheFrames) {
  LoadingScene scene({"default.tga", "shown.tga", "other.tga"}, {{"default.tga", OnePixel(1, 1, 1)},
                                                                 {"shown.tga", OnePixel(2, 2, 2)},
                                                                 {"other.tga", OnePixel(3, 3, 3)}});
  for (int i = 0; i < 5000 && scene.world.device.textures.count(2) == 0; ++i) scene.world.Step();
  ASSERT_EQ(scene.world.device.textures.count(2), 1u);
  EXPECT_EQ(scene.world.device.textures.at(2).pixels[0], 3);
}

TEST(TextureLoader, ATextureThatIsAskedForComesBeforeTheOthersAndIsMadeWhole) {
  std::vector<std::string> names{"default.tga"};
  Files images{{"default.tga", OnePixel(9, 9, 9)}};
  for (int i = 1; i < 400; ++i) {
    names.push_back(std::to_string(i) + ".tga");
    images[names.back()] = OnePixel(1, 2, 3);
  }
  LoadingScene scene(names, images);
  for (int i = 0; i < 5000 && !g_render_system->RequestTexture(399); ++i) {
    g_render_system->Update(0.0f);
  }
  EXPECT_EQ(scene.world.device.textures.count(399), 1u);
  EXPECT_EQ(scene.world.device.finished.count(399), 1u);
  EXPECT_EQ(scene.world.device.finished.size(), 1u);
  EXPECT_FALSE(g_render_system->RequestTexture(400)) << "beyond the list";
}

TEST(TextureLoader, ATextureThatFailedIsNeverInTheDevice) {
  OutputOf([&] {
    LoadingScene scene({"default.tga", "shown.tga"},
                       {{"default.tga", OnePixel(1, 1, 1)}, {"shown.tga", "no image"}});
    scene.world.Step();
    EXPECT_FALSE(g_render_system->RequestTexture(1));
  });
}

TEST(TextureLoader, AFileThatIsNoImageShowsTextureZeroAndIsReportedOnce) {
  std::uint32_t shown = 99;
  const std::string output = OutputOf([&] {
    LoadingScene scene({"default.tga", "shown.tga"},
                       {{"default.tga", OnePixel(1, 1, 1)}, {"shown.tga", "no image"}});
    EXPECT_EQ(g_render_system->m_textures.count("shown"), 1u) << "nobody has looked inside yet";
    scene.world.Step();
    shown = scene.ShownNumber();
    EXPECT_EQ(g_render_system->m_textures.count("shown"), 0u);
    scene.world.Step();
    EXPECT_EQ(scene.ShownNumber(), 0u);
    EXPECT_EQ(scene.world.device.textures.count(1), 0u);
  });
  EXPECT_EQ(shown, 0u);
  EXPECT_EQ(CountOf(output, kLoadError), 1u);
}

TEST(TextureLoader, AKeyWhoseLastFileFailsShowsTheOneBefore) {
  LoadingScene scene({"default.tga", "shown.tga", "shown.bmp"}, {{"default.tga", OnePixel(1, 1, 1)},
                                                                 {"shown.tga", OnePixel(2, 2, 2)},
                                                                 {"shown.bmp", "no image"}});
  OutputOf([&] { scene.world.Step(); });
  EXPECT_EQ(scene.ShownNumber(), 1u);
  EXPECT_EQ(g_render_system->m_textures.at("shown"), 1u);
}

TEST(TextureLoader, AFileThatDoesNotOpenIsReportedOnceAndTheLastImageComesAllTheSame) {
  const std::string output = OutputOf([] {
    LoadingScene scene({"none.tga", "default.tga", "shown.tga", "late.tga"},
                       {{"default.tga", OnePixel(1, 1, 1)},
                        {"shown.tga", OnePixel(2, 2, 2)},
                        {"late.tga", OnePixel(3, 3, 3)}});
    const auto has = [&scene](std::uint32_t number) {
      return scene.world.device.textures.count(number) != 0;
    };
    for (int i = 0; i < 5000 && !(has(1) && has(3)); ++i) scene.world.Step();
    scene.AddSprite("late");
    scene.world.Step();
    EXPECT_TRUE(has(1) && has(2) && has(3));
    EXPECT_FALSE(has(0));
  });
  EXPECT_EQ(CountOf(output, kLoadError), 1u);
}

TEST(TextureLoader, WhatWasBegunBeforeTheStartIsNotReadAgain) {
  LoadingScene scene({"default.tga", "shown.tga"},
                     {{"default.tga", OnePixel(1, 1, 1)}, {"shown.tga", OnePixel(2, 2, 2)}});
  g_render_system->BeginTextures();
  scene.world.Directory().Write(kGraphicsConfigPath, R"({"texPath": 7})");
  OutputOf([] { g_render_system->Init(); });
  EXPECT_EQ(g_render_system->m_textures.at("shown"), 1u);
}

TEST(TextureLoader, AFirstTextureThatFailsLeavesTheOthers) {
  LoadingScene scene({"default.tga", "shown.tga"},
                     {{"default.tga", "no image"}, {"shown.tga", OnePixel(2, 2, 2)}});
  OutputOf([&] { scene.world.Step(); });
  EXPECT_EQ(scene.ShownNumber(), 1u);
  EXPECT_EQ(scene.world.device.textures.count(0), 0u);
}

}  // namespace
}  // namespace carapace_test
