#include "Tamba/Screens/LinesTable.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/GrowingText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/DocMath.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

namespace tamba {
namespace {

constexpr int itemID = Qt::UserRole + 1;
constexpr int itemPrice = Qt::UserRole + 2;

/// Names of the catalogue with their prices on the right.
class SuggestionDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const Colors colors = Colors::current();
        painter->save();
        if (option.state.testFlag(QStyle::State_Selected)) painter->fillRect(option.rect, colors.accentTint);
        const QRect room = option.rect.adjusted(10, 0, -10, 0);
        const QString price = index.data(itemPrice).toString();
        const int taken = option.fontMetrics.horizontalAdvance(price) + 16;
        painter->setFont(option.font);
        painter->setPen(colors.muted);
        painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter, price);
        painter->setPen(colors.text);
        painter->drawText(room.adjusted(0, 0, -taken, 0), Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, room.width() - taken));
        painter->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), 32};
    }
};

std::size_t lineIndex(const Document& draft, const UUID& id) {
    const auto at =
        std::find_if(draft.lines.begin(), draft.lines.end(), [&](const Line& line) { return line.id == id; });
    return static_cast<std::size_t>(at - draft.lines.begin());
}

const CatalogItem* itemNamed(const Library& library, const std::string& name) {
    const std::string wanted = Text::lower(Text::trim(name));
    for (const CatalogItem& item : library.items)
        if (Text::lower(Text::trim(item.name)) == wanted) return &item;
    return nullptr;
}

}  // namespace

LinesTable::LinesTable(AppModel& model, Apply apply, QWidget* parent)
    : QWidget(parent), model_(model), apply_(std::move(apply)) {
    Controls::name(*this, "lines", tr("Lines"));
    layout_ = new QVBoxLayout(this);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    makeTitles();
    problem_ = Controls::label({}, "problem", this);
    problem_->setObjectName(QStringLiteral("lineProblem"));
    problem_->setContentsMargins(7, 6, 0, 0);
    problem_->hide();
    layout_->addWidget(problem_);
    items_ = new QStandardItemModel(this);
    suggestions_ = new QCompleter(items_, this);
    suggestions_->setCaseSensitivity(Qt::CaseInsensitive);
    suggestions_->setFilterMode(Qt::MatchContains);
    suggestions_->setCompletionRole(Qt::EditRole);
    suggestions_->popup()->setObjectName(QStringLiteral("itemSuggestions"));
    suggestions_->popup()->setItemDelegate(new SuggestionDelegate(suggestions_));
    suggestions_->popup()->setMinimumWidth(360);
}

void LinesTable::makeTitles() {
    titles_ = new QWidget(this);
    titleGrid_ = new QGridLayout(titles_);
    titleGrid_->setContentsMargins(0, 0, 0, 4);
    titleGrid_->setHorizontalSpacing(2);
    titleGrid_->setVerticalSpacing(4);
    const auto title = [](const QString& text, QWidget* owner, Qt::Alignment alignment) {
        QLabel* label = Controls::label(text, "section", owner);
        label->setAlignment(alignment);
        label->setContentsMargins(9, 0, 11, 0);
        return label;
    };
    titleName_ = title(titleOf(LineCell::name), titles_, Qt::AlignLeft);
    titleFigures_ = new QWidget(titles_);
    auto* figures = new QHBoxLayout(titleFigures_);
    figures->setContentsMargins(0, 0, 0, 0);
    figures->setSpacing(2);
    for (std::size_t i = 1; i < lineCells; ++i) {
        const auto column = static_cast<LineCell>(i);
        QLabel* label = title(titleOf(column), titleFigures_, alignmentOf(column));
        label->setFixedWidth(widthOf(column));
        figures->addWidget(label);
        if (column == LineCell::tax) titleTax_ = label;
    }
    figures->addStretch(1);
    auto* amount = Controls::label(tr("Amount"), "section", titles_);
    amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    amount->setMinimumWidth(amountWidth);
    titleAmount_ = amount;
    titleMenu_ = new QWidget(titles_);
    titleMenu_->setFixedSize(26, 1);
    arrangeLine(*titleGrid_, compact_, titleName_, nullptr, titleFigures_, titleAmount_, titleMenu_);
    layout_->addWidget(titles_);
}

LineRow* LinesTable::addRow() {
    auto* row = new LineRow(rows_.size(), this);
    row->setCompact(compact_);
    row->setTaxShown(tax_);
    row->cell(LineCell::name).setCompleter(suggestions_);
    rows_.push_back(row);
    layout_->insertWidget(layout_->indexOf(problem_), row);
    connectRow(*row);
    row->show();
    return row;
}

void LinesTable::connectRow(LineRow& row) {
    for (std::size_t i = 0; i < lineCells; ++i) {
        const auto column = static_cast<LineCell>(i);
        Cell* cell = &row.cell(column);
        connect(cell, &Cell::committed, this, [this, &row, column] { take(row, column); });
        connect(cell, &Cell::reverted, this, [this, cell] {
            cell->setModified(false);
            problem_->hide();
            refill();
            emit typed();
        });
        connect(cell, &Cell::moved, this, [this, &row, column](int lines) { goTo(row, column, lines); });
        connect(cell, &Cell::lineMoved, this, [this, &row](int lines) { move(row, lines); });
        connect(cell, &Cell::lineRemoved, this, [this, &row] { remove(row); });
        connect(cell, &Cell::menuChosen, this, [this, &row](const QPoint& at) { menu(row, at); });
        connect(cell, &Cell::textEdited, this, &LinesTable::typed);
    }
    Cell* name = &row.cell(LineCell::name);
    const auto chosen = [this, &row](const QModelIndex& index) {
        if (const auto id = UUID::parse(toStd(index.data(itemID).toString()))) takeItem(row, *id);
    };
    connect(name, &Cell::suggestionTaken, this, chosen);
    // In the cell's context: the suggestions outlive it.
    connect(suggestions_, qOverload<const QModelIndex&>(&QCompleter::activated), name,
            [this, name, chosen](const QModelIndex& index) {
                if (suggestions_->widget() == name) chosen(index);
            });
    connect(&row.detail(), &GrowingText::left, this, [this, &row] { takeDetail(row); });
    connect(&row.menu(), &QToolButton::clicked, this,
            [this, &row] { menu(row, row.menu().mapToGlobal(QPoint(0, row.menu().height()))); });
}

const Document* LinesTable::draft() const { return model_.library().document(document_); }

const Line* LinesTable::lineOf(const LineRow& row) const {
    const Document* present = draft();
    if (!present || !row.id()) return nullptr;
    const std::size_t index = lineIndex(*present, *row.id());
    return index < present->lines.size() ? &present->lines[index] : nullptr;
}

std::size_t LinesTable::indexOf(const LineRow& row) const {
    return static_cast<std::size_t>(std::find(rows_.begin(), rows_.end(), &row) - rows_.begin());
}

void LinesTable::fill(const Document& draft) {
    const QScopedValueRollback guard(filling_, true);
    document_ = draft.id;
    const Library& library = model_.library();
    fillSuggestions(library);
    const bool tax = chargesTax(library.business.regime);
    const Currency currency = Currency::of(draft.currency);
    while (rows_.size() < draft.lines.size() + 1) addRow();
    for (std::size_t i = 0; i < draft.lines.size(); ++i) rows_[i]->fill(draft.lines[i], currency, {});
    rows_[draft.lines.size()]->clear();
    while (rows_.size() > draft.lines.size() + 1) {
        // Deleted when the event loop comes round, since it may be one of its own cells that asked.
        rows_.back()->hide();
        // From here only: the style, too, waits to hear that a widget is gone.
        rows_.back()->menu().disconnect(this);
        for (Cell* cell : rows_.back()->findChildren<Cell*>()) cell->disconnect(this);
        rows_.back()->detail().disconnect(this);
        rows_.back()->deleteLater();
        rows_.pop_back();
    }
    if (tax != tax_) {
        tax_ = tax;
        titleTax_->setVisible(tax);
        for (LineRow* row : rows_) row->setTaxShown(tax);
    }
    showAmounts(pending(draft));
}

void LinesTable::fillSuggestions(const Library& library) {
    if (shownItems_.sharesAllWith(library.items) && items_->rowCount() == static_cast<int>(library.items.size()))
        return;
    shownItems_ = library.items;
    items_->clear();
    for (const CatalogItem& item : library.items) {
        auto* entry = new QStandardItem;
        const QString price = toQt(MoneyFormat::string(item.priceMinor, library.home()));
        const QString each = item.unit.empty() ? price : tr("%1 per %2").arg(price, toQt(item.unit));
        entry->setData(toQt(item.name), Qt::EditRole);
        entry->setData(toQt(item.id.text()), itemID);
        entry->setData(each, itemPrice);
        items_->appendRow(entry);
    }
}

void LinesTable::forget() {
    for (LineRow* row : rows_) row->forget();
    problem_->hide();
}

void LinesTable::refill() {
    if (const Document* present = draft()) fill(*present);
}

bool LinesTable::hasUnsavedText() const {
    return std::any_of(rows_.begin(), rows_.end(), [](const LineRow* row) { return row->hasUnsavedText(); });
}

Document LinesTable::pending(Document draft) const {
    const Currency currency = Currency::of(draft.currency);
    for (std::size_t i = 0; i < draft.lines.size() && i < rows_.size(); ++i)
        draft.lines[i] = rows_[i]->pending(std::move(draft.lines[i]), currency);
    return draft;
}

void LinesTable::showAmounts(const Document& draft) {
    const Currency currency = Currency::of(draft.currency);
    const bool good = !Books::problem(model_.library(), draft);
    for (std::size_t i = 0; i < draft.lines.size() && i < rows_.size(); ++i) {
        const QString amount = good ? toQt(MoneyFormat::string(DocMath::line(draft.lines[i], draft.supply).taxable,
                                                               currency, MoneyFormat::Symbol::hidden))
                                    : QStringLiteral("–");
        rows_[i]->setAmount(amount);
    }
}

void LinesTable::setCompact(bool compact) {
    if (compact == compact_) return;
    compact_ = compact;
    arrangeLine(*titleGrid_, compact_, titleName_, nullptr, titleFigures_, titleAmount_, titleMenu_);
    for (LineRow* row : rows_) row->setCompact(compact);
}

void LinesTable::focusFirst() {
    if (!rows_.empty()) rows_.front()->cell(LineCell::name).setFocus(Qt::TabFocusReason);
}

void LinesTable::commit() {
    const std::vector<LineRow*> rows = rows_;
    for (LineRow* row : rows) {
        for (std::size_t i = 0; i < lineCells; ++i) take(*row, static_cast<LineCell>(i));
        takeDetail(*row);
    }
}

void LinesTable::showProblem(Cell& cell, const QString& sentence) {
    Controls::markProblem(cell, sentence);
    problem_->setText(Controls::wrapped(sentence, *problem_, std::max(200, width() - 20)));
    problem_->setVisible(!sentence.isEmpty());
}

void LinesTable::take(LineRow& row, LineCell column) {
    const Document* present = draft();
    Cell& cell = row.cell(column);
    if (filling_ || !present || !cell.isModified()) return;
    const QString text = cell.text();
    if (!row.id()) {
        if (text.trimmed().isEmpty()) return cell.setModified(false);
        const std::string name = toStd(text.trimmed());
        if (const CatalogItem* item = itemNamed(model_.library(), name)) return takeItem(row, item->id);
        cell.setModified(false);
        const UUID id = UUID::random();
        apply_([id, name](const Library& library, Document draft) {
            Line line = Books::newLine(library, draft);
            line.id = id;
            line.name = name;
            draft.lines.push_back(std::move(line));
            return draft;
        });
        return refill();
    }
    const Line* line = lineOf(row);
    if (!line) return;
    if (column == LineCell::name && line->priceMinor == 0)
        if (const CatalogItem* item = itemNamed(model_.library(), toStd(text))) return takeItem(row, item->id);
    Line read = *line;
    QString problem = LineRow::read(read, column, text, Currency::of(present->currency));
    if (problem.isEmpty()) {
        cell.setModified(false);
        problem = apply_([id = *row.id(), column, text](const Library&, Document draft) {
            const std::size_t index = lineIndex(draft, id);
            if (index < draft.lines.size())
                (void)LineRow::read(draft.lines[index], column, text, Currency::of(draft.currency));
            return draft;
        });
        if (problem.isEmpty()) {
            showProblem(cell, {});
            return refill();
        }
        cell.setText(text);
        cell.setModified(true);
    }
    showProblem(cell, problem);
}

void LinesTable::takeDetail(LineRow& row) {
    if (filling_ || !row.id() || !row.detail().isModified()) return;
    row.detail().setModified(false);
    apply_([id = *row.id(), text = toStd(row.detail().toPlainText())](const Library&, Document draft) {
        const std::size_t index = lineIndex(draft, id);
        if (index < draft.lines.size()) draft.lines[index].detail = text;
        return draft;
    });
}

void LinesTable::takeItem(LineRow& row, const UUID& itemWanted) {
    const CatalogItem* found = tamba::find(model_.library().items, itemWanted);
    if (!found) return;
    Cell& cell = row.cell(LineCell::name);
    cell.setText(toQt(found->name));
    cell.setModified(false);
    const QString problem =
        apply_([id = row.id(), added = UUID::random(), item = *found](const Library& library, Document draft) {
            Line line = Books::lineOf(library, draft, item);
            const std::size_t index = id ? lineIndex(draft, *id) : draft.lines.size();
            if (index < draft.lines.size()) {
                Line& present = draft.lines[index];
                line.id = present.id;
                line.qtyMilli = present.qtyMilli;
                line.discountBP = present.discountBP;
                line.expenseID = present.expenseID;
                present = std::move(line);
            } else {
                line.id = added;
                draft.lines.push_back(std::move(line));
            }
            return draft;
        });
    showProblem(cell, problem);
    refill();
}

void LinesTable::remove(LineRow& row) {
    if (!row.id()) return;
    const std::size_t index = indexOf(row);
    row.forget();
    apply_([id = *row.id()](const Library&, Document draft) {
        std::erase_if(draft.lines, [&](const Line& line) { return line.id == id; });
        return draft;
    });
    problem_->hide();
    if (index < rows_.size()) rows_[index]->cell(LineCell::name).setFocus(Qt::TabFocusReason);
}

void LinesTable::move(LineRow& row, int lines) {
    const Document* present = draft();
    if (!row.id() || !present || hasUnsavedText()) return;
    const std::size_t from = indexOf(row);
    const std::size_t to = from + static_cast<std::size_t>(lines);
    if (from >= present->lines.size() || to >= present->lines.size()) return;
    LineCell column = LineCell::name;
    for (std::size_t i = 0; i < lineCells; ++i)
        if (row.cell(static_cast<LineCell>(i)).hasFocus()) column = static_cast<LineCell>(i);
    apply_([from, to](const Library&, Document draft) {
        if (from < draft.lines.size() && to < draft.lines.size()) std::swap(draft.lines[from], draft.lines[to]);
        return draft;
    });
    rows_[to]->cell(column).setFocus(Qt::TabFocusReason);
}

void LinesTable::goTo(LineRow& row, LineCell column, int lines) {
    const std::size_t to = indexOf(row) + static_cast<std::size_t>(lines);
    if (to >= rows_.size()) return;
    rows_[to]->cell(rows_[to]->id() ? column : LineCell::name).setFocus(Qt::TabFocusReason);
}

void LinesTable::menu(LineRow& row, const QPoint& at) {
    if (!row.id()) return;
    commit();
    const Line* line = lineOf(row);
    if (!line) return;
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("lineActions"));
    const bool known = itemNamed(model_.library(), line->name) != nullptr;
    QAction* save = menu.addAction(Icons::icon(QStringLiteral("saving"), &Colors::muted),
                                   known ? tr("Update the Saved Item") : tr("Save as Item"), this,
                                   [this, &row] { saveAsItem(row); });
    save->setEnabled(!line->name.empty());
    menu.addSeparator();
    const std::size_t index = indexOf(row);
    QAction* up = menu.addAction(tr("Move Up\tAlt+Up"), this, [this, &row] { move(row, -1); });
    up->setEnabled(index > 0);
    QAction* down = menu.addAction(tr("Move Down\tAlt+Down"), this, [this, &row] { move(row, 1); });
    down->setEnabled(index + 2 < rows_.size());
    menu.addSeparator();
    menu.addAction(Icons::icon(QStringLiteral("trash"), &Colors::danger), tr("Remove Line\tCtrl+Delete"), this,
                   [this, &row] { remove(row); });
    menu.exec(at);
}

void LinesTable::saveAsItem(LineRow& row) {
    const Line* line = lineOf(row);
    const Document* present = draft();
    if (!line || !present) return;
    // The catalogue keeps prices in the home currency.
    const auto price = Books::inHomeCurrency(model_.library(), *present, line->priceMinor);
    if (!price) {
        emit noticed(toQt(std::string_view(BooksError(BooksError::Code::missingRate, present->currency).what())));
        return;
    }
    const QString name = toQt(line->name);
    const bool done = model_.perform(tr("Save Item"), [line = *line, price = *price](Library library, Day) {
        const CatalogItem* known = itemNamed(library, line.name);
        CatalogItem item = known ? *known : CatalogItem::make(line.name);
        item.detail = line.detail;
        item.hsn = line.hsn;
        item.unit = line.unit;
        item.priceMinor = price;
        item.taxBP = line.taxBP;
        return Clients::put(std::move(library), std::move(item));
    });
    if (done) emit noticed(tr("“%1” is in your catalogue now").arg(name));
}

}  // namespace tamba
