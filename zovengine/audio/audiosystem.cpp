#include "audio/audiosystem.h"

#include <cstdlib>
#include <iostream>
#include <optional>

#include "core/messages.h"
#include "objects/gameobjfactory.h"
#include "objects/reflection.h"
#include "physics/components/rigidbody.h"
#include "physics/components/transform.h"

ZOV_REGISTRATION(AudioSystem) {
  using ZOVEngine::AudioSystem;
  ZOVEngine::SystemRegistration<AudioSystem>("AudioSystem");
}

namespace ZOVEngine {

namespace {

constexpr MixerSettings kSettings = {
    .max_streams = 512, .doppler = 1.0f, .units_per_metre = 200.0f, .rolloff = 0.1f};

/// The group with the number of a message, if there is one.
std::optional<SoundGroup> FindGroup(std::uint32_t channel) {
  switch (channel) {
    case 0:
      return SoundGroup::kEffects;
    case 1:
      return SoundGroup::kMusic;
    case 2:
      return SoundGroup::kMaster;
    default:
      return std::nullopt;
  }
}

[[noreturn]] void EndProgram(const MixerFailure& failure) {
  std::cout << "FMOD error! (" << failure.code << ") " << failure.text << std::endl;
  std::exit(-1);
}

bool IsPlaying(const SoundRecord& sound) {
  return sound.channel != kNoStream && g_mixer->IsPlaying(sound.channel);
}

Vector3D WorldPosition(GameObj* object) {
  return object->HasComponent<Transform>() ? object->GetComponent<Transform>()->m_world_pos
                                           : Vector3D();
}

Vector3D Velocity(GameObj* object) {
  return object->HasComponent<RigidBody>() ? object->GetComponent<RigidBody>()->m_vel : Vector3D();
}

}  // namespace

AudioSystem::AudioSystem() {
  if (g_mixer != nullptr) g_mixer->Start(kSettings);
}

void AudioSystem::Init() {
  m_sources = FetchTable<AudioSource>();
  if (g_mixer == nullptr) return;
  if (const auto failure = g_mixer->FinishStart()) EndProgram(*failure);
  g_mixer->SetListener(Vector3D());
}

void AudioSystem::Update(float) {
  if (g_mixer == nullptr) return;
  for (AudioSource* source : m_sources->Components()) UpdateSource(*source);
  g_mixer->SetListener(Vector3D());
  g_mixer->Update();
}

void AudioSystem::UpdateSource(AudioSource& source) {
  const Vector3D position = WorldPosition(source.m_owner);
  const Vector3D velocity = Velocity(source.m_owner);
  for (auto& [name, sound] : source.sounds) {
    // Asked once: the rest goes by this answer, even if the sound is started or stopped meanwhile.
    const bool playing = IsPlaying(sound);
    if (sound.start_play && (!playing || sound.sound_type == "SFX")) {
      Play(name, &sound, playing);
    } else if (sound.stop_request) {
      if (playing) g_mixer->Stop(sound.channel);
      sound.stop_request = false;
    }
    if (sound.channel == kNoStream || !playing) continue;
    if (sound.is_3D) g_mixer->SetPlace(sound.channel, position, velocity);
    g_mixer->SetVolume(sound.channel, sound.volume);
  }
}

void AudioSystem::Play(const std::string& name, SoundRecord* sound, bool playing) {
  const bool music = sound->sound_type == "BGM";
  if (playing) g_mixer->Stop(sound->channel);
  sound->channel = g_mixer->Play({.path = (music ? m_music_directory : m_effects_directory) + name,
                                  .group = music ? SoundGroup::kMusic : SoundGroup::kEffects,
                                  .loop = sound->loop,
                                  .positioned = sound->is_3D});
  g_mixer->SetVolume(sound->channel, sound->volume);
  sound->start_play = false;
  sound->stop_request = false;
}

void AudioSystem::SendMessage(Message* message) {
  if (g_mixer == nullptr) return;
  if (message->id == kMute) {
    const auto& mute = dynamic_cast<Mute&>(*message);
    if (const auto group = FindGroup(mute.channel)) g_mixer->SetGroupMute(*group, mute.mute);
  } else if (message->id == kVolume) {
    const auto& volume = dynamic_cast<Volume&>(*message);
    if (const auto group = FindGroup(volume.channel)) {
      g_mixer->SetGroupVolume(*group, volume.volume);
    }
  }
}

}  // namespace ZOVEngine
