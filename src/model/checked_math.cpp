#include "model/checked_math.h"

#include <cmath>
#include <limits>

namespace trelvin {

void throwOverflow() {
    throw RuleError(RuleError::Kind::Overflow, "Preteceni (hodnota mimo povoleny rozsah)");
}

namespace {
template <typename T>
T narrowChecked(std::int64_t value) {
    if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max())
        throwOverflow();
    return static_cast<T>(value);
}
}  // namespace

std::int16_t checked16(std::int64_t value) { return narrowChecked<std::int16_t>(value); }
std::int32_t checked32(std::int64_t value) { return narrowChecked<std::int32_t>(value); }
std::uint8_t checkedU8(std::int64_t value) { return narrowChecked<std::uint8_t>(value); }

double roundHalfEven(double value) {
    if (!std::isfinite(value)) return value;
    const double floorValue = std::floor(value);
    const double fraction = value - floorValue;
    if (fraction > 0.5) return floorValue + 1.0;
    if (fraction < 0.5) return floorValue;
    return std::fmod(floorValue, 2.0) == 0.0 ? floorValue : floorValue + 1.0;
}

std::int16_t roundTo16(double value) {
    const double rounded = roundHalfEven(value);
    if (!std::isfinite(rounded) || rounded < -32768.0 || rounded > 32767.0) throwOverflow();
    return static_cast<std::int16_t>(rounded);
}

}  // namespace trelvin
