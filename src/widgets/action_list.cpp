#include "widgets/action_list.h"

#include <algorithm>

#include <QAbstractTableModel>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QVBoxLayout>

#include "bridge/core_text.h"
#include "bridge/date_text.h"
#include "display/action_filter.h"
#include "display/action_texts.h"
#include "display/shown_text.h"
#include "widgets/action_row_delegate.h"

namespace trelvin {

namespace {

// Writes the whole of one event: its number, time and keyword, its description, who it was by and
// on whose field (when another's), and what it reported. Written by a cursor rather than parsed
// from markup: the detail changes with every move, and parsing was most of its cost.
void writeDetail(QTextDocument& document, const ActionLog& log, const ActionPlayers* players, int event) {
    const LoggedEvent& e = log.event(event);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    const QString dot = QStringLiteral(" \u00b7 ");
    cursor.insertText(QStringLiteral("Akce %1").arg(event), bold);
    cursor.insertText(dot + GeneralDateText(e.time) + dot + FromCore(e.keyword), {});
    QTextBlockFormat paragraph;
    paragraph.setTopMargin(4);
    const auto addParagraph = [&](const QString& text, const QTextCharFormat& format) {
        cursor.insertBlock(paragraph, format);
        cursor.insertText(text, format);
    };
    addParagraph(FromUtf8(ShownText(e.description)).replace(u'\n', QChar::LineSeparator), {});
    if (players) {
        QStringList who;
        for (const std::string& line : WhoTexts(*players, event)) who << FromUtf8(line);
        if (!who.isEmpty()) addParagraph(who.join(dot), {});
    }
    QTextCharFormat failure;
    failure.setForeground(QColor(0xb0, 0x00, 0x00));
    for (const std::string& message : e.messages) addParagraph(FromUtf8(ShownText(message)), failure);
    cursor.endEditBlock();
}

}  // namespace

// The rows of the list: the events of one kind, of one player and found by the search, as
// indexes into the log. Texts are made for the rows on screen only.
class ActionListModel : public QAbstractTableModel {
public:
    enum Column { Number, Time, Keyword, Summary, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setLog(const ActionLog* log, const ActionPlayers* players) {
        beginResetModel();
        log_ = log;
        player_ = ActionPlayers::kNobody;
        filter_ = {};  // the old search texts go before the new ones are made
        filter_ = ActionFilter(log, players);
        events_ = filter_.shown(kind_, player_, search_);
        endResetModel();
    }

    void setFilter(EventKind kind, int player, const QString& search) {
        beginResetModel();
        kind_ = kind;
        player_ = player;
        search_ = ActionSearch(search.toStdString());
        events_ = filter_.shown(kind_, player_, search_);
        endResetModel();
    }

    const ActionLog* log() const { return log_; }
    const std::vector<int>& events() const { return events_; }
    // Whether anything narrows the list.
    bool filtered() const { return kind_ != EventKind::All || player_ != ActionPlayers::kNobody || !search_.isEmpty(); }

    // The row of the event, or -1 when the list does not show it.
    int rowOf(int event) const {
        const auto found = std::lower_bound(events_.begin(), events_.end(), event);
        return found != events_.end() && *found == event ? int(found - events_.begin()) : -1;
    }
    // The row the event would take among those shown.
    int placeOf(int event) const { return int(std::lower_bound(events_.begin(), events_.end(), event) - events_.begin()); }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : int(events_.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : ColumnCount;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || !log_) return {};
        const int event = events_[std::size_t(index.row())];
        const LoggedEvent& e = log_->event(event);
        const bool failed = !e.messages.empty();
        switch (role) {
            case Qt::DisplayRole:
                switch (index.column()) {
                    case Number: return event;
                    case Time: return GeneralDateText(e.time);
                    case Keyword: return FromCore(e.keyword);
                    case Summary: return FromCore(e.summary);
                }
                break;
            case Qt::DecorationRole:
                if (failed && index.column() == Number)
                    return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
                break;
            case Qt::ForegroundRole:
                if (failed) return QColor(180, 0, 0);
                break;
            case Qt::ToolTipRole: return FromUtf8(ActionToolTip(e));
            case Qt::TextAlignmentRole:
                if (index.column() == Number) return int(Qt::AlignRight | Qt::AlignVCenter);
                break;
        }
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        static const char* const titles[] = {"Akce", "Datum a cas", "Druh", "Popis"};
        return QString::fromLatin1(titles[section]);
    }

private:
    const ActionLog* log_ = nullptr;
    ActionFilter filter_;
    EventKind kind_ = EventKind::All;
    int player_ = ActionPlayers::kNobody;
    ActionSearch search_;
    std::vector<int> events_;
};

void ActionTable::setHere(int row, int event) {
    if (row == hereRow_ && event == hereEvent_) return;
    hereRow_ = row;
    hereEvent_ = event;
    viewport()->update();
}

void ActionTable::setEmptyText(const QString& text) {
    if (text == emptyText_) return;
    emptyText_ = text;
    viewport()->update();
}

void ActionTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    const int rows = model() ? model()->rowCount() : 0;
    if (rows == 0 && !emptyText_.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText_);
    }
    if (hereRow_ < 0) return;
    // A line between the rows around the current action, with its number at the right.
    const int below = hereRow_ < rows ? rowViewportPosition(hereRow_)
                                      : (rows > 0 ? rowViewportPosition(rows - 1) + rowHeight(rows - 1) : 0);
    // Kept inside the view, with its label, where the rows end at its edge.
    const int y = std::clamp(below, 1, std::max(1, viewport()->height() - 2));
    const QColor colour = palette().color(QPalette::Highlight);
    painter.fillRect(QRect(0, y - 1, viewport()->width(), 3), colour);
    const QString text = QStringLiteral("zde je akce %1").arg(hereEvent_);
    const QSize size(fontMetrics().horizontalAdvance(text) + 8, fontMetrics().height() + 2);
    const QRect label(QPoint(viewport()->width() - size.width() - 4,
                             std::clamp(y - size.height() / 2, 0, std::max(0, viewport()->height() - size.height()))),
                      size);
    painter.fillRect(label, colour);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(label, Qt::AlignCenter, text);
}

ActionList::ActionList(QWidget* parent)
    : QWidget(parent), model_(new ActionListModel(this)), kinds_(new QComboBox(this)), players_(new QComboBox(this)),
      search_(new QLineEdit(this)), table_(new ActionTable(this)), detail_(new QTextBrowser(this)) {
    for (const KindChoice& choice : kKindChoices) kinds_->addItem(QString::fromLatin1(choice.caption));
    players_->addItem(QStringLiteral("Vsichni hraci"), ActionPlayers::kNobody);
    players_->setToolTip(QStringLiteral("Akce hrace a akce na jeho polich"));
    players_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    players_->setMinimumContentsLength(12);
    search_->setPlaceholderText(QStringLiteral("Hledat hrace, pole, akci..."));
    search_->setToolTip(QStringLiteral("Jmeno pole (B3) se hleda cele a presne, jak je napsano; jiny text kdekoli"));
    search_->setClearButtonEnabled(true);

    table_->setModel(model_);
    table_->setItemDelegate(new ActionRowDelegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    // Uniform rows keep a list of 32,767 events as quick as a short one.
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 6);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    const int digit = table_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    table_->setColumnWidth(ActionListModel::Number, digit * 5 + 32);  // with the warning icon
    table_->setColumnWidth(ActionListModel::Time,
                           table_->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00:00")) + 12);
    table_->setColumnWidth(ActionListModel::Keyword,
                           table_->fontMetrics().horizontalAdvance(QStringLiteral("end_hld_fire")) + 12);
    detail_->setOpenLinks(false);
    detail_->setPlaceholderText(QStringLiteral("Popis vybrane akce"));
    detail_->document()->setUndoRedoEnabled(false);
    // Room for a description of four lines, who played and one message.
    detail_->setMinimumHeight(detail_->fontMetrics().lineSpacing() * 7 + 2 * detail_->frameWidth());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    auto* filters = new QHBoxLayout;
    filters->addWidget(kinds_);
    filters->addWidget(players_, 1);
    layout->addLayout(filters);
    layout->addWidget(search_);
    auto* split = new QSplitter(Qt::Vertical, this);
    split->addWidget(table_);
    split->addWidget(detail_);
    split->setStretchFactor(0, 2);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    layout->addWidget(split, 1);

    connect(kinds_, &QComboBox::currentIndexChanged, this,
            [this](int index) { setKind(kKindChoices[std::size_t(std::max(index, 0))].kind); });
    connect(players_, &QComboBox::currentIndexChanged, this, [this](int index) {
        setPlayer(index > 0 ? players_->itemData(index).toInt() : ActionPlayers::kNobody);
    });
    connect(search_, &QLineEdit::textChanged, this, &ActionList::setSearch);
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) { chooseRow(index.row()); });
    connect(table_, &QTableView::activated, this, [this](const QModelIndex& index) { chooseRow(index.row()); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ActionList::showDetail);
}

void ActionList::addNote(QWidget* note) { static_cast<QVBoxLayout*>(layout())->insertWidget(0, note); }

void ActionList::showReplay(const ActionLog* log, const ActionPlayers* players) {
    actionPlayers_ = players;
    {
        const QSignalBlocker quiet(players_);
        players_->clear();
        players_->addItem(QStringLiteral("Vsichni hraci"), ActionPlayers::kNobody);
        if (players)
            for (int i = 0; i < int(players->names().size()); ++i) players_->addItem(FromUtf8(PlayerNameText(*players, i)), i);
    }
    model_->setLog(log, players);
    refilter();
}

void ActionList::setPosition(int position) {
    position_ = position;
    selectPosition();
}

void ActionList::setKind(EventKind kind) {
    const int index = int(std::find_if(kKindChoices.begin(), kKindChoices.end(),
                                       [kind](const KindChoice& c) { return c.kind == kind; }) -
                          kKindChoices.begin());
    {
        const QSignalBlocker quiet(kinds_);
        kinds_->setCurrentIndex(index);
    }
    refilter();
}

void ActionList::setPlayer(int player) {
    {
        const QSignalBlocker quiet(players_);
        players_->setCurrentIndex(std::max(players_->findData(player), 0));
    }
    refilter();
}

void ActionList::setSearch(const QString& search) {
    if (search_->text() != search) {
        const QSignalBlocker quiet(search_);
        search_->setText(search);
    }
    refilter();
}

void ActionList::refilter() {
    model_->setFilter(kKindChoices[std::size_t(std::max(kinds_->currentIndex(), 0))].kind,
                      players_->currentData().isValid() ? players_->currentData().toInt() : ActionPlayers::kNobody,
                      search_->text());
    const bool nothing = model_->events().empty() && model_->filtered() && model_->log() && model_->log()->size() > 0;
    table_->setEmptyText(nothing ? QStringLiteral("Nic nenalezeno") : QString());
    selectPosition();
}

const std::vector<int>& ActionList::shownEvents() const { return model_->events(); }

void ActionList::chooseRow(int row) {
    if (row >= 0 && row < int(model_->events().size())) emit eventChosen(model_->events()[std::size_t(row)]);
}

void ActionList::selectPosition() {
    const int row = model_->rowOf(position_);
    const bool known = model_->log() && position_ >= 1 && position_ <= model_->log()->size();
    if (row >= 0) {
        table_->setHere(-1, 0);
        const QModelIndex index = model_->index(row, 0);
        table_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
        table_->scrollTo(index, QAbstractItemView::EnsureVisible);
    } else {
        // The rows around the place the current action would take stay in view.
        table_->selectionModel()->clearCurrentIndex();
        table_->clearSelection();
        const int place = model_->placeOf(position_);
        table_->setHere(known && !model_->events().empty() ? place : -1, position_);
        if (known && !model_->events().empty())
            table_->scrollTo(model_->index(std::min(place, int(model_->events().size()) - 1), 0),
                             QAbstractItemView::PositionAtCenter);
    }
    showDetail();
}

void ActionList::showDetail() {
    const ActionLog* log = model_->log();
    const QModelIndex current = table_->currentIndex();
    const int event = current.isValid() ? model_->events()[std::size_t(current.row())] : position_;
    detail_->clear();
    if (log && event >= 1 && event <= log->size()) writeDetail(*detail_->document(), *log, actionPlayers_, event);
}

}  // namespace trelvin
