// The samples of the real mixer on OpenAL's loopback device, which the tests keep.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "audio/openal/ears.h"
#include "audio/openal/openalmixer.h"
#include "audio/openal/soundfiles.h"
#include "support/reports.h"
#include "support/tempdirectory.h"

/// Read by the leak check: libsndfile 1.2 does not let go of its codec's record when it refuses a
/// damaged file. The library is named and not its function, whose name takes a symbolizer to find.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libvorbis.so\n";
}

namespace ZOVEngine {
namespace {

using carapace_test::Ears;
using carapace_test::ExpectHeard;
using carapace_test::kGame;
using carapace_test::kOgg;
using carapace_test::kRounding;
using carapace_test::kTestRate;
using carapace_test::Loudness;
using carapace_test::ReadSound;
using carapace_test::TempDirectory;
using carapace_test::Tone;
using carapace_test::WriteSound;
using ::testing::SizeIs;

class AudioOutput : public ::testing::Test {
 protected:
  /// A mono tone in "tone.wav", of some seconds.
  AudioOutput() {
    EXPECT_TRUE(WriteSound("tone.wav", Tone(3 * kTestRate, 1), 1));
    EXPECT_TRUE(WriteSound("short.wav", Tone(2000, 1), 1));
  }

  TempDirectory directory;
};

TEST_F(AudioOutput, AToneIsHeardAsItIsInTheFile) {
  Ears ears;
  ears.mixer.Play({.path = "tone.wav"});
  const std::vector<float> heard = ears.Listen(60);
  ASSERT_THAT(heard, SizeIs(2 * kTestRate));
  EXPECT_GT(Loudness(heard, 0), 0.3f);
  ExpectHeard(heard, ReadSound("tone.wav"), 1, 0, 1.0f, kRounding);
}

TEST_F(AudioOutput, AStepIsSevenHundredAndThirtyFiveFrames) {
  Ears ears;
  EXPECT_THAT(ears.Listen(1), SizeIs(2 * 735));
}

TEST_F(AudioOutput, NothingIsHeardOfAMixerThatPlaysNothing) {
  Ears ears;
  EXPECT_EQ(Loudness(ears.Listen(10)), 0.0f);
}

TEST_F(AudioOutput, StereoIsHeardOnItsSides) {
  std::vector<float> left_only = Tone(kTestRate, 2);
  for (std::size_t i = 1; i < left_only.size(); i += 2) left_only[i] = 0.0f;
  ASSERT_TRUE(WriteSound("left.wav", left_only, 2));
  Ears ears;
  ears.mixer.Play({.path = "left.wav"});
  const std::vector<float> heard = ears.Listen(30);
  EXPECT_GT(Loudness(heard, 0), 0.3f);
  EXPECT_EQ(Loudness(heard, 1), 0.0f);
}

TEST_F(AudioOutput, AnOggFileIsHeardAsLibsndfileDecodesIt) {
  ASSERT_TRUE(WriteSound("tone.ogg", Tone(2 * kTestRate, 2), 2, kOgg));
  Ears ears;
  ears.mixer.Play({.path = "tone.ogg"});
  ExpectHeard(ears.Listen(60), ReadSound("tone.ogg"), 2, 0, 1.0f, kRounding);
}

TEST_F(AudioOutput, AStreamEndsWhenItsSoundDoes) {
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav"});
  EXPECT_TRUE(ears.mixer.IsPlaying(stream));
  // Three seconds; the step in which a source falls silent is not always the one that says so.
  EXPECT_NEAR(ears.StepsUntilTheEnd(stream, 400), 180, 2);
  EXPECT_EQ(ears.mixer.StreamCount(), 0u);
}

TEST_F(AudioOutput, ASoundShorterThanAStepEndsToo) {
  ASSERT_TRUE(WriteSound("tick.wav", Tone(10, 1), 1));
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "tick.wav"});
  EXPECT_LE(ears.StepsUntilTheEnd(stream, 10), 3);
}

TEST_F(AudioOutput, ALoopIsHeardWithoutAGap) {
  ASSERT_TRUE(WriteSound("loop.ogg", Tone(30'000, 2), 2, kOgg));
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "loop.ogg", .loop = true});
  ExpectHeard(ears.Listen(300), ReadSound("loop.ogg"), 2, 0, 1.0f, kRounding);
  EXPECT_TRUE(ears.mixer.IsPlaying(stream));
}

TEST_F(AudioOutput, AVeryShortLoopIsHeardWithoutAGap) {
  ASSERT_TRUE(WriteSound("loop.wav", Tone(100, 1, 441.0f), 1));
  Ears ears;
  ears.mixer.Play({.path = "loop.wav", .loop = true});
  ExpectHeard(ears.Listen(120), ReadSound("loop.wav"), 1, 0, 1.0f, kRounding);
}

TEST_F(AudioOutput, StopEndsAStreamAtOnce) {
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav", .loop = true});
  const StreamHandle other = ears.mixer.Play({.path = "short.wav", .loop = true});
  ears.Listen(5);
  ears.mixer.Stop(stream);
  EXPECT_FALSE(ears.mixer.IsPlaying(stream));
  EXPECT_TRUE(ears.mixer.IsPlaying(other));
  ears.mixer.Stop(other);
  ears.Listen(1);
  EXPECT_EQ(Loudness(ears.Listen(5)), 0.0f);
}

TEST_F(AudioOutput, AHandleOfAStreamThatEndedDoesNothing) {
  Ears ears;
  const StreamHandle old = ears.mixer.Play({.path = "short.wav"});
  ears.Listen(20);
  ASSERT_FALSE(ears.mixer.IsPlaying(old));
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav"});
  EXPECT_NE(stream, old);
  for (const StreamHandle handle : {old, kNoStream, StreamHandle{12345}}) {
    ears.mixer.Stop(handle);
    ears.mixer.SetVolume(handle, 0.0f);
    ears.mixer.SetPlace(handle, Vector3D(1, 1, 1), Vector3D());
    EXPECT_FALSE(ears.mixer.IsPlaying(handle));
  }
  ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, 1.0f, kRounding);
}

TEST_F(AudioOutput, VolumeScalesAStream) {
  for (const float volume : {1.0f, 0.5f, 0.125f, 0.0f}) {
    Ears ears;
    const StreamHandle stream = ears.mixer.Play({.path = "tone.wav"});
    ears.mixer.SetVolume(stream, volume);
    ExpectHeard(ears.Listen(30), ReadSound("tone.wav"), 1, 0, volume, kRounding);
  }
}

TEST_F(AudioOutput, AVolumeBeyondTheRangeIsHeldInIt) {
  const float nan = std::nanf("");
  for (const auto& [volume, heard_as] : {std::pair{2.0f, 1.0f}, std::pair{INFINITY, 1.0f},
                                         std::pair{-1.0f, 0.0f}, std::pair{nan, 0.0f}}) {
    Ears ears;
    const StreamHandle stream = ears.mixer.Play({.path = "tone.wav"});
    ears.mixer.SetVolume(stream, volume);
    ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, heard_as, kRounding);
  }
}

TEST_F(AudioOutput, AGroupsVolumeScalesItsStreamsAndTheMastersAll) {
  for (const SoundGroup group : {SoundGroup::kEffects, SoundGroup::kMusic}) {
    for (const SoundGroup set : {SoundGroup::kEffects, SoundGroup::kMusic, SoundGroup::kMaster}) {
      Ears ears;
      ears.mixer.Play({.path = "tone.wav", .group = group});
      ears.mixer.SetGroupVolume(set, 0.25f);
      const float gain = set == group || set == SoundGroup::kMaster ? 0.25f : 1.0f;
      ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, gain, kRounding);
    }
  }
}

TEST_F(AudioOutput, VolumesMultiply) {
  Ears ears;
  ears.mixer.SetGroupVolume(SoundGroup::kMusic, 0.5f);
  ears.mixer.SetGroupVolume(SoundGroup::kMaster, 0.5f);
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav", .group = SoundGroup::kMusic});
  ears.mixer.SetVolume(stream, 0.5f);
  ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, 0.125f, kRounding);
}

TEST_F(AudioOutput, MuteSilencesItsGroupAlone) {
  for (const SoundGroup muted : {SoundGroup::kEffects, SoundGroup::kMusic}) {
    for (const SoundGroup group : {SoundGroup::kEffects, SoundGroup::kMusic}) {
      Ears ears;
      ears.mixer.Play({.path = "tone.wav", .group = group});
      ears.mixer.SetGroupMute(muted, true);
      ears.Listen(2);
      EXPECT_EQ(Loudness(ears.Listen(10)) == 0.0f, muted == group);
    }
  }
}

TEST_F(AudioOutput, MuteOfTheMasterSilencesAll) {
  Ears ears;
  ears.mixer.Play({.path = "tone.wav", .group = SoundGroup::kEffects});
  ears.mixer.Play({.path = "tone.wav", .group = SoundGroup::kMusic});
  ears.mixer.SetGroupMute(SoundGroup::kMaster, true);
  EXPECT_EQ(Loudness(ears.Listen(10)), 0.0f);
  ears.mixer.Play({.path = "tone.wav"});
  EXPECT_EQ(Loudness(ears.Listen(10)), 0.0f);
}

TEST_F(AudioOutput, AMutedStreamGoesOnAndIsHeardAgainAtItsVolume) {
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav"});
  ears.mixer.SetVolume(stream, 0.5f);
  ears.mixer.SetGroupMute(SoundGroup::kEffects, true);
  ears.Listen(30);
  ears.mixer.SetGroupMute(SoundGroup::kEffects, false);
  ears.Listen(5);  // the volume comes back in a ramp
  ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 35 * kSilentStep, 0.5f, kRounding);
}

/// The loudness of the test tone, heard from a place that does not move.
float LoudnessAt(const Vector3D& position, const std::string& path = "tone.wav",
                 std::size_t side = 2) {
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = path, .positioned = true});
  ears.mixer.SetPlace(stream, position, Vector3D());
  const std::vector<float> heard = ears.Listen(30);
  return side == 2 ? Loudness(heard) : Loudness(heard, side);
}

TEST_F(AudioOutput, DistanceScalesAPositionedStream) {
  // A metre is 200 units; the roll-off is a tenth of nature's.
  const auto wanted = [](float distance) { return 200.0f / (200.0f + 0.1f * (distance - 200.0f)); };
  const float near = LoudnessAt(Vector3D(200, 0, 0));
  EXPECT_NEAR(LoudnessAt(Vector3D(100, 0, 0)) / near, 1.0f, 0.001f);
  for (const float distance : {400.0f, 960.0f, 2200.0f, 9000.0f}) {
    EXPECT_NEAR(LoudnessAt(Vector3D(distance, 0, 0)) / near, wanted(distance), 0.001f) << distance;
  }
  EXPECT_NEAR(LoudnessAt(Vector3D(50000, 0, 0)) / near, wanted(10000), 0.001f);
}

TEST_F(AudioOutput, APositionedStreamIsHeardFromItsSide) {
  EXPECT_GT(LoudnessAt(Vector3D(-500, 0, 1), "tone.wav", 0), 0.2f);
  EXPECT_LT(LoudnessAt(Vector3D(-500, 0, 1), "tone.wav", 1), 0.01f);
  EXPECT_GT(LoudnessAt(Vector3D(500, 0, 1), "tone.wav", 1), 0.2f);
  EXPECT_LT(LoudnessAt(Vector3D(500, 0, 1), "tone.wav", 0), 0.01f);
  EXPECT_NEAR(LoudnessAt(Vector3D(0, 500, 1), "tone.wav", 0),
              LoudnessAt(Vector3D(0, 500, 1), "tone.wav", 1), 0.001f);
}

TEST_F(AudioOutput, AStereoFileIsPositionedToo) {
  ASSERT_TRUE(WriteSound("stereo.wav", Tone(kTestRate, 2), 2));
  EXPECT_GT(LoudnessAt(Vector3D(-500, 0, 1), "stereo.wav", 0), 0.1f);
  EXPECT_LT(LoudnessAt(Vector3D(-500, 0, 1), "stereo.wav", 1), 0.01f);
}

TEST_F(AudioOutput, AStreamThatIsNotPositionedHasNoPlace) {
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav"});
  ears.mixer.SetPlace(stream, Vector3D(5000, 0, 0), Vector3D(9000, 0, 0));
  ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, 1.0f, kRounding);
}

TEST_F(AudioOutput, APlaceThatIsNoNumberIsNotTaken) {
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "tone.wav", .positioned = true});
  ears.mixer.SetPlace(stream, Vector3D(-500, 0, 1), Vector3D());
  ears.mixer.SetPlace(stream, Vector3D(std::nanf(""), 0, 0), Vector3D(INFINITY, 0, 0));
  const std::vector<float> heard = ears.Listen(10);
  EXPECT_GT(Loudness(heard, 0), 0.2f);
  EXPECT_LT(Loudness(heard, 1), 0.01f);
}

/// How often the right side goes from below to above zero.
int Waves(const std::vector<float>& samples) {
  int waves = 0;
  for (std::size_t i = 3; i < samples.size(); i += 2) {
    if (samples[i - 2] < 0.0f && samples[i] >= 0.0f) ++waves;
  }
  return waves;
}

TEST_F(AudioOutput, MovementBendsThePitchByTheSpeedOfSoundInWorldUnits) {
  // A tenth of 343.3 metres a second, at 200 units a metre.
  for (const auto& [velocity, pitch] :
       {std::pair{0.0f, 1.0f}, std::pair{-6866.0f, 1.0f / 0.9f}, std::pair{6866.0f, 1.0f / 1.1f}}) {
    Ears ears;
    const StreamHandle stream = ears.mixer.Play({.path = "tone.wav", .positioned = true});
    ears.mixer.SetPlace(stream, Vector3D(500, 0, 0), Vector3D(velocity, 0, 0));
    EXPECT_NEAR(Waves(ears.Listen(60)), 440.0f * pitch, 3.0f) << velocity;
  }
}

TEST_F(AudioOutput, AnotherRateIsHeardAtItsOwnPitch) {
  ASSERT_TRUE(WriteSound("slow.wav", Tone(22050, 1), 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050));
  Ears ears;
  const StreamHandle stream = ears.mixer.Play({.path = "slow.wav"});
  EXPECT_NEAR(Waves(ears.Listen(50)), 220.0f * 50.0f / 60.0f, 3.0f);
  EXPECT_NEAR(ears.StepsUntilTheEnd(stream, 100), 10, 2);
}

TEST_F(AudioOutput, SixtyFourStreamsAreRefilledWithoutAGap) {
  // Each has a step of its own in which it starts, so that no two need their buffers together.
  ASSERT_TRUE(WriteSound("loop.ogg", Tone(70'000, 2), 2, kOgg));
  const std::vector<float> sound = ReadSound("loop.ogg");
  Ears ears;
  const float part = 1.0f / 64.0f;
  for (int i = 0; i < 64; ++i) {
    const StreamHandle stream = ears.mixer.Play({.path = "loop.ogg", .loop = true});
    ears.mixer.SetVolume(stream, part);
    ears.Listen(1);
  }
  const std::vector<float> heard = ears.Listen(180);
  EXPECT_EQ(ears.mixer.StreamCount(), 64u);
  // Stream i has played 64 - i steps when the listening begins.
  std::vector<double> wanted(heard.size(), 0.0);
  for (std::size_t i = 0; i < 64; ++i) {
    const std::size_t from = (64 - i) * std::size_t{kSilentStep} * 2;
    for (std::size_t k = 0; k < heard.size(); ++k) {
      wanted[k] += double{sound[(from + k) % sound.size()]} * part;
    }
  }
  double worst = 0.0;
  for (std::size_t k = 0; k < heard.size(); ++k) {
    worst = std::max(worst, std::abs(heard[k] - wanted[k]));
  }
  EXPECT_LE(worst, 2.0 * kRounding);
}

TEST_F(AudioOutput, ManyStreamsPlayAtOnceAndMoreAreDroppedInSilence) {
  Ears ears;
  std::vector<StreamHandle> streams;
  for (int i = 0; i < 520; ++i) streams.push_back(ears.mixer.Play({.path = "short.wav"}));
  const auto playing = std::count_if(streams.begin(), streams.end(),
                                     [&](StreamHandle s) { return ears.mixer.IsPlaying(s); });
  EXPECT_EQ(playing, 512);
  EXPECT_EQ(streams.back(), kNoStream);
  ears.Listen(20);
  EXPECT_EQ(ears.mixer.StreamCount(), 0u);
  EXPECT_NE(ears.mixer.Play({.path = "short.wav"}), kNoStream);
}

TEST_F(AudioOutput, NoMoreStreamsPlayThanTheSettingsAllow) {
  Ears ears(MixerSettings{.max_streams = 2});
  EXPECT_NE(ears.mixer.Play({.path = "tone.wav"}), kNoStream);
  EXPECT_NE(ears.mixer.Play({.path = "tone.wav"}), kNoStream);
  EXPECT_EQ(ears.mixer.Play({.path = "tone.wav"}), kNoStream);
}

TEST_F(AudioOutput, TheLibrarysOwnLimitOfSourcesIsNoFault) {
  // With sources taken away, the library runs out before the mixer's own limit is reached.
  Ears ears(MixerSettings{.max_streams = 4});
  ALuint taken[512];
  int count = 0;
  alGetError();
  while (count < 512) {
    alGenSources(1, &taken[count]);
    if (alGetError() != AL_NO_ERROR) break;
    ++count;
  }
  EXPECT_EQ(ears.mixer.Play({.path = "tone.wav"}), kNoStream);
  alDeleteSources(1, &taken[--count]);
  EXPECT_NE(ears.mixer.Play({.path = "tone.wav"}), kNoStream);
  EXPECT_EQ(ears.mixer.Play({.path = "tone.wav"}), kNoStream);
  EXPECT_GT(Loudness(ears.Listen(5)), 0.3f);
  alDeleteSources(count, taken);
}

TEST_F(AudioOutput, AMissingOrEmptyFileStaysSilent) {
  directory.Write("empty.ogg", "");
  directory.Write("text.ogg", "la la la");
  Ears ears;
  std::string output;
  for (const char* path : {"absent.ogg", "empty.ogg", "text.ogg", "", "."}) {
    output += carapace_test::OutputOf(
        [&] { EXPECT_EQ(ears.mixer.Play({.path = path, .loop = true}), kNoStream) << path; });
  }
  EXPECT_EQ(output, "");
  EXPECT_EQ(Loudness(ears.Listen(5)), 0.0f);
}

TEST_F(AudioOutput, ADamagedFileNeverStopsTheMixer) {
  ASSERT_TRUE(WriteSound("whole.ogg", Tone(20'000, 2), 2, kOgg));
  const std::string whole = directory.Read("whole.ogg");
  Ears ears;
  std::uint32_t random = 12345;
  const auto next = [&random](std::size_t below) {
    random = random * 1664525u + 1013904223u;
    return static_cast<std::size_t>(random >> 8) % below;
  };
  for (int round = 0; round < 300; ++round) {
    std::string bytes = whole;
    if (round % 2 == 0) bytes.resize(next(bytes.size()));
    for (std::size_t i = 0; i < 5 && !bytes.empty(); ++i) {
      bytes[next(bytes.size())] = static_cast<char>(next(256));
    }
    directory.Write("bad.ogg", bytes);
    const StreamHandle stream = ears.mixer.Play({.path = "bad.ogg", .loop = round % 3 == 0});
    for (const float sample : ears.Listen(2)) ASSERT_TRUE(std::isfinite(sample)) << round;
    ears.mixer.Stop(stream);
  }
  EXPECT_EQ(ears.mixer.StreamCount(), 0u);
  ears.Listen(2);
  ears.mixer.Play({.path = "tone.wav"});
  ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, 1.0f, kRounding);
}

TEST_F(AudioOutput, TheSameCallsGiveTheSameSamples) {
  ASSERT_TRUE(WriteSound("tone.ogg", Tone(kTestRate, 2), 2, kOgg));
  std::vector<float> runs[2];
  for (std::vector<float>& run : runs) {
    Ears ears;
    const StreamHandle stream =
        ears.mixer.Play({.path = "tone.ogg", .loop = true, .positioned = true});
    ears.mixer.Play({.path = "tone.wav", .group = SoundGroup::kMusic});
    for (int i = 0; i < 40; ++i) {
      const float x = static_cast<float>(i) * 20.0f - 400.0f;
      ears.mixer.SetPlace(stream, Vector3D(x, 100, 1), Vector3D(1200, 0, 0));
      const std::vector<float> step = ears.Listen(1);
      run.insert(run.end(), step.begin(), step.end());
    }
  }
  ASSERT_EQ(runs[0].size(), runs[1].size());
  EXPECT_GT(Loudness(runs[0]), 0.1f);
  EXPECT_EQ(std::memcmp(runs[0].data(), runs[1].data(), runs[0].size() * sizeof(float)), 0);
}

TEST_F(AudioOutput, GroupsAreSetWhileTheDeviceIsBeingOpened) {
  Ears ears{Ears::NotStarted()};
  ears.mixer.Start(kGame);
  ears.mixer.SetGroupVolume(SoundGroup::kEffects, 0.5f);
  ears.mixer.SetGroupMute(SoundGroup::kMusic, true);
  ASSERT_FALSE(ears.mixer.FinishStart().has_value());
  ears.mixer.Play({.path = "tone.wav", .group = SoundGroup::kMusic});
  EXPECT_EQ(Loudness(ears.Listen(10)), 0.0f);
  ears.mixer.Play({.path = "tone.wav"});
  ExpectHeard(ears.Listen(10), ReadSound("tone.wav"), 1, 0, 0.5f, kRounding);
}

TEST_F(AudioOutput, AMixerMayEndWhileItsDeviceIsBeingOpened) {
  for (const bool silent : {true, false}) {
    OpenALMixer mixer(silent);
    mixer.Start(kGame);
  }
  Ears ears;
  ears.mixer.Play({.path = "tone.wav"});
  EXPECT_GT(Loudness(ears.Listen(10)), 0.3f);
}

TEST_F(AudioOutput, AMachineWithOrWithoutADeviceCanPlay) {
  const std::unique_ptr<Mixer> mixer = MakeOpenALMixer();
  mixer->Start(kGame);
  ASSERT_FALSE(mixer->FinishStart().has_value());
  const StreamHandle stream = mixer->Play({.path = "tone.wav"});
  EXPECT_TRUE(mixer->IsPlaying(stream));
  mixer->SetGroupMute(SoundGroup::kMaster, true);
  for (int i = 0; i < 5; ++i) mixer->Update();
  EXPECT_TRUE(mixer->IsPlaying(stream));
}

}  // namespace
}  // namespace ZOVEngine
