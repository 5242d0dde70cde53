#include "widgets/jump_prompt.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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
    bool number = false;
    const int wanted = entry_->text().trimmed().toInt(&number);
    const QString range = QStringLiteral("od 1 do %1").arg(eventCount_);
    if (!number) {
        problem_->setText(QStringLiteral("'%1' neni cislo akce: zadejte cele cislo %2.")
                              .arg(entry_->text().trimmed(), range));
    } else if (wanted < 1 || wanted > eventCount_) {
        problem_->setText(QStringLiteral("Akce %1 v replayi neni: zadejte cislo %2.").arg(wanted).arg(range));
    } else {
        chosen_ = wanted;
        QDialog::accept();
        return;
    }
    problem_->show();
    entry_->selectAll();
    entry_->setFocus();
}

}  // namespace trelvin
