#pragma once
// The steps a scale's labels fall on: 1, 2, 5, 10, 20, 50 and so on.

namespace trelvin {

// The smallest such step that is at least `least`.
inline long long RoundStepAtLeast(double least) {
    long long step = 1;
    for (long long magnitude = 1; step < least; magnitude *= 10)
        for (const long long factor : {1, 2, 5})
            if (step < least) step = factor * magnitude;
    return step;
}

}  // namespace trelvin
