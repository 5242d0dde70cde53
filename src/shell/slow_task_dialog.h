#pragma once
// A progress dialog for a task that turns out to be long: it appears once the task has run
// for half a second, shows how far it has come, and its Cancel stops the task. A quick task
// never shows it. The dialog closes when this object goes.
#include <cstdint>
#include <memory>

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

#include "model/task_progress.h"

class QProgressDialog;
class QWidget;

namespace trelvin {

class SlowTaskDialog : public TaskProgress {
public:
    SlowTaskDialog(QWidget* parent, QString label);
    ~SlowTaskDialog() override;

    bool keepGoing(std::uint64_t done, std::uint64_t total) override;

    // A task shorter than this shows no dialog.
    static constexpr int kDelayMilliseconds = 500;

private:
    QWidget* parent_;
    QString label_;
    QElapsedTimer started_;
    qint64 lastShown_ = 0;
    QPointer<QProgressDialog> dialog_;
};

}  // namespace trelvin
