#pragma once

#include <array>
#include <memory>

#include "audio/audiosource.h"
#include "core/system.h"
#include "objects/componentmanager.h"

namespace ZOVEngine {

/// What a channel group is set to.
struct ChannelGroup {
  bool mute = false;
  float volume = 1.0f;  ///< 0 to 1
};

/// The last system: keeps the settings of the three channel groups.
class AudioSystem final : public UnpausedSystem {
  RTTR_ENABLE(UnpausedSystem)

 public:
  /// Fetches the table of sources.
  void Init() override;
  void Update(float dt) override;
  /// Takes Mute and Volume; a channel that is none of the groups is ignored.
  void SendMessage(Message* message) override;

  std::array<ChannelGroup, 3> m_groups;  ///< effects, music, master

 private:
  std::shared_ptr<ComponentManager<AudioSource>> m_sources;
};

}  // namespace ZOVEngine
