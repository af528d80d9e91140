#include "Tamba/Sheets/SettingsSheet.h"

#include "Tamba/Icons.h"
#include "Tamba/Sheets/Settings/BusinessPages.h"
#include "Tamba/Sheets/Settings/CategoriesPage.h"
#include "Tamba/Sheets/Settings/ComputerPages.h"
#include "Tamba/Sheets/Settings/InvoicePages.h"
#include "Tamba/Sheets/Settings/ListPages.h"
#include "Tamba/Sheets/Settings/NumberingPage.h"
#include "Tamba/Sheets/Settings/RulesPage.h"
#include "Tamba/Sheets/Settings/UpdatesPage.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>

namespace tamba {

SettingsSheet::SettingsSheet(QWidget* parent, const Library& library, Day today, const SettingsContext& context,
                             std::function<std::optional<Path>()> chooseLogo)
    : Sheet(parent, Icon::none, tr("Settings"), {}), library_(library) {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(20);
    titles_ = new QListWidget(this);
    Controls::name(*titles_, "settingsPages", tr("Pages"));
    titles_->setFixedWidth(176);
    titles_->setIconSize(QSize(17, 17));
    stack_ = new QStackedWidget(this);
    columns->addWidget(titles_);
    columns->addWidget(stack_, 1);
    body().addLayout(columns, 1);

    const Business& business = library.business;
    add("books", tr("Business"), new BusinessPage(library, this));
    add("percent", tr("Tax"), new TaxPage(business, this));
    const int tax = pageCount() - 1;
    add("hash", tr("Numbering"), new NumberingPage(library, today, this));
    add("document", tr("Invoices"), invoices_ = new InvoicesPage(business, context.logo, std::move(chooseLogo), this));
    add("payment", tr("Payment"), new PaymentPage(business, this));
    auto* catalogue = new ItemsPage(library, this);
    add("tag", tr("Items"), catalogue);
    const int items = pageCount() - 1;
    if (context.item) catalogue->select(*context.item);
    add("exchange", tr("Exchange rates"), new RatesPage(library, today, this));
    add("receipt", tr("Expenses"), new ExpensesPage(business, this));
    add("category-clip", tr("Categories"), new CategoriesPage(library, this));
    add("category-tray", tr("Rules"), new RulesPage(library, this));
    add("category-desktop", tr("Appearance"), appearance_ = new AppearancePage(context.appearance, this));
    add("folder", tr("Library folder"), folder_ = new FolderPage(context.folder, this));
    if (context.updates)
        add("repeat", tr("Updates"), updates_ = new UpdatesPage(*context.updates, context.lookForUpdates, this));
    connect(folder_, &FolderPage::wished, this, [this](FolderWish wish) {
        wish_ = wish;
        accept();
    });
    save_ = addButtons(tr("Save"), tr("Cancel"), Main::keeps);
    connect(titles_, &QListWidget::currentRowChanged, this, [this](int page) {
        stack_->setCurrentIndex(page);
        if (page >= 0) pages_[static_cast<std::size_t>(page)]->lookAt(edit().library);
    });
    titles_->setCurrentRow(context.place == SettingsPlace::items     ? items
                           : context.place == SettingsPlace::tax     ? tax
                           : context.place == SettingsPlace::updates ? titles_->count() - 1
                                                                     : 0);
    setFixedWidth(860);
    setMinimumHeight(600);
    refresh();
    before_ = edit();
}

void SettingsSheet::add(const char* icon, const QString& title, SettingsPage* page) {
    auto* scroll = new QScrollArea(stack_);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 12, 0);
    column->setSpacing(12);
    auto* head = new QLabel(title, content);
    head->setFont(Style::titleFont(15));
    column->addWidget(head);
    column->addWidget(page);
    column->addStretch(1);
    scroll->setWidget(content);
    stack_->addWidget(scroll);
    titles_->addItem(new QListWidgetItem(Icons::icon(QString::fromLatin1(icon), &Colors::muted), title));
    pages_.push_back(page);
    connect(page, &SettingsPage::edited, this, &SettingsSheet::refresh);
}

void SettingsSheet::showPage(int index) { titles_->setCurrentRow(index); }

void SettingsSheet::refresh() {
    if (!save_) return;
    // A page that keeps the settings from being saved says so in the list, wherever one is.
    bool good = true;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const bool fine = pages_[i]->isGood();
        good = good && fine;
        QListWidgetItem* item = titles_->item(static_cast<int>(i));
        item->setData(Qt::ForegroundRole, fine ? QVariant() : QVariant(QBrush(Colors::current().danger)));
        item->setToolTip(fine ? QString() : tr("A field here cannot be saved."));
    }
    save_->setEnabled(good);
    folder_->setWishesEnabled(good);
}

bool SettingsSheet::isChanged() const {
    if (!save_->isEnabled()) return true;  // by something that cannot be saved
    const SettingsEdit now = edit();
    return now.library != before_->library || now.logo != before_->logo || now.appearance != before_->appearance ||
           now.lookForUpdates != before_->lookForUpdates;
}

void SettingsSheet::reject() {
    if (!qobject_cast<QPushButton*>(sender()) && isChanged()) {
        Sheet question(this, Icon::question, tr("Discard the changes?"),
                       tr("What was changed in the settings is not saved yet."));
        question.addButtons(tr("Discard"), tr("Go On Editing"));
        if (question.exec() != Accepted) return;
    }
    Sheet::reject();
}

SettingsEdit SettingsSheet::edit() const {
    SettingsEdit edit{library_, invoices_->newLogo(), appearance_->appearance(), {}, wish_};
    if (updates_) edit.lookForUpdates = updates_->allowed();
    for (const SettingsPage* page : pages_) page->store(edit.library);
    return edit;
}

}  // namespace tamba
