// trelvin-replay [--help] [--version] [FILE]: the viewer; FILE is opened at start-up as if
// chosen in the dialog.
#include <cstdio>
#include <exception>
#include <memory>
#include <optional>

#include <QApplication>
#include <QTimer>

#include "shell/command_line.h"
#include "shell/frm_main.h"
#include "shell/message_service.h"
#include "shell/open_file_service.h"
#include "shell/qt_translations.h"

namespace {

// No failure escapes a handler: the core reports its own, and anything else that reaches the
// event loop is shown to the user, who can carry on, instead of ending the program.
class ViewerApplication : public QApplication {
public:
    using QApplication::QApplication;
    void setMessages(trelvin::MessageService* messages) { messages_ = messages; }

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::bad_alloc&) {
            report("Nedostatek pameti");
        } catch (const std::exception& error) {
            report(QString::fromLocal8Bit(error.what()));
        }
        return false;
    }

private:
    void report(const QString& text) {
        if (messages_) messages_->showMessage(QStringLiteral("Neocekavana chyba - ") + text);
    }

    trelvin::MessageService* messages_ = nullptr;
};

int run(int argc, char* argv[]) {
    // The arguments are read before the window system is asked for anything.
    int exitStatus = 0;
    std::optional<trelvin::ViewerArguments> arguments;
    {
        QCoreApplication reader(argc, argv);
        arguments = trelvin::ReadViewerArguments(QCoreApplication::arguments(), exitStatus);
    }
    if (!arguments) return exitStatus;

    ViewerApplication application(argc, argv);
    trelvin::InstallQtTranslations(application);
    // Ties the window to the installed desktop entry and its icon.
    QApplication::setDesktopFileName(QStringLiteral("io.github.trelvin.Replay"));
    trelvin::MessageBoxService messages;
    trelvin::FileDialogService dialog;

    std::unique_ptr<trelvin::OpenFileService> commandLine;
    if (arguments->file) commandLine = std::make_unique<trelvin::PresetFirstChoice>(*arguments->file, dialog);
    trelvin::OpenFileService& files = commandLine ? *commandLine : dialog;

    frmMain window({messages, files, {}});
    messages.setParent(&window);
    dialog.setParent(&window);
    application.setMessages(&messages);
    window.show();
    if (commandLine) QTimer::singleShot(0, &window, &frmMain::mnuOtevritItem_Click);
    return application.exec();
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "trelvin-replay: %s\n", error.what());
        return 1;
    }
}
