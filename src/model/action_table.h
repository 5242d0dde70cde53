#pragma once
// Every action a replay knows, in one table: its keyword, how the fields of its line fill the
// event, and what family it belongs to for listing and marking. The loader reads the fields
// from it, the executor finds the rule by the action it names, and the views sort events by
// its family. Keywords are compared exactly.
#include <array>
#include <cstddef>
#include <string_view>

namespace trelvin {

enum class Action {
    CreateWorld,
    CreateHq,
    Start,
    AddRounds,
    EndHoldFire,
    End,
    Attack,
    Move,
    Retreat,
    Buy,
    ConvertGround,
    Trade,
    Other,  // any keyword outside the table: the event only carries its time
};
inline constexpr std::size_t kActionCount = static_cast<std::size_t>(Action::Other) + 1;

// The event's slots a field of the line can fill.
enum class Operand { Place, Target, Amount, Success, Survivors, PlayerName, ArmyType };

// How a field is read: as it stands, as a whole number, or as the number it starts with. A
// number read into the success flag is true unless it is 0.
enum class Reading { Text, StrictNumber, LeadingNumber };

struct OperandField {
    Operand operand;
    Reading reading = Reading::Text;
};

// What the action list and the timeline call an action.
enum class ActionFamily { Lifecycle, Attack, Move, Economy, None };

struct ActionInfo {
    Action action;
    std::string_view keyword;  // "" for Other
    // The operands of its line, from field 2 on, in the order the line gives them.
    std::array<OperandField, 5> operands{};
    std::size_t operandCount = 0;
    ActionFamily family = ActionFamily::None;

    // Fields a line of this action needs: the time stamp, the keyword and the operands.
    std::size_t fieldCount() const { return 2 + operandCount; }
};

// The action a keyword names; Other for a keyword outside the table.
Action ActionOf(std::string_view keyword);

const ActionInfo& InfoOf(Action action);

inline std::string_view KeywordOf(Action action) { return InfoOf(action).keyword; }

// Whether a table of entries with an `action` has them in the order of Action, one each: tables
// indexed by the action check this when they are compiled.
template <typename Table>
constexpr bool InActionOrder(const Table& table) {
    if (table.size() != kActionCount) return false;
    for (std::size_t i = 0; i < table.size(); ++i)
        if (static_cast<std::size_t>(table[i].action) != i) return false;
    return true;
}

}  // namespace trelvin
