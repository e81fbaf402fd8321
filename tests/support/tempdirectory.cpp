#include "support/tempdirectory.h"

#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace carapace_test {
namespace {

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

TempDirectory::TempDirectory() : m_before(std::filesystem::current_path()) {
  std::string name = (std::filesystem::temp_directory_path() / "carapace-test-XXXXXX").string();
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
