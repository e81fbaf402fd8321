#pragma once

#include <memory>

#include "core/base/noncopyable.h"
#include "editor/shell/lastpanels.h"
#include "editor/shell/stilldevice.h"
#include "editor/shell/toolsinput.h"
#include "render/gl/glkept.h"

namespace ZOVEngine {

/// Dear ImGui in the program's window: its context, fed with the window's events, and its drawing
/// over the frame that the renderer made.
///
/// One lives at a time, between the start and the end of the window's OpenGL context. While it is
/// live it is offered the window's events, the renderer leaves presenting to it, and the device in
/// use draws the level below the panels only when it has changed. A frame in which nothing changed
/// at all is not drawn: the window shows the one before.
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
  /// Puts the level and the panels of this frame into the window, if they are not in it.
  void EndFrame();

 private:
  void PutStillDevice(bool live);
  void TakeEvent(const void* platform_event);

  ToolsInput m_input;
  KeptPicture m_picture;
  std::unique_ptr<StillDevice> m_still;  ///< while it is live
  GLDevice* m_device = nullptr;          ///< the one behind
  LastPanels m_panels;
  bool m_stale = true;  ///< the window may have lost what was drawn into it
};

/// The colours, sizes and spacings of the panels.
void ApplyEditorStyle();

}  // namespace ZOVEngine
