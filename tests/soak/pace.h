#pragma once

#include <string>

/// Many games of a level, a seed each, for what one game cannot tell. Both print to the standard
/// output, in one line for each level, and need no window.

namespace carapace_test {

/// The head of the table of `PrintPace`.
void PrintPaceHead();
/// Lets the automatic player play `games` games with the seeds from 1 on, and prints a row: how
/// many it won, the rounds that a game took, and the median and the longest enemy phase and wait
/// after a turn of its own, in seconds. Returns the won games.
int PrintPace(const std::string& level, int games);

/// Plays `games` games in each of three ways: by the automatic player, by one that only skips, and
/// by one that presses and clicks at random. Each must be over within `rounds` rounds, or its turns
/// must still go on there: one whose turns stand still for a minute, outside control and pause,
/// fails. Prints how many were over, and every game that failed. True if none failed.
bool CheckEndings(const std::string& level, int games, int rounds);

}  // namespace carapace_test
