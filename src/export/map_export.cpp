#include "export/map_export.h"

#include <exception>
#include <memory>
#include <new>

#include <QImageWriter>
#include <QSaveFile>

#include "bridge/core_text.h"
#include "export/gif_writer.h"
#include "export/map_frames.h"
#include "export/webp_writer.h"
#include "export/whole_file.h"

namespace trelvin {

namespace {

// A map's few colours make a palette image: smaller, and written several times faster. Where
// the colours do not fit one (a small, smoothed map), the frame is written as it is.
class PngWriter : public FrameWriter {
public:
    explicit PngWriter(QIODevice& device) : writer_(&device, "png") {}
    void add(const QImage& frame, const QRect&) override {
        const QImage indexed = frame.convertToFormat(QImage::Format_Indexed8, Qt::AvoidDither);
        if (!writer_.write(sameColours(frame, indexed) ? indexed : frame)) throw ExportError(QStringLiteral("Zapis PNG se nepodaril: ") + writer_.errorString());
    }
    void finish() override {}

private:
    static bool sameColours(const QImage& frame, const QImage& indexed) {
        const QList<QRgb> table = indexed.colorTable();
        for (int y = 0; y < frame.height(); ++y) {
            const auto* pixels = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
            const uchar* indexes = indexed.constScanLine(y);
            for (int x = 0; x < frame.width(); ++x)
                if (indexes[x] >= table.size() || table[indexes[x]] != pixels[x]) return false;
        }
        return true;
    }

    QImageWriter writer_;
};

std::unique_ptr<FrameWriter> writerFor(ExportFormat format, QIODevice& device, MapFrames& frames, int delay) {
    switch (format) {
        case ExportFormat::Png: return std::make_unique<PngWriter>(device);
        case ExportFormat::Gif: return std::make_unique<GifWriter>(device, frames.image().size(), frames.colours(), delay);
        case ExportFormat::WebP: return std::make_unique<WebpWriter>(device, frames.image().size(), delay);
    }
    return nullptr;
}

ExportOutcome failed(const QString& text) { return {ExportOutcome::Status::Failed, text}; }

ExportOutcome run(const WorldState& replay, const ExportJob& job, TaskProgress* progress) {
    const std::optional<ExportFormat> format = FormatOfPath(job.path);
    if (!format) return failed(QStringLiteral("Soubor %1 nema priponu .png, .gif ani .webp").arg(job.path));
    for (const int action : {job.first, job.last})
        if (action < 1 || action > replay.lastEventIndex())
            return failed(QStringLiteral("Akce %1 lezi mimo replay, ktery ma akce 1 az %2").arg(action).arg(replay.lastEventIndex()));
    if (job.last < job.first) return failed(QStringLiteral("Posledni akce %1 je pred prvni %2").arg(job.last).arg(job.first));
    if (*format == ExportFormat::Png && job.last != job.first)
        return failed(QStringLiteral("Obrazek PNG ukazuje jedinou akci, animaci ukladejte jako GIF nebo WebP"));
    QSaveFile file(job.path);
    if (const QString failure = OpenWhole(file); !failure.isEmpty()) return failed(failure);

    MapFrames frames(replay, job.picture, job.palette);
    const auto keepGoing = [&] { return !progress || progress->keepGoing(std::uint64_t(frames.action()), std::uint64_t(job.last)); };
    if (!frames.start(job.first, progress, job.last)) return {ExportOutcome::Status::Cancelled, {}};
    const std::unique_ptr<FrameWriter> writer = writerFor(*format, file, frames, job.delayMilliseconds);
    writer->add(frames.image(), frames.changed());
    while (frames.action() < job.last) {
        if (!keepGoing()) return {ExportOutcome::Status::Cancelled, {}};
        frames.next();
        writer->add(frames.image(), frames.changed());
    }
    writer->finish();
    if (const QString failure = CommitWhole(file); !failure.isEmpty()) return failed(failure);
    return {};
}

}  // namespace

ExportOutcome ExportMap(const WorldState& replay, const ExportJob& job, TaskProgress* progress) {
    try {
        return run(replay, job, progress);
    } catch (const ExportError& error) {
        return failed(error.text());
    } catch (const std::bad_alloc&) {
        return failed(QStringLiteral("Nedostatek pameti"));
    } catch (const std::exception& error) {
        // The grid's limits come from the core, in its own encoding.
        return failed(FromCore(error.what()));
    }
}

}  // namespace trelvin
