#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "core/base/noncopyable.h"
#include "render/images/image.h"

namespace ZOVEngine {

/// Decodes the images of a list on a worker thread, ahead of the consumer, and makes their mipmaps.
///
/// The consumer takes each image by its position in the list, in any order, once. An empty path is
/// a position without an image, which nobody takes. The worker only calls LoadImage and
/// MakeMipmaps. It holds at most kMostAhead images that are decoded and not taken, which bounds the
/// memory. The destructor skips the images that are not begun yet and waits for the one that is
/// being decoded.
class ImageQueue : private NonCopyable {
 public:
  static constexpr std::size_t kMostAhead = 32;

  /// The worker begins with the positions in `first`, in this order, and goes on with the others in
  /// the order of the list. Positions beyond the list are ignored.
  explicit ImageQueue(std::vector<std::string> paths, const std::vector<std::size_t>& first = {});
  ~ImageQueue();

  /// The image at `position`, empty when it cannot be loaded. Waits for the worker if it is at this
  /// image, and decodes it here if it has not begun. Rethrows an exception of the decoding, such as
  /// std::bad_alloc.
  std::optional<Image> Take(std::size_t position);

  /// Moves an image before all that nobody has preferred; those that were preferred earlier stay
  /// before it. A position beyond the list is ignored.
  void Prefer(std::size_t position);

  /// The position of an image that Take returns at once; nothing while there is none.
  std::optional<std::size_t> FindDecoded() const;

 private:
  enum class Stage { kWaiting, kDecoding, kDecoded, kTaken };

  struct Slot {
    std::string path;
    Stage stage = Stage::kWaiting;
    bool preferred = false;
    std::optional<Image> image;
    std::exception_ptr failure;
  };

  void DecodeAll(const std::stop_token& stop);
  Slot* ClaimNext(const std::stop_token& stop);
  void Decode(Slot* slot);
  bool Claim(Slot* slot);

  mutable std::mutex m_mutex;  ///< guards stages, order and counts; a claimed slot has one user
  std::condition_variable_any m_changed;
  std::vector<Slot> m_slots;
  std::vector<std::size_t> m_order;
  std::size_t m_preferred = 0;  ///< positions at the front of m_order
  std::size_t m_ahead = 0;      ///< images that are decoded and not taken
  std::jthread m_thread;
};

}  // namespace ZOVEngine
