#include "render/images/imagequeue.h"

#include <utility>

namespace ZOVEngine {

ImageQueue::ImageQueue(std::vector<std::string> paths, const std::vector<std::size_t>& first) {
  for (std::string& path : paths) m_slots.emplace_back().path = std::move(path);
  for (const std::size_t position : first) {
    if (position < m_slots.size()) m_order.push_back(position);
  }
  for (std::size_t position = 0; position < m_slots.size(); ++position) {
    m_order.push_back(position);
  }
  m_thread = std::jthread([this](const std::stop_token& stop) { DecodeAll(stop); });
}

ImageQueue::~ImageQueue() {
  m_thread.request_stop();
  m_thread.join();
}

std::optional<Image> ImageQueue::Take(std::size_t position) {
  Slot& slot = m_slots[position];
  if (Claim(&slot)) Decode(&slot);
  {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return slot.stage == Stage::kDecoded; });
    slot.stage = Stage::kTaken;
    --m_ahead;
  }
  m_changed.notify_all();
  if (slot.failure) std::rethrow_exception(slot.failure);
  return std::exchange(slot.image, {});
}

std::optional<std::size_t> ImageQueue::FindDecoded() const {
  const std::scoped_lock lock(m_mutex);
  for (const std::size_t position : m_order) {
    if (m_slots[position].stage == Stage::kDecoded) return position;
  }
  return {};
}

void ImageQueue::DecodeAll(const std::stop_token& stop) {
  for (const std::size_t position : m_order) {
    if (!WaitForPlace(stop)) return;
    if (Claim(&m_slots[position])) Decode(&m_slots[position]);
  }
}

/// False when the worker is to stop.
bool ImageQueue::WaitForPlace(const std::stop_token& stop) {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, stop, [this] { return m_ahead < kMostAhead; });
  return !stop.stop_requested();
}

void ImageQueue::Decode(Slot* slot) {
  try {
    slot->image = LoadImage(slot->path);
  } catch (...) {
    slot->failure = std::current_exception();
  }
  {
    const std::scoped_lock lock(m_mutex);
    slot->stage = Stage::kDecoded;
    ++m_ahead;
  }
  m_changed.notify_all();
}

/// True if nobody else has begun this image; the caller then decodes it.
bool ImageQueue::Claim(Slot* slot) {
  const std::scoped_lock lock(m_mutex);
  if (slot->stage != Stage::kWaiting) return false;
  slot->stage = Stage::kDecoding;
  return true;
}

}  // namespace ZOVEngine
