#include "widgets/hover_note.h"

#include <QGuiApplication>
#include <QScreen>

namespace trelvin {

namespace {

// Below and right of the pointer, clear of its arrow.
constexpr QPoint kOffset(14, 18);

}  // namespace

HoverNote::HoverNote(QWidget* owner) : QLabel(owner, Qt::ToolTip | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("hoverNote"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setMargin(3);
    setTextFormat(Qt::RichText);
}

void HoverNote::showAt(QPoint at, const QString& text) {
    if (text != this->text()) {
        setText(text);
        adjustSize();
    }
    QPoint place = at + kOffset;
    if (const QScreen* screen = QGuiApplication::screenAt(at)) {
        // Where the screen ends, on the other side of the pointer.
        const QRect room = screen->availableGeometry();
        if (place.x() + width() > room.right()) place.setX(at.x() - kOffset.x() - width());
        if (place.y() + height() > room.bottom()) place.setY(at.y() - kOffset.y() / 2 - height());
        place.setX(std::max(place.x(), room.left()));
        place.setY(std::max(place.y(), room.top()));
    }
    move(place);
    show();
}

}  // namespace trelvin
