#pragma once
#include <stdexcept>

#include <QString>

namespace trelvin {

// A failure of an export, with its text for the user.
class ExportError : public std::runtime_error {
public:
    explicit ExportError(const QString& text) : std::runtime_error(text.toStdString()), text_(text) {}
    const QString& text() const { return text_; }

private:
    QString text_;
};

}  // namespace trelvin
