#include "export/export_options.h"

#include <QFileInfo>

namespace trelvin {

std::optional<ExportFormat> FormatOfPath(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png")) return ExportFormat::Png;
    if (suffix == QLatin1String("gif")) return ExportFormat::Gif;
    if (suffix == QLatin1String("webp")) return ExportFormat::WebP;
    return std::nullopt;
}

}  // namespace trelvin
