#include "shell/slow_task_dialog.h"

#include <algorithm>

#include <QCoreApplication>
#include <QProgressDialog>

#include "shell/message_service.h"

namespace trelvin {

namespace {

// Redrawing the dialog more often than this would slow the task it reports on.
constexpr qint64 kRefreshMilliseconds = 40;
constexpr int kSteps = 1000;

}  // namespace

SlowTaskDialog::SlowTaskDialog(QWidget* parent, QString label)
    : parent_(parent), label_(std::move(label)) {
    started_.start();
}

SlowTaskDialog::~SlowTaskDialog() { delete dialog_; }

bool SlowTaskDialog::keepGoing(std::uint64_t done, std::uint64_t total) {
    const qint64 now = started_.elapsed();
    if (now < kDelayMilliseconds || now - lastShown_ < kRefreshMilliseconds)
        return !dialog_ || !dialog_->wasCanceled();
    lastShown_ = now;
    if (!dialog_) {
        dialog_ = new QProgressDialog(label_, QStringLiteral("Zrusit"), 0, kSteps, parent_);
        dialog_->setObjectName(QStringLiteral("slowTaskDialog"));
        dialog_->setWindowTitle(QString::fromLatin1(kApplicationTitle));
        dialog_->setWindowModality(Qt::WindowModal);
        dialog_->setMinimumDuration(0);
        dialog_->setAutoReset(false);
        dialog_->setAutoClose(false);
    }
    const int step = total == 0 ? 0 : static_cast<int>(std::min<std::uint64_t>(done, total) * kSteps / total);
    dialog_->setValue(step);
    // The window is blocked by the dialog; its Cancel and repaints still need their events.
    QCoreApplication::processEvents();
    return !dialog_->wasCanceled();
}

}  // namespace trelvin
