#pragma once

#include <set>
#include <string>
#include <vector>

#include "audio/mixer.h"
#include "editor/panels/assetlist.h"

namespace ZOVEngine {

class LevelEditor;

/// The images and sounds of the game, and where dropped files go.
///
/// Images have a thumbnail; a click on a sound plays it, the next one stops it. The folder of
/// dropped files is chosen here, within "Resources"; a file can be fetched by its path too, since
/// the window cannot be dropped on while another one has the focus. Files that came while the panel
/// was there are marked as new.
class AssetsPanel {
 public:
  /// Fills the window that the layout has begun.
  void Show(LevelEditor& editor);

 private:
  void Refresh();
  void ShowFolder(LevelEditor& editor);
  void ShowImport(LevelEditor& editor);
  void ShowImages();
  void ShowImage(const AssetFile& file);
  void ShowSounds();
  void Hear(const AssetFile& file);
  bool IsNew(const AssetFile& file) const { return !m_known.contains(file.path); }

  std::vector<AssetFile> m_images, m_sounds;
  std::set<std::string> m_known;  ///< the paths of the files that were there at the beginning
  bool m_begun = false;
  int m_age = 0;  ///< of the lists (unit: frames)
  std::string m_search;
  std::string m_folder;      ///< as it is typed
  std::string m_folder_now;  ///< the one in force when it was typed
  std::string m_import;      ///< the path of a file, as it is typed
  bool m_sounds_shown = false;
  StreamHandle m_stream = kNoStream;
};

/// Makes `folder` the one that dropped files go to. False, with a line in the log, if it is no
/// folder within "Resources".
bool ChooseAssetFolder(LevelEditor& editor, const std::string& folder);
/// Copies a file to the folder of dropped files, as a drop of it does. False, with a line in the
/// log, if it is no image and no sound, cannot be read, or its name is taken.
bool ImportFile(LevelEditor& editor, const std::string& path);

}  // namespace ZOVEngine
