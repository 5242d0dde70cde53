#pragma once
// An animated GIF that loops forever, with one global palette. Each frame after the first
// stores only the rectangle that changed, its unchanged pixels transparent. Colours missing
// from the palette (only where the frames can hold more than 255) become the nearest it has.
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "export/frame_writer.h"

class QIODevice;
struct GifFileType;

namespace trelvin {

class GifWriter : public FrameWriter {
public:
    // `colours`: every colour the frames can hold, the most important first; the palette keeps
    // the first 255 of them.
    GifWriter(QIODevice& device, QSize size, const std::vector<QRgb>& colours, int delayMilliseconds);
    ~GifWriter() override;

    void add(const QImage& frame, const QRect& changed) override;
    void finish() override;

private:
    std::uint8_t indexOf(QRgb colour);
    // One image of the animation: `rect` of the frame, its indexes rows of `stride` apart.
    void putImage(const QRect& rect, const std::uint8_t* indexes, int stride, bool first);
    [[noreturn]] void fail(int error) const;
    void check(int result) const;

    QIODevice& device_;
    GifFileType* gif_ = nullptr;
    QSize size_;
    int delay_;  // hundredths of a second
    std::vector<QRgb> palette_;
    std::unordered_map<QRgb, std::uint8_t> indexes_;
    int transparent_;
    // The palette index each pixel shows after the frames so far; empty before the first.
    std::vector<std::uint8_t> shown_;
};

}  // namespace trelvin
