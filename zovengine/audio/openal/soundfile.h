#pragma once

#include <sndfile.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ZOVEngine {

/// How a sound file is read.
struct SoundFileOptions {
  bool loop = false;  ///< after the last frame comes the first again
  bool mono = false;  ///< mix all channels into one; otherwise there are always two
};

/// One sound file that is decoded piece by piece, from its beginning to its end.
///
/// Takes Ogg and WAV files of up to 8 channels. A frame is a sample of each channel; samples are 16
/// bits and those of a frame stand side by side. The readable part of a damaged file is played;
/// no file can make the reader allocate more than a few dozen kilobytes or wait for its own end.
class SoundFile {
 public:
  /// Opens the file. Returns null when it is absent, empty, or nothing that can be played.
  static std::unique_ptr<SoundFile> Open(const std::string& path, const SoundFileOptions& options);

  /// Decodes up to `frames` frames to `samples`. Returns how many there were; fewer than `frames`
  /// mean that the sound has come to its end, which a looping one never does.
  std::size_t Read(std::int16_t* samples, std::size_t frames);

  /// 1 or 2, as the options say.
  std::size_t Channels() const { return m_mono ? 1 : 2; }
  /// Frames a second.
  int Rate() const { return m_info.samplerate; }

 private:
  struct Close {
    void operator()(SNDFILE* file) const { sf_close(file); }
  };

  explicit SoundFile(const SoundFileOptions& options)
      : m_loop(options.loop), m_mono(options.mono) {}
  bool OpenFile(const std::string& path);
  bool IsPlayable() const;
  bool KeepIfShort();
  std::size_t ReadOnward(std::int16_t* samples, std::size_t frames);
  std::size_t Decode(std::int16_t* samples, std::size_t frames);
  std::size_t CopyKept(std::int16_t* samples, std::size_t frames);
  void Mix(const float* decoded, std::size_t frames, std::int16_t* samples) const;
  bool Rewind();

  bool m_loop;
  bool m_mono;
  SF_INFO m_info{};
  std::unique_ptr<SNDFILE, Close> m_file;
  std::size_t m_frames_in_round = 0;  ///< read since the beginning or the last rewind
  std::vector<std::int16_t> m_kept;   ///< the whole of a short loop
};

}  // namespace ZOVEngine
