#include "shell/message_service.h"

#include <QMessageBox>

namespace trelvin {

void MessageBoxService::showMessage(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QString::fromLatin1(kApplicationTitle), text,
                    QMessageBox::Ok, parent_);
    box.exec();
}

}  // namespace trelvin
