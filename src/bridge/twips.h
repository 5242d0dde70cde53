#pragma once
// The layout is given in twips; the window draws in logical pixels at 15 twips each and
// leaves the device pixel ratio to Qt.
#include <QRect>

class QWidget;

namespace trelvin {

inline constexpr int kTwipsPerPixel = 15;

constexpr int TwipsToPixels(int twips) { return twips / kTwipsPerPixel; }
constexpr int PixelsToTwips(int pixels) { return pixels * kTwipsPerPixel; }

QRect TwipsToPixels(const QRect& twips);

// Places a widget in its container at a rectangle given in twips.
void PlaceByTwips(QWidget* widget, int left, int top, int width, int height);

}  // namespace trelvin
