#include "bridge/twips.h"

#include <QWidget>

namespace trelvin {

QRect TwipsToPixels(const QRect& twips) {
    return QRect(TwipsToPixels(twips.left()), TwipsToPixels(twips.top()),
                 TwipsToPixels(twips.width()), TwipsToPixels(twips.height()));
}

void PlaceByTwips(QWidget* widget, int left, int top, int width, int height) {
    widget->setGeometry(TwipsToPixels(QRect(left, top, width, height)));
}

}  // namespace trelvin
