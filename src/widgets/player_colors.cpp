#include "widgets/player_colors.h"

#include <array>

#include <QPainter>
#include <QPixmap>

namespace trelvin {

namespace {

// Twelve colours told apart at a glance.
constexpr std::array<QRgb, 12> kColors{0x1f77b4, 0xd62728, 0x2ca02c, 0xff7f0e, 0x9467bd, 0x8c564b,
                                       0xe377c2, 0x17becf, 0xbcbd22, 0x393b79, 0x7f7f7f, 0xad494a};

}  // namespace

QColor PlayerColor(int place) {
    const int index = place - 1;
    if (index >= 0 && index < static_cast<int>(kColors.size())) return QColor::fromRgb(kColors[std::size_t(index)]);
    // Beyond twelve players, hues spread by the golden angle.
    return QColor::fromHsv(static_cast<int>(index * 137.508) % 360, 200, 190);
}

QIcon PlayerColorMark(int place) {
    QPixmap mark(kColorMarkPixels, kColorMarkPixels);
    mark.fill(PlayerColor(place));
    QPainter painter(&mark);
    painter.setPen(PlayerColor(place).darker(160));
    painter.drawRect(0, 0, kColorMarkPixels - 1, kColorMarkPixels - 1);
    return QIcon(mark);
}

}  // namespace trelvin
