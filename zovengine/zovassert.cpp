#include "zovassert.h"

// The runtime's assertion failure is declared only where assertions are on.
#undef NDEBUG
#include <cassert>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <sstream>

namespace ZOVEngine {
namespace {

constexpr const char* kLogFile = "log_file.log";
constexpr const char* kBoxTitle = "Error";

AssertBox& Box() {
  static AssertBox box;
  return box;
}

std::string LocalTime() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  const std::string text = std::ctime(&now);
  return text.substr(0, text.find('\n'));
}

std::string LogLine(const std::string& file, std::uint32_t line, const std::string& message) {
  std::ostringstream out;
  out << "[" << LocalTime() << "] " << message << " (" << file << ", Line " << line << ")";
  return out.str();
}

void ShowBox(const std::string& line) {
  const std::string text =
      "ZOV assertion is called: \n\n " + line + "\n Error logged in log_file.log ";
  if (Box()) {
    Box()(kBoxTitle, text);
  } else {
    std::cerr << text << std::endl;
  }
}

}  // namespace

void SetAssertBox(AssertBox box) {
  Box() = std::move(box);
}

// By value: what the caller passes may live in what the failure has broken.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void ZOVAssert(std::string file, std::uint32_t line, std::string message) {
  std::cout.flush();
  std::ofstream log(kLogFile, std::ios::out | std::ios::app);
  const std::string text = LogLine(file, line, message);
  log << text << "\n";
  log.close();
  ShowBox(text);
  // What assert(false) expands to, spelt out so that builds without assertions end here as well.
  __assert_fail("false", SourceFileName(__FILE__), static_cast<unsigned>(__LINE__),
                static_cast<const char*>(__func__));
}

}  // namespace ZOVEngine
