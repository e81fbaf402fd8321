#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "audio/audiosource.h"
#include "core/system.h"
#include "objects/componentmanager.h"

namespace ZOVEngine {

/// The last system: turns the requests of all AudioSources into calls of the mixer, once a step.
///
/// It is the only code that plays sounds. It walks every source, whether or not its object is
/// active, and does not stop the sounds of objects that are gone. The listener sits at (0, 0, 0)
/// and never moves. Music is sought in one directory and effects in another; a missing file
/// stays silent, without a message. Without a g_mixer there is no sound.
class AudioSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Starts the mixer, whose output opens while the systems before this one are initialised.
  AudioSystem();

  /// Fetches the table of sources, and waits for the output. A failure prints its line and ends the
  /// process with exit code -1.
  void Init() override;
  void Update(float dt) override;
  /// Takes Mute and Volume; a channel that is none of the groups is ignored.
  void SendMessage(Message* message) override;

 private:
  void UpdateSource(AudioSource& source);
  void Play(const std::string& name, SoundRecord* sound, bool playing);

  std::shared_ptr<ComponentManager<AudioSource>> m_sources;
  const std::string m_music_directory = "Resources/Sound/BGM/";
  const std::string m_effects_directory = "Resources/Sound/SFX/";
};

}  // namespace ZOVEngine
