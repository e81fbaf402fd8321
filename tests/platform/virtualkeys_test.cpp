#include "platform/virtualkeys.h"

#include <SDL_keycode.h>
#include <SDL_scancode.h>
#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

constexpr std::int32_t kCyrillicTse = 0x446;

TEST(VirtualKeys, LettersAndDigitsAreTheirAsciiCodes) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_w, SDL_SCANCODE_W), 87u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_a, SDL_SCANCODE_A), 65u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_z, SDL_SCANCODE_Z), 90u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_0, SDL_SCANCODE_0), 48u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_1, SDL_SCANCODE_1), 49u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_9, SDL_SCANCODE_9), 57u);
}

TEST(VirtualKeys, LatinLettersGoByTheLayout) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_z, SDL_SCANCODE_W), static_cast<std::uint32_t>('Z'));
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_w, SDL_SCANCODE_Z), static_cast<std::uint32_t>('W'));
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_m, SDL_SCANCODE_SEMICOLON), static_cast<std::uint32_t>('M'));
}

TEST(VirtualKeys, PunctuationGoesByTheLayout) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_COMMA, SDL_SCANCODE_M), 188u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_SEMICOLON, SDL_SCANCODE_COMMA), 186u);
}

TEST(VirtualKeys, WhatTheLayoutCannotNameGoesByThePlace) {
  EXPECT_EQ(VirtualKeyFromSdl(kCyrillicTse, SDL_SCANCODE_W), static_cast<std::uint32_t>('W'));
  EXPECT_EQ(VirtualKeyFromSdl('&', SDL_SCANCODE_1), static_cast<std::uint32_t>('1'));
  EXPECT_EQ(VirtualKeyFromSdl(0xE9, SDL_SCANCODE_2), static_cast<std::uint32_t>('2'));
}

TEST(VirtualKeys, FunctionKeysRunFrom112) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F1, SDL_SCANCODE_F1), 112u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F5, SDL_SCANCODE_F5), 116u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F6, SDL_SCANCODE_F6), 117u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F10, SDL_SCANCODE_F10), 121u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F12, SDL_SCANCODE_F12), 123u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F13, SDL_SCANCODE_F13), 124u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_F24, SDL_SCANCODE_F24), 135u);
}

TEST(VirtualKeys, TheKeysOfGameAndEditorHaveTheirCodes) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_ESCAPE, SDL_SCANCODE_ESCAPE), 27u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_SPACE, SDL_SCANCODE_SPACE), 32u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_RETURN, SDL_SCANCODE_RETURN), 13u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_LEFT, SDL_SCANCODE_LEFT), 37u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_UP, SDL_SCANCODE_UP), 38u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_RIGHT, SDL_SCANCODE_RIGHT), 39u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_DOWN, SDL_SCANCODE_DOWN), 40u);
}

TEST(VirtualKeys, BothSidesOfAModifierHaveOneCode) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_LSHIFT, SDL_SCANCODE_LSHIFT), 16u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_RSHIFT, SDL_SCANCODE_RSHIFT), 16u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_LCTRL, SDL_SCANCODE_LCTRL), 17u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_RCTRL, SDL_SCANCODE_RCTRL), 17u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_LALT, SDL_SCANCODE_LALT), 18u);
}

TEST(VirtualKeys, TheNumberPadHasCodesOfItsOwn) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_KP_0, SDL_SCANCODE_KP_0), 96u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_KP_1, SDL_SCANCODE_KP_1), 97u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_KP_9, SDL_SCANCODE_KP_9), 105u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_KP_ENTER, SDL_SCANCODE_KP_ENTER), 13u);
}

TEST(VirtualKeys, AKeyWithoutACodeIsNone) {
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_UNKNOWN, SDL_SCANCODE_UNKNOWN), 0u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_UNKNOWN, -1), 0u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_UNKNOWN, SDL_NUM_SCANCODES), 0u);
  EXPECT_EQ(VirtualKeyFromSdl(SDLK_AUDIOMUTE, SDL_SCANCODE_AUDIOMUTE), 0u);
}

}  // namespace
}  // namespace ZOVEngine
