#include "Tamba/Screens/ExpenseInspector.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Sheets/RecurringSheet.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ReceiptView.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Recurring.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

namespace tamba {
namespace {

constexpr int fieldsWidth = 360;
const QString newEntry = QStringLiteral("new");

std::optional<UUID> idOf(const QComboBox& combo) { return UUID::parse(toStd(combo.currentData().toString())); }

/// Notes are one undoable step when the field is left, not one for each letter.
class Notes : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;
    std::function<void()> left;

protected:
    void focusOutEvent(QFocusEvent* event) override {
        QPlainTextEdit::focusOutEvent(event);
        if (left) left();
    }
};

}  // namespace

ExpenseInspector::ExpenseInspector(AppModel& model, Prompts& prompts, QWidget* parent)
    : QFrame(parent), model_(model), prompts_(prompts) {
    setObjectName(QStringLiteral("inspector"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0);
    pages_ = new QStackedWidget(this);
    auto* none = Controls::label(tr("Select an expense to see and change it here."), "field", this);
    none->setAlignment(Qt::AlignCenter);
    none->setWordWrap(true);
    none->setMargin(40);
    pages_->addWidget(none);
    pages_->addWidget(makeFields());
    pages_->addWidget(makeSeveral());
    layout->addWidget(pages_);
    setFixedWidth(fieldsWidth);
    connectFields();
    connectMoney();
}

QLineEdit* ExpenseInspector::line(const QString& title, const char* name) {
    auto* field = new QLineEdit(this);
    Controls::name(*field, name, title);
    return field;
}

QComboBox* ExpenseInspector::combo(const QString& title, const char* name) {
    auto* field = makeChoice(this);
    Controls::name(*field, name, title);
    return field;
}

void ExpenseInspector::row(const QString& title, QWidget* field) {
    auto* label = Controls::label(title, "field", this);
    label->setFixedWidth(78);
    label->setMinimumHeight(30);
    label->setBuddy(field);
    form_->addRow(label, field);
}

QWidget* ExpenseInspector::makeFields() {
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    above_ = new QVBoxLayout(content);
    above_->setContentsMargins(18, 16, 18, 18);
    above_->setSpacing(12);

    receipt_ = new ReceiptView(content);
    receipt_->setFixedHeight(200);
    above_->addWidget(receipt_);

    banner_ = new QFrame(content);
    banner_->setObjectName(QStringLiteral("banner"));
    auto* words = new QHBoxLayout(banner_);
    words->setContentsMargins(12, 8, 8, 8);
    bannerText_ = new QLabel(banner_);
    bannerText_->setObjectName(QStringLiteral("checkText"));
    auto* right = Controls::button(tr("Looks Right"), "looksRight", Controls::Kind::plain, banner_);
    words->addWidget(bannerText_, 1);
    words->addWidget(right, 0, Qt::AlignVCenter);
    above_->addWidget(banner_);
    connect(right, &QPushButton::clicked, this, &ExpenseInspector::looksRight);

    form_ = new QFormLayout;
    form_->setContentsMargins(0, 0, 0, 0);
    form_->setHorizontalSpacing(8);
    form_->setVerticalSpacing(8);
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    row(tr("Vendor"), vendor_ = line(tr("Vendor"), "vendor"));
    row(tr("GSTIN"), gstin_ = line(tr("GSTIN of the vendor"), "gstin"));
    gstinNote_ = Controls::label({}, "problem", this);
    form_->addRow(QString(), gstinNote_);
    row(tr("Date"), date_ = new DateField(model_.today(), this));
    Controls::name(*date_, "date", tr("Date"));
    row(tr("Distance"), distance_ = line(tr("Distance"), "distance"));
    mileageNote_ = Controls::label({}, "caption", this);
    form_->addRow(QString(), mileageNote_);
    auto* money = new QWidget(this);
    auto* pair = new QHBoxLayout(money);
    pair->setContentsMargins(0, 0, 0, 0);
    pair->setSpacing(8);
    amount_ = line(tr("Amount"), "amount");
    currency_ = combo(tr("Currency"), "currency");
    currency_->setFixedWidth(88);
    pair->addWidget(amount_, 1);
    pair->addWidget(currency_);
    row(tr("Amount"), money);
    row(tr("Rate"), rate_ = line(tr("Exchange rate"), "rate"));
    rateNote_ = Controls::label({}, "caption", this);
    form_->addRow(QString(), rateNote_);
    convert_ = Controls::button({}, "convertToHome", Controls::Kind::link, this);
    convert_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form_->addRow(QString(), convert_);
    connect(convert_, &QPushButton::clicked, this, &ExpenseInspector::convertToHome);
    row(tr("Tax"), tax_ = line(tr("Tax included"), "tax"));
    split_ = Controls::label({}, "caption", this);
    form_->addRow(QString(), split_);
    form_->addRow(QString(), claim_ = new QCheckBox(tr("Claim this tax back"), this));
    Controls::name(*claim_, "claimTax", claim_->text());
    row(tr("Category"), category_ = combo(tr("Category"), "category"));
    row(tr("Paid by"), method_ = combo(tr("Method"), "method"));
    auto* repeats = new QWidget(this);
    auto* again = new QHBoxLayout(repeats);
    again->setContentsMargins(0, 0, 0, 0);
    again->setSpacing(4);
    repeats_ = combo(tr("Repeats"), "repeats");
    repeats_->addItem(tr("Never"), -1);
    for (const Frequency frequency : {Frequency::weekly, Frequency::monthly, Frequency::quarterly, Frequency::yearly})
        repeats_->addItem(title(frequency), static_cast<int>(frequency));
    recurring_ = Controls::button(tr("See all…"), "seeRecurring", Controls::Kind::link, repeats);
    again->addWidget(repeats_, 1);
    again->addWidget(recurring_);
    row(tr("Repeats"), repeats);
    connect(repeats_, &QComboBox::activated, this, [this] { setRepeats(repeats_->currentData().toInt()); });
    connect(recurring_, &QPushButton::clicked, this, &ExpenseInspector::recurringChosen);
    row(tr("Project"), project_ = combo(tr("Project"), "project"));
    row(tr("Client"), client_ = combo(tr("Client"), "client"));
    form_->addRow(QString(), billable_ = new QCheckBox(tr("Bill this on to the client"), this));
    Controls::name(*billable_, "billable", billable_->text());
    auto* notes = new Notes(this);
    notes_ = notes;
    notes->left = [this] {
        edit(tr("Change Notes"), [text = toStd(notes_->toPlainText())](const Library&, Expense e) {
            e.notes = text;
            return e;
        });
    };
    Controls::name(*notes_, "notes", tr("Notes"));
    notes_->setTabChangesFocus(true);
    notes_->setFixedHeight(64);
    row(tr("Notes"), notes_);
    // Beside the first line, not the middle.
    auto& notesTitle = *qobject_cast<QLabel*>(form_->labelForField(notes_));
    notesTitle.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    notesTitle.setContentsMargins(0, 7, 0, 0);
    for (QLineEdit* field : {amount_, tax_, rate_, distance_}) field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    above_->addLayout(form_);

    attachments_ = new QVBoxLayout;
    attachments_->setSpacing(2);
    above_->addLayout(attachments_);
    auto* attach = Controls::button(tr("Attach a File…"), "attachFile", Controls::Kind::link, content);
    auto* remove = Controls::button(tr("Delete Expense"), "deleteExpense", Controls::Kind::link, content);
    auto* foot = new QHBoxLayout;
    foot->addWidget(attach);
    foot->addStretch(1);
    foot->addWidget(remove);
    above_->addLayout(foot);
    connect(attach, &QPushButton::clicked, this, &ExpenseInspector::attachFiles);
    connect(remove, &QPushButton::clicked, this, &ExpenseInspector::deleteChosen);
    above_->addStretch(1);
    scroll->setWidget(content);

    single_ = new QWidget(this);
    auto* columns = new QHBoxLayout(single_);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    sideways_ = new QVBoxLayout;
    columns->addLayout(sideways_, 1);
    scroll->setFixedWidth(fieldsWidth - 1);
    columns->addWidget(scroll);
    return single_;
}

QWidget* ExpenseInspector::makeSeveral() {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(24, 28, 24, 24);
    layout->setSpacing(12);
    severalText_ = new QLabel(page);
    severalText_->setFont(Style::titleFont(17));
    layout->addWidget(severalText_);
    layout->addSpacing(8);
    layout->addWidget(Controls::label(tr("Category for all of them"), "field", page));
    severalCategory_ = combo(tr("Category for all of them"), "severalCategory");
    layout->addWidget(severalCategory_);
    layout->addWidget(Controls::label(tr("Project for all of them"), "field", page));
    severalProject_ = combo(tr("Project for all of them"), "severalProject");
    layout->addWidget(severalProject_);
    layout->addSpacing(4);
    auto* right = Controls::button(tr("All Look Right"), "allLookRight", Controls::Kind::plain, page);
    auto* remove = Controls::button(tr("Delete Them"), "deleteSeveral", Controls::Kind::plain, page);
    layout->addWidget(right);
    layout->addWidget(remove);
    layout->addStretch(1);
    for (QWidget* part : {static_cast<QWidget*>(severalCategory_), static_cast<QWidget*>(severalProject_),
                          static_cast<QWidget*>(right), static_cast<QWidget*>(remove)})
        part->setMaximumWidth(fieldsWidth - 48);
    connect(right, &QPushButton::clicked, this, &ExpenseInspector::looksRight);
    connect(remove, &QPushButton::clicked, this, &ExpenseInspector::deleteChosen);
    connect(severalCategory_, &QComboBox::activated, this, [this] { emit categoryChosen(idOf(*severalCategory_)); });
    connect(severalProject_, &QComboBox::activated, this, [this] { setProject(idOf(*severalProject_)); });
    return page;
}

const Expense* ExpenseInspector::expense() const {
    return ids_.size() == 1 ? model_.library().expense(ids_.front()) : nullptr;
}

void ExpenseInspector::edit(const QString& title, const Edit& edit) {
    const Expense* present = expense();
    if (filling_ || !present) return;
    const bool done = model_.perform(title, [id = present->id, edit](Library library, Day) {
        const Expense* now = library.expense(id);
        if (!now) return library;
        Expense changed = edit(library, *now);
        return changed == *now ? library : Expenses::replace(library, std::move(changed));
    });
    if (!done) refill();
}

void ExpenseInspector::connectFields() {
    connect(vendor_, &QLineEdit::editingFinished, this, [this] {
        edit(tr("Change Vendor"), [text = toStd(vendor_->text().trimmed())](const Library& library, Expense e) {
            if (text == e.vendor) return e;
            e.vendor = text;
            // A vendor known from before brings its category along, where none was chosen.
            if (!e.categoryID)
                if (const auto category = Expenses::suggestedCategory(library, text))
                    return Expenses::withCategory(library, std::move(e), category);
            return e;
        });
    });
    connect(gstin_, &QLineEdit::textChanged, this, &ExpenseInspector::showGSTINState);
    connect(gstin_, &QLineEdit::editingFinished, this, [this] {
        edit(tr("Change GSTIN"), [text = GSTIN::clean(toStd(gstin_->text()))](const Library& library, Expense e) {
            if (text == e.vendorTaxID) return e;
            e.vendorTaxID = text;
            return Expenses::withTax(library, e, e.tax);
        });
    });
    connect(date_, &QDateEdit::dateChanged, this, [this](const QDate& date) {
        edit(tr("Change Date"), [day = dayOf(date)](const Library&, Expense e) {
            e.date = day;
            return e;
        });
    });
    connect(category_, &QComboBox::activated, this, [this] {
        edit(tr("Change Category"), [id = idOf(*category_)](const Library& library, Expense e) {
            return e.categoryID == id ? e : Expenses::withCategory(library, std::move(e), id);
        });
    });
    connect(method_, &QComboBox::activated, this, [this](int index) {
        edit(tr("Change Method"), [index](const Library&, Expense e) {
            e.method = allMethods().at(static_cast<std::size_t>(index));
            return e;
        });
    });
    connect(project_, &QComboBox::activated, this, &ExpenseInspector::chooseProject);
    connect(client_, &QComboBox::activated, this, &ExpenseInspector::chooseClient);
    connect(billable_, &QCheckBox::toggled, this, [this](bool on) {
        edit(on ? tr("Mark as Billable") : tr("Mark as Not Billable"), [on](const Library&, Expense e) {
            e.billable = on;
            return e;
        });
    });
    connect(claim_, &QCheckBox::toggled, this, [this](bool on) {
        edit(on ? tr("Claim Tax") : tr("Do Not Claim Tax"), [on](const Library&, Expense e) {
            e.claimTax = on;
            return e;
        });
    });
    connect(receipt_, &ReceiptView::clicked, this, [this] {
        const Expense* e = expense();
        if (!e || attachment_ >= e->attachments.size()) return;
        const Attachment& attachment = e->attachments[attachment_];
        if (const auto file = model_.store().url(attachment)) showLarge(window(), *file, toQt(attachment.originalName));
    });
}

void ExpenseInspector::connectMoney() {
    const auto money = [this](QLineEdit* field, const QString& title,
                              std::function<Expense(const Library&, Expense, std::int64_t)> change) {
        connect(field, &QLineEdit::editingFinished, this, [this, field, title, change] {
            const Expense* e = expense();
            if (!e || filling_) return;
            const QString text = field->text().trimmed();
            const auto value =
                text.isEmpty() ? std::optional<std::int64_t>(0) : amountIn(*field, Currency::of(e->currency));
            if (!value) return Controls::markProblem(*field, tr("Enter an amount such as 1,180.00."));
            Controls::markProblem(*field, {});
            edit(title, [change, value](const Library& library, Expense old) {
                return change(library, std::move(old), *value);
            });
            refill();
        });
    };
    money(amount_, tr("Change Amount"), [](const Library&, Expense e, std::int64_t value) {
        e.amount = value;
        return e;
    });
    money(tax_, tr("Change Tax"), [](const Library& library, Expense e, std::int64_t value) {
        // The split that was read from the receipt stays while its total does.
        return e.tax == value ? e : Expenses::withTax(library, std::move(e), value);
    });
    connect(currency_, &QComboBox::activated, this, [this] {
        edit(tr("Change Currency"),
             [code = toStd(currency_->currentData().toString())](const Library& library, Expense e) {
                 return e.currency == code ? e : Expenses::withCurrency(library, std::move(e), code);
             });
    });
    connect(rate_, &QLineEdit::editingFinished, this, [this] { setRate(rate_->text().trimmed()); });
    connect(distance_, &QLineEdit::editingFinished, this, [this] {
        const Expense* e = expense();
        if (!e || filling_) return;
        const auto value = MoneyFormat::parseQuantity(toStd(distance_->text()));
        const bool good = value && Expenses::mileageAmount(*value, e->mileageRateMinor);
        Controls::markProblem(*distance_, good ? QString() : tr("Enter a distance such as 12.5."));
        if (!good) return;
        edit(tr("Change Distance"), [value](const Library&, Expense old) {
            old.distanceMilli = *value;
            return old;
        });
    });
}

void ExpenseInspector::setRate(const QString& text) {
    const Expense* e = expense();
    if (!e || filling_) return;
    const auto value = text.isEmpty() ? std::optional<std::int64_t>(0) : MoneyFormat::parseFXRate(toStd(text));
    const bool good = value && isBelievable(*value);
    Controls::markProblem(*rate_, good ? QString() : tr("Enter a rate such as 83.25."));
    if (!good || *value == e->rateMicros) return;
    const bool done =
        model_.perform(tr("Change Exchange Rate"), [id = e->id, rate = *value](Library library, Day today) {
            const Expense* present = library.expense(id);
            if (!present) return library;
            Expense changed = *present;
            changed.rateMicros = rate;
            const std::string currency = changed.currency;
            library = Expenses::replace(std::move(library), std::move(changed));
            // For the next expense in that currency.
            return rate == 0 ? library : Expenses::keepRate(std::move(library), currency, rate, today);
        });
    if (!done) refill();
}

void ExpenseInspector::convertToHome() {
    edit(convert_->text(),
         [](const Library& library, Expense e) { return Expenses::convertedToHome(library, std::move(e)); });
}

void ExpenseInspector::fillMenu(QMenu& menu) {
    if (!model_.library().projects.empty()) {
        QMenu* projects = menu.addMenu(tr("Project"));
        projects->addAction(tr("No project"), this, [this] { setProject({}); });
        for (const Project& project : model_.library().projects)
            if (!project.archived)
                projects->addAction(toQt(project.name), this, [this, id = project.id] { setProject(id); });
    }
    if (!expense()) return;
    QMenu* repeats = menu.addMenu(tr("Repeats"));
    for (int i = 0; i < repeats_->count(); ++i) {
        QAction* action = repeats->addAction(repeats_->itemText(i), this,
                                             [this, chosen = repeats_->itemData(i).toInt()] { setRepeats(chosen); });
        action->setCheckable(true);
        action->setChecked(i == repeats_->currentIndex());
    }
    if (!convert_->isHidden()) menu.addAction(convert_->text(), this, &ExpenseInspector::convertToHome);
}

void ExpenseInspector::setRepeats(int chosen) {
    const Expense* e = expense();
    if (!e || filling_) return;
    const bool done = model_.perform(tr("Change Repeats"), [id = e->id, chosen](Library library, Day today) {
        const Expense* present = library.expense(id);
        if (!present) return library;
        const std::size_t at =
            present->recurringID ? indexOf(library.recurring, *present->recurringID) : library.recurring.size();
        const bool repeats = at < library.recurring.size();
        if (chosen < 0) return repeats ? Recurring::remove(std::move(library), library.recurring[at].id) : library;
        const auto frequency = static_cast<Frequency>(chosen);
        if (!repeats)
            return Recurring::addDue(Recurring::repeat(std::move(library), id, frequency), today, now()).library;
        RecurringExpense changed = library.recurring[at];
        if (changed.frequency == frequency) return library;
        changed.frequency = frequency;
        // Counted afresh from this expense, and nothing is added for days gone by.
        changed.nextDate = present->date;
        do changed.nextDate = Recurring::nextDate(frequency, changed.nextDate, changed.anchorDay);
        while (changed.nextDate <= today);
        return Recurring::put(std::move(library), std::move(changed));
    });
    if (!done) refill();
}

void ExpenseInspector::chooseClient() {
    if (client_->currentData().toString() == newEntry) {
        const auto name = prompts_.newName(tr("New Client"));
        if (!name) return refill();
        const Client client = Client::make(*name);
        model_.perform(tr("New Client"), [client, ids = ids_](Library library, Day) {
            library.clients.append(client);
            const std::size_t index = indexOf(library.expenses, ids.front());
            if (index < library.expenses.size())
                library.expenses.update(index, [&](Expense& e) { e.clientID = client.id; });
            return library;
        });
        return;
    }
    edit(tr("Change Client"), [id = idOf(*client_)](const Library&, Expense e) {
        e.clientID = id;
        return e;
    });
}

void ExpenseInspector::chooseProject() {
    if (project_->currentData().toString() == newEntry) {
        const auto name = prompts_.newName(tr("New Project"));
        const Expense* e = expense();
        if (!name || !e) return refill();
        const Project project = Project::make(*name, e->clientID);
        model_.perform(tr("New Project"), [project, id = e->id](Library library, Day) {
            library.projects.append(project);
            const std::size_t index = indexOf(library.expenses, id);
            if (index < library.expenses.size())
                library.expenses.update(index, [&](Expense& changed) { changed.projectID = project.id; });
            return library;
        });
        return;
    }
    setProject(idOf(*project_));
}

void ExpenseInspector::setProject(const std::optional<UUID>& project) {
    if (filling_) return;
    const bool done = model_.perform(tr("Change Project"), [ids = ids_, project](Library library, Day) {
        const Project* chosen = project ? library.project(*project) : nullptr;
        for (const UUID& id : ids) {
            const std::size_t index = indexOf(library.expenses, id);
            if (index == library.expenses.size() || library.expenses[index].projectID == project) continue;
            library.expenses.update(index, [&](Expense& e) {
                e.projectID = project;
                if (chosen && chosen->clientID && !e.clientID) e.clientID = chosen->clientID;
            });
        }
        return library;
    });
    if (!done) refill();
}

void ExpenseInspector::looksRight() {
    model_.perform(tr("Mark as Checked"), [ids = ids_](Library library, Day) {
        for (const UUID& id : ids) {
            const std::size_t index = indexOf(library.expenses, id);
            if (index < library.expenses.size() && library.expenses[index].check)
                library.expenses.update(index, [](Expense& e) { e.check.reset(); });
        }
        return library;
    });
}

void ExpenseInspector::focusVendor() {
    vendor_->setFocus(Qt::ShortcutFocusReason);
    vendor_->selectAll();
}

bool ExpenseInspector::hasUnsavedText() const {
    const Expense* e = expense();
    if (!e) return false;
    for (const QLineEdit* field : {vendor_, gstin_, amount_, rate_, tax_, distance_})
        if (field->isVisible() && field->isModified()) return true;
    return toStd(notes_->toPlainText()) != e->notes;
}

void ExpenseInspector::refill() {
    if (const Expense* e = expense()) fill(*e);
}

}  // namespace tamba
