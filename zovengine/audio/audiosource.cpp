#include "audio/audiosource.h"

#include <vector>

#include "jsonunserializer.h"
#include "objects/parallellists.h"

namespace ZOVEngine {

namespace {

bool ReadEntry(const Value& value, bool) {
  return value.IsTrue();
}

float ReadEntry(const Value& value, float) {
  return ToFloat(value);
}

/// The list under `key`; a missing key, which prints its line, gives an empty one.
template <class T>
std::vector<T> ReadList(const Value& object, const char* key) {
  std::vector<T> list;
  const Value* value = FindOrComplain(object, key);
  if (value == nullptr) return list;
  if (!value->IsArray()) FailReading("expected an array");
  for (const Value& entry : value->GetArray()) list.push_back(ReadEntry(entry, T()));
  return list;
}

void WriteEntry(Writer& writer, const std::string& value) {
  writer.json->String(value.c_str(), static_cast<rapidjson::SizeType>(value.size()));
}

void WriteEntry(Writer& writer, bool value) {
  writer.json->Bool(value);
}

void WriteEntry(Writer& writer, float value) {
  WriteFloat(writer, value);
}

/// Writes `field` of every record under `key`.
template <class T>
void WriteList(Writer& writer, const char* key, const std::map<std::string, SoundRecord>& sounds,
               T SoundRecord::*field) {
  WriteKey(writer, key);
  writer.json->StartArray();
  for (const auto& [name, sound] : sounds) WriteEntry(writer, sound.*field);
  writer.json->EndArray();
}

void WriteNames(Writer& writer, const std::map<std::string, SoundRecord>& sounds) {
  WriteKey(writer, "sounds");
  writer.json->StartArray();
  for (const auto& [name, sound] : sounds) WriteEntry(writer, name);
  writer.json->EndArray();
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

void AudioSource::Unserialize(const Value& value) {
  std::vector<std::string> names;
  ReadStringArray(value, "sounds", &names);
  const auto loops = ReadList<bool>(value, "loop");
  const auto are_3D = ReadList<bool>(value, "is_3D");
  const auto starts = ReadList<bool>(value, "start_play");
  const auto volumes = ReadList<float>(value, "volume");
  std::vector<std::string> types;
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
  WriteNames(writer, sounds);
  WriteList(writer, "loop", sounds, &SoundRecord::loop);
  WriteList(writer, "is_3D", sounds, &SoundRecord::is_3D);
  WriteList(writer, "start_play", sounds, &SoundRecord::start_play);
  WriteList(writer, "sound_type", sounds, &SoundRecord::sound_type);
  WriteList(writer, "volume", sounds, &SoundRecord::volume);
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
