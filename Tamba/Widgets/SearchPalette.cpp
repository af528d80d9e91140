#include "Tamba/Widgets/SearchPalette.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/RowDelegate.h"

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba {
namespace {

constexpr int headingHeight = 30, moreHeight = 34, edge = 24;
enum Extra { What = RowDelegate::Further, Right };

SearchRow::What whatOf(const QModelIndex& index) { return static_cast<SearchRow::What>(index.data(What).toInt()); }

/// Hits as the tables have them; headings with their counts; commands with their keys.
class SearchDelegate : public RowDelegate {
public:
    using RowDelegate::RowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const Colors colors = Colors::current();
        const SearchRow::What what = whatOf(index);
        const bool heading = what == SearchRow::What::heading;
        if (!heading) RowDelegate::paint(painter, option, index);
        painter->save();
        const QRect words = option.rect.adjusted(12, 0, -16, 0);
        painter->setFont(Style::textFont(11, heading ? QFont::DemiBold : QFont::Normal));
        painter->setPen(colors.muted);
        if (heading) {
            painter->fillRect(option.rect, colors.window);
            painter->drawText(words, Qt::AlignVCenter | Qt::AlignLeft, index.data(Qt::DisplayRole).toString());
        }
        painter->drawText(words, Qt::AlignVCenter | Qt::AlignRight, index.data(Right).toString());
        painter->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const SearchRow::What what = whatOf(index);
        return {0, what == SearchRow::What::heading ? headingHeight
                   : what == SearchRow::What::more  ? moreHeight
                                                    : tallRowHeight};
    }
};

QVariant valueOf(const SearchRow& row, int role) {
    switch (role) {
        case Qt::DisplayRole:
            return toQt(row.text);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return row.what == SearchRow::What::heading || row.second.empty() ? toQt(row.text)
                                                                              : toQt(row.text + ", " + row.second);
        case Qt::ForegroundRole:
            return row.what == SearchRow::What::more ? QVariant(Colors::current().accent) : QVariant();
        case RowDelegate::Glyph:
            return row.glyph.empty() ? QVariant() : toQt(row.glyph);
        case RowDelegate::Strong:
            return row.what == SearchRow::What::hit;
        case RowDelegate::Second:
            return row.second.empty() ? QVariant() : toQt(row.second);
        case What:
            return static_cast<int>(row.what);
        case Right:
            return toQt(row.right);
        default:
            return {};
    }
}

}  // namespace

SearchPalette::SearchPalette(AppModel& model, QWidget* window)
    : QWidget(window), model_(model), rows_({{QString(), Qt::AlignLeft, valueOf}}) {
    setObjectName(QStringLiteral("searchPalette"));
    box_ = new QFrame(this);
    box_->setObjectName(QStringLiteral("searchBox"));
    auto* rows = new QVBoxLayout(box_);
    rows->setContentsMargins(1, 1, 1, 1);
    rows->setSpacing(0);
    words_ = new QLineEdit(box_);
    Controls::name(*words_, "searchWords", tr("Find anything"));
    words_->setPlaceholderText(tr("Find anything: a vendor, a number, an amount, words on a receipt, a command"));
    words_->addAction(Icons::icon(QStringLiteral("search"), &Colors::muted), QLineEdit::LeadingPosition);
    words_->setAcceptDrops(false);
    words_->installEventFilter(this);
    rows->addWidget(words_);
    list_ = new QListView(box_);
    Controls::name(*list_, "searchHits", tr("What was found"));
    list_->setModel(&rows_);
    list_->setItemDelegate(new SearchDelegate(list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rows->addWidget(list_, 1);
    hint_ = Controls::label({}, "field", box_);
    hint_->setObjectName(QStringLiteral("searchHint"));
    hint_->setContentsMargins(16, 12, 16, 14);
    rows->addWidget(hint_);
    window->installEventFilter(this);
    hide();

    connect(words_, &QLineEdit::textChanged, this, [this] {
        expanded_.reset();
        refresh();
    });
    connect(list_, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index.row()); });
    connect(&model_, &AppModel::changed, this, [this] {
        if (isVisible()) prepare();
    });
    connect(&model_, &AppModel::opened, this, [this] {
        dismiss();
        background_.cancel();
        index_.reset();
        indexed_ = {};
    });
}

void SearchPalette::open(std::vector<SearchCommand> commands, std::function<void(std::size_t)> run) {
    if (isVisible()) return dismiss();
    commands_ = std::move(commands);
    run_ = std::move(run);
    expanded_.reset();
    before_ = QApplication::focusWidget();
    words_->selectAll();
    setVisible(true);
    raise();
    words_->setFocus(Qt::ShortcutFocusReason);
    prepare();
}

void SearchPalette::dismiss() {
    if (!isVisible()) return;
    QWidget* before = before_;
    before_.clear();
    const bool hadKeys = words_->hasFocus();
    hide();
    if (hadKeys && before && before->isVisible()) before->setFocus(Qt::OtherFocusReason);
}

void SearchPalette::prepare() {
    if (!index_ || indexed_ != model_.library()) {
        background_.start([this, library = model_.library(), earlier = index_](const auto&) -> Background::Done {
            auto index = std::make_shared<const Search::Index>(library, earlier.get());
            return [this, library, index] {
                index_ = index;
                indexed_ = library;
                refresh();
            };
        });
    }
    refresh();
}

void SearchPalette::refresh() {
    if (!isVisible()) return;
    const std::string words = toStd(words_->text());
    const auto groups =
        index_ ? index_->find(words, expanded_ ? hitsOfExpanded : hitsShown + 1) : std::vector<Search::Group>();
    rows_.setRows(searchRows(groups, expanded_, words, commands_));
    const bool none = rows_.rowCount() == 0;
    hint_->setVisible(none);
    list_->setVisible(!none);
    hint_->setText(words_->text().trimmed().isEmpty() ? tr("↑ ↓ to move · Enter to open · Esc to close")
                   : !isSettled()                     ? tr("Looking through the books…")
                                                      : tr("Nothing in the books has these words."));
    place();
    if (!none) {
        select(0);
        move(1);
        list_->scrollToTop();
    }
}

void SearchPalette::place() {
    setGeometry(parentWidget()->rect());
    const int wide = std::min(660, width() - 2 * edge);
    const int top = std::max(edge, height() / 10);
    int high = words_->sizeHint().height() + 6;  // and the lines around
    if (hint_->isVisibleTo(box_)) high += hint_->sizeHint().height();
    if (list_->isVisibleTo(box_))
        for (int row = 0; row < rows_.rowCount() && high < height(); ++row)
            high += list_->sizeHintForIndex(rows_.index(row, 0)).height();
    box_->setGeometry((width() - wide) / 2, top, wide, std::min(high, height() - top - edge));
}

void SearchPalette::move(int steps) {
    const int count = rows_.rowCount(), step = steps < 0 ? -1 : 1;
    int row = list_->currentIndex().row();
    int last = row;
    for (int left = std::abs(steps); left > 0;) {
        row += step;
        if (row < 0 || row >= count) break;
        if (rows_.rows()[static_cast<std::size_t>(row)].what == SearchRow::What::heading) continue;
        last = row;
        --left;
    }
    select(last);
    // The heading of the first row belongs to it.
    if (last == 1) list_->scrollToTop();
}

void SearchPalette::select(int row) {
    list_->setCurrentIndex(rows_.index(row, 0));
    list_->scrollTo(list_->currentIndex());
}

void SearchPalette::choose(int row) {
    if (row < 0 || row >= rows_.rowCount()) return;
    const SearchRow chosenRow = rows_.rows()[static_cast<std::size_t>(row)];
    switch (chosenRow.what) {
        case SearchRow::What::heading:
            return;
        case SearchRow::What::more:
            expanded_ = chosenRow.kind;
            refresh();
            // At the first that was not to be seen before.
            for (int at = 0; at < rows_.rowCount(); ++at) {
                const SearchRow& each = rows_.rows()[static_cast<std::size_t>(at)];
                if (each.kind != chosenRow.kind || each.what != SearchRow::What::heading) continue;
                select(std::min(at + static_cast<int>(hitsShown) + 1, rows_.rowCount() - 1));
                break;
            }
            return;
        case SearchRow::What::hit:
            dismiss();
            emit chosen(chosenRow.kind, chosenRow.id);
            return;
        case SearchRow::What::command:
            dismiss();
            if (run_) run_(chosenRow.command);
            return;
    }
}

bool SearchPalette::takeKey(int key) {
    switch (key) {
        case Qt::Key_Escape:
            dismiss();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            choose(list_->currentIndex().row());
            return true;
        case Qt::Key_Down:
            move(1);
            return true;
        case Qt::Key_Up:
            move(-1);
            return true;
        case Qt::Key_PageDown:
            move(6);
            return true;
        case Qt::Key_PageUp:
            move(-6);
            return true;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return true;  // the keys stay here
        default:
            return false;
    }
}

bool SearchPalette::eventFilter(QObject* watched, QEvent* event) {
    if (watched == words_ && event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool plain = (key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
        if (plain && takeKey(key.key())) return true;
    }
    if (watched == words_ && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) dismiss();
    }
    if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible()) place();
    return QWidget::eventFilter(watched, event);
}

void SearchPalette::mousePressEvent(QMouseEvent* event) {
    if (!box_->geometry().contains(event->pos())) dismiss();
}

void SearchPalette::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor veil = Colors::current().text;
    veil.setAlphaF(Colors::current().dark ? 0.10F : 0.22F);
    painter.fillRect(rect(), veil);
}

}  // namespace tamba
