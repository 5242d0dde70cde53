#pragma once
// Each player's colour: the same in every chart and in the player list. A player is a place in
// the player table, counted from 1.
#include <QColor>
#include <QIcon>

namespace trelvin {

QColor PlayerColor(int place);

// A small square of the player's colour, for the entries of a list.
inline constexpr int kColorMarkPixels = 10;
QIcon PlayerColorMark(int place);

}  // namespace trelvin
