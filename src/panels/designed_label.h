#pragma once
// A label of the designed area: its caption, alignment and place in twips within its parent,
// the text at the top of its box as the design's labels have it.
#include <QLabel>

#include "bridge/twips.h"

namespace trelvin {

inline QLabel* DesignedLabel(QWidget* parent, const char* caption, Qt::Alignment alignment, int left, int top,
                             int width, int height = 255) {
    auto* label = new QLabel(QString::fromLatin1(caption), parent);
    label->setAlignment(alignment | Qt::AlignTop);
    PlaceByTwips(label, left, top, width, height);
    return label;
}

}  // namespace trelvin
