#include "support/fakemixer.h"

namespace carapace_test {

using ZOVEngine::g_mixer;
using ZOVEngine::SoundGroup;
using ZOVEngine::StreamHandle;
using ZOVEngine::Vector3D;

FakeMixer::FakeMixer() : m_previous(g_mixer) {
  g_mixer = this;
}

FakeMixer::~FakeMixer() {
  g_mixer = m_previous;
}

FakeMixer::Stream* FakeMixer::Newest(const std::string& path) {
  for (auto entry = streams.rbegin(); entry != streams.rend(); ++entry) {
    if (entry->second.request.path == path) return &entry->second;
  }
  return nullptr;
}

int FakeMixer::CountPlays(const std::string& path) const {
  int count = 0;
  for (const auto& [handle, stream] : streams) count += stream.request.path == path ? 1 : 0;
  return count;
}

void FakeMixer::Log(const std::string& call) {
  if (!calls.empty() && calls.back() == "Update") calls.clear();
  calls.push_back(call);
}

void FakeMixer::Start(const ZOVEngine::MixerSettings& settings_) {
  Log("Start");
  settings = settings_;
}

std::optional<ZOVEngine::MixerFailure> FakeMixer::FinishStart() {
  Log("FinishStart");
  return failure;
}

StreamHandle FakeMixer::Play(const ZOVEngine::StreamRequest& request) {
  if (missing.contains(request.path)) {
    Log("Play", ZOVEngine::kNoStream);
    return ZOVEngine::kNoStream;
  }
  Log("Play", ++m_last);
  streams[m_last].request = request;
  return m_last;
}

void FakeMixer::Stop(StreamHandle stream) {
  Log("Stop", stream);
  const auto found = streams.find(stream);
  if (found != streams.end()) found->second.playing = false;
}

void FakeMixer::SetVolume(StreamHandle stream, float volume) {
  Log("SetVolume", stream);
  const auto found = streams.find(stream);
  if (found != streams.end()) found->second.volume = volume;
}

void FakeMixer::SetPlace(StreamHandle stream, const Vector3D& position, const Vector3D& velocity) {
  Log("SetPlace", stream);
  const auto found = streams.find(stream);
  if (found == streams.end()) return;
  found->second.position = position;
  found->second.velocity = velocity;
}

void FakeMixer::SetGroupVolume(SoundGroup group, float volume) {
  Log("SetGroupVolume");
  groups[group].volume = volume;
}

void FakeMixer::SetGroupMute(SoundGroup group, bool mute) {
  Log("SetGroupMute");
  groups[group].mute = mute;
}

void FakeMixer::SetListener(const Vector3D& position) {
  Log(position == Vector3D() ? "SetListener" : "SetListener elsewhere");
}

void FakeMixer::Update() {
  Log("Update");
}

bool FakeMixer::IsPlaying(StreamHandle stream) const {
  const auto found = streams.find(stream);
  return found != streams.end() && found->second.playing;
}

}  // namespace carapace_test
