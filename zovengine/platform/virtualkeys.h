#pragma once

#include <cstdint>

namespace ZOVEngine {

/// The virtual-key codes that the engine itself names, the same on every platform. A letter's code
/// is the ASCII code of its upper case, a digit's its own.
enum VirtualKey : std::uint32_t {
  kVkNone = 0,
  kVkLeftButton = 1,
  kVkRightButton = 2,
  kVkBack = 8,
  kVkTab = 9,
  kVkReturn = 13,
  kVkShift = 16,
  kVkControl = 17,
  kVkAlt = 18,
  kVkPause = 19,
  kVkCapsLock = 20,
  kVkEscape = 27,
  kVkSpace = 32,
  kVkPageUp = 33,
  kVkPageDown = 34,
  kVkEnd = 35,
  kVkHome = 36,
  kVkLeft = 37,
  kVkUp = 38,
  kVkRight = 39,
  kVkDown = 40,
  kVkPrintScreen = 44,
  kVkInsert = 45,
  kVkDelete = 46,
  kVkA = 'A',
  kVkB = 'B',
  kVkD = 'D',
  kVkF = 'F',
  kVkG = 'G',
  kVkH = 'H',
  kVkQ = 'Q',
  kVkR = 'R',
  kVkS = 'S',
  kVkW = 'W',
  kVkLeftSystem = 91,
  kVkRightSystem = 92,
  kVkMenu = 93,
  kVkNumpad0 = 96,
  kVkMultiply = 106,
  kVkAdd = 107,
  kVkSubtract = 109,
  kVkDecimal = 110,
  kVkDivide = 111,
  kVkF1 = 112,
  kVkF5 = 116,
  kVkF6 = 117,
  kVkF7 = 118,
  kVkF8 = 119,
  kVkF9 = 120,
  kVkF10 = 121,
  kVkF13 = 124,
  kVkNumLock = 144,
  kVkScrollLock = 145,
  kVkSemicolon = 186,
  kVkEquals = 187,
  kVkComma = 188,
  kVkMinus = 189,
  kVkPeriod = 190,
  kVkSlash = 191,
  kVkGrave = 192,
  kVkLeftBracket = 219,
  kVkBackslash = 220,
  kVkRightBracket = 221,
  kVkApostrophe = 222,
  kVkExtraBackslash = 226,
};

/// The virtual-key code of a key, given SDL's code of what the keyboard layout has on it and SDL's
/// code of its place; kVkNone for a key without one.
///
/// A Latin letter and the common punctuation go by the layout, so W is the key that types a w. All
/// else, digits included, goes by the place, so that every layout has every code.
std::uint32_t VirtualKeyFromSdl(std::int32_t keycode, std::int32_t scancode);

}  // namespace ZOVEngine
