#pragma once

#include <filesystem>
#include <string>

namespace carapace_test {

/// A new empty directory that is the working directory for this object's life, and is then removed.
class TempDirectory {
 public:
  TempDirectory();
  ~TempDirectory();
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;

  /// Writes a file, and the folders on its way, relative to the directory.
  void Write(const std::string& path, const std::string& text) const;
  std::string Read(const std::string& path) const;
  bool Has(const std::string& path) const;
  std::filesystem::path Path() const { return m_path; }

 private:
  std::filesystem::path m_before;
  std::filesystem::path m_path;
};

/// The repository's own file of this path, whole.
std::string ShippedFile(const std::string& path);

}  // namespace carapace_test
