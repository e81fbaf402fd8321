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

/// Decodes the pictures of a list on a thread of its own, ahead of who takes them.
///
/// Decoding is the longest part of the start of the game, and compiling shaders and loading glyphs
/// need not wait for it. The pictures are those that LoadImage gives; the thread touches nothing
/// else. It is at most kMostAhead pictures ahead, which bounds the memory. The destructor leaves
/// out what is not begun yet and waits for the picture in work.
class ImageQueue {
 public:
  static constexpr int kMostAhead = 32;

  explicit ImageQueue(const std::vector<std::string>& paths);
  ImageQueue(const ImageQueue&) = delete;
  ImageQueue& operator=(const ImageQueue&) = delete;
  ~ImageQueue();

  /// The next picture of the list, empty when it cannot be loaded; waits until it is decoded. May
  /// be called once for each. An exception of the decoding, such as too little memory, comes here.
  std::optional<Image> Take();

 private:
  using Picture = std::optional<Image>;

  void Decode(const std::stop_token& stop, std::vector<std::packaged_task<Picture()>>* tasks);

  std::vector<std::future<Picture>> m_pictures;
  std::size_t m_taken = 0;
  std::counting_semaphore<kMostAhead + 1> m_free{kMostAhead};  ///< places for decoded pictures
  std::jthread m_thread;
};

}  // namespace ZOVEngine
