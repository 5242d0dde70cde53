#include "widgets/jump_prompt.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "bridge/core_text.h"
#include "display/jump_texts.h"

namespace trelvin {

JumpPrompt::JumpPrompt(int eventCount, int position, QWidget* parent)
    : QDialog(parent), eventCount_(eventCount), entry_(new QLineEdit(this)), problem_(new QLabel(this)) {
    setWindowTitle(QStringLiteral("Prejit na akci"));
    auto* layout = new QVBoxLayout(this);
    // The prompt takes the height its answer needs once it shows one: a wrapped text's height
    // follows its width, which a window's least size does not count.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(new QLabel(QStringLiteral("Cislo akce (1 az %1):").arg(eventCount), this));
    entry_->setText(QString::number(position));
    entry_->selectAll();
    layout->addWidget(entry_);
    problem_->setStyleSheet(QStringLiteral("color: #b00000"));
    problem_->setWordWrap(true);
    problem_->hide();
    layout->addWidget(problem_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Prejit"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Zrusit"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &JumpPrompt::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &JumpPrompt::reject);
}

void JumpPrompt::accept() {
    const JumpEntry entry = ReadJumpEntry(entry_->text().toStdString(), eventCount_);
    if (entry.event != 0) {
        chosen_ = entry.event;
        QDialog::accept();
        return;
    }
    problem_->setText(FromUtf8(entry.problem));
    problem_->show();
    entry_->selectAll();
    entry_->setFocus();
}

}  // namespace trelvin
