#pragma once

#include <memory>

#include "render/gldevice.h"

namespace ZOVEngine {

/// How a device draws, for tests and benchmarks that compare the alternatives. All of them draw the
/// same pixels; the game takes the defaults.
struct GLOptions {
  /// How a fragment picks its texture among those of the units.
  enum class TextureChoice {
    kByDriver,  ///< by number on a software rasteriser, else by comparisons
    kByNumber,
    kByComparison,
  };

  TextureChoice texture_choice = TextureChoice::kByDriver;
  bool stream = true;       ///< false: a draw call for every command, its values set as uniforms
  bool keep_ground = true;  ///< false: the whole ground is drawn in every frame
};

/// MakeGLDevice with options other than the defaults.
std::unique_ptr<GLDevice> MakeGLDeviceWith(const GLOptions& options, void (*swap_buffers)(),
                                           void (*set_swap_interval)(int));

}  // namespace ZOVEngine
