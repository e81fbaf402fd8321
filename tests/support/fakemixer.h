#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "audio/mixer.h"

namespace carapace_test {

/// A mixer that writes down what it is told, and plays what the test wants played.
///
/// Stands in g_mixer from its construction to its destruction. A stream plays until it is stopped
/// or ended by the test, unless its path is among the missing ones.
class FakeMixer final : public ZOVEngine::Mixer {
 public:
  /// A stream as it was last told to be.
  struct Stream {
    ZOVEngine::StreamRequest request;
    float volume = 1.0f;
    ZOVEngine::Vector3D position;
    ZOVEngine::Vector3D velocity;
    bool playing = true;
  };
  struct Group {
    float volume = 1.0f;
    bool mute = false;
  };

  FakeMixer();
  ~FakeMixer() override;

  /// Lets a stream come to its end.
  void End(ZOVEngine::StreamHandle stream) { streams.at(stream).playing = false; }
  /// The newest stream of this path, or null.
  Stream* Newest(const std::string& path);
  /// How many streams of this path were played so far.
  int CountPlays(const std::string& path) const;

  void Start(const ZOVEngine::MixerSettings& settings) override;
  std::optional<ZOVEngine::MixerFailure> FinishStart() override;
  ZOVEngine::StreamHandle Play(const ZOVEngine::StreamRequest& request) override;
  void Stop(ZOVEngine::StreamHandle stream) override;
  void SetVolume(ZOVEngine::StreamHandle stream, float volume) override;
  void SetPlace(ZOVEngine::StreamHandle stream, const ZOVEngine::Vector3D& position,
                const ZOVEngine::Vector3D& velocity) override;
  void SetGroupVolume(ZOVEngine::SoundGroup group, float volume) override;
  void SetGroupMute(ZOVEngine::SoundGroup group, bool mute) override;
  void SetListener(const ZOVEngine::Vector3D& position) override;
  void Update() override;
  bool IsPlaying(ZOVEngine::StreamHandle stream) const override;

  std::map<ZOVEngine::StreamHandle, Stream> streams;  ///< all that were ever played
  std::map<ZOVEngine::SoundGroup, Group> groups;      ///< that were set
  std::optional<ZOVEngine::MixerSettings> settings;   ///< of Start
  std::optional<ZOVEngine::MixerFailure> failure;     ///< what FinishStart returns
  std::set<std::string> missing;                      ///< paths that cannot be played
  /// "Verb", or "Verb handle", in order, since the last Update but one; without IsPlaying.
  std::vector<std::string> calls;

 private:
  void Log(const std::string& call);
  void Log(const std::string& verb, ZOVEngine::StreamHandle stream) {
    Log(verb + " " + std::to_string(stream));
  }

  ZOVEngine::Mixer* m_previous;
  ZOVEngine::StreamHandle m_last = ZOVEngine::kNoStream;
};

}  // namespace carapace_test
