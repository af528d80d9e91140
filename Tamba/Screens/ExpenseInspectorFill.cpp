#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Screens/ExpenseInspector.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ReceiptView.h"
#include "TambaCore/Documents/Expenses.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStackedWidget>

// From the books to the fields; the way back is in ExpenseInspector.cpp.
namespace tamba {
namespace {

QString idText(const std::optional<UUID>& id) { return id ? toQt(id->text()) : QString(); }

}  // namespace

void ExpenseInspector::show(const std::vector<UUID>& ids) {
    const bool other = ids != ids_;
    ids_ = ids;
    if (other) attachment_ = 0;
    if (const Expense* e = expense()) {
        if (other)
            for (QLineEdit* field : {vendor_, gstin_, amount_, rate_, tax_, distance_}) field->setModified(false);
        pages_->setCurrentWidget(single_);
        fill(*e);
        return;
    }
    pages_->setCurrentIndex(ids_.empty() ? 0 : 2);
    severalText_->setText(tr("%1 expenses selected").arg(ids_.size()));
    fillCategories(*severalCategory_, model_.library());
    severalProject_->clear();
    severalProject_->addItem(tr("No project"), QString());
    for (const Project& project : model_.library().projects)
        if (!project.archived) severalProject_->addItem(toQt(project.name), idText(project.id));
    for (QComboBox* choice : {severalCategory_, severalProject_}) {
        choice->setCurrentIndex(-1);
        choice->setPlaceholderText(tr("Choose…"));
    }
}

void ExpenseInspector::setBeside(bool beside) {
    setFixedWidth(beside ? 660 : 360);
    if (beside == beside_) return;
    beside_ = beside;
    if (beside) {
        above_->removeWidget(receipt_);
        sideways_->setContentsMargins(16, 16, 0, 16);
        receipt_->setMinimumHeight(200);
        receipt_->setMaximumHeight(QWIDGETSIZE_MAX);
        sideways_->addWidget(receipt_, 1);
    } else {
        sideways_->removeWidget(receipt_);
        sideways_->setContentsMargins(0, 0, 0, 0);
        above_->insertWidget(0, receipt_);
        receipt_->setFixedHeight(200);
    }
}

void ExpenseInspector::fill(const Expense& e) {
    const QScopedValueRollback guard(filling_, true);
    const Library& library = model_.library();
    const Currency currency = Currency::of(e.currency);
    const bool mileage = e.kind == ExpenseKind::mileage;
    const bool foreign = e.currency != library.business.homeCurrency;

    // What somebody is typing right now is left alone.
    const auto put = [](QLineEdit* field, const QString& text) {
        if (field->hasFocus() && field->isModified()) return;
        if (field->text() != text) field->setText(text);
        Controls::markProblem(*field, {});
    };
    const auto figure = [&](std::int64_t minor) {
        return toQt(MoneyFormat::string(minor, currency, MoneyFormat::Symbol::hidden));
    };
    put(vendor_, toQt(e.vendor));
    vendor_->setPlaceholderText(mileage ? tr("What the trip was for") : tr("Who was paid"));
    put(gstin_, toQt(e.vendorTaxID));
    date_->setDate(qDate(e.date));
    put(amount_, e.amount == 0 && !mileage ? QString() : figure(e.amount));
    amount_->setPlaceholderText(figure(0));
    amount_->setReadOnly(mileage);
    put(rate_, e.rateMicros == 0 ? QString() : toQt(MoneyFormat::fxRate(e.rateMicros)));
    const auto home = Expenses::inHomeCurrency(library, e, e.amount);
    const QString missing = tr("Add the exchange rate to include this in reports.");
    rateNote_->setText(!foreign ? QString()
                       : home   ? tr("%1 in the books").arg(toQt(MoneyFormat::string(*home, library.home())))
                                : Controls::wrapped(missing, *rateNote_, 212));
    rate_->setPlaceholderText(tr("%1 for one %2").arg(toQt(library.business.homeCurrency), toQt(e.currency)));
    put(tax_, e.tax == 0 ? QString() : figure(e.tax));
    tax_->setPlaceholderText(tr("None"));
    split_->setText(toQt(splitText(e.taxSplit, currency, library.business)));
    claim_->setChecked(e.claimTax);
    put(distance_, toQt(MoneyFormat::quantity(e.distanceMilli)));
    mileageNote_->setText(
        tr("%1 for each %2, as it was then")
            .arg(toQt(MoneyFormat::string(e.mileageRateMinor, library.home())), toQt(library.business.distanceUnit)));
    billable_->setChecked(e.billable);
    if (!notes_->hasFocus() && toStd(notes_->toPlainText()) != e.notes) notes_->setPlainText(toQt(e.notes));
    fillChoices(e);

    const auto showRow = [this](QWidget* field, bool shown) { form_->setRowVisible(field, shown); };
    for (QWidget* field : {static_cast<QWidget*>(distance_), static_cast<QWidget*>(mileageNote_)})
        showRow(field, mileage);
    for (QWidget* field : {static_cast<QWidget*>(gstin_), static_cast<QWidget*>(tax_)}) showRow(field, !mileage);
    showRow(claim_, !mileage && e.tax != 0);
    showRow(split_, !mileage && !split_->text().isEmpty());
    showRow(rate_, foreign && !mileage);
    showRow(rateNote_, foreign && !mileage);
    const std::string& homeCode = library.business.homeCurrency;
    convert_->setText(homeCode == "INR" ? tr("Convert to Rupees") : tr("Convert to %1").arg(toQt(homeCode)));
    convert_->setAccessibleName(convert_->text());
    showRow(convert_, foreign && !mileage && home.has_value());
    currency_->setEnabled(!mileage);
    const std::size_t recurring = e.recurringID ? indexOf(library.recurring, *e.recurringID) : library.recurring.size();
    const bool repeats = recurring < library.recurring.size();
    repeats_->setCurrentIndex(
        repeats_->findData(repeats ? static_cast<int>(library.recurring[recurring].frequency) : -1));
    repeats_->setToolTip(
        !repeats ? QString()
        : library.recurring[recurring].paused
            ? tr("Paused")
            : tr("Next on %1").arg(toQt(library.recurring[recurring].nextDate.formatted("d MMM yyyy"))));
    recurring_->setVisible(!library.recurring.empty());
    showGSTINState();

    const auto attention = Expenses::attention(library, e);
    banner_->setVisible(e.check.has_value());
    const QString check = Translations::shown(e.check.value_or(std::string()));
    bannerText_->setText(Controls::wrapped(check, *bannerText_, 184));
    bannerText_->setAccessibleName(check);
    // A figure that is missing is named where it is to be entered.
    category_->setToolTip(attention && !e.check ? Translations::shown(*attention) : QString());
    receipt_->setVisible(beside_ || !e.attachments.empty());
    fillAttachments(e);
}

void ExpenseInspector::fillChoices(const Expense& e) {
    const Library& library = model_.library();
    fillCategories(*category_, library);
    chooseData(*category_, idText(e.categoryID));
    if (method_->count() == 0)
        for (const PaymentMethod method : allMethods()) method_->addItem(Translations::shown(title(method)));
    const auto& methods = allMethods();
    method_->setCurrentIndex(static_cast<int>(std::find(methods.begin(), methods.end(), e.method) - methods.begin()));
    currency_->clear();
    for (const Currency& known : Currency::all()) currency_->addItem(toQt(known.code), toQt(known.code));
    if (currency_->findData(toQt(e.currency)) < 0) currency_->addItem(toQt(e.currency), toQt(e.currency));
    chooseData(*currency_, toQt(e.currency));

    const auto fillNames = [](QComboBox& combo, const QString& none, const QString& added, const auto& records,
                              const std::optional<UUID>& chosen) {
        combo.clear();
        combo.addItem(none, QString());
        for (const auto& record : records)
            if (!record.archived || record.id == chosen) combo.addItem(toQt(record.name), toQt(record.id.text()));
        combo.insertSeparator(combo.count());
        combo.addItem(added, QStringLiteral("new"));
        chooseData(combo, idText(chosen));
    };
    fillNames(*project_, tr("No project"), tr("New Project…"), library.projects, e.projectID);
    fillNames(*client_, tr("No client"), tr("New Client…"), library.clients, e.clientID);
}

void ExpenseInspector::showGSTINState() {
    const std::string text = GSTIN::clean(toStd(gstin_->text()));
    const auto problem = GSTIN::validate(text);
    QString note;
    if (!text.empty()) {
        const auto state = IndianState::of(GSTIN::stateCode(text));
        note = problem ? toQt(GSTIN::problemText(*problem)) : state ? Translations::shown(state->label()) : tr("Valid");
    }
    gstinNote_->setText(Controls::wrapped(note, *gstinNote_, 212));
    setRole(*gstinNote_, problem ? "problem" : "good");
    Controls::markProblem(*gstin_, text.empty() || !problem ? QString() : note);
    const Expense* e = expense();
    form_->setRowVisible(gstinNote_, !note.isEmpty() && e && e->kind == ExpenseKind::regular);
}

void ExpenseInspector::showAttachment(std::size_t index) {
    attachment_ = index;
    const Expense* e = expense();
    if (!e || index >= e->attachments.size()) return receipt_->show({}, {});
    const Attachment& attachment = e->attachments[index];
    receipt_->show(model_.store().url(attachment), toQt(attachment.originalName));
}

void ExpenseInspector::fillAttachments(const Expense& e) {
    while (QLayoutItem* item = attachments_->takeAt(0)) {
        // Deleted when the event loop comes round, and not seen until then.
        if (QWidget* line = item->widget()) line->hide(), line->deleteLater();
        delete item;
    }
    for (std::size_t i = 0; i < e.attachments.size(); ++i) {
        const Attachment& attachment = e.attachments[i];
        const QString name = toQt(attachment.originalName);
        auto* line = new QWidget(this);
        auto* row = new QHBoxLayout(line);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(4);
        auto* open = Controls::button(fontMetrics().elidedText(name, Qt::ElideMiddle, 240), "attachment",
                                      Controls::Kind::link, line);
        open->setToolTip(name);
        open->setAccessibleName(tr("Show %1").arg(name));
        open->setIcon(Icons::icon(attachment.isPDF()                     ? QStringLiteral("file-pdf")
                                  : name.endsWith(QLatin1String(".eml")) ? QStringLiteral("mail")
                                                                         : QStringLiteral("image"),
                                  &Colors::muted));
        auto* remove =
            Controls::iconButton(QStringLiteral("close"), tr("Remove %1").arg(name), "removeAttachment", line);
        remove->setIconSize(QSize(14, 14));
        row->addWidget(open);
        row->addStretch(1);
        row->addWidget(remove);
        attachments_->addWidget(line);
        connect(open, &QPushButton::clicked, this, [this, i] { showAttachment(i); });
        connect(remove, &QToolButton::clicked, this, [this, id = attachment.id] { removeAttachment(id); });
    }
    // Of an e-mail and the bill that came with it, the bill is what one wants to see.
    if (attachment_ == 0)
        for (std::size_t i = 0; i < e.attachments.size(); ++i)
            if (e.attachments[i].isPDF()) attachment_ = i;
    showAttachment(std::min(attachment_, e.attachments.empty() ? 0 : e.attachments.size() - 1));
}

void ExpenseInspector::attachFiles() {
    const Expense* e = expense();
    if (!e) return;
    const auto files = prompts_.receiptFiles();
    if (files.empty()) return;
    model_.perform(tr("Attach File"), [id = e->id, files, store = model_.store()](Library library, Day) {
        const std::size_t index = indexOf(library.expenses, id);
        if (index == library.expenses.size()) return library;
        library.expenses.update(index, [&](Expense& changed) {
            for (const auto& file : files)
                changed.attachments.push_back(Attachment::make(store.importReceipt(file, changed.date, changed.vendor),
                                                               file.filename().string()));
        });
        return library;
    });
}

void ExpenseInspector::removeAttachment(const UUID& id) {
    const Expense* e = expense();
    if (!e) return;
    const auto at =
        std::find_if(e->attachments.begin(), e->attachments.end(), [&](const auto& a) { return a.id == id; });
    if (at == e->attachments.end()) return;
    const Attachment attachment = *at;
    if (!prompts_.confirm(
            tr("Remove this receipt?"),
            tr("“%1” moves to the Removed folder of your books. This step, and those before it, cannot be "
               "undone.")
                .arg(toQt(attachment.originalName)),
            tr("Remove")))
        return;
    attachment_ = 0;
    model_.perform(
        tr("Remove Receipt"),
        [expenseID = e->id, attachment, store = model_.store()](Library library, Day) {
            const std::size_t index = indexOf(library.expenses, expenseID);
            if (index == library.expenses.size()) return library;
            library.expenses.update(index, [&](Expense& changed) {
                std::erase_if(changed.attachments, [&](const Attachment& a) { return a.id == attachment.id; });
            });
            // Last, so that a move that fails leaves the books as they were.
            store.removeAttachment(attachment);
            return library;
        },
        AppModel::Undo::beginsNewHistory);
}

}  // namespace tamba
