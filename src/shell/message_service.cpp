#include "shell/message_service.h"

#include <QMessageBox>

namespace trelvin {

void MessageBoxService::showMessage(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QString::fromLatin1(kApplicationTitle), text,
                    QMessageBox::Ok, parent_);
    // Modal to the window alone: a long move's progress dialog beside it keeps its Cancel, which
    // ends the move however many boxes it has still to show.
    box.setWindowModality(Qt::WindowModal);
    box.exec();
}

}  // namespace trelvin
