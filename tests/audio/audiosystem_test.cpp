#include "audio/audiosystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

#include "core/engine.h"
#include "core/messages.h"
#include "physics/components/rigidbody.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::FakeMixer;
using carapace_test::OutputOf;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::TransformAt;
using carapace_test::World;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kEffects = "Resources/Sound/SFX/";
constexpr const char* kMusic = "Resources/Sound/BGM/";

/// An AudioSource's record with one sound, as JSON text.
std::string Sound(const std::string& name, const std::string& type, const std::string& volume = "1",
                  bool positioned = false, bool start = false, bool loop = false) {
  const auto flag = [](bool value) { return value ? "[true]" : "[false]"; };
  return "{\"sounds\": [\"" + name + "\"], \"loop\": " + flag(loop) +
         ", \"is_3D\": " + flag(positioned) + ", \"start_play\": " + flag(start) +
         ", \"volume\": [" + volume + "], \"sound_type\": [\"" + type + "\"]}";
}

class AudioSystemTest : public ::testing::Test {
 protected:
  /// An object "horn" with a source of one sound, and with Transform.
  AudioSource& Load(const std::string& sound) {
    world.LoadObjects(
        Record("horn", {{"Transform", TransformAt(30, -40)}, {"AudioSource", sound}}));
    return *world.Find("horn")->GetComponent<AudioSource>();
  }
  AudioSource& LoadEffect(bool positioned = false) {
    return Load(Sound("bang.ogg", "SFX", "1", positioned));
  }
  AudioSource& LoadMusic() { return Load(Sound("theme.ogg", "BGM")); }

  /// The calls of the mixer in one step.
  std::vector<std::string> StepCalls() {
    world.mixer.calls.clear();
    world.Step();
    return world.mixer.calls;
  }

  FakeMixer::Stream& Bang() { return *world.mixer.Newest(std::string(kEffects) + "bang.ogg"); }
  FakeMixer::Stream& Theme() { return *world.mixer.Newest(std::string(kMusic) + "theme.ogg"); }
  int Bangs() { return world.mixer.CountPlays(std::string(kEffects) + "bang.ogg"); }
  int Themes() { return world.mixer.CountPlays(std::string(kMusic) + "theme.ogg"); }

  World world;
};

using AudioSystemMessages = AudioSystemTest;
using AudioSystemStart = AudioSystemTest;

TEST_F(AudioSystemStart, TheMixerIsStartedWithTheGamesSettings) {
  ASSERT_TRUE(world.mixer.settings.has_value());
  const MixerSettings& settings = *world.mixer.settings;
  EXPECT_EQ(settings.max_streams, 512);
  EXPECT_EQ(settings.doppler, 1.0f);
  EXPECT_EQ(settings.units_per_metre, 200.0f);
  EXPECT_EQ(settings.rolloff, 0.1f);
}

TEST_F(AudioSystemStart, TheListenerIsPlacedAtTheStart) {
  EXPECT_THAT(world.mixer.calls, ElementsAre("Start", "FinishStart", "SetListener"));
}

TEST(AudioSystemStarting, TheOutputOpensWhileTheOtherSystemsAreInitialised) {
  World world;
  world.mixer.calls.clear();
  AudioSystem audio;
  EXPECT_THAT(world.mixer.calls, ElementsAre("Start"));
  audio.Init();
  EXPECT_THAT(world.mixer.calls, ElementsAre("Start", "FinishStart", "SetListener"));
}

TEST(AudioSystemFailure, AMixerThatCannotStartEndsTheProgramWithItsLine) {
  World world;
  world.mixer.failure = MixerFailure{40964, "No Such Device"};
  EXPECT_EXIT(
      {
        std::cout.rdbuf(std::cerr.rdbuf());  // what a death test looks at
        AudioSystem().Init();
      },
      ::testing::ExitedWithCode(255), "^FMOD error! \\(40964\\) No Such Device\n$");
}

TEST(AudioSystemFailure, AProgramWithoutAMixerIsSilentAndRuns) {
  World world;
  g_mixer = nullptr;
  world.LoadObjects(Record("horn", {{"Transform", TransformAt(0, 0)},
                                    {"AudioSource", Sound("bang.ogg", "SFX", "1", true, true)}}));
  world.Send(Mute(true, 0));
  world.Send(Volume(0.5f, 1));
  world.Step(2);
  EXPECT_TRUE(g_engine->running);
  EXPECT_THAT(world.mixer.streams, IsEmpty());
  EXPECT_THAT(world.mixer.groups, IsEmpty());
}

TEST_F(AudioSystemTest, EachUpdateEndsWithTheListenerAndTheMixersOwn) {
  LoadEffect();
  EXPECT_THAT(StepCalls(), ElementsAre("SetListener", "Update"));
  EXPECT_THAT(StepCalls(), ElementsAre("SetListener", "Update"));
}

TEST_F(AudioSystemTest, APausedStepIsAStepLikeAnyOther) {
  AudioSource& source = LoadEffect();
  g_engine->paused = true;
  source.PlaySound("bang.ogg");
  EXPECT_THAT(StepCalls(), ElementsAre("Play 1", "SetVolume 1", "SetListener", "Update"));
}

TEST_F(AudioSystemTest, AnEffectPlaysFromTheEffectsDirectoryInItsGroup) {
  LoadEffect().PlaySound("bang.ogg");
  EXPECT_THAT(world.mixer.streams, IsEmpty());
  world.Step();
  const StreamRequest& request = Bang().request;
  EXPECT_EQ(request.path, "Resources/Sound/SFX/bang.ogg");
  EXPECT_EQ(request.group, SoundGroup::kEffects);
  EXPECT_FALSE(request.loop);
  EXPECT_FALSE(request.positioned);
}

TEST_F(AudioSystemTest, MusicPlaysFromTheMusicDirectoryInItsGroup) {
  LoadMusic().PlaySound("theme.ogg");
  world.Step();
  EXPECT_EQ(Theme().request.path, "Resources/Sound/BGM/theme.ogg");
  EXPECT_EQ(Theme().request.group, SoundGroup::kMusic);
}

TEST_F(AudioSystemTest, OnlyExactlyBgmIsMusic) {
  for (const std::string type : {"", "bgm", "BGM ", "MUSIC", "SFX"}) {
    AudioSource& source = Load(Sound("bang.ogg", type));
    source.PlaySound("bang.ogg");
    world.Step();
    EXPECT_EQ(Bang().request.group, SoundGroup::kEffects) << type;
    g_game_obj_factory->Destroy(world.Find("horn")->id);
  }
  EXPECT_EQ(Bangs(), 5);
}

TEST_F(AudioSystemTest, TheFlagsOfTheRecordAreThoseOfTheStream) {
  for (const bool loop : {false, true}) {
    for (const bool positioned : {false, true}) {
      AudioSource& source = LoadEffect();
      source.sounds.at("bang.ogg").loop = loop;
      source.sounds.at("bang.ogg").is_3D = positioned;
      source.PlaySound("bang.ogg");
      world.Step();
      EXPECT_EQ(Bang().request.loop, loop);
      EXPECT_EQ(Bang().request.positioned, positioned);
      g_game_obj_factory->Destroy(world.Find("horn")->id);
    }
  }
}

TEST_F(AudioSystemTest, APlayIsCarriedOutOnce) {
  AudioSource& source = LoadEffect();
  source.PlaySound("bang.ogg");
  world.Step();
  EXPECT_FALSE(source.sounds.at("bang.ogg").start_play);
  world.Step(3);
  EXPECT_EQ(Bangs(), 1);
}

TEST_F(AudioSystemTest, TheVolumeOfTheRecordIsSetAtTheStart) {
  AudioSource& source = Load(Sound("bang.ogg", "SFX", "0.25"));
  source.PlaySound("bang.ogg");
  world.Step();
  EXPECT_EQ(Bang().volume, 0.25f);
}

TEST_F(AudioSystemTest, AStartPlayInTheFileStartsTheMusicWithTheLevel) {
  Load(Sound("theme.ogg", "BGM", "1", false, true));
  world.Step();
  EXPECT_EQ(Themes(), 1);
  EXPECT_TRUE(world.Find("horn")->GetComponent<AudioSource>()->IsPlaying("theme.ogg"));
}

TEST_F(AudioSystemTest, PlayOfAPlayingEffectRestartsIt) {
  AudioSource& source = LoadEffect();
  source.PlaySound("bang.ogg");
  world.Step();
  source.PlaySound("bang.ogg");
  EXPECT_THAT(StepCalls(), ElementsAre("Stop 1", "Play 2", "SetVolume 2", "SetVolume 2",
                                       "SetListener", "Update"));
  EXPECT_FALSE(world.mixer.IsPlaying(1));
  EXPECT_TRUE(world.mixer.IsPlaying(2));
}

TEST_F(AudioSystemTest, ARestartedEffectIsPlacedInTheSameUpdate) {
  AudioSource& source = LoadEffect(true);
  source.PlaySound("bang.ogg");
  world.Step();
  source.PlaySound("bang.ogg");
  EXPECT_THAT(StepCalls(), ElementsAre("Stop 1", "Play 2", "SetVolume 2", "SetPlace 2",
                                       "SetVolume 2", "SetListener", "Update"));
}

TEST_F(AudioSystemTest, PlayOfPlayingMusicHasNoImmediateEffect) {
  AudioSource& source = LoadMusic();
  source.PlaySound("theme.ogg");
  world.Step();
  source.PlaySound("theme.ogg");
  world.Step(5);
  EXPECT_EQ(Themes(), 1);
  EXPECT_TRUE(source.sounds.at("theme.ogg").start_play);
}

TEST_F(AudioSystemTest, PendingMusicStartsWhenThePlayingOneEnds) {
  AudioSource& source = LoadMusic();
  source.PlaySound("theme.ogg");
  world.Step();
  source.PlaySound("theme.ogg");
  world.Step(5);
  world.mixer.End(1);
  world.Step();
  EXPECT_EQ(Themes(), 2);
  EXPECT_FALSE(source.sounds.at("theme.ogg").start_play);
}

TEST_F(AudioSystemTest, AnEffectOfAnotherTypeThanSfxWaitsLikeMusic) {
  for (const std::string type : {"", "sfx", "LOOP"}) {
    AudioSource& source = Load(Sound("bang.ogg", type));
    const int before = Bangs();
    for (int i = 0; i < 4; ++i) {
      source.PlaySound("bang.ogg");
      world.Step();
    }
    EXPECT_EQ(Bangs(), before + 1) << type;
    g_game_obj_factory->Destroy(world.Find("horn")->id);
  }
}

TEST_F(AudioSystemTest, AStopEndsAPlayingSound) {
  AudioSource& source = LoadMusic();
  source.PlaySound("theme.ogg");
  world.Step();
  source.StopSound("theme.ogg");
  EXPECT_TRUE(Theme().playing);
  world.Step();
  EXPECT_FALSE(Theme().playing);
  EXPECT_FALSE(source.sounds.at("theme.ogg").stop_request);
}

TEST_F(AudioSystemTest, AStopOfASilentSoundIsForgotten) {
  AudioSource& source = LoadEffect();
  source.StopSound("bang.ogg");
  EXPECT_THAT(StepCalls(), ElementsAre("SetListener", "Update"));
  EXPECT_FALSE(source.sounds.at("bang.ogg").stop_request);
}

TEST_F(AudioSystemTest, ARecordWithBothRequestsLosesTheStop) {
  AudioSource& source = LoadEffect();
  source.PlaySound("bang.ogg");
  source.StopSound("bang.ogg");
  world.Step();
  EXPECT_TRUE(Bang().playing);
  EXPECT_FALSE(source.sounds.at("bang.ogg").stop_request);
  world.Step();
  EXPECT_TRUE(Bang().playing);
}

TEST_F(AudioSystemTest, AStopGoesBeforeMusicThatHasToWait) {
  AudioSource& source = LoadMusic();
  source.PlaySound("theme.ogg");
  world.Step();
  source.PlaySound("theme.ogg");
  source.StopSound("theme.ogg");
  world.Step();
  EXPECT_FALSE(world.mixer.IsPlaying(1));
  EXPECT_TRUE(source.sounds.at("theme.ogg").start_play);
  world.Step();
  EXPECT_TRUE(world.mixer.IsPlaying(2));
}

TEST_F(AudioSystemTest, IsPlayingTellsTheOldStateUntilTheUpdate) {
  AudioSource& source = LoadEffect();
  source.PlaySound("bang.ogg");
  EXPECT_FALSE(source.IsPlaying("bang.ogg"));
  world.Step();
  EXPECT_TRUE(source.IsPlaying("bang.ogg"));
  source.StopSound("bang.ogg");
  EXPECT_TRUE(source.IsPlaying("bang.ogg"));
  world.Step();
  EXPECT_FALSE(source.IsPlaying("bang.ogg"));
}

TEST_F(AudioSystemTest, AVolumeThatChangesIsSentToThePlayingSound) {
  AudioSource& source = LoadEffect();
  source.PlaySound("bang.ogg");
  world.Step();
  source.sounds.at("bang.ogg").volume = 0.5f;
  EXPECT_EQ(Bang().volume, 1.0f);
  world.Step();
  EXPECT_EQ(Bang().volume, 0.5f);
}

TEST_F(AudioSystemTest, ASoundThatEndedIsLeftAlone) {
  AudioSource& source = LoadEffect(true);
  source.PlaySound("bang.ogg");
  world.Step();
  world.mixer.End(1);
  EXPECT_THAT(StepCalls(), ElementsAre("SetListener", "Update"));
}

TEST_F(AudioSystemTest, A3DSoundIsPlacedFromTheSecondUpdateOn) {
  LoadEffect(true).PlaySound("bang.ogg");
  EXPECT_THAT(StepCalls(), ElementsAre("Play 1", "SetVolume 1", "SetListener", "Update"));
  EXPECT_THAT(StepCalls(), ElementsAre("SetPlace 1", "SetVolume 1", "SetListener", "Update"));
  EXPECT_EQ(Bang().position, Vector3D(30, -40, 1));
}

TEST_F(AudioSystemTest, A3DSoundFollowsItsObject) {
  LoadEffect(true).PlaySound("bang.ogg");
  world.Step(2);
  world.Find("horn")->SetPosition(Vector3D(-7, 8, 1));
  world.Step();
  EXPECT_EQ(Bang().position, Vector3D(-7, 8, 1));
}

TEST_F(AudioSystemTest, ASoundThatIsNot3DIsNotPlaced) {
  LoadEffect(false).PlaySound("bang.ogg");
  world.Step(2);
  EXPECT_THAT(world.mixer.calls, ElementsAre("SetVolume 1", "SetListener", "Update"));
}

TEST_F(AudioSystemTest, A3DSoundHasTheVelocityOfItsBody) {
  world.LoadObjects(Record("horn", {{"Transform", TransformAt(0, 0)},
                                    {"RigidBody", R"({"m_vel": [60, 0, 0]})"},
                                    {"AudioSource", Sound("bang.ogg", "SFX", "1", true, true)}}));
  world.Step(2);
  EXPECT_EQ(Bang().velocity, Vector3D(60, 0, 0));
}

TEST_F(AudioSystemTest, WithoutABodyA3DSoundHasNoVelocity) {
  LoadEffect(true).PlaySound("bang.ogg");
  world.Step();
  Bang().velocity = Vector3D(1, 2, 3);
  world.Step();
  EXPECT_EQ(Bang().velocity, Vector3D());
}

TEST_F(AudioSystemTest, WithoutATransformA3DSoundIsAtTheListener) {
  world.LoadObjects(Record("horn", {{"AudioSource", Sound("bang.ogg", "SFX", "1", true, true)}}));
  world.Step();
  Bang().position = Vector3D(1, 2, 3);
  world.Step();
  EXPECT_EQ(Bang().position, Vector3D());
}

TEST_F(AudioSystemTest, AMissingFileIsSilentAndThePlayIsOver) {
  world.mixer.missing = {"Resources/Sound/SFX/bang.ogg"};
  AudioSource& source = LoadEffect();
  source.PlaySound("bang.ogg");
  EXPECT_EQ(OutputOf([&] { world.Step(); }), "");
  EXPECT_FALSE(source.sounds.at("bang.ogg").start_play);
  EXPECT_EQ(source.sounds.at("bang.ogg").channel, kNoStream);
  EXPECT_FALSE(source.IsPlaying("bang.ogg"));
  EXPECT_THAT(StepCalls(), ElementsAre("SetListener", "Update"));
}

TEST_F(AudioSystemTest, AnUnknownNamePlaysInSilence) {
  AudioSource& source = LoadEffect();
  source.PlaySound("nobody.ogg");
  world.Step();
  const FakeMixer::Stream* stream = world.mixer.Newest("Resources/Sound/SFX/nobody.ogg");
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->volume, 0.0f);
  EXPECT_THAT(RecordOf(source), HasSubstr("nobody.ogg"));
}

TEST_F(AudioSystemTest, SoundsAreTakenInTheOrderOfTheirNames) {
  AudioSource& source = LoadEffect();
  for (const char* name : {"c.ogg", "a.ogg", "b.ogg"}) source.PlaySound(name);
  world.Step();
  EXPECT_EQ(world.mixer.streams.at(1).request.path, "Resources/Sound/SFX/a.ogg");
  EXPECT_EQ(world.mixer.streams.at(2).request.path, "Resources/Sound/SFX/b.ogg");
  EXPECT_EQ(world.mixer.streams.at(3).request.path, "Resources/Sound/SFX/c.ogg");
}

TEST_F(AudioSystemTest, SourcesAreTakenInTheOrderOfTheirTable) {
  for (const std::string name : {"z", "a", "m"}) {
    world.LoadObjects(
        Record(name, {{"AudioSource", Sound(name + ".ogg", "SFX", "1", false, true)}}));
  }
  world.Step();
  EXPECT_EQ(world.mixer.streams.at(1).request.path, "Resources/Sound/SFX/z.ogg");
  EXPECT_EQ(world.mixer.streams.at(2).request.path, "Resources/Sound/SFX/a.ogg");
  EXPECT_EQ(world.mixer.streams.at(3).request.path, "Resources/Sound/SFX/m.ogg");
}

TEST_F(AudioSystemTest, AnInactiveObjectIsHeardAllTheSame) {
  AudioSource& source = LoadEffect();
  world.Find("horn")->SetActive(false);
  source.PlaySound("bang.ogg");
  world.Step();
  EXPECT_TRUE(Bang().playing);
}

TEST_F(AudioSystemTest, ASoundGoesOnWhenItsObjectIsSwitchedOffOrDestroyed) {
  LoadEffect().PlaySound("bang.ogg");
  world.Step();
  world.Find("horn")->SetActive(false);
  world.Step();
  EXPECT_TRUE(Bang().playing);
  g_game_obj_factory->Destroy(world.Find("horn")->id);
  world.Step();
  EXPECT_TRUE(Bang().playing);
}

TEST_F(AudioSystemTest, AStopThatIsPendingWhenTheObjectsAreClearedIsCarriedOut) {
  AudioSource& source = LoadMusic();
  source.sounds["theme.ogg"].loop = true;
  source.PlaySound("theme.ogg");
  world.Step();
  ASSERT_TRUE(Theme().playing);
  source.StopAllSounds();
  g_game_obj_factory->ClearObjects();
  EXPECT_FALSE(Theme().playing);
}

TEST_F(AudioSystemTest, TheEndOfTheSystemCallsNoMixer) {
  LoadEffect().PlaySound("bang.ogg");
  world.Step();
  const std::vector<std::string> before = world.mixer.calls;
  world.Shutdown();
  EXPECT_EQ(world.mixer.calls, before);
}

TEST_F(AudioSystemMessages, MuteReachesTheGroupOfItsChannel) {
  const SoundGroup groups[] = {SoundGroup::kEffects, SoundGroup::kMusic, SoundGroup::kMaster};
  for (std::uint32_t channel = 0; channel < 3; ++channel) {
    world.mixer.groups.clear();
    world.Send(Mute(true, channel));
    EXPECT_THAT(world.mixer.groups, SizeIs(1));
    EXPECT_TRUE(world.mixer.groups[groups[channel]].mute);
    world.Send(Mute(false, channel));
    EXPECT_FALSE(world.mixer.groups[groups[channel]].mute);
  }
}

TEST_F(AudioSystemMessages, VolumeReachesTheGroupOfItsChannel) {
  const SoundGroup groups[] = {SoundGroup::kEffects, SoundGroup::kMusic, SoundGroup::kMaster};
  for (std::uint32_t channel = 0; channel < 3; ++channel) {
    world.mixer.groups.clear();
    world.Send(Volume(0.25f, channel));
    EXPECT_THAT(world.mixer.groups, SizeIs(1));
    EXPECT_EQ(world.mixer.groups[groups[channel]].volume, 0.25f);
  }
}

TEST_F(AudioSystemMessages, AChannelThatIsNoneIsIgnored) {
  for (const std::uint32_t channel : {3u, 4u, 4'000'000'000u}) {
    world.Send(Mute(true, channel));
    world.Send(Volume(0.0f, channel));
  }
  EXPECT_THAT(world.mixer.groups, IsEmpty());
}

TEST_F(AudioSystemMessages, OtherMessagesAreIgnored) {
  world.Send(KeyUp(65));
  world.Send(MouseScroll(1));
  EXPECT_THAT(world.mixer.groups, IsEmpty());
}

}  // namespace
}  // namespace ZOVEngine
