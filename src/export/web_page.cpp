#include "export/web_page.h"

#include <filesystem>
#include <system_error>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "export/system_error_text.h"
#include "export/whole_file.h"

#ifndef TRELVIN_WEB_PAGE
#define TRELVIN_WEB_PAGE "/usr/share/trelvin-replay/web/trelvin-replay.html"
#endif

namespace trelvin {

namespace {

// The page a program of the build tree uses is the build's own; an installed program's, the
// installed one.
std::filesystem::path webPageFile() {
#if defined(TRELVIN_BUILD_TREE) && defined(TRELVIN_BUILT_WEB_PAGE)
    std::error_code error;
    const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe", error);
    const std::filesystem::path tree = std::filesystem::weakly_canonical(TRELVIN_BUILD_TREE, error);
    if (!program.empty() && program.string().starts_with(tree.string() + "/")) return TRELVIN_BUILT_WEB_PAGE;
#endif
    return TRELVIN_WEB_PAGE;
}

QByteArray attribute(QByteArray text) {
    return text.replace('&', "&amp;").replace('"', "&quot;").replace('<', "&lt;").replace('>', "&gt;");
}

// The whole file, or why it could not be read.
QString readAll(const QString& path, QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return QStringLiteral("soubor %1 nelze precist: %2").arg(path, SystemErrorText(file));
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return QStringLiteral("soubor %1 nelze precist: %2").arg(path, SystemErrorText(file));
    return {};
}

}  // namespace

QString WriteReplayPage(const QString& output, const QString& replayPath, const std::string& moment) {
    const QString pagePath = QString::fromStdString(webPageFile().string());
    if (!QFileInfo::exists(pagePath))
        return QStringLiteral("webova stranka prohlizece neni nainstalovana (chybi %1)").arg(pagePath);
    QByteArray page, replay;
    if (QString failure = readAll(pagePath, page); !failure.isEmpty()) return failure;
    const qsizetype script = page.indexOf("<script type=\"module\">");
    if (script < 0) return QStringLiteral("soubor %1 neni webova stranka prohlizece").arg(pagePath);
    if (QString failure = readAll(replayPath, replay); !failure.isEmpty()) return failure;

    const QByteArray carrier = "<script type=\"application/x-trelvin-replay\" id=\"embedded-replay\" data-name=\"" +
                               attribute(QFileInfo(replayPath).fileName().toUtf8()) + "\" data-moment=\"" +
                               attribute(QByteArray::fromStdString(moment)) + "\">" + replay.toBase64() +
                               "</script>\n";
    QSaveFile file(output);
    if (QString failure = OpenWhole(file); !failure.isEmpty()) return failure;
    file.write(page.left(script));
    file.write(carrier);
    file.write(page.mid(script));
    return CommitWhole(file);
}

}  // namespace trelvin
