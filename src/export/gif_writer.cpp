#include "export/gif_writer.h"

#include <algorithm>

#include <QIODevice>

#include <gif_lib.h>

#include "export/system_error_text.h"

namespace trelvin {

namespace {

constexpr std::size_t kPaletteColours = 255;  // and one index for transparency

int writeToDevice(GifFileType* gif, const GifByteType* bytes, int length) {
    auto* device = static_cast<QIODevice*>(gif->UserData);
    return int(device->write(reinterpret_cast<const char*>(bytes), length));
}

int squaredDistance(QRgb a, QRgb b) {
    const int r = qRed(a) - qRed(b), g = qGreen(a) - qGreen(b), bl = qBlue(a) - qBlue(b);
    return r * r + g * g + bl * bl;
}

}  // namespace

GifWriter::GifWriter(QIODevice& device, QSize size, const std::vector<QRgb>& colours, int delayMilliseconds)
    : device_(device), size_(size), delay_((delayMilliseconds + 5) / 10) {
    for (QRgb colour : colours) {
        if (palette_.size() == kPaletteColours) break;
        if (indexes_.emplace(colour, std::uint8_t(palette_.size())).second) palette_.push_back(colour);
    }
    if (palette_.empty()) palette_.push_back(qRgb(0, 0, 0));
    transparent_ = int(palette_.size());
    int error = 0;
    gif_ = EGifOpen(&device_, writeToDevice, &error);
    if (gif_ == nullptr) fail(error);
    EGifSetGifVersion(gif_, true);
    std::vector<GifColorType> entries(std::size_t(1) << GifBitSize(transparent_ + 1), GifColorType{0, 0, 0});
    for (std::size_t i = 0; i < palette_.size(); ++i)
        entries[i] = {GifByteType(qRed(palette_[i])), GifByteType(qGreen(palette_[i])), GifByteType(qBlue(palette_[i]))};
    ColorMapObject* map = GifMakeMapObject(int(entries.size()), entries.data());
    if (map == nullptr) throw std::bad_alloc();
    const int described = EGifPutScreenDesc(gif_, size.width(), size.height(), 8, 0, map);
    GifFreeMapObject(map);
    check(described);
    // Played again and again, as shared animations are.
    const GifByteType application[] = {'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0'};
    const GifByteType loopForever[] = {1, 0, 0};
    check(EGifPutExtensionLeader(gif_, APPLICATION_EXT_FUNC_CODE));
    check(EGifPutExtensionBlock(gif_, sizeof application, application));
    check(EGifPutExtensionBlock(gif_, sizeof loopForever, loopForever));
    check(EGifPutExtensionTrailer(gif_));
}

GifWriter::~GifWriter() {
    // Unfinished: the caller throws the file away.
    if (gif_ != nullptr) EGifCloseFile(gif_, nullptr);
}

void GifWriter::fail(int error) const {
    throw ExportError(QStringLiteral("Zapis GIF se nepodaril: ") +
                      (error == E_GIF_ERR_WRITE_FAILED ? SystemErrorText(device_)
                                                       : QStringLiteral("chyba knihovny GIF %1").arg(error)));
}

void GifWriter::check(int result) const {
    if (result == GIF_ERROR) fail(gif_->Error);
}

std::uint8_t GifWriter::indexOf(QRgb colour) {
    const auto found = indexes_.find(colour);
    if (found != indexes_.end()) return found->second;
    const auto nearest = std::min_element(palette_.begin(), palette_.end(), [colour](QRgb a, QRgb b) {
        return squaredDistance(a, colour) < squaredDistance(b, colour);
    });
    const auto index = std::uint8_t(nearest - palette_.begin());
    indexes_.emplace(colour, index);
    return index;
}

void GifWriter::add(const QImage& frame, const QRect& changed) {
    const bool first = shown_.empty();
    const QRect area = first ? QRect(QPoint(), size_) : changed.intersected(QRect(QPoint(), size_));
    if (first) shown_.assign(std::size_t(size_.width()) * std::size_t(size_.height()), 0);
    // The area's indexes; a pixel that shows the same as before is left transparent.
    std::vector<GifByteType> indexes(std::size_t(area.width()) * std::size_t(area.height()));
    QRect drawn;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
        GifByteType* out = indexes.data() + std::size_t(y - area.top()) * std::size_t(area.width());
        std::uint8_t* shown = shown_.data() + std::size_t(y) * std::size_t(size_.width());
        QRgb lastColour = ~line[area.left()];
        std::uint8_t lastIndex = 0;
        int from = -1, to = -1;
        for (int x = area.left(); x <= area.right(); ++x) {
            if (line[x] != lastColour) {
                lastColour = line[x];
                lastIndex = indexOf(lastColour);
            }
            if (!first && shown[x] == lastIndex) {
                out[x - area.left()] = GifByteType(transparent_);
                continue;
            }
            out[x - area.left()] = lastIndex;
            shown[x] = lastIndex;
            if (from < 0) from = x;
            to = x;
        }
        if (from >= 0) drawn = drawn.united(QRect(from, y, to - from + 1, 1));
    }
    const GifByteType none = GifByteType(transparent_);
    if (drawn.isEmpty())  // a frame that changes nothing still takes its turn: one transparent pixel
        putImage(QRect(0, 0, 1, 1), &none, 1, first);
    else
        putImage(drawn, &indexes[std::size_t(drawn.top() - area.top()) * std::size_t(area.width()) +
                                 std::size_t(drawn.left() - area.left())],
                 area.width(), first);
}

void GifWriter::putImage(const QRect& rect, const GifByteType* indexes, int stride, bool first) {
    GraphicsControlBlock control{DISPOSE_DO_NOT, false, delay_, first ? NO_TRANSPARENT_COLOR : transparent_};
    GifByteType extension[4];
    const std::size_t length = EGifGCBToExtension(&control, extension);
    check(EGifPutExtension(gif_, GRAPHICS_EXT_FUNC_CODE, int(length), extension));
    check(EGifPutImageDesc(gif_, rect.left(), rect.top(), rect.width(), rect.height(), false, nullptr));
    for (int y = 0; y < rect.height(); ++y)
        check(EGifPutLine(gif_, const_cast<GifByteType*>(indexes + std::size_t(y) * std::size_t(stride)), rect.width()));
}

void GifWriter::finish() {
    int error = 0;
    GifFileType* gif = std::exchange(gif_, nullptr);
    if (EGifCloseFile(gif, &error) == GIF_ERROR) fail(error);
}

}  // namespace trelvin
