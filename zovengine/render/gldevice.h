#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "render/frame.h"
#include "render/images/image.h"

namespace ZOVEngine {

/// The number of textures that the game's list may name.
inline constexpr std::size_t kMaxTextures = 1024;

/// Counts of one executed frame, for tests and benchmarks.
struct DeviceCounters {
  std::uint32_t draw_calls = 0;
  std::uint32_t text_draw_calls = 0;  ///< those of them that draw glyphs
  std::uint32_t program_binds = 0;
  std::uint32_t texture_binds = 0;
  std::uint32_t vertex_array_binds = 0;
  std::uint32_t redundant_binds = 0;  ///< binds of a name that was bound already: always 0
};

/// The narrow interface behind which all OpenGL of the game lives.
///
/// Executes frames; knows nothing of objects and components. The real one is made by MakeGLDevice,
/// tests use a recording one. Everything is called on the main thread, with the window's context
/// current, in this order: Start, then CompileProgram and the uploads, then Execute and Present
/// once a step. How a frame is executed is the device's own business as long as every pixel is the
/// one that one draw call per command, in order, would give. GL errors are never read.
class GLDevice {
 public:
  virtual ~GLDevice() = default;

  /// Loads the GL entry points. Returns an empty string, or a sentence for the user about a context
  /// that is too old (the game needs OpenGL 3.3).
  virtual std::string Start() = 0;

  /// Viewport (0, 0, width, height) and a fixed-function perspective (field of view 45 degrees,
  /// near 1, far 1000) of the given aspect; leaves the model-view matrix selected (unit: pixels).
  virtual void ResetViewport(int width, int height, double aspect) = 0;

  /// Draws the frames into a part of the window from now on, until the next ResetViewport: `left`
  /// and `bottom` are its distances from the window's lower left corner (unit: pixels).
  virtual void SetViewport(int left, int bottom, int width, int height) = 0;

  /// Waits for the screen's refresh in Present when `vsync` is true.
  virtual void SetSwapInterval(bool vsync) = 0;

  /// Compiles and links a program from source texts and makes it the one for `program`. Failures
  /// print their documented line on standard output and leave a program that draws nothing. Returns
  /// its name.
  virtual std::uint32_t CompileProgram(Program program, const std::string& vertex_source,
                                       const std::string& fragment_source) = 0;

  /// Creates vertex arrays and buffers, and sets the values that are uploaded once: projection
  /// (`ratio`), white `ourColour`, and the fixed material. Face culling off, blending on, no depth
  /// test.
  virtual void CreateResources(const Matrix4x4& projection) = 0;

  /// Makes `image` the texture of number `position`, with its mipmaps, repeating; makes those of an
  /// image without any. A position that was never uploaded samples as opaque black.
  virtual void UploadTexture(std::uint32_t position, const Image& image) = 0;

  /// Makes an uploaded texture whole, so that others than frames can draw it by its number, which
  /// is its name in OpenGL. Until then, or until a frame shows it, a device may leave out mipmaps
  /// that the image did not bring.
  virtual void FinishTexture(std::uint32_t position) = 0;

  /// Uploads the coverage bitmap of a glyph (one byte a pixel, `width` times `height`, rows from
  /// the top, no padding; either may be 0). Returns its name, never 0.
  virtual std::uint32_t UploadGlyph(int width, int height, const std::uint8_t* coverage) = 0;

  /// Clears to opaque black and draws the frame into the back buffer.
  virtual void Execute(const Frame& frame) = 0;

  /// Shows the back buffer.
  virtual void Present() = 0;

  /// Deletes vertex arrays and buffers; programs and textures go with the context. A second call
  /// does nothing.
  virtual void Release() = 0;

  /// Counts of the last Execute.
  virtual DeviceCounters Counters() const = 0;
};

/// The device on the current OpenGL context. `swap_buffers` presents the window's back buffer and
/// `set_swap_interval` sets its interval; both are the platform's.
std::unique_ptr<GLDevice> MakeGLDevice(void (*swap_buffers)(), void (*set_swap_interval)(int));

/// The device in use; set before the systems are created, null in a program that draws nothing.
extern GLDevice* g_gl_device;

}  // namespace ZOVEngine
