#include "export/webp_writer.h"

#include <QIODevice>

#include <webp/mux.h>

#include "export/system_error_text.h"

namespace trelvin {

WebpWriter::WebpWriter(QIODevice& device, QSize size, int delayMilliseconds)
    : device_(device), size_(size), delay_(delayMilliseconds) {
    if (!WebPConfigInit(&config_)) fail(QStringLiteral("knihovna neodpovida hlavickam, se kterymi byl program sestaven"));
    config_.lossless = 1;
    config_.exact = 1;
    config_.image_hint = WEBP_HINT_GRAPH;
    config_.method = 1;
    config_.quality = 50;
    mux_ = WebPMuxNew();
    if (mux_ == nullptr) throw std::bad_alloc();
    const WebPMuxAnimParams animation{0xFFFFFFFF, 0};  // played again and again, as shared animations are
    if (WebPMuxSetCanvasSize(mux_, size.width(), size.height()) != WEBP_MUX_OK ||
        WebPMuxSetAnimationParams(mux_, &animation) != WEBP_MUX_OK)
        fail(QStringLiteral("animace nemuze mit %1 x %2 bodu").arg(size.width()).arg(size.height()));
}

WebpWriter::~WebpWriter() { WebPMuxDelete(mux_); }

void WebpWriter::fail(const QString& reason) const {
    throw ExportError(QStringLiteral("Zapis WebP se nepodaril: ") + reason);
}

void WebpWriter::add(const QImage& frame, const QRect& changed) {
    const QRect whole(QPoint(), size_);
    QRect area = std::exchange(first_, false) ? whole : changed.intersected(whole);
    // A frame that changes nothing still takes its turn: its first pixel as it is.
    if (area.isEmpty()) area = QRect(0, 0, 1, 1);
    // A frame starts at even coordinates; the pixels it takes in beside are unchanged.
    area.setLeft(area.left() & ~1);
    area.setTop(area.top() & ~1);

    WebPPicture picture;
    if (!WebPPictureInit(&picture)) fail(QStringLiteral("knihovna neodpovida"));
    picture.use_argb = 1;
    picture.width = area.width();
    picture.height = area.height();
    // The encoder only reads the frame's pixels of the area.
    picture.argb = reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(frame.constScanLine(area.top()))) + area.left();
    picture.argb_stride = int(frame.bytesPerLine() / 4);
    WebPMemoryWriter encoded;
    WebPMemoryWriterInit(&encoded);
    picture.writer = WebPMemoryWrite;
    picture.custom_ptr = &encoded;
    const bool ok = WebPEncode(&config_, &picture) != 0;
    const WebPEncodingError error = picture.error_code;
    WebPPictureFree(&picture);
    if (!ok) {
        WebPMemoryWriterClear(&encoded);
        if (error == VP8_ENC_ERROR_OUT_OF_MEMORY) throw std::bad_alloc();
        fail(QStringLiteral("snimek nelze zakodovat (chyba %1)").arg(int(error)));
    }
    WebPMuxFrameInfo info{};
    info.bitstream = {encoded.mem, encoded.size};
    info.x_offset = area.left();
    info.y_offset = area.top();
    info.duration = delay_;
    info.id = WEBP_CHUNK_ANMF;
    info.dispose_method = WEBP_MUX_DISPOSE_NONE;
    info.blend_method = WEBP_MUX_NO_BLEND;
    const WebPMuxError pushed = WebPMuxPushFrame(mux_, &info, 1);
    WebPMemoryWriterClear(&encoded);
    if (pushed != WEBP_MUX_OK) fail(QStringLiteral("snimek nelze pridat (chyba %1)").arg(int(pushed)));
}

void WebpWriter::finish() {
    WebPData data;
    WebPDataInit(&data);
    if (WebPMuxAssemble(mux_, &data) != WEBP_MUX_OK) fail(QStringLiteral("animaci nelze slozit"));
    const auto size = qint64(data.size);
    const qint64 written = device_.write(reinterpret_cast<const char*>(data.bytes), size);
    WebPDataClear(&data);
    if (written != size) fail(SystemErrorText(device_));
}

}  // namespace trelvin
