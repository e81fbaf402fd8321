#include "core/app/headlessengine.h"

#include <gtest/gtest.h>

#include "autoplay/levelrun.h"
#include "core/engine.h"
#include "core/statemachine.h"
#include "render/gldevice.h"
#include "support/reports.h"
#include "support/tempdirectory.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

TEST(HeadlessEngine, RunsWithoutWindowPictureAndSoundAndLeavesNothing) {
  const carapace_test::TempDirectory directory;
  for (const auto& [path, text] : carapace_test::World::ShippedFiles()) directory.Write(path, text);
  carapace_test::OutputOf([] {
    const HeadlessEngine engine;
    EXPECT_EQ(g_gl_device, nullptr);
    EXPECT_EQ(g_state_machine->m_current, kSplashState);
    for (int step = 0; step < 20; ++step) StepEngine();
    EXPECT_TRUE(g_engine->running);
  });
  EXPECT_EQ(g_engine, nullptr);
  EXPECT_EQ(g_native, nullptr);
  EXPECT_EQ(g_mixer, nullptr);
}

}  // namespace
}  // namespace ZOVEngine
