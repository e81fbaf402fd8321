#include "core/app/arguments.h"

#include <filesystem>
#include <fstream>
#include <ostream>

#include "core/statemachine.h"
#include "platform/windowsystem.h"

namespace ZOVEngine {
namespace {

constexpr const char* kUse =
    "usage: carapace [--level FILE | --edit]\n"
    "  --level FILE   starts in a level, such as "
    "\"Level Editor/Levels/Level01/Level01.json\"\n"
    "  --edit         opens the level editor\n"
    "  --help         prints this\n";

bool CanOpen(const std::string& path) {
  std::error_code ignored;
  return !std::filesystem::is_directory(path, ignored) && std::ifstream(path).is_open();
}

}  // namespace

StartRequest ReadArguments(const std::vector<std::string>& arguments, std::ostream& out,
                           std::ostream& errors) {
  if (arguments.empty()) return StartRequest::kPlay;
  if (arguments.size() == 1 && arguments[0] == "--help") {
    out << kUse;
    return StartRequest::kHelp;
  }
  if (arguments.size() == 1 && arguments[0] == "--edit") {
    g_settings_path = kEditorSettingsPath;
    return StartRequest::kPlay;
  }
  if (arguments.size() != 2 || arguments[0] != "--level") {
    errors << kUse;
    return StartRequest::kWrong;
  }
  if (!CanOpen(arguments[1])) {
    errors << "carapace: cannot open the level file \"" << arguments[1] << "\"\n";
    return StartRequest::kWrong;
  }
  g_start_state = kDefaultState;
  g_current_level_path = arguments[1];
  return StartRequest::kPlay;
}

}  // namespace ZOVEngine
