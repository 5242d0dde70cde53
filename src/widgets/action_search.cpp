#include "widgets/action_search.h"

#include <algorithm>

namespace trelvin {

namespace {

// Column characters run from "A" up through the code page; rows are digits.
bool isColumnCharacter(QChar c) { return !c.isDigit() && c.unicode() >= u'A'; }
bool isRowDigit(QChar c) { return c >= u'0' && c <= u'9'; }

}  // namespace

ActionSearch::ActionSearch(const QString& text) : text_(text.trimmed()), folded_(text_.toCaseFolded()) {
    namesField_ = text_.size() >= 2 && isColumnCharacter(text_.front()) &&
                  std::all_of(text_.begin() + 1, text_.end(), isRowDigit);
}

bool ActionSearch::matches(const QString& rowText) const {
    return namesField_ ? standsAlone(rowText, text_) : rowText.contains(text_, Qt::CaseInsensitive);
}

bool ActionSearch::mayMatchFolded(const QString& foldedRowText) const {
    return namesField_ ? standsAlone(foldedRowText, folded_) : foldedRowText.contains(folded_);
}

bool ActionSearch::standsAlone(const QString& rowText, const QString& text) {
    // A whole name: no column character or digit just before it, no digit just after it.
    for (qsizetype at = rowText.indexOf(text); at >= 0; at = rowText.indexOf(text, at + 1)) {
        const qsizetype end = at + text.size();
        const bool startsAlone = at == 0 || !(isColumnCharacter(rowText[at - 1]) || isRowDigit(rowText[at - 1]));
        const bool endsAlone = end == rowText.size() || !isRowDigit(rowText[end]);
        if (startsAlone && endsAlone) return true;
    }
    return false;
}

}  // namespace trelvin
