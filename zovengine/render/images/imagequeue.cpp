#include "render/images/imagequeue.h"

#include <utility>

namespace ZOVEngine {

ImageQueue::ImageQueue(const std::vector<std::string>& paths) {
  std::vector<std::packaged_task<Result()>> tasks;
  for (const std::string& path : paths) {
    m_images.push_back(tasks.emplace_back([path] { return LoadImage(path); }).get_future());
  }
  m_thread = std::jthread([this, tasks = std::move(tasks)](const std::stop_token& stop) mutable {
    Decode(stop, &tasks);
  });
}

ImageQueue::~ImageQueue() {
  m_thread.request_stop();
  m_free.release();
  m_thread.join();
}

std::optional<Image> ImageQueue::Take() {
  Result image = m_images[m_taken++].get();
  m_free.release();
  return image;
}

void ImageQueue::Decode(const std::stop_token& stop,
                        std::vector<std::packaged_task<Result()>>* tasks) {
  for (auto& task : *tasks) {
    m_free.acquire();
    if (stop.stop_requested()) return;
    task();
  }
}

}  // namespace ZOVEngine
