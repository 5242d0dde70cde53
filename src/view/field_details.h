#pragma once
// What the "Info o policku" panel shows of one named field.
#include <optional>
#include <string>
#include <string_view>

#include "model/world_state.h"
#include "view/field_pictures.h"

namespace trelvin {

// True when the name denotes a field of the grid: its column character lies within the
// columns and its row, read as a text box reads numbers, within the rows.
bool IsValidFieldName(const WorldState& world, std::string_view name);

// The four value labels (Windows-1250 texts).
struct FieldInspection {
    std::string terrain;    // lblPTyp
    std::string owner;      // lblPVlastnik
    std::string armyType;   // lblPTypArmady
    std::string armyCount;  // lblPPArmady
};

// The labels for a typed or clicked name; empty when the panel must stay as it is (the name
// is no field of the grid, or names a field the row reading cannot turn into an index).
std::optional<FieldInspection> InspectField(const WorldState& world, std::string_view name,
                                            ViewMode mode);

}  // namespace trelvin
