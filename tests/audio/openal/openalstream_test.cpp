#include "audio/openal/openalstream.h"

#include <gtest/gtest.h>

#include "audio/openal/ears.h"
#include "audio/openal/openaldevice.h"
#include "audio/openal/soundfiles.h"
#include "support/tempdirectory.h"

namespace ZOVEngine {
namespace {

using carapace_test::ExpectHeard;
using carapace_test::kRounding;
using carapace_test::kTestRate;
using carapace_test::Loudness;
using carapace_test::ReadSound;
using carapace_test::TempDirectory;
using carapace_test::Tone;
using carapace_test::WriteSound;

/// Frames that the queue of a stereo stream holds.
constexpr std::size_t kQueuedFrames = 4 * 4096;

class OpenALStreamTest : public ::testing::Test {
 protected:
  OpenALStreamTest() {
    EXPECT_TRUE(WriteSound("tone.wav", Tone(2 * kTestRate, 2), 2));
    device.BeginOpen(16, true);
    EXPECT_FALSE(device.FinishOpen().has_value());
  }

  static std::unique_ptr<OpenALStream> Make(const SoundFileOptions& options = {}) {
    return OpenALStream::Make(SoundFile::Open("tone.wav", options), SoundGroup::kMusic);
  }

  /// The samples of some steps, none of which feeds a stream.
  std::vector<float> Listen(int steps) {
    std::vector<float> heard;
    for (int i = 0; i < steps; ++i) {
      device.Step([&](std::span<const float> samples) {
        heard.insert(heard.end(), samples.begin(), samples.end());
      });
    }
    return heard;
  }

  TempDirectory directory;
  OpenALDevice device;
};

TEST_F(OpenALStreamTest, TheFirstRefillStartsIt) {
  const auto stream = Make();
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->Group(), SoundGroup::kMusic);
  EXPECT_EQ(Loudness(Listen(2)), 0.0f);
  stream->Refill();
  ExpectHeard(Listen(10), ReadSound("tone.wav"), 2, 0, 1.0f, kRounding);
}

TEST_F(OpenALStreamTest, IsHeardAtItsVolumeTimesThatAroundIt) {
  const auto stream = Make();
  stream->m_volume = 0.5f;
  stream->Mix(0.25f);
  stream->Refill();
  ExpectHeard(Listen(10), ReadSound("tone.wav"), 2, 0, 0.125f, kRounding);
}

TEST_F(OpenALStreamTest, AStreamThatRanDryGoesOnWhereItWas) {
  const auto stream = Make();
  stream->Refill();
  Listen(30);
  EXPECT_EQ(Loudness(Listen(2)), 0.0f) << "its queue holds 22 steps";
  EXPECT_FALSE(stream->Ended()) << "the file has more";
  stream->Refill();
  ExpectHeard(Listen(10), ReadSound("tone.wav"), 2, kQueuedFrames, 1.0f, kRounding);
}

TEST_F(OpenALStreamTest, EndsWhenAllOfTheFileWasHeard) {
  const auto stream = Make();
  int steps = 0;
  while (!stream->Ended() && steps < 200) {
    stream->Refill();
    Listen(1);
    ++steps;
  }
  EXPECT_NEAR(steps, 120, 2);
}

TEST_F(OpenALStreamTest, APlaceIsNothingToAStreamWithoutOne) {
  const auto listen_from = [this](const Vector3D& place) {
    const auto stream = Make({.mono = true});
    stream->SetPlace(place, Vector3D());
    stream->Refill();
    return Listen(10);
  };
  const std::vector<float> here = listen_from(Vector3D());
  EXPECT_GT(Loudness(here), 0.1f);
  EXPECT_EQ(listen_from(Vector3D(50'000, 0, 0)), here);
}

TEST_F(OpenALStreamTest, APositionedStreamIsQuietenedByDistance) {
  const auto stream = Make({.mono = true});
  stream->Position(200.0f, 1.0f);
  stream->SetPlace(Vector3D(2'000, 0, 0), Vector3D());
  stream->Refill();
  const float loudness = Loudness(Listen(10));
  EXPECT_GT(loudness, 0.01f);
  EXPECT_LT(loudness, 0.1f) << "a tenth of the file's";
}

TEST_F(OpenALStreamTest, ALibraryWithoutASourceMakesNone) {
  std::vector<std::unique_ptr<OpenALStream>> streams;
  while (auto stream = Make()) {
    streams.push_back(std::move(stream));
    ASSERT_LT(streams.size(), 10'000u);
  }
  streams.pop_back();
  EXPECT_NE(Make(), nullptr) << "there is a source again";
}

}  // namespace
}  // namespace ZOVEngine
