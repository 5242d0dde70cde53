#include "export/webp_writer.h"

#include <QIODevice>

#include <webp/mux.h>

namespace trelvin {

WebpWriter::WebpWriter(QIODevice& device, QSize size, int delayMilliseconds)
    : device_(device), size_(size), delay_(delayMilliseconds) {
    WebPAnimEncoderOptions options;
    if (!WebPAnimEncoderOptionsInit(&options) || !WebPConfigInit(&config_)) throw ExportError(QStringLiteral("Knihovna WebP neodpovida hlavickam, se kterymi byl program sestaven"));
    options.anim_params.loop_count = 0;  // played again and again, as shared animations are
    // Every frame after the first is stored as what changed: key frames would encode the whole
    // map again and again.
    options.kmax = 0;
    config_.lossless = 1;
    config_.exact = 1;
    config_.image_hint = WEBP_HINT_GRAPH;
    config_.method = 1;
    config_.quality = 50;
    encoder_ = WebPAnimEncoderNew(size.width(), size.height(), &options);
    if (encoder_ == nullptr)
        throw ExportError(QStringLiteral("Animace WebP nemuze mit %1 x %2 bodu").arg(size.width()).arg(size.height()));
}

WebpWriter::~WebpWriter() { WebPAnimEncoderDelete(encoder_); }

void WebpWriter::fail() const {
    throw ExportError(QStringLiteral("Zapis WebP se nepodaril: ") + QString::fromLatin1(WebPAnimEncoderGetError(encoder_)));
}

void WebpWriter::add(const QImage& frame, const QRect&) {
    WebPPicture picture;
    if (!WebPPictureInit(&picture)) fail();
    picture.use_argb = 1;
    picture.width = size_.width();
    picture.height = size_.height();
    // The encoder copies the frame; it only reads these pixels.
    picture.argb = reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(frame.constBits()));
    picture.argb_stride = int(frame.bytesPerLine() / 4);
    if (!WebPAnimEncoderAdd(encoder_, &picture, timestamp_, &config_)) fail();
    timestamp_ += delay_;
}

void WebpWriter::finish() {
    if (!WebPAnimEncoderAdd(encoder_, nullptr, timestamp_, nullptr)) fail();
    WebPData data;
    WebPDataInit(&data);
    if (!WebPAnimEncoderAssemble(encoder_, &data)) fail();
    const auto size = qint64(data.size);
    const qint64 written = device_.write(reinterpret_cast<const char*>(data.bytes), size);
    WebPDataClear(&data);
    if (written != size)
        throw ExportError(QStringLiteral("Zapis WebP se nepodaril: ") + device_.errorString());
}

}  // namespace trelvin
