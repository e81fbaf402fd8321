#include "render/images/imagequeue.h"

#include <cstddef>
#include <utility>

#include "render/images/mipmaps.h"

namespace ZOVEngine {

ImageQueue::ImageQueue(std::vector<std::string> paths, const std::vector<std::size_t>& first) {
  for (std::string& path : paths) m_slots.emplace_back().path = std::move(path);
  for (std::size_t position = 0; position < m_slots.size(); ++position) {
    if (!m_slots[position].path.empty()) m_order.push_back(position);
  }
  for (const std::size_t position : first) Prefer(position);
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

void ImageQueue::Prefer(std::size_t position) {
  if (position >= m_slots.size() || m_slots[position].path.empty()) return;
  const std::scoped_lock lock(m_mutex);
  if (std::exchange(m_slots[position].preferred, true)) return;
  m_order.insert(m_order.begin() + static_cast<std::ptrdiff_t>(m_preferred), position);
  ++m_preferred;
}

std::optional<std::size_t> ImageQueue::FindDecoded() const {
  const std::scoped_lock lock(m_mutex);
  for (const std::size_t position : m_order) {
    if (m_slots[position].stage == Stage::kDecoded) return position;
  }
  return {};
}

void ImageQueue::DecodeAll(const std::stop_token& stop) {
  while (Slot* slot = ClaimNext(stop)) Decode(slot);
}

/// The next image that nobody has begun, once there is a place for it; null when there is none, or
/// when the worker is to stop.
ImageQueue::Slot* ImageQueue::ClaimNext(const std::stop_token& stop) {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, stop, [this] { return m_ahead < kMostAhead; });
  if (stop.stop_requested()) return nullptr;
  for (const std::size_t position : m_order) {
    Slot& slot = m_slots[position];
    if (slot.stage != Stage::kWaiting) continue;
    slot.stage = Stage::kDecoding;
    return &slot;
  }
  return nullptr;
}

void ImageQueue::Decode(Slot* slot) {
  try {
    slot->image = LoadImage(slot->path);
    if (slot->image) MakeMipmaps(&*slot->image);
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
