#pragma once
#include <stdexcept>
#include <string>

namespace trelvin {

// A failure of one step of a rule, of a conversion or of a lookup. The text is the Czech
// description shown after the fixed prefix of a message box.
class RuleError : public std::runtime_error {
public:
    enum class Kind { Overflow, TypeMismatch, OutOfRange, DivisionByZero };
    RuleError(Kind kind, const std::string& description) : std::runtime_error(description), kind_(kind) {}
    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

}  // namespace trelvin
