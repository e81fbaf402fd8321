// The samples of the audio system: the real mixer on OpenAL's loopback device, in a whole engine.
#include "audio/audiosystem.h"

#include <gtest/gtest.h>

#include "audio/openal/ears.h"
#include "audio/openal/soundfiles.h"
#include "core/engine.h"
#include "core/messages.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::Ears;
using carapace_test::ExpectHeard;
using carapace_test::kRounding;
using carapace_test::kTestRate;
using carapace_test::Loudness;
using carapace_test::ReadSound;
using carapace_test::Tone;
using carapace_test::WriteSound;

/// A world whose AudioSystem has the real mixer, and an object "horn" with three sounds. "hum.wav"
/// is neither music nor an effect that starts afresh, and lasts four steps.
class AudioWorld {
 public:
  AudioWorld() {
    delete g_engine->systems.back();
    g_mixer = &ears.mixer;
    g_engine->systems.back() = new AudioSystem;
    g_engine->systems.back()->Init();
    world.Directory().Write("Resources/Sound/SFX/none", "");  // for the folder
    world.Directory().Write("Resources/Sound/BGM/none", "");
    EXPECT_TRUE(WriteSound("Resources/Sound/SFX/bang.wav", Tone(kTestRate / 2, 1), 1));
    EXPECT_TRUE(WriteSound("Resources/Sound/BGM/theme.wav", Tone(kTestRate / 2, 2, 300.0f), 2));
    EXPECT_TRUE(WriteSound("Resources/Sound/SFX/hum.wav", Tone(4 * kSilentStep, 1), 1));
    world.LoadObjects(carapace_test::Record(
        "horn", {{"Transform", carapace_test::TransformAt(0, 0)}, {"AudioSource", R"({
            "sounds": ["bang.wav", "theme.wav", "absent.wav", "hum.wav"],
            "loop": [false, false, false, false], "is_3D": [false, false, false, false],
            "start_play": [false, false, false, false], "volume": [1, 1, 1, 1],
            "sound_type": ["SFX", "BGM", "SFX", "LOOP"]})"}}));
  }
  ~AudioWorld() {
    world.Shutdown();
    g_mixer = &world.mixer;
  }
  AudioWorld(const AudioWorld&) = delete;
  AudioWorld& operator=(const AudioWorld&) = delete;

  AudioSource& Horn() { return *world.Find("horn")->GetComponent<AudioSource>(); }
  std::vector<float> Listen(int steps) {
    ears.heard.clear();
    world.Step(steps);
    return ears.heard;
  }

  carapace_test::World world;
  Ears ears{Ears::NotStarted()};
};

TEST(AudioOutputOfTheSystem, APlayIsHeardFromItsOwnStepOn) {
  AudioWorld heard;
  EXPECT_EQ(Loudness(heard.Listen(2)), 0.0f);
  heard.Horn().PlaySound("bang.wav");
  ExpectHeard(heard.Listen(10), ReadSound("Resources/Sound/SFX/bang.wav"), 1, 0, 1.0f, kRounding);
  EXPECT_TRUE(heard.Horn().IsPlaying("bang.wav"));
  heard.Listen(25);
  EXPECT_FALSE(heard.Horn().IsPlaying("bang.wav"));
  EXPECT_EQ(Loudness(heard.Listen(2)), 0.0f);
}

TEST(AudioOutputOfTheSystem, AnEffectRestartsFromItsBeginning) {
  AudioWorld heard;
  heard.Horn().PlaySound("bang.wav");
  heard.Listen(7);
  heard.Horn().PlaySound("bang.wav");
  heard.Listen(1);  // the old play fades out within this step
  ExpectHeard(heard.Listen(10), ReadSound("Resources/Sound/SFX/bang.wav"), 1, kSilentStep, 1.0f,
              kRounding);
  EXPECT_EQ(heard.ears.mixer.StreamCount(), 1u);
}

TEST(AudioOutputOfTheSystem, PendingMusicStartsWhenThePlayingOneEnds) {
  AudioWorld heard;
  const std::vector<float> theme = ReadSound("Resources/Sound/BGM/theme.wav");
  heard.Horn().PlaySound("theme.wav");
  heard.Listen(7);
  heard.Horn().PlaySound("theme.wav");
  ExpectHeard(heard.Listen(10), theme, 2, 7 * kSilentStep, 1.0f, kRounding);
  int steps = 0;
  while (heard.Horn().sounds.at("theme.wav").start_play && steps < 60) {
    heard.Listen(1);
    ++steps;
  }
  EXPECT_NEAR(steps, 30 - 17 + 1, 2);
  ExpectHeard(heard.Listen(10), theme, 2, kSilentStep, 1.0f, kRounding);
}

TEST(AudioOutputOfTheSystem, ASoundOfWholeStepsThatIsAskedForInEachGoesOnWithoutAGap) {
  AudioWorld heard;
  std::vector<float> all;
  for (int step = 0; step < 30; ++step) {
    heard.Horn().PlaySound("hum.wav");
    const std::vector<float> one = heard.Listen(1);
    all.insert(all.end(), one.begin(), one.end());
  }
  ExpectHeard(all, ReadSound("Resources/Sound/SFX/hum.wav"), 1, 0, 1.0f, kRounding);
}

TEST(AudioOutputOfTheSystem, AMissingFileStaysSilent) {
  AudioWorld heard;
  heard.Horn().PlaySound("absent.wav");
  EXPECT_EQ(carapace_test::OutputOf([&] { EXPECT_EQ(Loudness(heard.Listen(3)), 0.0f); }), "");
  EXPECT_FALSE(heard.Horn().IsPlaying("absent.wav"));
}

TEST(AudioOutputOfTheSystem, TheVolumeOfARecordActsOnAPlayingSound) {
  AudioWorld heard;
  heard.Horn().PlaySound("bang.wav");
  heard.Listen(3);
  heard.Horn().sounds.at("bang.wav").volume = 0.25f;
  heard.Listen(3);
  ExpectHeard(heard.Listen(5), ReadSound("Resources/Sound/SFX/bang.wav"), 1, 6 * kSilentStep, 0.25f,
              kRounding);
}

TEST(AudioOutputOfTheSystem, MessagesMuteTheMusicAlone) {
  AudioWorld heard;
  heard.Horn().PlaySound("theme.wav");
  heard.world.Send(Mute(true, 1));
  EXPECT_EQ(Loudness(heard.Listen(5)), 0.0f);
  heard.Horn().PlaySound("bang.wav");
  EXPECT_GT(Loudness(heard.Listen(5)), 0.3f);
}

}  // namespace
}  // namespace ZOVEngine
