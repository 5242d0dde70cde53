#pragma once
// How a long task (a load, a rebuild of the world) tells how far it has come; the answer
// false stops it.
#include <cstdint>

namespace trelvin {

class TaskProgress {
public:
    virtual ~TaskProgress() = default;
    virtual bool keepGoing(std::uint64_t done, std::uint64_t total) = 0;
};

}  // namespace trelvin
