#pragma once

#include <string>
#include <vector>

namespace ZOVEngine {

/// How a stored field is edited.
enum class FieldWidget {
  kPlain,    ///< by its JSON type
  kChoice,   ///< one of FieldChoices
  kTexture,  ///< a texture key
  kColour,   ///< parts from 0 to 1
  kFixed,    ///< shown, not edited
};

/// The bounds of a number; equal ones mean none.
struct NumberBounds {
  float min = 0.0f;
  float max = 0.0f;
};

FieldWidget FormOfField(const std::string& component, const std::string& key);
/// The values that a field of form kChoice may have, in the order of the list.
std::vector<std::string> FieldChoices(const std::string& component, const std::string& key);
/// Natural bounds of the numbers of a stored field.
NumberBounds BoundsOfField(const std::string& key);
/// What a field is counted in or used for, as a sentence; empty if its name says it.
std::string FieldNote(const std::string& component, const std::string& key);

/// The classes that a component of this class cannot be without on its object: the renderer and the
/// physics look them up.
std::vector<std::string> ComponentNeeds(const std::string& component);

}  // namespace ZOVEngine
