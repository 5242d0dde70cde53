#pragma once
// The small prompt for an action number: Return goes there, Escape cancels; a number outside
// the replay, or no number, is answered in the prompt itself.
#include <QDialog>

class QLabel;
class QLineEdit;

namespace trelvin {

class JumpPrompt : public QDialog {
    Q_OBJECT

public:
    JumpPrompt(int eventCount, int position, QWidget* parent = nullptr);

    // The action chosen, once accepted.
    int chosen() const { return chosen_; }

    QLineEdit* entry() const { return entry_; }
    QLabel* problem() const { return problem_; }

public slots:
    void accept() override;

private:
    int eventCount_;
    int chosen_ = 0;
    QLineEdit* entry_;
    QLabel* problem_;
};

}  // namespace trelvin
