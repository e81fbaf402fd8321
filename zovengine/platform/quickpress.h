#pragma once

namespace ZOVEngine {

/// Finds the presses of a button that no poll can see.
///
/// Polls ask for the button's state as it is now, while its press may wait in a queue of events. A
/// press that is over when it leaves the queue would be lost if no poll saw it in the meantime; one
/// that was seen must not count again.
class QuickPress {
 public:
  /// At the begin of each pump, which takes at most one event.
  void BeginPump() { m_struck = false; }
  /// The event that was taken is a press of the button.
  void TakePress() {
    m_struck = m_ahead == 0;
    if (m_ahead > 0) --m_ahead;
  }
  /// The queue was empty: whatever was seen has left it.
  void SetEmpty() { m_ahead = 0; }
  /// At the end of each pump: the button as polls see it.
  void See(bool down) {
    if (down && !m_down && !m_struck) ++m_ahead;
    m_down = down;
  }
  /// True if the last pump took a press that polls had not seen before.
  bool IsStruck() const { return m_struck; }

 private:
  int m_ahead = 0;  ///< presses that were seen and are still in the queue
  bool m_down = false, m_struck = false;
};

}  // namespace ZOVEngine
