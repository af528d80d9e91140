#include "Tamba/QtText.h"
#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Screens/DocumentEditor.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/GrowingText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Documents/Rebilling.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

// From the books to the fields; the way back is in DocumentEditor.cpp.
namespace tamba {
namespace {

void put(QLineEdit& field, const QString& text) {
    // What is being typed, or was refused, stays.
    if (field.isModified()) return;
    if (field.text() != text) field.setText(text);
    Controls::markProblem(field, {});
}

}  // namespace

void DocumentEditor::refresh() {
    if (const Document* present = draft()) fill(*present);
}

void DocumentEditor::setNote(QLabel& note, const QString& text, const char* role) {
    const int room = note.parentWidget()->width();
    note.setText(Controls::wrapped(text, note, room > 60 ? room : 160));
    note.setProperty("words", text);
    note.setVisible(!text.isEmpty());
    setRole(note, role);
}

void DocumentEditor::fill(const Document& draft) {
    const QScopedValueRollback guard(filling_, true);
    const bool credit = draft.kind == DocKind::creditNote;
    const Document before = draft;  // fields may take the focus, and with it what is typed, while they change
    if (!client_->lineEdit()->isModified()) fillClients(before);
    date_->setDate(qDate(before.issueDate));
    if (!due_->property("problem").toBool()) due_->setDate(qDate(before.dueDate));
    due_->parentWidget()->setVisible(!credit);
    dueTitle_->setText(before.kind == DocKind::estimate ? tr("Valid until") : tr("Due"));
    due_->setAccessibleName(dueTitle_->text());
    put(*reference_, toQt(before.reference));
    fillPlace(before);
    fillMoney(before);
    fillSeries(before);
    lines_->fill(before);
    expenses_->setVisible(before.kind == DocKind::invoice && !Rebilling::candidates(model_.library(), before).empty());
    notes_->put(toQt(before.notes));
    terms_->put(toQt(before.terms));
    roundOff_->setChecked(before.roundOff);
    // A note takes over who, where and in what from its invoice.
    const bool own = !credit || !before.linkedID;
    for (QWidget* field : {static_cast<QWidget*>(client_), static_cast<QWidget*>(currency_),
                           static_cast<QWidget*>(rate_), static_cast<QWidget*>(lut_)})
        field->setEnabled(own);
    place_->setEnabled(own && place_->isEnabled());
    fillNotes(before);
    showTotals();
    arrange();
}

void DocumentEditor::fillClients(const Document& draft) {
    std::vector<const Client*> clients;
    for (const Client& client : model_.library().clients)
        if (!client.archived || client.id == draft.clientID) clients.push_back(&client);
    std::sort(clients.begin(), clients.end(),
              [](const Client* a, const Client* b) { return Text::compareForPeople(a->name, b->name) < 0; });
    client_->clear();
    for (const Client* client : clients) client_->addItem(toQt(client->name), toQt(client->id.text()));
    if (!clients.empty()) client_->insertSeparator(client_->count());
    client_->addItem(tr("New Client…"), QStringLiteral("new"));
    const int chosen = draft.clientID ? client_->findData(toQt(draft.clientID->text())) : -1;
    client_->setCurrentIndex(chosen);
    if (chosen < 0) client_->clearEditText();
    Controls::markProblem(*client_, {});
}

void DocumentEditor::fillPlace(const Document& draft) {
    const Library& library = model_.library();
    const Client* client = draft.clientID ? library.client(*draft.clientID) : nullptr;
    const bool foreign = client && client->isForeign();
    if (place_->count() == 0 || place_->isEnabled() == foreign) {
        place_->clear();
        if (foreign)
            place_->addItem(tr("Outside India"), QString());
        else
            fillStates(*place_, tr("Not chosen"));
        place_->setEnabled(!foreign);
    }
    chooseCode(*place_, draft.placeOfSupply.value_or(""));
    placeBox_->setVisible(library.business.isIndia());
    setNote(*supply_, Translations::shown(title(draft.supply)), "caption");
    const bool zeroRated = isZeroRated(draft.supply);
    lut_->setVisible(zeroRated);
    lut_->setChecked(draft.lut);
}

void DocumentEditor::fillMoney(const Document& draft) {
    const Library& library = model_.library();
    const bool foreign = draft.currency != library.home().code;
    fillCurrencies(*currency_, draft.currency);
    chooseData(*currency_, toQt(draft.currency));
    put(*rate_, draft.rateMicros == 0 ? QString() : toQt(MoneyFormat::fxRate(draft.rateMicros)));
    rate_->setPlaceholderText(tr("%1 for one %2").arg(toQt(library.home().code), toQt(draft.currency)));
    rateBox_->setVisible(foreign);
    if (rate_->isModified()) return;
    const BooksError missing(BooksError::Code::missingRate, draft.currency);
    const bool lacks = foreign && draft.rateMicros == 0;
    Controls::markProblem(*rate_, lacks ? toQt(std::string_view(missing.what())) : QString());
    setNote(*rateNote_, lacks ? toQt(std::string_view(missing.what())) : QString(), lacks ? "problem" : "caption");
}

void DocumentEditor::fillSeries(const Document& draft) {
    const Library& library = model_.library();
    series_->clear();
    for (const NumberSeries& series : library.series)
        if (series.kind == draft.kind) series_->addItem(toQt(series.name), toQt(series.id.text()));
    chooseData(*series_, draft.seriesID ? toQt(draft.seriesID->text()) : QString());
    seriesBox_->setVisible(series_->count() > 1);
}

void DocumentEditor::fillNotes(const Document& draft) {
    const Library& library = model_.library();
    const Client* client = draft.clientID ? library.client(*draft.clientID) : nullptr;
    if (!client_->lineEdit()->isModified()) {
        const auto problem = client ? Clients::taxIDProblem(*client) : std::nullopt;
        const QString taxID =
            client && !client->taxID.empty() ? toQt(library.business.taxIDLabel + " " + client->taxID) : QString();
        setNote(*clientNote_, problem ? toQt(*problem) : taxID, problem ? "problem" : "caption");
    }
    const NumberSeries* series = draft.seriesID ? tamba::find(library.series, *draft.seriesID) : nullptr;
    if (!series) series = library.defaultSeries(draft.kind);
    QString number;
    if (series) number = toQt(Numbering::nextNumber(library, *series, draft.issueDate));
    const bool good = series && Numbering::isAllowed(toStd(number));
    number_->setText(!series ? toQt(std::string_view(BooksError(BooksError::Code::noSeries).what()))
                             : tr("Will be numbered %1").arg(number));
    setRole(*number_, good || !library.business.isIndia() ? "caption" : "problem");
}

void DocumentEditor::showTotals() {
    const Document* present = draft();
    if (!present) return;
    Document shown = lines_->pending(*present);
    if (Books::problem(model_.library(), shown)) shown = *present;
    lines_->showAmounts(shown);
    const std::vector<TotalLine> lines = totalLines(model_.library(), shown);
    const auto label = [this](int row, int column) {
        if (QLayoutItem* item = totals_->itemAtPosition(row, column)) return qobject_cast<QLabel*>(item->widget());
        auto* made = new QLabel(widget());
        made->setAlignment(Qt::AlignVCenter | (column == 0 ? Qt::AlignLeft : Qt::AlignRight));
        totals_->addWidget(made, row, column);
        return made;
    };
    const int rows = std::max(totals_->rowCount(), static_cast<int>(lines.size()));
    for (int row = 0; row < rows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        const bool used = index < lines.size();
        if (!used && !totals_->itemAtPosition(row, 0)) continue;
        QLabel* name = label(row, 0);
        QLabel* amount = label(row, 1);
        name->setVisible(used);
        amount->setVisible(used);
        if (!used) continue;
        const bool strong = lines[index].strong;
        name->setText(toQt(lines[index].title));
        amount->setText(toQt(lines[index].amount));
        amount->setObjectName(strong ? QStringLiteral("draftTotal") : QString());
        amount->setAccessibleName(name->text());
        setRole(*name, strong ? "" : "field");
        name->setFont(Style::textFont(strong ? 15 : 13, strong ? QFont::DemiBold : QFont::Normal));
        amount->setFont(name->font());
    }
}

void DocumentEditor::arrange() {
    const int room = viewport()->width();
    const bool narrow = room < 672;
    lines_->setCompact(room < 720);
    int row = 0, column = 0;
    for (const Part& part : parts_) grid_->removeWidget(part.box);
    for (const Part& part : parts_) {
        if (part.box->isHidden()) continue;
        int columns = narrow ? part.narrow : part.wide;
        const bool crowded = !rateBox_->isHidden() || !seriesBox_->isHidden();
        if (part.box == placeBox_ && !narrow && crowded) columns = 1;
        if (column + columns > 4) {
            ++row;
            column = 0;
        }
        grid_->addWidget(part.box, row, column, 1, columns);
        column += columns;
    }
    for (int i = 0; i < 4; ++i) grid_->setColumnStretch(i, 1);
}

void DocumentEditor::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    // After this round of the layout, which would not hear of the change.
    QMetaObject::invokeMethod(this, &DocumentEditor::arrange, Qt::QueuedConnection);
    for (QLabel* note : {clientNote_, dueNote_, supply_, rateNote_})
        if (const QString words = note->property("words").toString(); !words.isEmpty())
            note->setText(Controls::wrapped(words, *note, std::max(100, note->parentWidget()->width())));
}

}  // namespace tamba
