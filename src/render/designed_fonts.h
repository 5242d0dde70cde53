#pragma once
// The fonts of the window. The design's fonts are Windows fonts; on Linux the window takes
// Liberation Sans (Debian's fonts-liberation2), whose widths at 10 pixels match the design's
// dialog font closely enough that every designed caption fits its box, and Comic Neue
// (fonts-comic-neue) for the action's time. Sizes are in pixels: the layout is in pixels at
// 15 twips each, and a size in points would grow with the screen's density setting alone.
#include <QString>

namespace trelvin {

inline constexpr const char* kDialogFontFamily = "Liberation Sans";
inline constexpr int kDialogFontPixels = 10;

// Registers look-alikes for the design's font names and for the dialog font, in order of
// preference, for systems that lack the first choice.
void RegisterDesignedFonts();

// The style of the designed area: its default font, the time's font, and frames whose caption
// sits on their top line, so the contents keep their designed places.
QString DesignedAreaStyle();

}  // namespace trelvin
