#include "editor/panels/textfield.h"

#include <imgui.h>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace ZOVEngine {
namespace {

constexpr std::size_t kTextRoom = 5000;
constexpr float kHoverWidth = 420.0f;  // (unit: pixels)

bool EqualIgnoringCase(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

}  // namespace

bool TextField(const char* label, std::string* text, const char* hint, int flags) {
  std::string room = *text;
  room.resize(std::max(kTextRoom, text->size() + 1));
  if (!ImGui::InputTextWithHint(label, hint, room.data(), room.size(), flags)) return false;
  room.resize(std::strlen(room.c_str()));
  *text = room;
  return true;
}

bool ContainsIgnoringCase(const std::string& text, const std::string& part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(), EqualIgnoringCase) !=
             text.end() ||
         part.empty();
}

void HoverText(const std::string& text) {
  if (text.empty() || !ImGui::IsItemHovered()) return;
  ImGui::BeginTooltip();
  ImGui::PushTextWrapPos(kHoverWidth);
  ImGui::TextUnformatted(text.c_str());
  ImGui::PopTextWrapPos();
  ImGui::EndTooltip();
}

}  // namespace ZOVEngine
