#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// Finds out in the background whether a level can be won: has another process of this program play
/// it, and follows the lines that it prints.
///
/// Nothing here waits for a game: Poll reads what is there and returns. There is no thread; the
/// child is this object's own and never outlives it. The level is read from its files by the child,
/// game by game, so they must not change meanwhile.
class Trial : private NonCopyable {
 public:
  enum class Stage {
    kIdle,      ///< nothing was started, or it was stopped
    kRunning,   ///< the child plays
    kFinished,  ///< all games are over
    kFailed,    ///< the child could not be started, or ended before its games were over
  };

  /// The games so far.
  struct Progress {
    Stage stage = Stage::kIdle;
    int seeds = 0;  ///< the games that were asked for
    int games = 0;  ///< the games that are over; the sum of the next three
    int won = 0;
    int lost = 0;
    int open = 0;             ///< undecided after the most rounds that a game is given
    std::vector<int> rounds;  ///< of each game
    std::optional<int> first_won_seed;
    std::string replay_file;  ///< of the first game won; empty before there is one
    std::string message;      ///< why it failed, as the child said it; empty unless it failed
  };

  /// `command` is a program and its first arguments; it gets "--trial FILE --seeds N --replay OUT"
  /// behind them and must print as TrialMain does.
  explicit Trial(std::vector<std::string> command = {"/proc/self/exe"});
  /// Stops, and removes the replay.
  ~Trial();

  /// Starts `seeds` games of a level file, with the seeds from 1 on. A trial that runs is stopped,
  /// and the replay of the one before is removed.
  void Start(const std::string& level_file, int seeds);
  /// Takes in what the child has printed since, without waiting. Call it once a frame.
  void Poll();
  /// Ends the child at once. What was counted stays, and the replay too.
  void Stop();

  const Progress& GetProgress() const { return m_progress; }
  bool IsRunning() const { return m_progress.stage == Stage::kRunning; }

 private:
  bool MakeFolder();
  void RemoveFolder();
  void Spawn(const std::string& level_file);
  void ReapChild();
  bool ReadOutput();
  void TakeText(const char* text, std::size_t size);
  void TakeLine(const std::string& line);
  bool TakeGame(const std::string& line);
  int* FindCount(const std::string& outcome);
  std::string ReplayFile() const { return m_folder + "/replay.txt"; }
  void Finish();
  void Fail(const std::string& message);
  void ClosePipe();

  std::vector<std::string> m_command;
  Progress m_progress;
  std::string m_folder;      ///< of the replay; made by Start, empty when there is none
  pid_t m_child = -1;        ///< leads a process group of its own; -1 when there is none
  int m_status = 0;          ///< of a child that has ended
  int m_pipe = -1;           ///< standard output and error of the child; -1 when closed
  std::string m_line;        ///< the beginning of a line
  std::string m_last_words;  ///< the last line that was no game
};

}  // namespace ZOVEngine
