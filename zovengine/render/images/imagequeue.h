#pragma once

#include <cstddef>
#include <future>
#include <optional>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

#include "render/images/image.h"

namespace ZOVEngine {

/// Decodes the images of a list on a worker thread, ahead of the consumer.
///
/// Decoding is the longest part of the start of the game, and compiling shaders and loading glyphs
/// need not wait for it. The worker only calls LoadImage. It is at most kMostAhead images ahead,
/// which bounds the memory. The destructor skips the images that are not begun yet and waits for
/// the one that is being decoded.
class ImageQueue {
 public:
  static constexpr int kMostAhead = 32;

  explicit ImageQueue(const std::vector<std::string>& paths);
  ImageQueue(const ImageQueue&) = delete;
  ImageQueue& operator=(const ImageQueue&) = delete;
  ~ImageQueue();

  /// The next image of the list, empty when it cannot be loaded; waits until it is decoded. May be
  /// called once for each image. Rethrows an exception of the decoding, such as std::bad_alloc.
  std::optional<Image> Take();

 private:
  using Result = std::optional<Image>;

  void Decode(const std::stop_token& stop, std::vector<std::packaged_task<Result()>>* tasks);

  std::vector<std::future<Result>> m_images;
  std::size_t m_taken = 0;
  std::counting_semaphore<kMostAhead + 1> m_free{kMostAhead};  ///< slots for decoded images
  std::jthread m_thread;
};

}  // namespace ZOVEngine
