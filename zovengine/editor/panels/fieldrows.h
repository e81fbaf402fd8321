#pragma once

#include <string>

#include "jsonunserializer.h"

namespace ZOVEngine {

/// Shows a stored field as a row by its JSON type: numbers, texts, flags, lists and vectors; keys
/// and names as lists to choose from. Returns true when it has changed `*value`, whose type it
/// keeps.
bool ShowFieldRow(const std::string& component, const std::string& key, rapidjson::Document* value);

/// The fields of an AudioSource: a block for each sound, to add and remove. `*fields` is all of
/// them.
bool ShowSoundRows(rapidjson::Document* fields);

/// Writes a label in the left column of the rows; the widget that follows takes the rest.
void ShowLabel(const std::string& label, const std::string& note);

}  // namespace ZOVEngine
