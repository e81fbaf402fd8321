#include "audio/silentmixer.h"

namespace ZOVEngine {

StreamHandle SilentMixer::Play(const StreamRequest&) {
  m_playing.insert(++m_last);
  return m_last;
}

void SilentMixer::Stop(StreamHandle stream) {
  m_playing.erase(stream);
}

bool SilentMixer::IsPlaying(StreamHandle stream) const {
  return m_playing.contains(stream);
}

}  // namespace ZOVEngine
