#include "audio/openal/soundfile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>

namespace ZOVEngine {

namespace {

constexpr int kMaxChannels = 8;
constexpr int kMinRate = 1000;    ///< frames a second
constexpr int kMaxRate = 192000;  ///< frames a second
/// A loop of at most this many frames is kept in memory: to rewind a file costs more than to read
/// that much of it.
constexpr std::size_t kShortLoop = 4096;
constexpr std::size_t kFramesAtOnce = 512;

/// True if the file begins like an Ogg or a WAV file. The decoder gets no other, since it goes by
/// the ending of the name where the content does not tell the format.
bool HasKnownBeginning(const std::string& path) {
  std::array<char, 4> magic{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(magic.data(), magic.size())) return false;
  return magic == std::array<char, 4>{'O', 'g', 'g', 'S'} ||
         magic == std::array<char, 4>{'R', 'I', 'F', 'F'};
}

/// A decoded sample as 16 bits. Louder ones than full scale are cut off, a NaN is 0.
std::int16_t ToSample(float value) {
  constexpr float kScale = 32768.0f;
  if (std::isnan(value)) return 0;
  const float clipped = std::clamp(value * kScale, -kScale, kScale - 1.0f);
  return static_cast<std::int16_t>(std::lrint(clipped));
}

float Average(const float* values, int count) {
  float sum = 0.0f;
  for (int i = 0; i < count; ++i) sum += values[i];
  return sum / static_cast<float>(count);
}

}  // namespace

std::unique_ptr<SoundFile> SoundFile::Open(const std::string& path,
                                           const SoundFileOptions& options) {
  std::unique_ptr<SoundFile> file(new SoundFile(options));
  if (!HasKnownBeginning(path) || !file->OpenFile(path)) return nullptr;
  if (!file->IsPlayable() || !file->KeepIfShort()) return nullptr;
  return file;
}

bool SoundFile::OpenFile(const std::string& path) {
  m_file.reset(sf_open(path.c_str(), SFM_READ, &m_info));
  return m_file != nullptr;
}

bool SoundFile::IsPlayable() const {
  return m_info.channels >= 1 && m_info.channels <= kMaxChannels && m_info.samplerate >= kMinRate &&
         m_info.samplerate <= kMaxRate && m_info.frames > 0;
}

bool SoundFile::KeepIfShort() {
  if (!m_loop || m_info.frames > static_cast<sf_count_t>(kShortLoop)) return true;
  std::vector<std::int16_t> all(kShortLoop * Channels());
  std::size_t done = 0;
  while (const std::size_t count = Decode(all.data() + done * Channels(), kShortLoop - done)) {
    done += count;
  }
  all.resize(done * Channels());
  m_kept = std::move(all);
  return done != 0;
}

std::size_t SoundFile::Read(std::int16_t* samples, std::size_t frames) {
  std::size_t done = 0;
  while (done < frames) {
    const std::size_t count = ReadOnward(samples + done * Channels(), frames - done);
    done += count;
    m_frames_in_round += count;
    if (count == 0 && !Rewind()) break;
  }
  return done;
}

std::size_t SoundFile::ReadOnward(std::int16_t* samples, std::size_t frames) {
  return m_kept.empty() ? Decode(samples, frames) : CopyKept(samples, frames);
}

std::size_t SoundFile::Decode(std::int16_t* samples, std::size_t frames) {
  std::array<float, kFramesAtOnce * kMaxChannels> decoded;
  const auto wanted = static_cast<sf_count_t>(std::min(frames, kFramesAtOnce));
  const sf_count_t count = sf_readf_float(m_file.get(), decoded.data(), wanted);
  const auto got = static_cast<std::size_t>(std::max<sf_count_t>(count, 0));
  Mix(decoded.data(), got, samples);
  return got;
}

std::size_t SoundFile::CopyKept(std::int16_t* samples, std::size_t frames) {
  const std::size_t from = m_frames_in_round * Channels();
  const std::size_t count = std::min(frames * Channels(), m_kept.size() - from);
  std::copy_n(m_kept.data() + from, count, samples);
  return count / Channels();
}

void SoundFile::Mix(const float* decoded, std::size_t frames, std::int16_t* samples) const {
  const int from = m_info.channels;
  for (std::size_t i = 0; i < frames; ++i, decoded += from) {
    if (!m_mono && from == 2) {
      *samples++ = ToSample(decoded[0]);
      *samples++ = ToSample(decoded[1]);
    } else {
      const std::int16_t sample = ToSample(Average(decoded, from));
      for (std::size_t channel = 0; channel < Channels(); ++channel) *samples++ = sample;
    }
  }
}

bool SoundFile::Rewind() {
  if (!m_loop) return false;
  // A damaged file may hold less than it claims; one round of it must be worth the rewind.
  if (m_kept.empty() && m_frames_in_round <= kShortLoop) return false;
  m_frames_in_round = 0;
  return !m_kept.empty() || sf_seek(m_file.get(), 0, SEEK_SET) == 0;
}

}  // namespace ZOVEngine
