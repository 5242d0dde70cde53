// trelvin-export: the map of a replay as a PNG, or a stretch of it as an animated GIF or WebP,
// with the viewer's own painter and redraw, without a display. Prints nothing on success.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <QFile>
#include <QGuiApplication>

#include "bridge/core_text.h"
#include "export/export_command_line.h"
#include "export/map_export.h"
#include "export/web_page.h"
#include "model/replay_loader.h"
#include "render/designed_fonts.h"

namespace {

using namespace trelvin;

// One line on standard error, the way every failure of the program ends.
int failure(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u'\n', u' ');
    std::fprintf(stderr, "trelvin-export: %s\n", text.toUtf8().constData());
    return 1;
}

// Qt's own notes (such as a missing runtime folder) are not the program's to print.
void keepQtQuiet(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "trelvin-export: %s\n", message.toUtf8().constData());
}

// The viewer's web page with the replay's bytes inside, in place of a picture.
int exportPage(const ExportArguments& arguments, const WorldState& world) {
    if (arguments.first == 0 || arguments.first > world.eventCount)
        return failure(QStringLiteral("Akce %1 lezi mimo replay, ktery ma akce 1 az %2").arg(arguments.first).arg(world.eventCount));
    const QString written = WriteReplayPage(QFile::decodeName(QByteArray::fromStdString(arguments.output)),
                                            QFile::decodeName(QByteArray::fromStdString(arguments.replay)),
                                            WebPageMoment(arguments.first, arguments.picture.view));
    return written.isEmpty() ? 0 : failure(written);
}

int exportReplay(const ExportArguments& arguments) {
    WorldState world;
    const LoadOutcome loaded = LoadReplay(world, arguments.replay);
    if (!loaded.succeeded()) return failure(FromCore(loaded.failure));
    if (arguments.html) return exportPage(arguments, world);
    const ExportJob job{QFile::decodeName(QByteArray::fromStdString(arguments.output)), arguments.first,
                        arguments.last.value_or(arguments.first), arguments.delayMilliseconds,
                        arguments.picture, QGuiApplication::palette()};
    const ExportOutcome outcome = ExportMap(world, job);
    return outcome.status == ExportOutcome::Status::Written ? 0 : failure(outcome.failure);
}

}  // namespace

int main(int argc, char** argv) {
    const ReadArguments read = ReadExportArguments(std::vector<std::string>(argv, argv + argc));
    std::fputs(read.out.c_str(), stdout);
    std::fputs(read.error.c_str(), stderr);
    if (!read.arguments) return read.exitStatus;

    // No window is ever shown: without a platform chosen, none is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(keepQtQuiet);
    int qtArgc = 1;  // the arguments are read already: Qt must not take any of them as its own
    QGuiApplication application(qtArgc, argv);
    Q_INIT_RESOURCE(assets);
    RegisterDesignedFonts();
    try {
        return exportReplay(*read.arguments);
    } catch (const std::exception& error) {
        return failure(QString::fromLocal8Bit(error.what()));
    }
}
