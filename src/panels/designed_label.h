#pragma once
// A label of the designed area: its caption, alignment and place in twips within its parent,
// the text at the top of its box as the design's labels have it.
#include <QLabel>

#include "bridge/twips.h"
#include "panels/fitting_label.h"

namespace trelvin {

template <typename Label = QLabel>
Label* DesignedLabel(QWidget* parent, const char* caption, Qt::Alignment alignment, int left, int top, int width,
                     int height = 255) {
    auto* label = new Label(parent);
    label->setText(QString::fromLatin1(caption));
    label->setAlignment(alignment | Qt::AlignTop);
    PlaceByTwips(label, left, top, width, height);
    return label;
}

// A value's label, named `name`: a value too long for it is drawn smaller, never cut silently.
inline FittingLabel* DesignedValueLabel(QWidget* parent, const char* name, Qt::Alignment alignment, int left, int top,
                                        int width, int height = 255) {
    auto* label = DesignedLabel<FittingLabel>(parent, "", alignment, left, top, width, height);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

}  // namespace trelvin
