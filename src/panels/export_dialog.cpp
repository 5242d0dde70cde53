#include "panels/export_dialog.h"

#include <utility>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "export/map_frames.h"
#include "session/replay_session.h"

namespace trelvin {

namespace {

QSpinBox* spinBox(int smallest, int largest, int value, const QString& suffix) {
    auto* box = new QSpinBox;
    box->setRange(smallest, largest);
    box->setValue(value);
    box->setSuffix(suffix);
    return box;
}

QString extensionOf(ExportFormat format) {
    switch (format) {
        case ExportFormat::Png: return QStringLiteral("png");
        case ExportFormat::Gif: return QStringLiteral("gif");
        case ExportFormat::WebP: return QStringLiteral("webp");
    }
    return {};
}

// Beside the replay where that folder can be written, else in the home folder.
QString proposedFolder(const QString& replay) {
    const QFileInfo file(replay);
    const QFileInfo folder(file.absolutePath());
    return !replay.isEmpty() && folder.isDir() && folder.isWritable() ? folder.absoluteFilePath() : QDir::homePath();
}

}  // namespace

ExportDialog::ExportDialog(const ReplaySession& session, int fieldPixels, bool highlighted, Kind kind, QWidget* parent)
    : QDialog(parent),
      path(new QLineEdit),
      choose(new QPushButton(QStringLiteral("&Vybrat..."))),
      from(spinBox(1, session.actionsRead(), session.position(), {})),
      to(spinBox(1, session.actionsRead(), session.actionsRead(), {})),
      delay(spinBox(kShortestDelay, kLongestDelay, kDefaultDelay, QStringLiteral(" ms"))),
      format(new QComboBox),
      view(new QComboBox),
      field(spinBox(kSmallestExportField, kLargestExportField, fieldPixels, QStringLiteral(" px"))),
      labels(new QCheckBox(QStringLiteral("Pismena &sloupcu a cisla radku"))),
      caption(new QCheckBox(QStringLiteral("&Popisek pod mapou: akce, datum a cas, popis"))),
      highlight(new QCheckBox(QStringLiteral("Zv&yraznit akci na mape"))),
      summary(new QLabel),
      session_(session),
      kind_(kind) {
    const std::pair<QWidget*, const char*> named[] = {
        {path, "path"},     {choose, "choose"},   {from, "from"},           {to, "to"},
        {delay, "delay"},   {format, "format"},   {view, "view"},           {field, "field"},
        {labels, "labels"}, {caption, "caption"}, {highlight, "highlight"}, {summary, "summary"},
    };
    for (const auto& [widget, name] : named) widget->setObjectName(QString::fromLatin1(name));
    const bool animation = kind == Kind::Animation;
    setWindowTitle(animation ? QStringLiteral("Exportovat animaci") : QStringLiteral("Exportovat obrazek"));
    format->addItem(QStringLiteral("GIF"), int(ExportFormat::Gif));
    format->addItem(QStringLiteral("WebP"), int(ExportFormat::WebP));
    // In the order of the option buttons of the ways of viewing.
    view->addItems({QStringLiteral("Jako louka"), QStringLiteral("Jako les"), QStringLiteral("Videt vse")});
    view->setCurrentIndex(int(session.viewMode()));
    labels->setChecked(true);
    highlight->setChecked(highlighted);

    auto* form = new QFormLayout(this);
    auto* file = new QHBoxLayout;
    file->addWidget(path, 1);
    file->addWidget(choose);
    path->setMinimumWidth(path->fontMetrics().averageCharWidth() * 48);
    auto* fileLabel = new QLabel(QStringLiteral("&Soubor:"));
    fileLabel->setBuddy(path);
    form->addRow(fileLabel, file);
    if (animation) {
        form->addRow(QStringLiteral("&Od akce:"), from);
        form->addRow(QStringLiteral("&Do akce:"), to);
        form->addRow(QStringLiteral("Snimek &trva:"), delay);
        form->addRow(QStringLiteral("&Format:"), format);
    } else {
        from->setEnabled(false);
        form->addRow(QStringLiteral("Akce:"), from);
    }
    form->addRow(QStringLiteral("&Zpusob videni:"), view);
    form->addRow(QStringLiteral("&Velikost policka:"), field);
    form->addRow(labels);
    form->addRow(caption);
    form->addRow(highlight);
    form->addRow(summary);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    exportButton_ = buttons->button(QDialogButtonBox::Ok);
    exportButton_->setText(QStringLiteral("&Exportovat"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Zrusit"));
    form->addRow(buttons);
    for (QWidget* hidden : {static_cast<QWidget*>(to), static_cast<QWidget*>(delay), static_cast<QWidget*>(format)})
        hidden->setVisible(animation);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(choose, &QPushButton::clicked, this, &ExportDialog::chooseFile);
    connect(path, &QLineEdit::textEdited, this, [this] { nameTyped_ = true; });
    connect(path, &QLineEdit::textChanged, this, [this] {
        // A typed extension chooses the format.
        const std::optional<ExportFormat> typed = FormatOfPath(path->text());
        if (typed && *typed != ExportFormat::Png) format->setCurrentIndex(format->findData(int(*typed)));
        refresh();
    });
    // The two ends of the stretch keep their order.
    connect(from, &QSpinBox::valueChanged, this, [this](int value) {
        if (to->value() < value) to->setValue(value);
        proposeName();
    });
    connect(to, &QSpinBox::valueChanged, this, [this](int value) {
        if (from->value() > value) from->setValue(value);
        proposeName();
    });
    connect(format, &QComboBox::currentIndexChanged, this, [this] {
        path->setText(pathWithExtension());
        refresh();
    });
    for (QSpinBox* box : {delay, field}) connect(box, &QSpinBox::valueChanged, this, &ExportDialog::refresh);
    for (QCheckBox* box : {labels, caption}) connect(box, &QCheckBox::toggled, this, &ExportDialog::refresh);
    proposeName();
}

ExportFormat ExportDialog::chosenFormat() const {
    return kind_ == Kind::Picture ? ExportFormat::Png : ExportFormat(format->currentData().toInt());
}

QString ExportDialog::pathWithExtension() const {
    const QString text = path->text().trimmed();
    if (text.isEmpty() || FormatOfPath(text) == chosenFormat()) return text;
    const QFileInfo file(text);
    const QString base = FormatOfPath(text) ? file.path() + u'/' + file.completeBaseName() : text;
    return base + u'.' + extensionOf(chosenFormat());
}

void ExportDialog::proposeName() {
    if (nameTyped_) return;
    const QString base = QFileInfo(session_.fileName()).completeBaseName();
    const QString actions = kind_ == Kind::Picture ? QString::number(from->value())
                                                   : QStringLiteral("%1-%2").arg(from->value()).arg(to->value());
    const QString name = QStringLiteral("%1-akce-%2.%3")
                             .arg(base.isEmpty() ? QStringLiteral("mapa") : base, actions, extensionOf(chosenFormat()));
    path->setText(QDir(proposedFolder(session_.fileName())).filePath(name));
}

void ExportDialog::chooseFile() {
    const QString filter = kind_ == Kind::Picture ? QStringLiteral("PNG (*.png)")
                                                  : QStringLiteral("GIF (*.gif);;WebP (*.webp)");
    const QString chosen = QFileDialog::getSaveFileName(this, windowTitle(), path->text(), filter);
    if (chosen.isEmpty()) return;
    nameTyped_ = true;
    path->setText(chosen);
    path->setText(pathWithExtension());
}

void ExportDialog::refresh() {
    exportButton_->setEnabled(!path->text().trimmed().isEmpty());
    const WorldState& world = session_.world();
    const QSize size = FrameSize(world.mapWidth, world.mapHeight, job().picture);
    const QString pixels = QStringLiteral("%1 x %2 bodu").arg(size.width()).arg(size.height());
    summary->setText(kind_ == Kind::Picture
                         ? QStringLiteral("Obrazek %1").arg(pixels)
                         : QStringLiteral("%1 snimku, %2").arg(to->value() - from->value() + 1).arg(pixels));
}

ExportJob ExportDialog::job() const {
    ExportJob job;
    job.path = pathWithExtension();
    job.first = from->value();
    job.last = kind_ == Kind::Picture ? from->value() : to->value();
    job.delayMilliseconds = delay->value();
    job.picture = {ViewMode(view->currentIndex()), field->value(), labels->isChecked(), caption->isChecked(),
                   highlight->isChecked()};
    return job;
}

}  // namespace trelvin
