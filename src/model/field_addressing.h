#pragma once
// Field names ("C4": a column character, then the row from 0) and the lookups by name.
#include <cstdint>
#include <string>
#include <string_view>

#include "model/world_state.h"

namespace trelvin {

// Index from 1 of a named field; 0 for a blank name. The name is not compared with the map:
// a name outside it gives an index outside it. Throws a type mismatch when the row part is no
// number, an overflow when the index leaves the signed 16-bit range.
std::int16_t FieldIndex(const WorldState& world, std::string_view name);

// Name of field k of a map `columns` wide: the character "A" + (k - 1) mod columns, then
// (k - 1) div columns. Throws when the map has no columns or the column character would pass
// code 255.
std::string FieldName(int columns, int k);
inline std::string FieldName(const WorldState& world, int k) { return FieldName(world.mapWidth, k); }

// Column character of 0-based column c ("A" for 0); codes past "Z" continue the code page, up
// to its last character: a map of more columns cannot name them.
std::string ColumnCharacter(int column);
inline constexpr int kNameableColumns = 256 - 'A';

// Euclidean distance of two named fields, each difference scaled, cut to a whole number.
// A step that overflows 16 bits is skipped; the result is 0 when nothing could be computed.
std::int16_t FieldDistance(std::string_view a, std::string_view b, std::int16_t scale);

// First player whose name matches exactly; 0 when none does.
std::int16_t PlayerIndex(const WorldState& world, std::string_view name);

}  // namespace trelvin
