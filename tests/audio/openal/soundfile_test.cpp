#include "audio/openal/soundfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "audio/openal/soundfiles.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::kOgg;
using carapace_test::ReadSound;
using carapace_test::TempDirectory;
using carapace_test::Tone;
using carapace_test::WriteSound;
using ::testing::Each;
using ::testing::SizeIs;

using Samples = std::vector<std::int16_t>;

/// Reads `frames` frames in pieces of `piece`, or what there is of them.
Samples ReadAll(SoundFile& file, std::size_t frames, std::size_t piece = 1000) {
  Samples all;
  Samples part(piece * file.Channels());
  while (all.size() < frames * file.Channels()) {
    const std::size_t got = file.Read(part.data(), piece);
    all.insert(all.end(), part.begin(),
               part.begin() + static_cast<std::ptrdiff_t>(got * file.Channels()));
    if (got < piece) break;
  }
  return all;
}

std::unique_ptr<SoundFile> Open(const std::string& path, bool loop = false, bool mono = false) {
  return SoundFile::Open(path, {.loop = loop, .mono = mono});
}

/// 0, 1, 2, ... in 16 bits, as floats.
std::vector<float> Ramp(std::size_t count) {
  std::vector<float> ramp;
  for (std::size_t i = 0; i < count; ++i) ramp.push_back(static_cast<float>(i % 20000) / 32768.0f);
  return ramp;
}

/// The bytes of a WAV header and `data_bytes` bytes of samples, with any numbers in it.
std::string Wav(std::uint16_t channels, std::uint32_t rate, std::uint32_t claimed_bytes,
                std::size_t data_bytes, std::uint16_t bits = 16) {
  std::string text;
  const auto add = [&text](const void* data, std::size_t size) {
    text.append(static_cast<const char*>(data), size);
  };
  const std::uint32_t fmt_size = 16;
  const std::uint16_t pcm = 1;
  const std::uint16_t align = static_cast<std::uint16_t>(channels * bits / 8);
  const std::uint32_t per_second = rate * align;
  const std::uint32_t riff_size = claimed_bytes + 36;
  add("RIFF", 4), add(&riff_size, 4), add("WAVEfmt ", 8), add(&fmt_size, 4), add(&pcm, 2);
  add(&channels, 2), add(&rate, 4), add(&per_second, 4), add(&align, 2), add(&bits, 2);
  add("data", 4), add(&claimed_bytes, 4);
  return text + std::string(data_bytes, '\x11');
}

class SoundFileTest : public ::testing::Test {
 protected:
  TempDirectory directory;
};

using SoundFileBad = SoundFileTest;

TEST_F(SoundFileTest, StereoIsReadAsItIs) {
  ASSERT_TRUE(WriteSound("a.wav", Ramp(6000), 2));
  const auto file = Open("a.wav");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Channels(), 2u);
  EXPECT_EQ(file->Rate(), 44100);
  const Samples samples = ReadAll(*file, 3000);
  ASSERT_THAT(samples, SizeIs(6000));
  const std::vector<float> reference = ReadSound("a.wav");
  for (std::size_t i = 0; i < samples.size(); ++i) {
    ASSERT_EQ(samples[i], static_cast<std::int16_t>(reference[i] * 32768.0f)) << i;
  }
}

TEST_F(SoundFileTest, AMonoFileIsHeardOnBothSides) {
  ASSERT_TRUE(WriteSound("a.wav", Tone(500, 1), 1));
  const Samples samples = ReadAll(*Open("a.wav"), 500);
  ASSERT_THAT(samples, SizeIs(1000));
  for (std::size_t i = 0; i < samples.size(); i += 2) ASSERT_EQ(samples[i], samples[i + 1]);
}

TEST_F(SoundFileTest, AStereoFileIsMixedToOneChannelForAPlace) {
  ASSERT_TRUE(WriteSound("a.wav", {0.5f, 0.25f, -0.5f, 0.5f}, 2));
  const auto file = Open("a.wav", false, true);
  EXPECT_EQ(file->Channels(), 1u);
  const Samples samples = ReadAll(*file, 2);
  ASSERT_THAT(samples, SizeIs(2));
  EXPECT_NEAR(samples[0], 0.375 * 32768, 2);
  EXPECT_NEAR(samples[1], 0, 2);
}

TEST_F(SoundFileTest, SixChannelsAreMixedAndHeardOnBothSides) {
  ASSERT_TRUE(WriteSound("a.wav", {0.6f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f}, 6));
  const Samples samples = ReadAll(*Open("a.wav"), 1);
  ASSERT_THAT(samples, SizeIs(2));
  EXPECT_NEAR(samples[0], 0.1 * 32768, 2);
  EXPECT_EQ(samples[0], samples[1]);
}

TEST_F(SoundFileTest, OggIsDecoded) {
  ASSERT_TRUE(WriteSound("a.ogg", Tone(20000, 2), 2, kOgg));
  const Samples samples = ReadAll(*Open("a.ogg"), 30000);
  const std::vector<float> reference = ReadSound("a.ogg");
  ASSERT_EQ(samples.size(), reference.size());
  for (std::size_t i = 0; i < samples.size(); ++i) {
    ASSERT_NEAR(samples[i], reference[i] * 32768.0f, 0.5001f) << i;
  }
}

TEST_F(SoundFileTest, WhatIsTooLoudIsCutOffAndWhatIsNoNumberIsSilent) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinity = std::numeric_limits<float>::infinity();
  ASSERT_TRUE(WriteSound("a.wav", {3.0f, -3.0f, nan, infinity, -infinity, 1.0f}, 1,
                         SF_FORMAT_WAV | SF_FORMAT_FLOAT));
  EXPECT_THAT(ReadAll(*Open("a.wav", false, true), 6),
              ::testing::ElementsAre(32767, -32768, 0, 32767, -32768, 32767));
}

TEST_F(SoundFileTest, TheEndGivesFewerFramesAndThenNone) {
  ASSERT_TRUE(WriteSound("a.wav", Tone(150, 1), 1));
  const auto file = Open("a.wav");
  Samples samples(200);
  EXPECT_EQ(file->Read(samples.data(), 100), 100u);
  EXPECT_EQ(file->Read(samples.data(), 100), 50u);
  EXPECT_EQ(file->Read(samples.data(), 100), 0u);
}

TEST_F(SoundFileTest, ALoopHasNoSeam) {
  for (const std::size_t length : {1u, 7u, 4095u, 4096u, 4097u, 10000u}) {
    ASSERT_TRUE(WriteSound("a.wav", Ramp(length), 1));
    const auto file = Open("a.wav", true, true);
    ASSERT_NE(file, nullptr) << length;
    const Samples once = ReadAll(*Open("a.wav", false, true), length);
    ASSERT_THAT(once, SizeIs(length));
    const Samples samples = ReadAll(*file, 30000, 977);
    ASSERT_GE(samples.size(), 30000u) << length;
    for (std::size_t i = 0; i < samples.size(); ++i) {
      ASSERT_EQ(samples[i], once[i % length]) << length << " at " << i;
    }
  }
}

TEST_F(SoundFileTest, ALoopOfOggHasNoSeam) {
  ASSERT_TRUE(WriteSound("a.ogg", Tone(9000, 2), 2, kOgg));
  const Samples once = ReadAll(*Open("a.ogg"), 20000);
  const Samples samples = ReadAll(*Open("a.ogg", true), 40000);
  ASSERT_GE(samples.size(), 80000u);
  for (std::size_t i = 0; i < samples.size(); ++i)
    ASSERT_EQ(samples[i], once[i % once.size()]) << i;
}

TEST_F(SoundFileBad, AFileThatIsNotThereIsNone) {
  EXPECT_EQ(Open("absent.ogg"), nullptr);
  EXPECT_EQ(Open(""), nullptr);
}

TEST_F(SoundFileBad, AFolderIsNone) {
  directory.Write("folder/file", "");
  EXPECT_EQ(Open("folder"), nullptr);
  EXPECT_EQ(Open("folder/"), nullptr);
}

TEST_F(SoundFileBad, AnEmptyFileIsNone) {
  directory.Write("empty.ogg", "");
  EXPECT_EQ(Open("empty.ogg"), nullptr);
}

TEST_F(SoundFileBad, ATextIsNone) {
  directory.Write("text.ogg", "These are the words of a song.");
  directory.Write("ogg.ogg", "OggS are the first letters of this text, and no more than that.");
  directory.Write("riff.wav", "RIFF....WAVEfmt and then nothing of the kind");
  for (const char* name : {"text.ogg", "ogg.ogg", "riff.wav"})
    EXPECT_EQ(Open(name), nullptr) << name;
}

TEST_F(SoundFileBad, WhatTheEndingAloneCallsASoundIsNone) {
  for (const char* name : {"a.vox", "a.gsm", "a.raw", "a.au"}) {
    directory.Write(name, std::string(4000, 'x'));
    EXPECT_EQ(Open(name), nullptr) << name;
  }
}

TEST_F(SoundFileBad, AHeaderWithoutSamplesIsNone) {
  ASSERT_TRUE(WriteSound("none.wav", {}, 1));
  for (const bool loop : {false, true}) {
    EXPECT_EQ(Open("none.wav", loop), nullptr);
    directory.Write("claims.wav", Wav(2, 44100, 4000, 0));
    EXPECT_EQ(Open("claims.wav", loop), nullptr);
  }
}

TEST_F(SoundFileBad, AnAbsurdNumberOfChannelsIsNone) {
  for (const std::uint16_t channels :
       std::initializer_list<std::uint16_t>{0, 9, 1024, 1025, 65535}) {
    directory.Write("a.wav", Wav(channels, 44100, 200000, 200000));
    EXPECT_EQ(Open("a.wav"), nullptr) << channels;
  }
}

TEST_F(SoundFileBad, AnAbsurdRateIsNone) {
  for (const std::uint32_t rate : {0u, 1u, 999u, 192001u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    directory.Write("a.wav", Wav(1, rate, 2000, 2000));
    EXPECT_EQ(Open("a.wav"), nullptr) << rate;
  }
}

TEST_F(SoundFileBad, AHeaderThatClaimsTooMuchGivesWhatIsThere) {
  for (const std::uint32_t claimed : {4'000u, 2'000'000'000u, 0xFFFFFFF0u}) {
    directory.Write("a.wav", Wav(1, 44100, claimed, 2000));
    const auto file = Open("a.wav", false, true);
    ASSERT_NE(file, nullptr) << claimed;
    const Samples samples = ReadAll(*file, 100000);
    EXPECT_THAT(samples, SizeIs(1000)) << claimed;
    EXPECT_THAT(samples, Each(0x1111));
  }
}

}  // namespace
}  // namespace ZOVEngine
