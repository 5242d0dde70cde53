#pragma once
// What the action list's search looks for in the texts of a row. A field's name ("B3": a column
// character and a row number) is looked for as a whole name in the case it is written: B3 finds
// B3, but neither B37 nor b3, which on a map of more than 32 columns is another field. Any other
// text is looked for anywhere, in any case.
#include <QString>

namespace trelvin {

class ActionSearch {
public:
    explicit ActionSearch(const QString& text = {});

    bool isEmpty() const { return text_.isEmpty(); }
    // Whether the text is looked for as a field's name.
    bool namesField() const { return namesField_; }
    bool matches(const QString& rowText) const;

private:
    QString text_;
    bool namesField_ = false;
};

}  // namespace trelvin
