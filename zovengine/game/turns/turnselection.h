#pragma once

namespace ZOVEngine {

class GameController;
class GameObj;

// The passing of control from unit to unit: light, ring, status and the place of undo.

/// Hands control of `game` to `unit`. A unit with the status "damaged" loses 1 of its health first;
/// if that kills it, its turn is over, the state asks for the next unit of its side, and the result
/// is false.
bool SelectUnit(GameController* game, GameObj* unit);
/// True while a selection ring of the selected unit closes in, which holds the turn, the firing
/// click and the movement keys. False without a selected unit.
bool IsRingClosing(const GameController& game);

}  // namespace ZOVEngine
