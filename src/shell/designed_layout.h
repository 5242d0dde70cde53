#pragma once
// The window's client area as designed, in twips, below the menu bar.
namespace trelvin {

inline constexpr int kDesignedClientWidth = 6630;
inline constexpr int kDesignedClientHeight = 6375;
// The strip where the slide-show row was designed, which start-up removes.
inline constexpr int kSlideRowHeight = 375;

}  // namespace trelvin
