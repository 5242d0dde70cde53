#pragma once
// A lossless animated WebP that loops forever: each frame is encoded by libwebp as the
// rectangle that changed (the whole of the first) and added to libwebp's animation muxer, which
// writes the file at the end. What the muxer keeps meanwhile is the compressed frames alone.
//
// libwebp's WebPAnimEncoder finds the changed rectangle itself by reading the whole canvas
// column by column several times a frame: on the largest map that is tens of milliseconds a
// frame, while the painter knows the rectangle already.
#include <QSize>

#include <webp/encode.h>

#include "export/frame_writer.h"

class QIODevice;
struct WebPMux;

namespace trelvin {

class WebpWriter : public FrameWriter {
public:
    WebpWriter(QIODevice& device, QSize size, int delayMilliseconds);
    ~WebpWriter() override;

    void add(const QImage& frame, const QRect& changed) override;
    void finish() override;

private:
    [[noreturn]] void fail(const QString& reason) const;

    QIODevice& device_;
    QSize size_;
    int delay_;
    bool first_ = true;
    WebPConfig config_;
    WebPMux* mux_ = nullptr;
};

}  // namespace trelvin
