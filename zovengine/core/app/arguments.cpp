#include "core/app/arguments.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <span>

#include "core/statemachine.h"
#include "platform/windowsystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kUse =
    "usage: carapace [--level FILE | --edit | --trial FILE [--seeds N] [--replay OUT]]\n"
    "  --level FILE   starts in a level, such as "
    "\"Level Editor/Levels/Level01/Level01.json\"\n"
    "  --edit         opens the level editor\n"
    "  --trial FILE   lets the automatic player play a level without a window\n"
    "    --seeds N      so many games, with the seeds from 1 to N (20)\n"
    "    --replay OUT   writes the inputs of the first game won to OUT\n"
    "  --help         prints this\n";

bool CanOpen(const std::string& path) {
  std::error_code ignored;
  return !std::filesystem::is_directory(path, ignored) && std::ifstream(path).is_open();
}

/// Reads a number from 1 to `most`, and nothing else.
bool ReadCount(const std::string& text, int most, int* count) {
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, *count);
  return error == std::errc() && rest == end && *count >= 1 && *count <= most;
}

/// Reads pairs of an option and its value.
bool ReadTrialOptions(std::span<const std::string> arguments, TrialRequest* trial) {
  if (arguments.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    const std::string& value = arguments[i + 1];
    if (arguments[i] == "--replay" && !value.empty()) {
      trial->replay_file = value;
    } else if (arguments[i] != "--seeds" || !ReadCount(value, kMostTrialGames, &trial->games)) {
      return false;
    }
  }
  return true;
}

/// The arguments by their form alone.
Arguments ReadForm(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return {};
  if (arguments.size() == 1 && arguments[0] == "--help") return {StartRequest::kHelp, {}};
  if (arguments.size() == 1 && arguments[0] == "--edit") return {};
  if (arguments.size() == 2 && arguments[0] == "--level") return {};
  Arguments read{StartRequest::kTrial, {}};
  if (arguments.size() < 2 || arguments[0] != "--trial" ||
      !ReadTrialOptions(std::span(arguments).subspan(2), &read.trial)) {
    return {StartRequest::kWrong, {}};
  }
  read.trial.level_file = arguments[1];
  return read;
}

}  // namespace

Arguments ReadArguments(const std::vector<std::string>& arguments, std::ostream& out,
                        std::ostream& errors) {
  Arguments read = ReadForm(arguments);
  if (read.request == StartRequest::kHelp) out << kUse;
  if (read.request == StartRequest::kWrong) errors << kUse;
  if (arguments.size() == 1 && arguments[0] == "--edit") g_settings_path = kEditorSettingsPath;
  if (arguments.size() < 2 || read.request == StartRequest::kWrong) return read;
  if (!CanOpen(arguments[1])) {
    errors << "carapace: cannot open the level file \"" << arguments[1] << "\"\n";
    return {StartRequest::kWrong, {}};
  }
  if (read.request == StartRequest::kPlay) {
    g_start_state = kDefaultState;
    g_current_level_path = arguments[1];
  }
  return read;
}

}  // namespace ZOVEngine
