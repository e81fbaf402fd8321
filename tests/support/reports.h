#pragma once

#include <functional>
#include <string>
#include <vector>

#include "objects/gamecomponentbase.h"

namespace carapace_test {

/// What `body` writes to standard output.
std::string OutputOf(const std::function<void()>& body);

/// The text of the failure report that `body` makes, or an empty text when it makes none.
///
/// The report's box leaves `body` by an exception, so that a test can make many reports in one
/// process. That the real report never comes back is the subject of the death tests.
std::string ReportOf(const std::function<void()>& body);

/// The keys of a JSON object given as text, in their order, nested ones as "outer.inner". Entries
/// of arrays are walked too, without an index.
std::vector<std::string> KeysOf(const std::string& json);

/// What the component writes into its record, as the text of a JSON object.
std::string RecordOf(ZOVEngine::GameComponentBase& component);

/// Reads the text of a JSON object into the component.
void ReadRecord(const std::string& json, ZOVEngine::GameComponentBase& component);

}  // namespace carapace_test

/// Ends the statement with the engine's failure report on standard error, and the process with it.
#define EXPECT_REPORT_ENDS_PROGRAM(statement, regex) \
  EXPECT_DEATH(                                      \
      {                                              \
        ZOVEngine::SetAssertBox(nullptr);            \
        statement;                                   \
      },                                             \
      regex)
