#include "support/tempdirectory.h"

#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <utility>

#include "core/base/wholefile.h"

namespace carapace_test {
namespace {

std::string ReadWhole(const std::filesystem::path& path) {
  std::optional<std::string> text = ZOVEngine::ReadWholeFile(path);
  if (!text) throw std::runtime_error("cannot read " + path.string());
  return *std::move(text);
}

/// In memory where the system offers it: the engine waits for the disk at each save, tests need
/// not.
std::filesystem::path BaseDirectory() {
  constexpr const char* kMemory = "/dev/shm";
  return access(kMemory, W_OK | X_OK) == 0 ? kMemory : std::filesystem::temp_directory_path();
}

}  // namespace

TempDirectory::TempDirectory() : m_before(std::filesystem::current_path()) {
  std::string name = (BaseDirectory() / "carapace-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make " + name);
  m_path = name;
  std::filesystem::current_path(m_path);
}

TempDirectory::~TempDirectory() {
  std::error_code ignored;
  std::filesystem::current_path(m_before, ignored);
  std::filesystem::remove_all(m_path, ignored);
}

void TempDirectory::Write(const std::string& path, const std::string& text) const {
  const std::filesystem::path target = m_path / path;
  std::filesystem::create_directories(target.parent_path());
  std::ofstream(target, std::ios::binary) << text;
}

std::string TempDirectory::Read(const std::string& path) const {
  return ReadWhole(m_path / path);
}

bool TempDirectory::Has(const std::string& path) const {
  return std::filesystem::exists(m_path / path);
}

std::string ShippedFile(const std::string& path) {
  return ReadWhole(std::filesystem::path(CARAPACE_SOURCE_DIR) / path);
}

}  // namespace carapace_test
