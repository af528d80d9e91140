#include "Tamba/Sheets/Settings/RulesPage.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Bank/Rules.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>

#include <algorithm>

namespace tamba {

RulesPage::RulesPage(const Library& library, QWidget* parent) : SettingsPage(parent) {
    auto* words = Controls::label({}, "field", this);
    words->setText(Controls::wrapped(tr("A rule files every new expense whose vendor or bank line holds its text. The "
                                        "first that fits is the one. Rules are offered on the Bank screen when you "
                                        "change a category."),
                                     *words, 560));
    form.addRow(words);
    list_ = new QListWidget(this);
    Controls::name(*list_, "rules", tr("Rules"));
    list_->setMinimumHeight(300);
    for (const CategoryRule& rule : library.rules) {
        const Category* category = library.category(rule.categoryID);
        QString text = tr("%1  →  %2").arg(toQt(rule.contains), category ? toQt(category->name) : tr("No category"));
        if (!rule.vendor.empty()) text += tr(", as %1").arg(toQt(rule.vendor));
        list_->addItem(text);
        list_->item(list_->count() - 1)->setSizeHint({0, 34});  // laid out before its style has a say
        rules_.push_back(rule.id);
    }
    form.addRow(list_);
    auto* buttons = new QWidget(this);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    up_ = Controls::iconButton(QStringLiteral("arrow-up"), tr("Try it earlier"), "ruleUp", buttons);
    down_ = Controls::iconButton(QStringLiteral("arrow-down"), tr("Try it later"), "ruleDown", buttons);
    remove_ = Controls::iconButton(QStringLiteral("trash"), tr("Remove this rule"), "ruleRemove", buttons);
    for (QToolButton* button : {up_, down_, remove_}) row->addWidget(button);
    row->addStretch(1);
    form.addRow(buttons);
    connect(up_, &QToolButton::clicked, this, [this] { move(-1); });
    connect(down_, &QToolButton::clicked, this, [this] { move(1); });
    connect(remove_, &QToolButton::clicked, this, &RulesPage::remove);
    connect(list_, &QListWidget::currentRowChanged, this, &RulesPage::refresh);
    list_->setCurrentRow(0);
    refresh();
}

void RulesPage::move(int by) {
    const int from = list_->currentRow(), to = from + by;
    if (from < 0 || to < 0 || to >= list_->count()) return;
    std::swap(rules_[static_cast<std::size_t>(from)], rules_[static_cast<std::size_t>(to)]);
    list_->insertItem(to, list_->takeItem(from));
    list_->setCurrentRow(to);
    emit edited();
}

void RulesPage::remove() {
    const int row = list_->currentRow();
    if (row < 0) return;
    rules_.erase(rules_.begin() + row);
    delete list_->takeItem(row);
    refresh();
    emit edited();
}

void RulesPage::refresh() {
    const int row = list_->currentRow();
    up_->setEnabled(row > 0);
    down_->setEnabled(row >= 0 && row + 1 < list_->count());
    remove_->setEnabled(row >= 0);
}

void RulesPage::store(Library& library) const {
    for (std::size_t i = library.rules.size(); i-- > 0;) {
        const UUID id = library.rules[i].id;
        if (std::find(rules_.begin(), rules_.end(), id) == rules_.end())
            library = Rules::remove(std::move(library), id);
    }
    // A rule may have gone with its category.
    std::size_t place = 0;
    for (const UUID& id : rules_) {
        if (indexOf(library.rules, id) == library.rules.size()) continue;
        if (library.rules[place].id != id) library = Rules::move(std::move(library), id, place);
        ++place;
    }
}

}  // namespace tamba
