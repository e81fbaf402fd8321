#include "platform/virtualkeys.h"

#include <SDL_keycode.h>
#include <SDL_scancode.h>

#include <array>

namespace ZOVEngine {

namespace {

struct KeyPair {
  std::int32_t sdl;
  std::uint32_t virtual_key;
};

constexpr KeyPair kPunctuationByLayout[] = {
    {SDLK_SEMICOLON, kVkSemicolon}, {SDLK_EQUALS, kVkEquals},
    {SDLK_COMMA, kVkComma},         {SDLK_MINUS, kVkMinus},
    {SDLK_PERIOD, kVkPeriod},       {SDLK_SLASH, kVkSlash},
    {SDLK_BACKQUOTE, kVkGrave},     {SDLK_LEFTBRACKET, kVkLeftBracket},
    {SDLK_BACKSLASH, kVkBackslash}, {SDLK_RIGHTBRACKET, kVkRightBracket},
    {SDLK_QUOTE, kVkApostrophe},
};

constexpr KeyPair kSingleKeysByPlace[] = {
    {SDL_SCANCODE_0, '0'},
    {SDL_SCANCODE_RETURN, kVkReturn},
    {SDL_SCANCODE_ESCAPE, kVkEscape},
    {SDL_SCANCODE_BACKSPACE, kVkBack},
    {SDL_SCANCODE_TAB, kVkTab},
    {SDL_SCANCODE_SPACE, kVkSpace},
    {SDL_SCANCODE_MINUS, kVkMinus},
    {SDL_SCANCODE_EQUALS, kVkEquals},
    {SDL_SCANCODE_LEFTBRACKET, kVkLeftBracket},
    {SDL_SCANCODE_RIGHTBRACKET, kVkRightBracket},
    {SDL_SCANCODE_BACKSLASH, kVkBackslash},
    {SDL_SCANCODE_NONUSHASH, kVkBackslash},
    {SDL_SCANCODE_SEMICOLON, kVkSemicolon},
    {SDL_SCANCODE_APOSTROPHE, kVkApostrophe},
    {SDL_SCANCODE_GRAVE, kVkGrave},
    {SDL_SCANCODE_COMMA, kVkComma},
    {SDL_SCANCODE_PERIOD, kVkPeriod},
    {SDL_SCANCODE_SLASH, kVkSlash},
    {SDL_SCANCODE_CAPSLOCK, kVkCapsLock},
    {SDL_SCANCODE_PRINTSCREEN, kVkPrintScreen},
    {SDL_SCANCODE_SCROLLLOCK, kVkScrollLock},
    {SDL_SCANCODE_PAUSE, kVkPause},
    {SDL_SCANCODE_INSERT, kVkInsert},
    {SDL_SCANCODE_HOME, kVkHome},
    {SDL_SCANCODE_PAGEUP, kVkPageUp},
    {SDL_SCANCODE_DELETE, kVkDelete},
    {SDL_SCANCODE_END, kVkEnd},
    {SDL_SCANCODE_PAGEDOWN, kVkPageDown},
    {SDL_SCANCODE_RIGHT, kVkRight},
    {SDL_SCANCODE_LEFT, kVkLeft},
    {SDL_SCANCODE_DOWN, kVkDown},
    {SDL_SCANCODE_UP, kVkUp},
    {SDL_SCANCODE_NUMLOCKCLEAR, kVkNumLock},
    {SDL_SCANCODE_KP_DIVIDE, kVkDivide},
    {SDL_SCANCODE_KP_MULTIPLY, kVkMultiply},
    {SDL_SCANCODE_KP_MINUS, kVkSubtract},
    {SDL_SCANCODE_KP_PLUS, kVkAdd},
    {SDL_SCANCODE_KP_ENTER, kVkReturn},
    {SDL_SCANCODE_KP_0, kVkNumpad0},
    {SDL_SCANCODE_KP_PERIOD, kVkDecimal},
    {SDL_SCANCODE_NONUSBACKSLASH, kVkExtraBackslash},
    {SDL_SCANCODE_APPLICATION, kVkMenu},
    {SDL_SCANCODE_LCTRL, kVkControl},
    {SDL_SCANCODE_RCTRL, kVkControl},
    {SDL_SCANCODE_LSHIFT, kVkShift},
    {SDL_SCANCODE_RSHIFT, kVkShift},
    {SDL_SCANCODE_LALT, kVkAlt},
    {SDL_SCANCODE_RALT, kVkAlt},
    {SDL_SCANCODE_LGUI, kVkLeftSystem},
    {SDL_SCANCODE_RGUI, kVkRightSystem},
};

/// A run of places whose virtual-key codes run along with them.
struct KeyRun {
  std::int32_t first;
  std::int32_t last;
  std::uint32_t first_virtual_key;
};

constexpr KeyRun kRunsByPlace[] = {
    {SDL_SCANCODE_A, SDL_SCANCODE_Z, 'A'},
    {SDL_SCANCODE_1, SDL_SCANCODE_9, '1'},
    {SDL_SCANCODE_F1, SDL_SCANCODE_F12, kVkF1},
    {SDL_SCANCODE_F13, SDL_SCANCODE_F24, kVkF13},
    {SDL_SCANCODE_KP_1, SDL_SCANCODE_KP_9, kVkNumpad0 + 1},
};

using PlaceTable = std::array<std::uint32_t, SDL_NUM_SCANCODES>;

constexpr PlaceTable MakePlaceTable() {
  PlaceTable table{};
  for (const KeyRun& run : kRunsByPlace) {
    for (std::int32_t place = run.first; place <= run.last; ++place) {
      table[static_cast<std::size_t>(place)] =
          run.first_virtual_key + static_cast<std::uint32_t>(place - run.first);
    }
  }
  for (const KeyPair& pair : kSingleKeysByPlace) {
    table[static_cast<std::size_t>(pair.sdl)] = pair.virtual_key;
  }
  return table;
}

constexpr PlaceTable kByPlace = MakePlaceTable();

}  // namespace

std::uint32_t VirtualKeyFromSdl(std::int32_t keycode, std::int32_t scancode) {
  if (keycode >= 'a' && keycode <= 'z') return static_cast<std::uint32_t>(keycode - 'a') + 'A';
  for (const KeyPair& pair : kPunctuationByLayout) {
    if (pair.sdl == keycode) return pair.virtual_key;
  }
  if (scancode < 0 || scancode >= SDL_NUM_SCANCODES) return kVkNone;
  return kByPlace[static_cast<std::size_t>(scancode)];
}

}  // namespace ZOVEngine
