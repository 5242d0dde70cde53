// trelvin-replay [FILE]: the viewer; FILE is opened at start-up as if chosen in the dialog.
#include <memory>

#include <QApplication>
#include <QTimer>

#include "model/world_state.h"
#include "shell/frm_main.h"
#include "shell/message_service.h"
#include "shell/open_file_service.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    // Ties the window to the installed desktop entry and its icon.
    QApplication::setDesktopFileName(QStringLiteral("trelvin-replay"));
    trelvin::WorldState world;
    trelvin::MessageBoxService messages;
    trelvin::FileDialogService dialog;

    const QStringList arguments = QApplication::arguments();
    std::unique_ptr<trelvin::OpenFileService> commandLine;
    if (arguments.size() > 1)
        commandLine = std::make_unique<trelvin::PresetFirstChoice>(arguments.at(1), dialog);
    trelvin::OpenFileService& files = commandLine ? *commandLine : dialog;

    frmMain window(world, {messages, files, {}});
    messages.setParent(&window);
    dialog.setParent(&window);
    window.show();
    if (commandLine) QTimer::singleShot(0, &window, &frmMain::mnuOtevritItem_Click);
    return application.exec();
}
