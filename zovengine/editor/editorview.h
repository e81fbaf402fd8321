#pragma once

#include "core/base/vector3d.h"

namespace ZOVEngine {

class GameObj;

/// The width and the height of the picture in the window (unit: pixels).
inline constexpr int kPictureWidth = 1280;
inline constexpr int kPictureHeight = 720;

/// The unseen sprite that is drawn last, below the level's camera. Without it tiles show parts of
/// their textures whenever an animation is drawn last.
inline constexpr const char* kClosingSprite = "ui_closing";

/// The world position under the mouse in the picture that the editor shows inset: 1280 by 720
/// pixels that stand for 1920 by 1080 world units, at a place that the layout of the panels gives.
///
/// x and y are relative to the picture's middle, y upwards; z is the scale, 1.5 units a pixel.
/// Deliberately without the editor's camera. Needs a live ImGui context.
Vector3D EditorMousePosition();

/// Whether EditorMousePosition lies in the picture, its rim included.
bool MouseInViewport();

/// True for a part of what the game shows above its levels: a button or an element of the
/// interface, or a child of one, unless it belongs to a unit; not for the closing sprite.
bool IsGameInterface(const GameObj& object);

/// The local position of the editor's camera; the origin while there is none.
Vector3D EditorCameraPosition();
/// Makes the editor's camera at `position` and keeps it in `g_editor`.
void MakeEditorCamera(const Vector3D& position);

/// The point of the level, at depth 0, under the mouse: EditorMousePosition seen through the
/// editor's camera (unit: world units).
Vector3D EditorMouseWorld();
/// The world units that a pixel of the picture is wide.
float WorldUnitsPerPixel();
/// Where the point (x, y) of the level lies in the window; z is not used (unit: pixels).
Vector3D WorldToWindow(const Vector3D& world);

}  // namespace ZOVEngine
