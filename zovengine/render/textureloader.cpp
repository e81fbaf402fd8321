#include "render/textureloader.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <utility>

#include "core/base/clock.h"
#include "render/gldevice.h"
#include "render/images/imagequeue.h"

namespace ZOVEngine {
namespace {

// A path of the texture list is "Resources/Textures/", the key, and an ending such as ".png".
constexpr std::size_t kKeyStart = 19;
constexpr std::size_t kKeyTail = 4;

/// How often a rest looks for images that the worker has decoded (unit: nanoseconds).
constexpr std::int64_t kLookAgain = 1'000'000;

void ReportFailure() {
  std::cout << "ERROR: Failed to load texture." << '\n';
}

/// Empty for a path that is too short for a key or names no file.
std::optional<std::string> FindKey(const std::string& path) {
  std::error_code ignored;
  if (path.size() < kKeyStart + kKeyTail) return {};
  if (!std::filesystem::is_regular_file(path, ignored)) return {};
  return path.substr(kKeyStart, path.size() - kKeyStart - kKeyTail);
}

}  // namespace

TextureLoader::TextureLoader() = default;
TextureLoader::~TextureLoader() = default;

void TextureLoader::Start(const std::vector<std::string>& paths,
                          const std::vector<std::string>& first, TextureMap* keys) {
  m_images.reset();
  m_list.assign(paths.size(), {});
  m_keys = keys;
  m_keys->clear();
  m_pending = 0;
  m_bad_paths = 0;
  m_any_failed = false;
  std::vector<std::string> images(paths.size());
  for (std::size_t position = 0; position < paths.size(); ++position) {
    const std::optional<std::string> key = FindKey(paths[position]);
    if (!key) {
      ++m_bad_paths;
      continue;
    }
    images[position] = paths[position];
    m_list[position] = {*key, Stage::kPending};
    (*m_keys)[*key] = static_cast<std::uint32_t>(position);
    ++m_pending;
  }
  if (m_pending > 0) {
    m_images = std::make_unique<ImageQueue>(std::move(images), FindPositions(first));
  }
}

void TextureLoader::ReportPaths() const {
  for (std::size_t path = 0; path < m_bad_paths; ++path) ReportFailure();
}

void TextureLoader::Prefer(const std::vector<std::string>& first) {
  if (!m_images) return;
  for (const std::size_t position : FindPositions(first)) m_images->Prefer(position);
}

std::vector<std::size_t> TextureLoader::FindPositions(const std::vector<std::string>& keys) const {
  std::vector<std::size_t> positions;
  for (const std::string& key : keys) {
    const auto known = m_keys->find(key);
    if (known != m_keys->end()) positions.push_back(known->second);
  }
  return positions;
}

void TextureLoader::Complete(Frame* frame) {
  if (m_pending == 0 && !m_any_failed) return;
  for (DrawCommand& command : frame->commands) command.texture = Load(command.texture);
}

/// Uploads the texture of this number if that is still to be done. Returns the number that its
/// draws show: its own, or when it failed the one of its key, or 0.
std::uint32_t TextureLoader::Load(std::uint32_t number) {
  while (number < m_list.size()) {
    const Texture& texture = m_list[number];
    if (texture.stage == Stage::kPending) Upload(number);
    if (texture.stage != Stage::kFailed || number == 0) break;
    const auto known = m_keys->find(texture.key);
    number = known != m_keys->end() ? known->second : 0u;
  }
  return number;
}

void TextureLoader::Advance(std::int64_t duration) {
  const std::int64_t end = NowNanoseconds() + duration;
  while (m_images && NowNanoseconds() < end) {
    const std::optional<std::size_t> position = m_images->FindDecoded();
    if (!position) return;
    Upload(*position);
  }
}

void TextureLoader::Rest(std::int64_t duration) {
  const std::int64_t end = NowNanoseconds() + duration;
  for (std::int64_t left = duration; left > 0; left = end - NowNanoseconds()) {
    Advance(left);
    // The worker does not wake this thread; it is asked again.
    const std::int64_t sleep = std::min(m_images ? kLookAgain : left, end - NowNanoseconds());
    SleepNanoseconds(sleep);
  }
}

bool TextureLoader::Request(std::uint32_t number) {
  if (number >= m_list.size()) return false;
  if (m_list[number].stage == Stage::kPending) m_images->Prefer(number);
  return m_list[number].stage == Stage::kLoaded;
}

void TextureLoader::Finish() {
  for (std::size_t position = 0; position < m_list.size(); ++position) {
    if (m_list[position].stage == Stage::kPending) Upload(position);
  }
}

void TextureLoader::Upload(std::size_t position) {
  const std::optional<Image> image = m_images->Take(position);
  m_list[position].stage = image ? Stage::kLoaded : Stage::kFailed;
  if (image) {
    g_gl_device->UploadTexture(static_cast<std::uint32_t>(position), *image);
  } else {
    ForgetKey(position);
  }
  if (--m_pending == 0) m_images.reset();
}

/// The key goes to the last image before this one that has the same and is not known to have
/// failed.
void TextureLoader::ForgetKey(std::size_t position) {
  ReportFailure();
  m_any_failed = true;
  const std::string& key = m_list[position].key;
  const auto known = m_keys->find(key);
  if (known == m_keys->end() || known->second != position) return;
  for (std::size_t before = position; before-- > 0;) {
    const Texture& other = m_list[before];
    if (other.stage == Stage::kFailed || other.key != key) continue;
    known->second = static_cast<std::uint32_t>(before);
    return;
  }
  m_keys->erase(known);
}

}  // namespace ZOVEngine
