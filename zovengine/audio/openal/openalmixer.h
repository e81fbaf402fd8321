#pragma once

#include <array>
#include <map>

#include "audio/mixer.h"
#include "audio/openal/openaldevice.h"
#include "audio/openal/openalstream.h"

namespace ZOVEngine {

/// The real Mixer: OpenAL puts out, libsndfile decodes.
///
/// OpenAL has no groups, so their gains are multiplied by hand into each source's. Streams are fed
/// from Update, on the caller's thread. How a 3D sound is heard: up to a metre away at full volume,
/// farther off by the inverse of the distance; the speed of sound, by which the Doppler effect
/// goes, is nature's in world units.
class OpenALMixer final : public Mixer {
 public:
  /// `silent` never opens a real device; `listener` then hears each step's samples.
  explicit OpenALMixer(bool silent = false, SampleListener listener = {});

  void Start(const MixerSettings& settings) override;
  std::optional<MixerFailure> FinishStart() override;
  StreamHandle Play(const StreamRequest& request) override;
  void Stop(StreamHandle stream) override;
  void SetVolume(StreamHandle stream, float volume) override;
  void SetPlace(StreamHandle stream, const Vector3D& position, const Vector3D& velocity) override;
  void SetGroupVolume(SoundGroup group, float volume) override;
  void SetGroupMute(SoundGroup group, bool mute) override;
  void SetListener(const Vector3D& position) override;
  void Update() override;
  bool IsPlaying(StreamHandle stream) const override;

  /// How many streams play.
  std::size_t StreamCount() const { return m_streams.size(); }

 private:
  struct Group {
    float volume = 1.0f;
    bool mute = false;
  };

  OpenALStream* Find(StreamHandle stream);
  float GroupGain(SoundGroup group) const;
  void MixAll();
  Group& Settings(SoundGroup group) { return m_groups[static_cast<std::size_t>(group)]; }

  bool m_silent;
  SampleListener m_listener;
  MixerSettings m_settings;
  OpenALDevice m_device;  ///< outlives the streams
  std::array<Group, 3> m_groups;
  std::map<StreamHandle, std::unique_ptr<OpenALStream>> m_streams;
  StreamHandle m_last = kNoStream;
};

}  // namespace ZOVEngine
