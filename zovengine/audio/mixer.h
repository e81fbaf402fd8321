#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/base/vector3d.h"

namespace ZOVEngine {

/// Names one play of a stream, until the stream has ended. Never used twice.
using StreamHandle = std::uint64_t;

/// The handle that names no stream.
inline constexpr StreamHandle kNoStream = 0;

/// The groups of streams. Every stream is in effects or music; master is around both.
enum class SoundGroup { kEffects, kMusic, kMaster };

/// A sound to play and how.
struct StreamRequest {
  std::string path;
  SoundGroup group = SoundGroup::kEffects;
  bool loop = false;        ///< goes on from the beginning without a gap, until it is stopped
  bool positioned = false;  ///< heard from its place; otherwise as it was recorded
};

/// How the output is set up.
struct MixerSettings {
  int max_streams = 512;         ///< that play at once
  float doppler = 1.0f;          ///< strength of the Doppler effect; 1 is nature's
  float units_per_metre = 1.0f;  ///< world units
  float rolloff = 1.0f;          ///< how fast distance quietens; 1 is nature's, 0 not at all
};

/// Why there is no output: the library's own code and its own words for it.
struct MixerFailure {
  int code = 0;
  std::string text;
};

/// The narrow interface behind which all sound output lives.
///
/// Plays sound files as streams; knows nothing of objects and components. The real one is made by
/// MakeOpenALMixer; SilentMixer is not heard, and tests use a recording one. Everything is called
/// on the main thread: Start and FinishStart once, groups between them or at any time after, then
/// anything, and Update once a step, which keeps the streams fed. A handle whose stream has ended
/// may be used; nothing happens then. Places are in the world's frame, x to the right, y upwards, z
/// away from the listener, which faces along it (unit: world units). Volumes are factors, 0 to 1; a
/// stream's, its group's and the master's are multiplied.
class Mixer {
 public:
  virtual ~Mixer() = default;

  /// Begins to open the output, which may go on behind the caller.
  virtual void Start(const MixerSettings& settings) = 0;
  /// Waits until the output is open. A machine without a sound device gets one that is not heard,
  /// so a failure means that the library cannot work at all. Returns nothing when all is well.
  virtual std::optional<MixerFailure> FinishStart() = 0;

  /// Opens the file and plays it from its beginning, at full volume and at the place (0, 0, 0).
  /// Returns kNoStream, and says nothing, when the file is absent or no sound, or when
  /// `max_streams` play already.
  virtual StreamHandle Play(const StreamRequest& request) = 0;
  virtual void Stop(StreamHandle stream) = 0;
  virtual void SetVolume(StreamHandle stream, float volume) = 0;
  /// Places a positioned stream (unit of `velocity`: world units per second).
  virtual void SetPlace(StreamHandle stream, const Vector3D& position,
                        const Vector3D& velocity) = 0;

  virtual void SetGroupVolume(SoundGroup group, float volume) = 0;
  /// A muted group is not heard; its streams go on.
  virtual void SetGroupMute(SoundGroup group, bool mute) = 0;
  /// Places the listener, which does not move.
  virtual void SetListener(const Vector3D& position) = 0;

  /// The end of a step: feeds the streams, and frees those that have ended.
  virtual void Update() = 0;

  /// True from Play until the Update that finds the stream at its end, or until Stop.
  virtual bool IsPlaying(StreamHandle stream) const = 0;
};

/// The mixer in use; set before the systems are created, null in a program without sound.
extern Mixer* g_mixer;

/// The real mixer, on OpenAL and libsndfile. One at a time.
std::unique_ptr<Mixer> MakeOpenALMixer();

}  // namespace ZOVEngine
