#include "audio/openal/openalmixer.h"

#include <algorithm>

namespace ZOVEngine {

namespace {

constexpr float kSpeedOfSound = 343.3f;  ///< (unit: metres per second)

/// A volume that OpenAL can take: a NaN and a volume below 0 are silent.
float Sound(float volume) {
  return volume > 0.0f ? std::min(volume, 1.0f) : 0.0f;
}

/// OpenAL's z points in the opposite direction.
Vector3D Mirrored(const Vector3D& v) {
  return Vector3D(v.x, v.y, -v.z);
}

}  // namespace

OpenALMixer::OpenALMixer(bool silent, SampleListener listener)
    : m_silent(silent), m_listener(std::move(listener)) {}

void OpenALMixer::Start(const MixerSettings& settings) {
  m_settings = settings;
  m_device.BeginOpen(settings.max_streams, m_silent);
}

std::optional<MixerFailure> OpenALMixer::FinishStart() {
  if (auto failure = m_device.FinishOpen()) return failure;
  alDistanceModel(AL_INVERSE_DISTANCE_CLAMPED);
  alDopplerFactor(m_settings.doppler);
  alSpeedOfSound(kSpeedOfSound * m_settings.units_per_metre);
  return std::nullopt;
}

StreamHandle OpenALMixer::Play(const StreamRequest& request) {
  if (m_streams.size() >= static_cast<std::size_t>(m_settings.max_streams)) return kNoStream;
  auto file = SoundFile::Open(request.path, {.loop = request.loop, .mono = request.positioned});
  if (file == nullptr) return kNoStream;
  auto stream = OpenALStream::Make(std::move(file), request.group);
  if (stream == nullptr) return kNoStream;
  if (request.positioned) stream->Position(m_settings.units_per_metre, m_settings.rolloff);
  stream->Mix(GroupGain(request.group));
  m_streams.emplace(++m_last, std::move(stream));
  return m_last;
}

void OpenALMixer::Stop(StreamHandle stream) {
  m_streams.erase(stream);
}

void OpenALMixer::SetVolume(StreamHandle stream, float volume) {
  OpenALStream* found = Find(stream);
  if (found == nullptr || found->m_volume == Sound(volume)) return;
  found->m_volume = Sound(volume);
  found->Mix(GroupGain(found->Group()));
}

void OpenALMixer::SetPlace(StreamHandle stream, const Vector3D& position,
                           const Vector3D& velocity) {
  OpenALStream* found = Find(stream);
  if (found != nullptr) found->SetPlace(Mirrored(position), Mirrored(velocity));
}

void OpenALMixer::SetGroupVolume(SoundGroup group, float volume) {
  Settings(group).volume = Sound(volume);
  MixAll();
}

void OpenALMixer::SetGroupMute(SoundGroup group, bool mute) {
  Settings(group).mute = mute;
  MixAll();
}

void OpenALMixer::SetListener(const Vector3D& position) {
  alListenerfv(AL_POSITION, Mirrored(position).v);
}

void OpenALMixer::Update() {
  for (const auto& [handle, stream] : m_streams) stream->Refill();
  m_device.Step(m_listener);
  std::erase_if(m_streams, [](const auto& entry) { return entry.second->Ended(); });
}

bool OpenALMixer::IsPlaying(StreamHandle stream) const {
  return m_streams.contains(stream);
}

OpenALStream* OpenALMixer::Find(StreamHandle stream) {
  const auto found = m_streams.find(stream);
  return found == m_streams.end() ? nullptr : found->second.get();
}

float OpenALMixer::GroupGain(SoundGroup group) const {
  float gain = 1.0f;
  for (const SoundGroup around : {group, SoundGroup::kMaster}) {
    const Group& settings = m_groups[static_cast<std::size_t>(around)];
    gain *= settings.mute ? 0.0f : settings.volume;
  }
  return gain;
}

void OpenALMixer::MixAll() {
  for (const auto& [handle, stream] : m_streams) stream->Mix(GroupGain(stream->Group()));
}

std::unique_ptr<Mixer> MakeOpenALMixer() {
  return std::make_unique<OpenALMixer>();
}

}  // namespace ZOVEngine
