#include "Tamba/Sheets/Settings/RulesPage.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Base/Text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>

namespace tamba {

RulesPage::RulesPage(const Library& library, QWidget* parent) : SettingsPage(parent), library_(library) {
    for (const CategoryRule& rule : library.rules) entries_.push_back({rule});
    auto* words = Controls::label({}, "field", this);
    words->setText(Controls::wrapped(tr("A rule files every new expense whose vendor or bank line holds its text. The "
                                        "first that fits is the one. Rules are offered on the Bank screen when you "
                                        "change a category."),
                                     *words, 560));
    form.addRow(words);
    list_ = new QListWidget(this);
    Controls::name(*list_, "rules", tr("Rules"));
    list_->setMinimumHeight(160);
    form.addRow(list_);
    auto* buttons = new QWidget(this);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    auto* add = Controls::button(tr("Add Rule"), "addRule", Controls::Kind::link, buttons);
    up_ = Controls::iconButton(QStringLiteral("arrow-up"), tr("Try it earlier"), "ruleUp", buttons);
    down_ = Controls::iconButton(QStringLiteral("arrow-down"), tr("Try it later"), "ruleDown", buttons);
    remove_ = Controls::iconButton(QStringLiteral("trash"), tr("Remove this rule"), "ruleRemove", buttons);
    row->addWidget(add);
    row->addStretch(1);
    for (QToolButton* button : {up_, down_, remove_}) row->addWidget(button);
    form.addRow(buttons);
    makeFields();
    connect(add, &QPushButton::clicked, this, &RulesPage::add);
    connect(up_, &QToolButton::clicked, this, [this] { move(-1); });
    connect(down_, &QToolButton::clicked, this, [this] { move(1); });
    connect(remove_, &QToolButton::clicked, this, &RulesPage::remove);
    connect(list_, &QListWidget::currentRowChanged, this, &RulesPage::choose);
    refreshList();
    list_->setCurrentRow(0);
    choose(list_->currentRow());
}

void RulesPage::makeFields() {
    fields_ = new QWidget(this);
    fieldsForm_ = new Form(*fields_, 128);
    fields_->setLayout(fieldsForm_);
    contains_ = fieldsForm_->line(tr("Looks for"), "ruleContains");
    contains_->setPlaceholderText(tr("A part of the vendor’s name or of the bank line"));
    category_ = fieldsForm_->combo(tr("Category"), "ruleCategory");
    vendor_ = fieldsForm_->line(tr("Vendor becomes"), "ruleVendor");
    vendor_->setPlaceholderText(tr("Stays as it is"));
    note_ = fieldsForm_->note(QStringLiteral(" "));
    note_->setObjectName(QStringLiteral("ruleNote"));
    form.addRow(fields_);
    for (QLineEdit* field : {contains_, vendor_}) connect(field, &QLineEdit::textChanged, this, &RulesPage::take);
    connect(category_, &QComboBox::activated, this, &RulesPage::take);
}

void RulesPage::lookAt(const Library& now) {
    // What is not whole yet is in no books.
    std::vector<Entry> entries;
    for (const CategoryRule& rule : now.rules) {
        const auto same = [&rule](const Entry& entry) { return entry.rule.id == rule.id; };
        const auto known = std::find_if(entries_.begin(), entries_.end(), same);
        entries.push_back({rule, known != entries_.end() && known->edited});
    }
    for (const Entry& entry : entries_)
        if (entry.edited && indexOf(now.rules, entry.rule.id) == now.rules.size()) entries.push_back(entry);
    entries_ = std::move(entries);
    library_ = now;
    refreshList();
    if (list_->currentRow() < 0) list_->setCurrentRow(0);
    choose(list_->currentRow());
}

bool RulesPage::isWhole(const CategoryRule& rule) const {
    return !rule.contains.empty() && library_.category(rule.categoryID);
}

QString RulesPage::textOf(const CategoryRule& rule) const {
    const Category* category = library_.category(rule.categoryID);
    const QString looked = rule.contains.empty() ? tr("New rule") : toQt(rule.contains);
    QString text = tr("%1  →  %2").arg(looked, category ? toQt(category->name) : tr("No category"));
    if (!rule.vendor.empty()) text += tr(", as %1").arg(toQt(rule.vendor));
    return text;
}

QString RulesPage::problemOf(std::size_t row) const {
    const CategoryRule& rule = entries_[row].rule;
    if (rule.contains.empty()) return tr("A rule needs a text to look for.");
    if (!library_.category(rule.categoryID)) return tr("Choose the category for this rule.");
    const std::string text = Text::lower(rule.contains);
    for (std::size_t i = 0; i < row; ++i)
        if (const std::string& earlier = entries_[i].rule.contains;
            !earlier.empty() && Text::contains(text, Text::lower(earlier)))
            return tr("It is never tried: “%1”, further up, fits first.").arg(toQt(earlier));
    return {};
}

void RulesPage::refreshList() {
    const QSignalBlocker block(list_);
    const int row = list_->currentRow();
    list_->clear();
    for (const Entry& entry : entries_) {
        list_->addItem(textOf(entry.rule));
        list_->item(list_->count() - 1)->setSizeHint({0, 34});  // laid out before its style has a say
    }
    list_->setCurrentRow(std::min(row, list_->count() - 1));
}

void RulesPage::choose(int row) {
    const QScopedValueRollback guard(filling_, true);
    fields_->setVisible(row >= 0);
    if (row >= 0) {
        const CategoryRule& rule = entries_[static_cast<std::size_t>(row)].rule;
        contains_->setText(toQt(rule.contains));
        fillCategories(*category_, library_);
        chooseData(*category_, toQt(rule.categoryID.text()));
        vendor_->setText(toQt(rule.vendor));
    }
    refresh();
}

void RulesPage::take() {
    const int row = list_->currentRow();
    if (filling_ || row < 0) return;
    Entry& entry = entries_[static_cast<std::size_t>(row)];
    entry.edited = true;
    entry.rule.contains = toStd(contains_->text().trimmed());
    entry.rule.categoryID = UUID::parse(toStd(category_->currentData().toString())).value_or(UUID());
    entry.rule.vendor = toStd(vendor_->text().trimmed());
    list_->item(row)->setText(textOf(entry.rule));
    refresh();
    emit edited();
}

void RulesPage::add() {
    entries_.push_back({CategoryRule::make("", UUID(), ""), true});
    refreshList();
    list_->setCurrentRow(list_->count() - 1);
    contains_->setFocus();
    emit edited();
}

void RulesPage::move(int by) {
    const int from = list_->currentRow(), to = from + by;
    if (from < 0 || to < 0 || to >= list_->count()) return;
    std::swap(entries_[static_cast<std::size_t>(from)], entries_[static_cast<std::size_t>(to)]);
    refreshList();
    list_->setCurrentRow(to);
    emit edited();
}

void RulesPage::remove() {
    const int row = list_->currentRow();
    if (row < 0) return;
    entries_.erase(entries_.begin() + row);
    refreshList();
    choose(list_->currentRow());
    emit edited();
}

void RulesPage::refresh() {
    const int row = list_->currentRow();
    up_->setEnabled(row > 0);
    down_->setEnabled(row >= 0 && row + 1 < list_->count());
    remove_->setEnabled(row >= 0);
    if (row < 0) return;
    const Entry& entry = entries_[static_cast<std::size_t>(row)];
    const QString problem = problemOf(static_cast<std::size_t>(row));
    const bool whole = isWhole(entry.rule);
    fieldsForm_->setNote(*note_, problem, whole ? "caption" : "problem");
    Controls::markProblem(*contains_, entry.rule.contains.empty() ? problem : QString());
    Controls::markProblem(*category_, !whole && !entry.rule.contains.empty() ? problem : QString());
}

bool RulesPage::isGood() const {
    return std::all_of(entries_.begin(), entries_.end(),
                       [this](const Entry& entry) { return !entry.edited || isWhole(entry.rule); });
}

void RulesPage::store(Library& library) const {
    const auto isKept = [this](const UUID& id) {
        return std::any_of(entries_.begin(), entries_.end(), [&id](const Entry& each) { return each.rule.id == id; });
    };
    for (std::size_t i = library.rules.size(); i-- > 0;)
        if (const UUID id = library.rules[i].id; !isKept(id)) library = Rules::remove(std::move(library), id);
    std::size_t place = 0;
    for (const Entry& entry : entries_) {
        // Its category may have been taken away on the page beside.
        if (entry.edited && !entry.rule.contains.empty() && library.category(entry.rule.categoryID)) {
            const std::size_t at = indexOf(library.rules, entry.rule.id);
            if (at == library.rules.size())
                library.rules.append(entry.rule);
            else if (library.rules[at] != entry.rule)
                library.rules.update(at, [&entry](CategoryRule& kept) { kept = entry.rule; });
        }
        // A rule may have gone with its category.
        if (indexOf(library.rules, entry.rule.id) == library.rules.size()) continue;
        if (library.rules[place].id != entry.rule.id) library = Rules::move(std::move(library), entry.rule.id, place);
        ++place;
    }
}

}  // namespace tamba
