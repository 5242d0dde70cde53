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
    // The same asked of a row's text case-folded, which the list keeps because a search in any
    // case is much quicker there: exact for other text; for a field's name true also where the
    // name stands in another case, so the row's own text must then decide.
    bool mayMatchFolded(const QString& foldedRowText) const;

private:
    // Where `text` stands in `rowText` as a whole field name.
    static bool standsAlone(const QString& rowText, const QString& text);

    QString text_;
    QString folded_;
    bool namesField_ = false;
};

}  // namespace trelvin
