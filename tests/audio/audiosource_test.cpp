#include "audio/audiosource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/fakemixer.h"
#include "support/reports.h"
#include "support/world.h"

namespace ZOVEngine {
namespace {

using carapace_test::FakeMixer;
using carapace_test::KeysOf;
using carapace_test::OutputOf;
using carapace_test::ReadRecord;
using carapace_test::Record;
using carapace_test::RecordOf;
using carapace_test::ReportOf;
using carapace_test::World;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kTwoSounds = R"({
    "sounds": ["theme.ogg", "bang.ogg"],
    "loop": [true, false],
    "is_3D": [false, true],
    "start_play": [true, false],
    "volume": [0.5, 1],
    "sound_type": ["BGM", "SFX"]})";

/// A record of one sound whose list under `key` is `list`.
std::string OneSoundWith(const std::string& key, const std::string& list) {
  std::string json = "{\"sounds\": [\"a.ogg\"]";
  for (const auto& [name, value] : {std::pair{"loop", "[true]"}, std::pair{"is_3D", "[true]"},
                                    std::pair{"start_play", "[true]"}, std::pair{"volume", "[1]"},
                                    std::pair{"sound_type", "[\"SFX\"]"}}) {
    json += std::string(", \"") + name + "\": " + (name == key ? list : value);
  }
  return json + "}";
}

void ExpectUntouched(const SoundRecord& sound) {
  EXPECT_EQ(sound.sound_type, "");
  EXPECT_FALSE(sound.loop);
  EXPECT_FALSE(sound.is_3D);
  EXPECT_FALSE(sound.start_play);
  EXPECT_FALSE(sound.stop_request);
  EXPECT_EQ(sound.volume, 0.0f);
  EXPECT_EQ(sound.channel, kNoStream);
}

TEST(AudioSource, ANewOneHasNoSounds) {
  EXPECT_THAT(AudioSource(nullptr).sounds, IsEmpty());
}

TEST(AudioSource, ReadsOneRecordForEachName) {
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  ASSERT_THAT(source.sounds, SizeIs(2));
  const SoundRecord& theme = source.sounds.at("theme.ogg");
  EXPECT_EQ(theme.sound_type, "BGM");
  EXPECT_TRUE(theme.loop);
  EXPECT_FALSE(theme.is_3D);
  EXPECT_TRUE(theme.start_play);
  EXPECT_EQ(theme.volume, 0.5f);
  const SoundRecord& bang = source.sounds.at("bang.ogg");
  EXPECT_EQ(bang.sound_type, "SFX");
  EXPECT_FALSE(bang.loop);
  EXPECT_TRUE(bang.is_3D);
  EXPECT_FALSE(bang.start_play);
  EXPECT_EQ(bang.volume, 1.0f);
}

TEST(AudioSource, ARecordFromAFileHasNoStopRequestAndNoChannel) {
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  for (const auto& [name, sound] : source.sounds) {
    EXPECT_FALSE(sound.stop_request) << name;
    EXPECT_EQ(sound.channel, kNoStream) << name;
  }
}

TEST(AudioSource, ReadsTheKeysInTheirOrderAndComplainsOfEachMissingOne) {
  AudioSource source(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord("{}", source); }),
            "Cant find Key: sounds\nCant find Key: loop\nCant find Key: is_3D\n"
            "Cant find Key: start_play\nCant find Key: volume\nCant find Key: sound_type\n");
  EXPECT_THAT(source.sounds, IsEmpty());
}

TEST(AudioSource, WithoutNamesTheOtherListsDoNotMatter) {
  AudioSource source(nullptr);
  OutputOf([&] { ReadRecord(R"({"loop": [true, true], "volume": [1]})", source); });
  EXPECT_THAT(source.sounds, IsEmpty());
}

TEST(AudioSource, WritesTheKeysInTheirOrder) {
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  EXPECT_THAT(KeysOf(RecordOf(source)),
              ElementsAre("sounds", "loop", "is_3D", "start_play", "sound_type", "volume"));
}

TEST(AudioSource, WritesTheSoundsSortedByName) {
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  const std::string json = RecordOf(source);
  EXPECT_LT(json.find("bang.ogg"), json.find("theme.ogg"));
  EXPECT_LT(json.find("SFX"), json.find("BGM"));
}

TEST(AudioSource, WhatIsWrittenIsReadBackTheSame) {
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  AudioSource again(nullptr);
  ReadRecord(RecordOf(source), again);
  EXPECT_EQ(RecordOf(again), RecordOf(source));
  EXPECT_THAT(again.sounds, SizeIs(2));
  EXPECT_TRUE(again.sounds.at("theme.ogg").loop);
  EXPECT_EQ(again.sounds.at("theme.ogg").volume, 0.5f);
}

TEST(AudioSource, AnEmptyOneWritesSixEmptyLists) {
  AudioSource source(nullptr);
  AudioSource again(nullptr);
  EXPECT_EQ(OutputOf([&] { ReadRecord(RecordOf(source), again); }), "");
  EXPECT_THAT(again.sounds, IsEmpty());
}

TEST(AudioSource, ANameThatIsListedTwiceHasItsLastEntry) {
  AudioSource source(nullptr);
  ReadRecord(R"({"sounds": ["a.ogg", "a.ogg"], "loop": [true, false], "is_3D": [true, false],
                 "start_play": [true, false], "volume": [1, 0.25], "sound_type": ["BGM", "x"]})",
             source);
  ASSERT_THAT(source.sounds, SizeIs(1));
  EXPECT_EQ(source.sounds.at("a.ogg").sound_type, "x");
  EXPECT_FALSE(source.sounds.at("a.ogg").loop);
  EXPECT_EQ(source.sounds.at("a.ogg").volume, 0.25f);
}

TEST(AudioSource, AListThatIsTooShortIsReportedWithItsPlace) {
  for (const std::string key : {"loop", "is_3D", "start_play", "volume", "sound_type"}) {
    World world;
    const std::string record = Record("horn", {{"AudioSource", OneSoundWith(key, "[]")}});
    EXPECT_THAT(ReportOf([&] { world.LoadObjects(record); }),
                AllOf(HasSubstr("objects-of-the-test.json"), HasSubstr("object \"horn\""),
                      HasSubstr("component \"AudioSource\""), HasSubstr("key \"" + key + "\""),
                      HasSubstr("shorter than \"sounds\"")));
  }
}

TEST(AudioSource, AMissingListIsReportedAsTooShort) {
  AudioSource source(nullptr);
  std::string report;
  const std::string output =
      OutputOf([&] { report = ReportOf([&] { ReadRecord(R"({"sounds": ["a.ogg"]})", source); }); });
  EXPECT_THAT(output, HasSubstr("Cant find Key: loop\n"));
  EXPECT_THAT(report, HasSubstr("key \"loop\""));
}

TEST(AudioSource, AListThatIsTooLongIsReadAsFarAsThereAreNames) {
  for (const std::string key : {"loop", "is_3D", "start_play", "volume", "sound_type"}) {
    AudioSource source(nullptr);
    const std::string list = key == "volume"       ? "[1, 2]"
                             : key == "sound_type" ? "[\"SFX\", \"BGM\"]"
                                                   : "[true, false]";
    ReadRecord(OneSoundWith(key, list), source);
    EXPECT_THAT(source.sounds, SizeIs(1)) << key;
  }
}

TEST(AudioSource, AValueOfTheWrongTypeIsReported) {
  AudioSource source(nullptr);
  EXPECT_THAT(ReportOf([&] { ReadRecord(OneSoundWith("volume", "[\"loud\"]"), source); }),
              AllOf(HasSubstr("key \"volume\""), HasSubstr("expected a number")));
  EXPECT_THAT(ReportOf([&] { ReadRecord(OneSoundWith("loop", "true"), source); }),
              AllOf(HasSubstr("key \"loop\""), HasSubstr("expected an array")));
  EXPECT_THAT(ReportOf([&] { ReadRecord(OneSoundWith("sound_type", "[7]"), source); }),
              HasSubstr("key \"sound_type\""));
}

TEST(AudioSource, PlaySoundAsksForAPlayAndNothingElse) {
  const FakeMixer mixer;
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  source.PlaySound("bang.ogg");
  EXPECT_TRUE(source.sounds.at("bang.ogg").start_play);
  EXPECT_FALSE(source.sounds.at("bang.ogg").stop_request);
  EXPECT_THAT(source.sounds, SizeIs(2));
  EXPECT_THAT(mixer.calls, IsEmpty());
}

TEST(AudioSource, StopSoundAsksForAStopOfThatSoundAlone) {
  const FakeMixer mixer;
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  source.StopSound("theme.ogg");
  EXPECT_TRUE(source.sounds.at("theme.ogg").stop_request);
  EXPECT_TRUE(source.sounds.at("theme.ogg").start_play);
  EXPECT_FALSE(source.sounds.at("bang.ogg").stop_request);
  EXPECT_THAT(mixer.calls, IsEmpty());
}

TEST(AudioSource, StopAllSoundsAsksForAStopOfEach) {
  const FakeMixer mixer;
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  source.StopAllSounds();
  EXPECT_TRUE(source.sounds.at("theme.ogg").stop_request);
  EXPECT_TRUE(source.sounds.at("bang.ogg").stop_request);
  EXPECT_THAT(source.sounds, SizeIs(2));
  EXPECT_THAT(mixer.calls, IsEmpty());
}

TEST(AudioSource, PlayOfAnUnknownNameAddsASilentEffect) {
  AudioSource source(nullptr);
  source.PlaySound("nobody.ogg");
  SoundRecord& sound = source.sounds.at("nobody.ogg");
  EXPECT_TRUE(sound.start_play);
  sound.start_play = false;
  ExpectUntouched(sound);
}

TEST(AudioSource, StopOfAnUnknownNameAddsARecord) {
  AudioSource source(nullptr);
  source.StopSound("nobody.ogg");
  SoundRecord& sound = source.sounds.at("nobody.ogg");
  EXPECT_TRUE(sound.stop_request);
  sound.stop_request = false;
  ExpectUntouched(sound);
}

TEST(AudioSource, AskingWhetherAnUnknownNamePlaysAddsARecord) {
  const FakeMixer mixer;
  AudioSource source(nullptr);
  EXPECT_FALSE(source.IsPlaying("nobody.ogg"));
  ExpectUntouched(source.sounds.at("nobody.ogg"));
}

TEST(AudioSource, AnAddedRecordIsWrittenWithTheOthers) {
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  source.PlaySound("nobody.ogg");
  AudioSource again(nullptr);
  ReadRecord(RecordOf(source), again);
  ASSERT_EQ(again.sounds.count("nobody.ogg"), 1u);
  EXPECT_TRUE(again.sounds.at("nobody.ogg").start_play);
  EXPECT_EQ(again.sounds.at("nobody.ogg").sound_type, "");
}

TEST(AudioSource, IsPlayingIsWhatTheMixerSaysOfTheChannel) {
  FakeMixer mixer;
  AudioSource source(nullptr);
  ReadRecord(kTwoSounds, source);
  const StreamHandle stream = mixer.Play({.path = "x"});
  source.sounds.at("bang.ogg").channel = stream;
  EXPECT_TRUE(source.IsPlaying("bang.ogg"));
  EXPECT_FALSE(source.IsPlaying("theme.ogg"));
  mixer.End(stream);
  EXPECT_FALSE(source.IsPlaying("bang.ogg"));
}

TEST(AudioSource, NothingPlaysInAProgramWithoutSound) {
  ASSERT_EQ(g_mixer, nullptr);
  AudioSource source(nullptr);
  source.sounds["a.ogg"].channel = 1;
  EXPECT_FALSE(source.IsPlaying("a.ogg"));
}

}  // namespace
}  // namespace ZOVEngine
