#pragma once

#include <AL/al.h>

#include <array>
#include <cstdint>
#include <memory>

#include "audio/mixer.h"
#include "audio/openal/soundfile.h"
#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// A sound file that plays on an OpenAL source, through a queue of four buffers of 16 KB.
///
/// The queue holds from 0.37 seconds (stereo) to 0.74 (mono) at 44,100 frames a second, which is
/// how long the game may stand still before a real device falls silent; then the sound goes on
/// where it was. Needs a current context for its whole life.
class OpenALStream : private NonCopyable {
 public:
  /// Makes ready to play `file`; the first Refill starts it. Returns null when the library has no
  /// source left or the file no sound.
  static std::unique_ptr<OpenALStream> Make(std::unique_ptr<SoundFile> file, SoundGroup group);
  ~OpenALStream();

  /// Makes distance quieten the stream and movement bend its pitch (unit of `reference`: world
  /// units; up to there it is heard at full volume).
  void Position(float reference, float rolloff);
  /// Places a positioned stream, in OpenAL's frame; does nothing for others.
  void SetPlace(const Vector3D& position, const Vector3D& velocity);
  /// Sets the stream's gain: its own volume times `outer`, the gain of its groups.
  void Mix(float outer);
  /// Decodes into the buffers that were heard; starts a source that has not played yet, or that
  /// ran dry.
  void Refill();

  /// True when all of the file was heard.
  bool Ended() const;
  SoundGroup Group() const { return m_group; }

  float m_volume = 1.0f;

 private:
  static constexpr std::size_t kBuffers = 4;
  static constexpr std::size_t kBufferBytes = 16384;

  OpenALStream(std::unique_ptr<SoundFile> file, SoundGroup group);
  bool MakeSource();
  void Fill(ALuint buffer);
  ALint Query(ALenum property) const;

  std::unique_ptr<SoundFile> m_file;
  SoundGroup m_group;
  bool m_positioned = false;
  bool m_file_ended = false;
  ALuint m_source = 0;
  std::array<ALuint, kBuffers> m_buffers{};
};

}  // namespace ZOVEngine
