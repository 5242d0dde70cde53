#pragma once
// The strip under an exported map: the action's number with the count, its date and time, and
// the first line of its description, in sharp letters of the bands' colours.
#include <QPalette>
#include <QRect>
#include <QStringList>

#include "model/world_state.h"

class QPainter;

namespace trelvin {

// The strip's height in pixels, whatever the map's size.
int CaptionStripHeight();

// Its lines for the action at `position`, just applied to `world`.
QStringList CaptionLines(const WorldState& world, int position);

// Paints the lines into `strip`, each cut short with an ellipsis where it does not fit.
void PaintCaptionStrip(QPainter& painter, const QRect& strip, const QStringList& lines, const QPalette& palette);

}  // namespace trelvin
