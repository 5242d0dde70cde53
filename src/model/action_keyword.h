#pragma once
// The action keywords of replay lines and of the events the loader inserts: one table that
// the loader, the executor and the views share. Keywords are compared exactly.
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

// The action a keyword names; Other for a keyword outside the table.
Action ActionOf(std::string_view keyword);

// The keyword of an action of the table ("" for Other).
std::string_view KeywordOf(Action action);

}  // namespace trelvin
