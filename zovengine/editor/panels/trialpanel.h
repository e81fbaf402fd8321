#pragma once

#include "core/base/noncopyable.h"
#include "editor/trial.h"

namespace ZOVEngine {

class LevelEditor;

/// Whether the level can be won: games of the automatic player in the background, on a copy of the
/// level as it stood when they were started, and the first game won to be watched.
class TrialPanel : private NonCopyable {
 public:
  TrialPanel();
  ~TrialPanel();

  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);
  /// Takes in what the games have come to; each frame, shown or not.
  void Poll() { m_trial.Poll(); }

 private:
  void ShowProgress(LevelEditor& editor);
  void Start(LevelEditor& editor);

  Trial m_trial;
  int m_seeds = 20;
};

}  // namespace ZOVEngine
