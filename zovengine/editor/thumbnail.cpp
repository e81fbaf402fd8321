#include "editor/thumbnail.h"

#include <cstdint>

#include "render/rendersystem.h"

namespace ZOVEngine {

Thumbnail FindThumbnail(const std::string& key, int frames) {
  if (g_render_system == nullptr) return {};
  const auto found = g_render_system->m_textures.find(key);
  if (found == g_render_system->m_textures.end() || found->second == 0) return {};
  if (!g_render_system->RequestTexture(found->second)) return {};
  // The device gives a texture its number as its name.
  // NOLINTNEXTLINE(performance-no-int-to-ptr): ImGui takes names of textures as pointers.
  return {reinterpret_cast<void*>(static_cast<std::uintptr_t>(found->second)),
          frames > 1 ? 1.0f / static_cast<float>(frames) : 1.0f};
}

}  // namespace ZOVEngine
