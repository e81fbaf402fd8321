#pragma once

#include <map>
#include <string>

#include "audio/mixer.h"
#include "objects/gamecomponentbase.h"

namespace ZOVEngine {

/// One sound of an object: how to play it, the requests that are pending, and the stream it plays
/// on.
struct SoundRecord {
  std::string sound_type;     ///< "BGM" is music, anything else an effect; "SFX" starts afresh
                              ///< when it is requested while it plays, all others wait
  bool loop = false;          ///< goes on until it is stopped
  bool is_3D = false;         ///< heard from where the object is
  bool start_play = false;    ///< a play is pending; in a file: starts with the level
  bool stop_request = false;  ///< a stop is pending; not persisted
  float volume = 0.0f;        ///< 0 to 1; may be changed while it plays
  StreamHandle channel = kNoStream;  ///< of the last play; not persisted
};

/// The sounds that an object can make, by file name.
///
/// The verbs only set flags, which AudioSystem carries out at the end of the step; nothing is heard
/// or cut off before. All of them, IsPlaying too, look the name up by inserting: a name that the
/// file does not list gets a new record, which counts as an effect, plays in silence (its volume is
/// 0) and is written out with the others. Streams go on when the object is switched off or
/// destroyed.
class AudioSource final : public GameComponentBase {
  RTTR_ENABLE(GameComponentBase)

 public:
  using GameComponentBase::GameComponentBase;
  AudioSource(const AudioSource&) = default;
  AudioSource& operator=(const AudioSource&) = delete;
  /// Carries out the stops that are still pending: a level that is left requests silence in the
  /// very step in which it is destroyed, and its looping music would never end. Streams without a
  /// request to stop play on.
  ~AudioSource() override;

  /// Reads six parallel lists, one record for each of "sounds". A list that is shorter than
  /// "sounds" ends the program with a report.
  void Unserialize(const Value& value) override;
  void Serialize(Writer& writer) override;

  /// Requests the sound of this file name.
  void PlaySound(const std::string& name);
  /// Requests its end. Lost if a play is requested too and can be carried out.
  void StopSound(const std::string& name);
  void StopAllSounds();
  /// True if the sound was heard in the last step; requests made since then do not count.
  bool IsPlaying(const std::string& name);

  std::map<std::string, SoundRecord> sounds;  ///< by file name
};

}  // namespace ZOVEngine
