#pragma once

#include <memory>

#include "core/base/noncopyable.h"
#include "editor/shell/stilldevice.h"
#include "editor/shell/toolsinput.h"
#include "render/gl/glkept.h"

namespace ZOVEngine {

/// Dear ImGui in the program's window: its context, fed with the window's events, and its drawing
/// over the frame that the renderer made.
///
/// One lives at a time, between the start and the end of the window's OpenGL context. While it is
/// live it is offered the window's events, the renderer leaves presenting to it, and the device in
/// use draws the picture below the panels only when it has changed.
class ToolsWindow : private NonCopyable {
 public:
  /// Needs an open window with its context current.
  ToolsWindow();
  ~ToolsWindow();

  /// It starts out not live.
  void SetLive(bool live);
  /// Takes what waits in the window's queue, as far as it belongs into one frame.
  ///
  /// The input system takes one event in each step; a window in which a mouse is moved and things
  /// are dragged would fall behind.
  void TakeEvents();
  void BeginFrame();
  /// Draws the panels of this frame and shows the window's back buffer.
  void EndFrame();

 private:
  void PutStillDevice(bool live);

  ToolsInput m_input;
  KeptPicture m_picture;
  std::unique_ptr<StillDevice> m_still;  ///< while it is live
  GLDevice* m_device = nullptr;          ///< the one behind
};

/// The colours, sizes and spacings of the panels.
void ApplyEditorStyle();

}  // namespace ZOVEngine
