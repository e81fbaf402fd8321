#include "audio/audiosystem.h"

#include "core/messages.h"
#include "objects/gameobjfactory.h"
#include "objects/reflection.h"

RTTR_REGISTRATION {
  using ZOVEngine::AudioSystem;
  ZOVEngine::SystemRegistration<AudioSystem>("AudioSystem");
}

namespace ZOVEngine {

void AudioSystem::Init() {
  m_sources = FetchTable<AudioSource>();
}

void AudioSystem::Update(float) {}

void AudioSystem::SendMessage(Message* message) {
  if (message->id == kMute) {
    const auto& mute = dynamic_cast<Mute&>(*message);
    if (mute.channel < m_groups.size()) m_groups[mute.channel].mute = mute.mute;
  } else if (message->id == kVolume) {
    const auto& volume = dynamic_cast<Volume&>(*message);
    if (volume.channel < m_groups.size()) m_groups[volume.channel].volume = volume.volume;
  }
}

}  // namespace ZOVEngine
