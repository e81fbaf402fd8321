#pragma once

#include <unordered_set>

#include "audio/mixer.h"

namespace ZOVEngine {

/// A mixer that nobody hears and that reads no file, for a program that plays without a user.
///
/// Every stream begins and plays until it is stopped, whatever its length: what a game asks of its
/// sounds then depends on nothing but the game. Groups, volumes and places mean nothing here.
class SilentMixer final : public Mixer {
 public:
  void Start(const MixerSettings&) override {}
  std::optional<MixerFailure> FinishStart() override { return std::nullopt; }
  StreamHandle Play(const StreamRequest& request) override;
  void Stop(StreamHandle stream) override;
  void SetVolume(StreamHandle, float) override {}
  void SetPlace(StreamHandle, const Vector3D&, const Vector3D&) override {}
  void SetGroupVolume(SoundGroup, float) override {}
  void SetGroupMute(SoundGroup, bool) override {}
  void SetListener(const Vector3D&) override {}
  void Update() override {}
  bool IsPlaying(StreamHandle stream) const override;

 private:
  StreamHandle m_last = kNoStream;
  std::unordered_set<StreamHandle> m_playing;
};

}  // namespace ZOVEngine
