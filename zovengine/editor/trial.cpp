#include "editor/trial.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <utility>

#include "core/base/noncopyable.h"

namespace ZOVEngine {
namespace {

constexpr std::size_t kLongestLine = 4096;  ///< the rest is dropped (unit: bytes)
constexpr int kMostReads = 16;              ///< in a poll, so that no child can hold it up
constexpr std::size_t kReadSize = 4096;     ///< (unit: bytes)

/// What the child of a posix_spawn begins with: the pipe as its output and error, nothing to read,
/// a process group of its own, and a broken pipe ends it.
class SpawnSetup : private NonCopyable {
 public:
  explicit SpawnSetup(int output) {
    posix_spawn_file_actions_init(&m_actions);
    posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&m_actions, output, STDERR_FILENO);
    posix_spawnattr_init(&m_attributes);
    posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
    posix_spawnattr_setpgroup(&m_attributes, 0);
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&m_attributes, &signals);
  }
  ~SpawnSetup() {
    posix_spawn_file_actions_destroy(&m_actions);
    posix_spawnattr_destroy(&m_attributes);
  }

  /// 0, or the error's number.
  int Spawn(const std::vector<std::string>& command, pid_t* child) const {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    return posix_spawnp(child, arguments[0], &m_actions, &m_attributes, arguments.data(), environ);
  }

 private:
  posix_spawn_file_actions_t m_actions;
  posix_spawnattr_t m_attributes;
};

}  // namespace

Trial::Trial(std::vector<std::string> command) : m_command(std::move(command)) {}

Trial::~Trial() {
  Stop();
  RemoveFolder();
}

void Trial::Start(const std::string& level_file, int seeds) {
  Stop();
  RemoveFolder();
  m_progress = Progress();
  m_progress.seeds = seeds;
  m_line.clear();
  m_last_words.clear();
  if (MakeFolder()) Spawn(level_file);
}

bool Trial::MakeFolder() {
  std::error_code failed;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(failed);
  std::string name = (folder / "carapace-trial-XXXXXX").string();
  if (!failed && mkdtemp(name.data()) != nullptr) {
    m_folder = name;
  } else {
    Fail("no folder for the replay can be made");
  }
  return !m_folder.empty();
}

void Trial::RemoveFolder() {
  std::error_code ignored;
  if (!m_folder.empty()) std::filesystem::remove_all(m_folder, ignored);
  m_folder.clear();
}

void Trial::Spawn(const std::string& level_file) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return Fail(std::strerror(errno));
  m_pipe = ends[0];
  fcntl(m_pipe, F_SETFL, O_NONBLOCK);
  std::vector<std::string> command = m_command;
  command.insert(command.end(), {"--trial", level_file, "--seeds", std::to_string(m_progress.seeds),
                                 "--replay", ReplayFile()});
  const int error = SpawnSetup(ends[1]).Spawn(command, &m_child);
  close(ends[1]);
  m_progress.stage = Stage::kRunning;
  if (error == 0) return;
  m_child = -1;
  Fail(command[0] + ": " + std::strerror(error));
}

void Trial::Poll() {
  if (!IsRunning()) return;
  ReapChild();
  if (!ReadOutput() && m_child < 0) Finish();
}

/// A child that has only closed its output still runs.
void Trial::ReapChild() {
  if (waitpid(m_child, &m_status, WNOHANG) == m_child) m_child = -1;
}

/// True if there may be more to read at once.
bool Trial::ReadOutput() {
  std::array<char, kReadSize> text;
  for (int i = 0; i < kMostReads; ++i) {
    if (m_pipe < 0) return false;
    const ssize_t size = read(m_pipe, text.data(), text.size());
    if (size < 0 && errno == EINTR) continue;
    if (size < 0 && errno == EAGAIN) return false;
    if (size > 0) {
      TakeText(text.data(), static_cast<std::size_t>(size));
    } else {
      ClosePipe();
    }
  }
  return true;
}

void Trial::TakeText(const char* text, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) {
    if (text[i] == '\n') {
      TakeLine(std::exchange(m_line, {}));
    } else if (m_line.size() < kLongestLine) {
      m_line.push_back(text[i]);
    }
  }
}

void Trial::TakeLine(const std::string& line) {
  if (!TakeGame(line) && !line.empty()) m_last_words = line;
}

/// Counts a line "game N seed S won|lost|open R rounds" of the game that comes next.
bool Trial::TakeGame(const std::string& line) {
  std::istringstream words(line);
  std::string game;
  std::string seed_word;
  std::string outcome;
  std::string rounds_word;
  int number = 0;
  int seed = 0;
  int rounds = 0;
  words >> game >> number >> seed_word >> seed >> outcome >> rounds >> rounds_word;
  const bool whole = words && words.peek() == std::istringstream::traits_type::eof();
  if (!whole || game != "game" || seed_word != "seed" || rounds_word != "rounds") return false;
  if (number != m_progress.games + 1 || number > m_progress.seeds || rounds < 0) return false;
  int* count = FindCount(outcome);
  if (count == nullptr) return false;
  ++*count;
  m_progress.games = number;
  m_progress.rounds.push_back(rounds);
  if (outcome == "won" && !m_progress.first_won_seed) {
    m_progress.first_won_seed = seed;
    m_progress.replay_file = ReplayFile();
  }
  return true;
}

int* Trial::FindCount(const std::string& outcome) {
  if (outcome == "won") return &m_progress.won;
  if (outcome == "lost") return &m_progress.lost;
  return outcome == "open" ? &m_progress.open : nullptr;
}

void Trial::Finish() {
  if (!m_line.empty()) TakeLine(std::exchange(m_line, {}));
  const bool well = WIFEXITED(m_status) && WEXITSTATUS(m_status) == EXIT_SUCCESS;
  if (!well || m_progress.games != m_progress.seeds) {
    Fail(m_last_words.empty() ? "the program ended before its games were over" : m_last_words);
    return;
  }
  ClosePipe();
  m_progress.stage = Stage::kFinished;
}

void Trial::Fail(const std::string& message) {
  Stop();
  m_progress.stage = Stage::kFailed;
  m_progress.message = message;
}

void Trial::Stop() {
  ClosePipe();
  if (m_child > 0) {
    // The group: the command may be a script with children of its own.
    kill(-m_child, SIGKILL);
    while (waitpid(m_child, nullptr, 0) < 0 && errno == EINTR) {
    }
    m_child = -1;
  }
  if (IsRunning()) m_progress.stage = Stage::kIdle;
}

void Trial::ClosePipe() {
  if (m_pipe >= 0) close(m_pipe);
  m_pipe = -1;
}

}  // namespace ZOVEngine
