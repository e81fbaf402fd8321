// Time from the start of a process to its first frame on the screen: the game against a bare window
// with an OpenGL context, by turns, on the display of the environment. And the time until the menu
// accepts a click when the splash is skipped, and from the click on a level to its first frame.
//
//   startup_bench [rounds] [game] [bare window] [first swap library]
//
// Without arguments: 11 rounds of the programs of this build tree, the game in the source tree,
// where its data lies. Prints the medians; fails when a program shows no frame within 30 seconds.
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr int kRounds = 11;
constexpr int kLimitMilliseconds = 30000;
// What is allowed (unit: milliseconds); the first two beyond the bare window's median.
constexpr double kAllowedFirstFrame = 200.0;
constexpr double kAllowedMenu = 2000.0;
constexpr double kAllowedLevel = 100.0;

using SteadyClock = std::chrono::steady_clock;

struct Pipe {
  int read_end = -1;
  int write_end = -1;
};

Pipe OpenPipe() {
  int ends[2];
  if (pipe(ends) != 0) {
    std::perror("pipe");
    std::exit(EXIT_FAILURE);
  }
  return {ends[0], ends[1]};
}

/// Becomes `program`, in the directory of the game's data, with the library in front of SDL.
[[noreturn]] void BecomeProgram(const std::string& program, const std::string& library,
                                const Pipe& told) {
  close(told.read_end);
  setenv("LD_PRELOAD", library.c_str(), 1);
  setenv("FIRST_SWAP_FD", std::to_string(told.write_end).c_str(), 1);
  if (std::freopen("/dev/null", "w", stdout) == nullptr || chdir(STARTUP_DIRECTORY) != 0)
    _exit(126);
  execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
  _exit(127);
}

/// True when a byte came within the limit; false on silence, and when the program ended without
/// one.
bool WaitForByte(int descriptor) {
  pollfd wait{descriptor, POLLIN, 0};
  char byte = 0;
  return poll(&wait, 1, kLimitMilliseconds) == 1 && read(descriptor, &byte, 1) == 1;
}

/// Milliseconds from the start of `program` to its first swap; nothing when it showed no frame.
std::optional<double> TimeToFirstFrame(const std::string& program, const std::string& library) {
  const Pipe told = OpenPipe();
  const SteadyClock::time_point start = SteadyClock::now();
  const pid_t child = fork();
  if (child == 0) BecomeProgram(program, library, told);
  close(told.write_end);
  const bool shown = child > 0 && WaitForByte(told.read_end);
  const std::chrono::duration<double, std::milli> elapsed = SteadyClock::now() - start;
  close(told.read_end);
  if (child > 0) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  if (!shown) return std::nullopt;
  return elapsed.count();
}

/// What the way through the menu took (unit: milliseconds).
struct MenuPath {
  double menu = 0.0;   ///< from the start of the process until the menu accepts a click
  double level = 0.0;  ///< from the click on a level to its first frame
};

/// Reads a moment of the monotonic clock, for which this waits; nothing when none came.
std::optional<std::int64_t> ReadMoment(int descriptor) {
  pollfd wait{descriptor, POLLIN, 0};
  std::int64_t moment = 0;
  if (poll(&wait, 1, kLimitMilliseconds) != 1) return std::nullopt;
  if (read(descriptor, &moment, sizeof moment) != sizeof moment) return std::nullopt;
  return moment;
}

MenuPath MeasureMenuPath() {
  const Pipe told = OpenPipe();
  const std::int64_t start = SteadyClock::now().time_since_epoch().count();
  const pid_t child = fork();
  if (child == 0) {
    setenv("MENU_PATH_FD", std::to_string(told.write_end).c_str(), 1);
    if (std::freopen("/dev/null", "w", stdout) == nullptr || chdir(STARTUP_DIRECTORY) != 0)
      _exit(126);
    execl(STARTUP_MENU_PATH, STARTUP_MENU_PATH, static_cast<char*>(nullptr));
    _exit(127);
  }
  close(told.write_end);
  const std::optional<std::int64_t> menu = ReadMoment(told.read_end);
  const std::optional<std::int64_t> click = ReadMoment(told.read_end);
  const std::optional<std::int64_t> level = ReadMoment(told.read_end);
  close(told.read_end);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  if (!menu || !click || !level) {
    std::fprintf(stderr, "the way through the menu did not reach a level\n");
    std::exit(EXIT_FAILURE);
  }
  return {static_cast<double>(*menu - start) * 1e-6, static_cast<double>(*level - *click) * 1e-6};
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

void Report(const char* name, const std::vector<double>& times) {
  const auto [least, most] = std::minmax_element(times.begin(), times.end());
  std::printf("%-12s median %7.1f ms   least %7.1f   most %7.1f\n", name, Median(times), *least,
              *most);
}

void Judge(const char* what, double time, double allowed) {
  std::printf("%-50s %7.1f ms (at most %.0f): %s\n", what, time, allowed,
              time <= allowed ? "met" : "MISSED");
}

void Measure(const std::string& program, const std::string& library, std::vector<double>* times) {
  const std::optional<double> time = TimeToFirstFrame(program, library);
  if (!time) {
    std::fprintf(stderr, "%s showed no frame\n", program.c_str());
    std::exit(EXIT_FAILURE);
  }
  times->push_back(*time);
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : kRounds;
  const std::string game = argc > 2 ? argv[2] : STARTUP_GAME;
  const std::string bare = argc > 3 ? argv[3] : STARTUP_BARE_WINDOW;
  const std::string library = argc > 4 ? argv[4] : STARTUP_FIRST_SWAP;

  std::vector<double> warm_up;
  Measure(bare, library, &warm_up);
  Measure(game, library, &warm_up);
  std::vector<double> bare_times;
  std::vector<double> game_times;
  for (int round = 0; round < rounds; ++round) {
    Measure(bare, library, &bare_times);
    Measure(game, library, &game_times);
  }
  std::vector<double> menu_times;
  std::vector<double> level_times;
  for (int round = 0; round < rounds; ++round) {
    const MenuPath path = MeasureMenuPath();
    menu_times.push_back(path.menu);
    level_times.push_back(path.level);
  }
  std::printf("process start to first swapped frame, %d rounds by turns\n", rounds);
  Report("bare window", bare_times);
  Report("game", game_times);
  Report("menu", menu_times);
  Report("level", level_times);
  Judge("first frame of the game, beyond the bare window", Median(game_times) - Median(bare_times),
        kAllowedFirstFrame);
  Judge("menu that accepts a click, beyond the bare window",
        Median(menu_times) - Median(bare_times), kAllowedMenu);
  Judge("first frame of a level, from the click", Median(level_times), kAllowedLevel);
  return EXIT_SUCCESS;
}
