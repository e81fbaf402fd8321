#include <filesystem>

#include "editor/levelrules.h"
#include "jsonunserializer.h"
#include "ui/buttons/clickhandlers.h"
#include "ui/elements/behaviours.h"

namespace ZOVEngine {
namespace {

constexpr const char* kGraphics = "Resources/Textures/graphics.json";
constexpr const char* kCollisions = "Resources/CollisionInfo.json";
constexpr const char* kMusic = "Resources/Sound/BGM";
constexpr const char* kEffects = "Resources/Sound/SFX";
constexpr const char* kArchetypes = "Resources/Archetypes/GameObjects";

/// The names of the files of a folder.
NameSet FilesIn(const char* folder) {
  NameSet names;
  std::error_code failed;
  std::filesystem::directory_iterator file(folder, failed);
  for (; !failed && file != std::filesystem::directory_iterator(); file.increment(failed)) {
    names.insert(file->path().filename().string());
  }
  return names;
}

/// The texts of a list in a JSON file.
std::vector<std::string> ListIn(const char* path, const char* key) {
  std::vector<std::string> texts;
  std::error_code failed;
  if (!std::filesystem::is_regular_file(path, failed)) return texts;
  JsonDocument document;
  document.Open(path);
  document.Parse();
  const Value* list = FindValue(document.Root(), key);
  if (list == nullptr || !list->IsArray()) return texts;
  for (const Value& text : list->GetArray()) {
    if (text.IsString()) texts.emplace_back(text.GetString(), text.GetStringLength());
  }
  return texts;
}

template <class Table>
NameSet KeysIn(const Table& table) {
  NameSet keys;
  for (const auto& [key, function] : table) keys.insert(key);
  return keys;
}

}  // namespace

KnownAssets ReadKnownAssets() {
  KnownAssets known;
  for (const std::string& path : ListIn(kGraphics, "texPath")) {
    known.textures.insert(std::filesystem::path(path).stem().string());
  }
  for (const std::string& name : ListIn(kCollisions, "str_bm")) known.categories.insert(name);
  known.music = FilesIn(kMusic);
  known.effects = FilesIn(kEffects);
  for (const std::string& file : FilesIn(kArchetypes)) {
    const std::size_t dot = file.find('.');
    if (dot != std::string::npos && file.substr(dot) == ".json") {
      known.archetypes.insert(file.substr(0, dot));
    }
  }
  known.handlers = KeysIn(ClickHandlers());
  known.behaviours = KeysIn(ElementBehaviours());
  return known;
}

}  // namespace ZOVEngine
