#include "playback/action_list.h"

#include <algorithm>

#include <QAbstractTableModel>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

#include "bridge/core_text.h"
#include "playback/action_row_delegate.h"
#include "playback/position_texts.h"

namespace trelvin {

// The rows of the list: the events of one kind whose texts hold the search, as indexes into
// the log. Texts are made for the rows on screen only; the search texts once, when first
// searched.
class ActionListModel : public QAbstractTableModel {
public:
    enum Column { Number, Time, Keyword, Summary, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setLog(const ActionLog* log) {
        beginResetModel();
        log_ = log;
        searchTexts_.clear();
        refilter();
        endResetModel();
    }

    void setFilter(EventKind kind, const QString& search) {
        beginResetModel();
        kind_ = kind;
        search_ = search.trimmed();
        refilter();
        endResetModel();
    }

    const std::vector<int>& events() const { return events_; }

    int rowOf(int event) const {
        const auto found = std::lower_bound(events_.begin(), events_.end(), event);
        return found != events_.end() && *found == event ? int(found - events_.begin()) : -1;
    }

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
            case Qt::ToolTipRole:
                if (failed) {
                    QStringList texts;
                    for (const std::string& text : e.messages) texts << FromCore(text);
                    return texts.join(u'\n');
                }
                return FromCore(e.summary);
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
    void refilter() {
        events_.clear();
        if (!log_) return;
        if (!search_.isEmpty() && searchTexts_.empty()) {
            searchTexts_.reserve(std::size_t(log_->size()));
            for (int i = 1; i <= log_->size(); ++i) {
                const LoggedEvent& e = log_->event(i);
                searchTexts_.push_back(FromCore(e.keyword + " " + e.summary + " " + e.subjects));
            }
        }
        for (int i = 1; i <= log_->size(); ++i) {
            if (!log_->isOfKind(i, kind_)) continue;
            if (!search_.isEmpty() &&
                !searchTexts_[std::size_t(i - 1)].contains(search_, Qt::CaseInsensitive))
                continue;
            events_.push_back(i);
        }
    }

    const ActionLog* log_ = nullptr;
    EventKind kind_ = EventKind::All;
    QString search_;
    std::vector<int> events_;
    std::vector<QString> searchTexts_;
};

namespace {

struct KindChoice {
    const char* caption;
    EventKind kind;
};
constexpr KindChoice kKinds[] = {
    {"Vse", EventKind::All},           {"Utoky", EventKind::Attacks},
    {"Dobyti veleni", EventKind::HeadquartersCaptures}, {"Ekonomika", EventKind::Economy},
    {"Presuny", EventKind::Moves},     {"Prubeh hry", EventKind::Lifecycle},
    {"Chyby", EventKind::Failures},
};

}  // namespace

ActionList::ActionList(QWidget* parent)
    : QWidget(parent), model_(new ActionListModel(this)), kinds_(new QComboBox(this)),
      search_(new QLineEdit(this)), table_(new QTableView(this)) {
    for (const KindChoice& choice : kKinds) kinds_->addItem(QString::fromLatin1(choice.caption));
    search_->setPlaceholderText(QStringLiteral("Hledat hrace, pole, akci..."));
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

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    auto* filters = new QHBoxLayout;
    filters->addWidget(kinds_);
    filters->addWidget(search_, 1);
    layout->addLayout(filters);
    layout->addWidget(table_, 1);

    connect(kinds_, &QComboBox::currentIndexChanged, this,
            [this](int index) { setKind(kKinds[std::max(index, 0)].kind); });
    connect(search_, &QLineEdit::textChanged, this, &ActionList::setSearch);
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) { chooseRow(index.row()); });
    connect(table_, &QTableView::activated, this, [this](const QModelIndex& index) { chooseRow(index.row()); });
}

void ActionList::showReplay(const ActionLog* log) {
    model_->setLog(log);
    selectPosition();
}

void ActionList::setPosition(int position) {
    position_ = position;
    selectPosition();
}

void ActionList::setKind(EventKind kind) {
    const int index = int(std::find_if(std::begin(kKinds), std::end(kKinds),
                                       [kind](const KindChoice& c) { return c.kind == kind; }) -
                          std::begin(kKinds));
    {
        const QSignalBlocker quiet(kinds_);
        kinds_->setCurrentIndex(index);
    }
    model_->setFilter(kind, search_->text());
    selectPosition();
}

void ActionList::setSearch(const QString& search) {
    if (search_->text() != search) {
        const QSignalBlocker quiet(search_);
        search_->setText(search);
    }
    model_->setFilter(kKinds[std::max(kinds_->currentIndex(), 0)].kind, search);
    selectPosition();
}

const std::vector<int>& ActionList::shownEvents() const { return model_->events(); }

void ActionList::chooseRow(int row) {
    if (row >= 0 && row < int(model_->events().size())) emit eventChosen(model_->events()[std::size_t(row)]);
}

void ActionList::selectPosition() {
    const int row = model_->rowOf(position_);
    if (row < 0) {
        table_->clearSelection();
        return;
    }
    const QModelIndex index = model_->index(row, 0);
    table_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                         QItemSelectionModel::Rows);
    table_->scrollTo(index, QAbstractItemView::EnsureVisible);
}

}  // namespace trelvin
