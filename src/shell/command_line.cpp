#include "shell/command_line.h"

#include <cstdio>

#include <QCommandLineParser>

#include "display/licence_text.h"

namespace trelvin {

namespace {

void print(std::FILE* stream, const QString& text) { std::fputs(text.toLocal8Bit().constData(), stream); }

}  // namespace

std::optional<ViewerArguments> ReadViewerArguments(const QStringList& arguments, int& exitStatus) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Viewer of recorded games (replays) of Trelvin: opens a replay and shows the world action by action."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The replay to open at start-up."),
                                 QStringLiteral("[FILE]"));
    if (!parser.parse(arguments) || parser.positionalArguments().size() > 1) {
        const QString problem = parser.positionalArguments().size() > 1
                                    ? QStringLiteral("Only one replay can be opened.")
                                    : parser.errorText();
        print(stderr, problem + u'\n' + parser.helpText());
        exitStatus = 2;
        return std::nullopt;
    }
    if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all"))) {
        print(stdout, parser.helpText());
        exitStatus = 0;
        return std::nullopt;
    }
    if (parser.isSet(version)) {
        print(stdout, QString::fromStdString(VersionText("trelvin-replay", TRELVIN_VERSION)));
        exitStatus = 0;
        return std::nullopt;
    }
    ViewerArguments result;
    if (!parser.positionalArguments().isEmpty()) result.file = parser.positionalArguments().front();
    return result;
}

}  // namespace trelvin
