#include "audio/audiosource.h"

#include <vector>

#include "jsonunserializer.h"
#include "objects/parallellists.h"

namespace ZOVEngine {

namespace {

using Sounds = std::map<std::string, SoundRecord>;

/// `field` of every record, in the order of the names.
template <class T>
std::vector<T> ListField(const Sounds& sounds, T SoundRecord::*field) {
  std::vector<T> list;
  for (const auto& [name, sound] : sounds) list.push_back(sound.*field);
  return list;
}

std::vector<std::string> ListNames(const Sounds& sounds) {
  std::vector<std::string> names;
  for (const auto& [name, sound] : sounds) names.push_back(name);
  return names;
}

}  // namespace

AudioSource::~AudioSource() {
  if (g_mixer == nullptr) return;
  for (const auto& [name, sound] : sounds) {
    if (sound.stop_request && sound.channel != kNoStream && g_mixer->IsPlaying(sound.channel)) {
      g_mixer->Stop(sound.channel);
    }
  }
}

// Written by hand: the records of the files are lists side by side, one for each field.
void AudioSource::Unserialize(const Value& value) {
  std::vector<std::string> names;
  std::vector<bool> loops;
  std::vector<bool> are_3D;
  std::vector<bool> starts;
  std::vector<float> volumes;
  std::vector<std::string> types;
  ReadStringArray(value, "sounds", &names);
  ReadBoolArray(value, "loop", &loops);
  ReadBoolArray(value, "is_3D", &are_3D);
  ReadBoolArray(value, "start_play", &starts);
  ReadFloatArray(value, "volume", &volumes);
  ReadStringArray(value, "sound_type", &types);
  for (std::size_t i = 0; i < names.size(); ++i) {
    SoundRecord sound;
    sound.loop = EntryBeside("sounds", loops, i, "loop");
    sound.is_3D = EntryBeside("sounds", are_3D, i, "is_3D");
    sound.start_play = EntryBeside("sounds", starts, i, "start_play");
    sound.volume = EntryBeside("sounds", volumes, i, "volume");
    sound.sound_type = EntryBeside("sounds", types, i, "sound_type");
    sounds[names[i]] = sound;
  }
}

void AudioSource::Serialize(Writer& writer) {
  WriteStringArray(writer, "sounds", ListNames(sounds));
  WriteBoolArray(writer, "loop", ListField(sounds, &SoundRecord::loop));
  WriteBoolArray(writer, "is_3D", ListField(sounds, &SoundRecord::is_3D));
  WriteBoolArray(writer, "start_play", ListField(sounds, &SoundRecord::start_play));
  WriteStringArray(writer, "sound_type", ListField(sounds, &SoundRecord::sound_type));
  WriteFloatArray(writer, "volume", ListField(sounds, &SoundRecord::volume));
}

void AudioSource::PlaySound(const std::string& name) {
  sounds[name].start_play = true;
}

void AudioSource::StopSound(const std::string& name) {
  sounds[name].stop_request = true;
}

void AudioSource::StopAllSounds() {
  for (auto& [name, sound] : sounds) sound.stop_request = true;
}

bool AudioSource::IsPlaying(const std::string& name) {
  const StreamHandle channel = sounds[name].channel;
  return g_mixer != nullptr && channel != kNoStream && g_mixer->IsPlaying(channel);
}

}  // namespace ZOVEngine
