#pragma once
// What the map shows of each field in a way of viewing: the visibility of fields to a side,
// and the choice of one of the 16 field pictures.
#include <string_view>
#include <vector>

#include "model/world_state.h"
#include "view/view_mode.h"
#include "view/visibility.h"

namespace trelvin {

// Whether a way of viewing hides the armies and headquarters of players of `ownerSide`: seen
// as one side, the other side's are hidden. A side other than "les" and "louka" hides nothing.
bool ArmyHiddenFrom(ViewMode mode, std::string_view ownerSide);

// Picture indexes of the image list (1-based).
namespace picture {
inline constexpr int kHidden = 1;
inline constexpr int kFreeLand = 2;
inline constexpr int kHeadquarters = 15;
inline constexpr int kUnconquerable = 16;
inline constexpr int kCount = 16;
}  // namespace picture

// What a redraw of the map writes into the world before it chooses the pictures: every field's
// visible flag for the way of viewing, and "N" in the empty terrain of each owned field among
// fields 1 .. fieldCount that is visible then. Nothing else outside the executor writes the world.
void RevealForView(WorldState& world, ViewMode mode, int fieldCount);

// Picture of field k for the way of viewing, from the flags of the last RevealForView. A field
// outside the table shows as hidden.
int ChoosePicture(const WorldState& world, int k, ViewMode mode);

// The pictures of fields 1 .. fieldCount.
std::vector<int> ChoosePictures(const WorldState& world, ViewMode mode, int fieldCount);

}  // namespace trelvin
