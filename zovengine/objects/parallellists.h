#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "jsonunserializer.h"
#include "objects/jsontrail.h"

namespace ZOVEngine {

/// Entry `index` of the list under `key`, which stands beside the list of names under `names_key`.
/// A list that is shorter than the names ends the program with a report: the file is unsound.
template <class T>
typename std::vector<T>::const_reference EntryBeside(const char* names_key,
                                                     const std::vector<T>& list, std::size_t index,
                                                     const char* key) {
  JsonTrail::EnterKey(key);
  if (index >= list.size()) FailReading(std::string("shorter than \"") + names_key + "\"");
  return list[index];
}

}  // namespace ZOVEngine
