// Drops files on a window of the X display as a file manager does: the source of an XDND drag.
//   dropfiles WINDOW X Y FILE...     X and Y are pixels of the screen; exit status 0 if the window
//   took the drop
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr long kVersion = 5;                   ///< of the protocol
constexpr std::chrono::seconds kPatience{60};  ///< with a target that is slow to answer

class Drag {
 public:
  Drag(Display* display, Window target, std::string uris)
      : m_display(display), m_target(target), m_uris(std::move(uris)) {
    m_source = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(display, Name("XdndSelection"), m_source, CurrentTime);
  }

  /// Carries the files over the window and lets them go. False if it does not take them.
  bool DropAt(long x, long y) {
    Send("XdndEnter", kVersion << 24, static_cast<long>(Name("text/uri-list")), 0, 0);
    Send("XdndPosition", 0, (x << 16) | y, CurrentTime, static_cast<long>(Name("XdndActionCopy")));
    XClientMessageEvent status;
    if (!WaitFor("XdndStatus", &status) || (status.data.l[1] & 1) == 0) return false;
    Send("XdndDrop", 0, CurrentTime, 0, 0);
    return WaitFor("XdndFinished", &status);
  }

 private:
  Atom Name(const char* name) const { return XInternAtom(m_display, name, False); }

  void Send(const char* message, long second, long third, long fourth, long fifth) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = m_target;
    event.xclient.message_type = Name(message);
    event.xclient.format = 32;
    const long data[] = {static_cast<long>(m_source), second, third, fourth, fifth};
    for (int i = 0; i < 5; ++i) event.xclient.data.l[i] = data[i];
    XSendEvent(m_display, m_target, False, NoEventMask, &event);
    XFlush(m_display);
  }

  /// Waits for a message of the target, and hands over the files meanwhile when it asks for them.
  bool WaitFor(const char* message, XClientMessageEvent* out) const {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
      XEvent event;
      if (!NextEvent(&event)) continue;
      if (event.type == SelectionRequest) HandOver(event.xselectionrequest);
      if (event.type != ClientMessage || event.xclient.message_type != Name(message)) continue;
      *out = event.xclient;
      return true;
    }
    return false;
  }

  bool NextEvent(XEvent* event) const {
    pollfd connection{ConnectionNumber(m_display), POLLIN, 0};
    if (XPending(m_display) == 0) poll(&connection, 1, 100);
    if (XPending(m_display) == 0) return false;
    XNextEvent(m_display, event);
    return true;
  }

  void HandOver(const XSelectionRequestEvent& request) const {
    XChangeProperty(m_display, request.requestor, request.property, request.target, 8,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(m_uris.data()),
                    static_cast<int>(m_uris.size()));
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = request.requestor;
    answer.xselection.selection = request.selection;
    answer.xselection.target = request.target;
    answer.xselection.property = request.property;
    answer.xselection.time = request.time;
    XSendEvent(m_display, request.requestor, False, NoEventMask, &answer);
    XFlush(m_display);
  }

  Display* m_display;
  Window m_target;
  Window m_source;
  std::string m_uris;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 5) {
    std::fprintf(stderr, "usage: dropfiles WINDOW X Y FILE...\n");
    return 2;
  }
  Display* display = XOpenDisplay(nullptr);
  if (display == nullptr) {
    std::fprintf(stderr, "dropfiles: no display\n");
    return 1;
  }
  std::string uris;
  for (int i = 4; i < argc; ++i) uris += std::string("file://") + argv[i] + "\r\n";
  Drag drag(display, std::strtoul(argv[1], nullptr, 0), uris);
  const bool taken = drag.DropAt(std::atol(argv[2]), std::atol(argv[3]));
  XCloseDisplay(display);
  return taken ? 0 : 1;
}
