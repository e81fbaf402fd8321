#include "objects/safefile.h"

#include <unistd.h>

#include <cstdio>

namespace ZOVEngine {
namespace {

bool WriteAndSync(const std::string& path, const std::string& text) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  bool good = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  good = std::fflush(file) == 0 && good;
  good = fsync(fileno(file)) == 0 && good;
  return std::fclose(file) == 0 && good;
}

}  // namespace

bool ReplaceFile(const std::string& path, const std::string& text) {
  const std::string beside = path + ".new";
  if (WriteAndSync(beside, text) && std::rename(beside.c_str(), path.c_str()) == 0) return true;
  std::remove(beside.c_str());
  return false;
}

}  // namespace ZOVEngine
