#pragma once

namespace ZOVEngine {

class GameController;
class UIElement;

/// What a level shows in play: texts, energy, the two weapons, the reach of a blast. All but the
/// reach are live while no screen covers the level and it has not ended; else they are dimmed or
/// hidden.

/// Whether no screen covers the level and it has not ended.
bool IsLevelLive(const GameController& game);

/// A text that is seen while the level is live.
void ShowText(UIElement* element);
/// The same for the number of the round, from 1.
void ShowRound(UIElement* element);
/// The bar of the energy that the selected player unit has left. Its left end eases into its place,
/// so it slides when another unit is selected. During an enemy's turn it stays as it was.
void ShowEnergy(UIElement* element);
/// The name of a weapon of the selected unit (0 or 1).
template <int weapon>
void NameWeapon(UIElement* element);
/// The gun of a weapon of the selected unit (0 or 1), bright if it is in hand.
template <int weapon>
void ShowWeapon(UIElement* element);
/// A circle around the cursor that shows the reach of the weapon in hand, if it has one.
void ShowReach(UIElement* element);

}  // namespace ZOVEngine
