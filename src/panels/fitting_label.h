#pragma once
// A label that never cuts its text silently: a text too large for its box is drawn in a smaller
// size of the same font, down to a size still easy to read, and resting the pointer on the label
// shows the whole text. A text too large even then is cut with an ellipsis. The box keeps its
// place and size; a text that fits is drawn as any label draws it.
#include <QLabel>

namespace trelvin {

class FittingLabel : public QLabel {
    Q_OBJECT

public:
    // The smallest size a text is drawn in, in pixels.
    static constexpr int kSmallestPixels = 8;

    explicit FittingLabel(QWidget* parent = nullptr);

    // The font the text is drawn in: the label's own where the text fits in it, otherwise the
    // largest smaller size in which it fits, and at least the smallest.
    QFont fittedFont() const;
    // Whether the whole text fits the box in `font`.
    bool fitsIn(const QFont& font) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int textFlags() const;
    // The text as drawn in `font`: whole, or cut to fit with an ellipsis at its end.
    QString shownText(const QFont& font) const;
};

}  // namespace trelvin
