#include <cstddef>
#include <cstdint>
#include <string>

#include "support/fuzztargets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static carapace_test::SettingsTarget target;
  target.Run(std::string(data, data + size));
  return 0;
}
