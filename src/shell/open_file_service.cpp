#include "shell/open_file_service.h"

#include <QFileDialog>
#include <QFileInfo>

namespace trelvin {

std::optional<QString> FileDialogService::chooseFile(const QString& previousPath) {
    const QString startDirectory =
        previousPath.isEmpty() ? QString() : QFileInfo(previousPath).absolutePath();
    const QString chosen = QFileDialog::getOpenFileName(parent_, QString(), startDirectory);
    if (chosen.isEmpty()) return std::nullopt;
    return chosen;
}

std::optional<QString> PresetFirstChoice::chooseFile(const QString& previousPath) {
    if (preset_) return std::exchange(preset_, std::nullopt);
    return later_.chooseFile(previousPath);
}

}  // namespace trelvin
