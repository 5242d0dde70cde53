#pragma once
// A text that follows the pointer over a view for as long as the pointer rests there, and goes
// when it leaves. A tooltip would not do: it goes after a while, and a view that shows tooltips
// of its own hides it at the next rest of the pointer.
#include <QLabel>

namespace trelvin {

class HoverNote : public QLabel {
    Q_OBJECT

public:
    explicit HoverNote(QWidget* owner);

    // Shows `text` (rich text) beside the global point `at`, kept on that point's screen.
    void showAt(QPoint at, const QString& text);
};

}  // namespace trelvin
