#pragma once

namespace ZOVEngine {

class GameObj;

// What is seen and heard of a shot. Each function takes the shot's object and does nothing where
// the part that it needs is missing.

/// The Light's strength; 0 without a Light.
float LightStrength(GameObj* shot);
void SetLight(GameObj* shot, float strength);
/// Has the Light flash for half a second; `at_rest` is its strength at rest.
void FlashLight(GameObj* shot, float at_rest);
/// One step of the flash's fading.
void FadeLight(GameObj* shot, float at_rest);

inline constexpr const char* kTrail = "bullet_trail";
/// Turns an object to `angle` at once (unit: degrees).
void TurnTo(GameObj* object, float angle);
/// Turns the trail behind a shot that flies at `angle` (unit: degrees), and with it the particles.
void TurnTrail(GameObj* shot, float angle);
/// Starts the sparks of a hit.
void EmitFeedback(GameObj* shot);
/// Starts the sprites of a hit.
void ShowBurst(GameObj* shot);

inline constexpr float kSmallShake = 3.0f;
inline constexpr float kBigShake = 6.0f;
/// Shakes the level's camera.
void ShakeCamera(GameObj* shot, float magnitude);

/// Plays the sound of a bounce, unless that of a hit has been asked for again while it plays.
/// Silent in a pause, in which the same contact comes in each step.
void PlayBounceSound(GameObj* shot, const char* name);
/// Silent in a pause, too.
void PlayHitSound(GameObj* shot);
/// True while the sound of a hit is heard.
bool IsHitHeard(GameObj* shot);

}  // namespace ZOVEngine
