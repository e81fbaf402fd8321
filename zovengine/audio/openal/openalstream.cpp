#include "audio/openal/openalstream.h"

#include <algorithm>

namespace ZOVEngine {

namespace {

/// Beyond this, distance quietens no more (unit: world units).
constexpr float kMaxDistance = 10000.0f;

}  // namespace

OpenALStream::OpenALStream(std::unique_ptr<SoundFile> file, SoundGroup group)
    : m_file(std::move(file)), m_group(group) {}

std::unique_ptr<OpenALStream> OpenALStream::Make(std::unique_ptr<SoundFile> file,
                                                 SoundGroup group) {
  std::unique_ptr<OpenALStream> stream(new OpenALStream(std::move(file), group));
  if (!stream->MakeSource()) return nullptr;
  for (const ALuint buffer : stream->m_buffers) stream->Fill(buffer);
  if (stream->Query(AL_BUFFERS_QUEUED) == 0) return nullptr;
  return stream;
}

OpenALStream::~OpenALStream() {
  if (m_source == 0) return;
  alSourceStop(m_source);
  alSourcei(m_source, AL_BUFFER, 0);
  alDeleteSources(1, &m_source);
  alDeleteBuffers(kBuffers, m_buffers.data());
}

bool OpenALStream::MakeSource() {
  alGetError();
  alGenSources(1, &m_source);
  if (alGetError() != AL_NO_ERROR) {
    m_source = 0;
    return false;
  }
  alGenBuffers(kBuffers, m_buffers.data());
  alSourcei(m_source, AL_SOURCE_RELATIVE, AL_TRUE);
  return alGetError() == AL_NO_ERROR;
}

void OpenALStream::Position(float reference, float rolloff) {
  m_positioned = true;
  alSourcei(m_source, AL_SOURCE_RELATIVE, AL_FALSE);
  alSourcef(m_source, AL_REFERENCE_DISTANCE, reference);
  alSourcef(m_source, AL_MAX_DISTANCE, std::max(reference, kMaxDistance));
  alSourcef(m_source, AL_ROLLOFF_FACTOR, rolloff);
}

void OpenALStream::SetPlace(const Vector3D& position, const Vector3D& velocity) {
  if (!m_positioned) return;
  alSourcefv(m_source, AL_POSITION, position.v);
  alSourcefv(m_source, AL_VELOCITY, velocity.v);
}

void OpenALStream::Mix(float outer) {
  alSourcef(m_source, AL_GAIN, m_volume * outer);
}

void OpenALStream::Refill() {
  for (ALint heard = Query(AL_BUFFERS_PROCESSED); heard > 0; --heard) {
    ALuint buffer = 0;
    alSourceUnqueueBuffers(m_source, 1, &buffer);
    Fill(buffer);
  }
  // Not started yet, or run dry because the game stood still.
  if (Query(AL_SOURCE_STATE) != AL_PLAYING && Query(AL_BUFFERS_QUEUED) > 0) alSourcePlay(m_source);
}

void OpenALStream::Fill(ALuint buffer) {
  if (m_file_ended) return;
  std::array<std::int16_t, kBufferBytes / sizeof(std::int16_t)> samples;
  const std::size_t wanted = samples.size() / m_file->Channels();
  const std::size_t frames = m_file->Read(samples.data(), wanted);
  m_file_ended = frames < wanted;
  if (frames == 0) return;
  const ALenum format = m_file->Channels() == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16;
  const std::size_t bytes = frames * m_file->Channels() * sizeof(std::int16_t);
  alBufferData(buffer, format, samples.data(), static_cast<ALsizei>(bytes), m_file->Rate());
  alSourceQueueBuffers(m_source, 1, &buffer);
}

bool OpenALStream::Ended() const {
  return m_file_ended && Query(AL_SOURCE_STATE) == AL_STOPPED;
}

ALint OpenALStream::Query(ALenum property) const {
  ALint value = 0;
  alGetSourcei(m_source, property, &value);
  return value;
}

}  // namespace ZOVEngine
