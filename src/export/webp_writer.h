#pragma once
// A lossless animated WebP that loops forever, made by libwebp's animation encoder: it stores
// each frame after the first as the rectangle that changed, and shows a frame that changes
// nothing by lengthening the one before. The encoder keeps the compressed frames until the
// file is written whole at the end.
#include <QSize>

#include <webp/encode.h>

#include "export/frame_writer.h"

class QIODevice;
struct WebPAnimEncoder;

namespace trelvin {

class WebpWriter : public FrameWriter {
public:
    WebpWriter(QIODevice& device, QSize size, int delayMilliseconds);
    ~WebpWriter() override;

    void add(const QImage& frame, const QRect& changed) override;
    void finish() override;

private:
    [[noreturn]] void fail() const;

    QIODevice& device_;
    QSize size_;
    int delay_;
    int timestamp_ = 0;
    WebPConfig config_;
    WebPAnimEncoder* encoder_ = nullptr;
};

}  // namespace trelvin
