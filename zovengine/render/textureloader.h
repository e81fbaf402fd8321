#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/base/noncopyable.h"
#include "render/painter.h"

namespace ZOVEngine {

class ImageQueue;

/// Brings the textures of a list to the GL device: those that a frame shows before it is drawn, all
/// others behind the frames.
///
/// The number of a texture is its position in the list, its key the path without root and ending.
/// Keys are known from the start on; one whose image turns out to be none then loses its key and
/// its draws show texture 0, as if the key had never been there. A path that is too short for a key
/// or opens no file, and an image that cannot be decoded, print "ERROR: Failed to load texture.",
/// paths when ReportPaths is called and images when they are due.
/// Decoding is done by a worker thread (ImageQueue), uploading by the caller's. Needs g_gl_device.
class TextureLoader : private NonCopyable {
 public:
  TextureLoader();
  ~TextureLoader();

  /// Begins to load `paths` and puts their keys into `*keys`, which is emptied and must outlive the
  /// loading; of two paths with one key the later has it. The images of the keys in `first` are
  /// decoded first. Only the later functions need the device to be open.
  void Start(const std::vector<std::string>& paths, const std::vector<std::string>& first,
             TextureMap* keys);
  /// Prints a line for each path of the list that has no key.
  void ReportPaths() const;
  /// Goes on with the images of these keys.
  void Prefer(const std::vector<std::string>& first);
  /// Uploads the textures that `frame` shows, waiting for those that are not decoded, and lets
  /// draws of a failed one show what its key shows now.
  void Complete(Frame* frame);
  /// Uploads images that are decoded already, for about this time at most (unit: nanoseconds).
  void Advance(std::int64_t duration);
  /// Takes this time, in which the caller has nothing else to do, and uploads in it the images that
  /// are decoded by then (unit: nanoseconds); does nothing if it is not above 0.
  void Rest(std::int64_t duration);
  /// True if the texture of this number is in the device. One that still can be is decoded and
  /// uploaded before those that nobody has asked for.
  bool Request(std::uint32_t number);
  /// Uploads everything that is left, waiting for it.
  void Finish();

 private:
  enum class Stage : std::uint8_t {
    kFailed,   ///< it has no image; without a key it failed at the start
    kPending,  ///< decoded or not, but not in the device
    kLoaded,
  };

  struct Texture {
    std::string key;
    Stage stage = Stage::kFailed;
  };

  std::vector<std::size_t> FindPositions(const std::vector<std::string>& keys) const;
  std::uint32_t Load(std::uint32_t number);
  void Upload(std::size_t position);
  void ForgetKey(std::size_t position);

  std::vector<Texture> m_list;  ///< by position in the list
  TextureMap* m_keys = nullptr;
  std::size_t m_pending = 0;
  std::size_t m_bad_paths = 0;           ///< of the list, those that gave no key
  bool m_any_failed = false;             ///< after its key was known
  std::unique_ptr<ImageQueue> m_images;  ///< null when nothing is pending
};

}  // namespace ZOVEngine
