#include "model/field_addressing.h"

#include <cmath>
#include <optional>

#include "model/checked_math.h"
#include "model/number_reading.h"

namespace trelvin {

namespace {

constexpr int kCodeOfA = 'A';

int code(char c) { return static_cast<unsigned char>(c); }

bool isBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

// One 16-bit step of the distance: the value when it fits, nothing when it overflows.
std::optional<std::int16_t> fit16(std::int64_t value) {
    if (value < -32768 || value > 32767) return std::nullopt;
    return static_cast<std::int16_t>(value);
}

// The row of a plain name such as "C12": up to four digits and nothing else. Such a row reads
// the same as a whole number as through the number grammar, only without its cost.
std::optional<int> plainRow(std::string_view name) {
    if (name.size() < 2 || name.size() > 5) return std::nullopt;
    int row = 0;
    for (const char c : name.substr(1)) {
        if (c < '0' || c > '9') return std::nullopt;
        row = row * 10 + (c - '0');
    }
    return row;
}

}  // namespace

std::int16_t FieldIndex(const WorldState& world, std::string_view name) {
    if (const std::optional<int> row = plainRow(name)) {
        const std::int64_t zeroBased = std::int64_t{code(name.front()) - kCodeOfA} + std::int64_t{*row} * world.mapWidth;
        return checked16(std::int64_t{checked16(zeroBased)} + 1);
    }
    if (isBlank(name)) return 0;
    const auto row = readStrictDouble(name.substr(1));
    if (!row)
        throw RuleError(RuleError::Kind::TypeMismatch,
                        "Nespravny typ: radek pole '" + std::string(name) + "' neni cislo");
    const double column = code(name.front()) - kCodeOfA;
    const std::int16_t zeroBased = roundTo16(column + *row * world.mapWidth);
    return checked16(std::int64_t{zeroBased} + 1);
}

std::string ColumnCharacter(int column) {
    const int characterCode = kCodeOfA + column;
    if (characterCode < 0 || characterCode > 255)
        throw RuleError(RuleError::Kind::OutOfRange, "Sloupec mimo znakovou sadu");
    return std::string(1, static_cast<char>(characterCode));
}

std::string FieldName(int columns, int k) {
    if (columns == 0) throw RuleError(RuleError::Kind::DivisionByZero, "Mapa nema sloupce");
    const int column = (k - 1) % columns;
    const int row = (k - 1) / columns;
    return ColumnCharacter(column) + std::to_string(row);
}

std::int16_t FieldDistance(std::string_view a, std::string_view b, std::int16_t scale) {
    std::int16_t dx = 0;
    std::int16_t dy = 0;
    std::int16_t result = 0;
    if (!a.empty() && !b.empty()) dx = static_cast<std::int16_t>(code(a[0]) - code(b[0]));
    if (auto scaled = fit16(std::int64_t{dx} * scale)) dx = *scaled;

    const auto rowOf = [](std::string_view name) {
        const auto prefix = name.size() > 1 ? readNumberPrefix(name.substr(1)) : std::nullopt;
        return prefix ? prefix->value : 0.0;
    };
    const double rowDifference = roundHalfEven(rowOf(a) - rowOf(b));
    if (rowDifference >= -32768.0 && rowDifference <= 32767.0)
        dy = static_cast<std::int16_t>(rowDifference);
    if (auto scaled = fit16(std::int64_t{dy} * scale)) dy = *scaled;

    if (auto absolute = fit16(std::abs(std::int64_t{dx}))) dx = *absolute;
    if (auto absolute = fit16(std::abs(std::int64_t{dy}))) dy = *absolute;

    const auto dxSquared = fit16(std::int64_t{dx} * dx);
    const auto dySquared = fit16(std::int64_t{dy} * dy);
    if (dxSquared && dySquared) {
        if (auto sum = fit16(std::int64_t{*dxSquared} + *dySquared))
            result = static_cast<std::int16_t>(std::sqrt(static_cast<double>(*sum)));
    }
    return result;
}

std::int16_t PlayerIndex(const WorldState& world, std::string_view name) {
    for (int i = 1; i <= world.lastPlayerIndex(); ++i)
        if (world.players[i].name == name) return static_cast<std::int16_t>(i);
    return 0;
}

}  // namespace trelvin
