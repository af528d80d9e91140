#include "Tamba/Screens/DocumentEditor.h"

#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/GrowingText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Rebilling.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

// From the fields to the books; the way back is in DocumentEditorFill.cpp.
namespace tamba {
namespace {

const QString newEntry = QStringLiteral("new");

/// A rate typed for a document serves the next one in that currency, too.
Library keepingRate(Library library, const std::string& currency, std::int64_t rateMicros, Day today) {
    for (std::size_t i = 0; i < library.rates.size(); ++i)
        if (library.rates[i].currency == currency) {
            library.rates.update(i, [&](FXRate& kept) { kept.rateMicros = rateMicros, kept.updated = today; });
            return library;
        }
    library.rates.append(FXRate{currency, rateMicros, today, {}});
    return library;
}

}  // namespace

DocumentEditor::DocumentEditor(AppModel& model, Prompts& prompts, QWidget* parent)
    : QScrollArea(parent), model_(model), prompts_(prompts) {
    setObjectName(QStringLiteral("documentEditor"));
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(makeContent());
    connectFields();
    connectTexts();
}

QLineEdit* DocumentEditor::line(const QString& title, const char* name) {
    auto* field = new QLineEdit(this);
    Controls::name(*field, name, title);
    return field;
}

QComboBox* DocumentEditor::combo(const QString& title, const char* name) {
    QComboBox* field = makeChoice(this);
    Controls::name(*field, name, title);
    field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field->setMinimumContentsLength(6);
    field->setMaxVisibleItems(16);
    return field;
}

QWidget* DocumentEditor::part(const QString& title, QWidget* field, QLabel* note, int wide, int narrow) {
    auto* box = new QWidget(this);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* label = Controls::label(title, "caption", box);
    label->setBuddy(field);
    layout->addWidget(label);
    layout->addWidget(field);
    if (note) layout->addWidget(note);
    layout->addStretch(1);
    parts_.push_back({box, wide, narrow});
    return box;
}

QWidget* DocumentEditor::makeContent() {
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(20, 16, 20, 20);
    layout->setSpacing(0);
    makeFields(content);
    layout->addLayout(grid_);
    layout->addSpacing(18);
    lines_ = new LinesTable(model_, [this](const Change& change) { return apply(change); }, content);
    layout->addWidget(lines_);
    expenses_ = Controls::button(tr("Add Billable Expenses…"), "addExpenses", Controls::Kind::link, content);
    layout->addSpacing(6);
    layout->addWidget(expenses_, 0, Qt::AlignLeft);
    layout->addSpacing(14);
    layout->addWidget(makeFoot());
    layout->addStretch(1);
    return content;
}

void DocumentEditor::makeFields(QWidget* content) {
    grid_ = new QGridLayout;
    grid_->setHorizontalSpacing(12);
    grid_->setVerticalSpacing(12);
    const auto note = [content](const char* name) {
        auto* label = Controls::label({}, "caption", content);
        label->setObjectName(QString::fromLatin1(name));
        label->hide();
        return label;
    };
    client_ = combo(tr("Client"), "documentClient");
    client_->setEditable(true);
    client_->setInsertPolicy(QComboBox::NoInsert);
    client_->lineEdit()->setPlaceholderText(tr("Who is this for?"));
    client_->lineEdit()->setObjectName(QStringLiteral("clientName"));
    client_->completer()->setCompletionMode(QCompleter::PopupCompletion);
    client_->completer()->setFilterMode(Qt::MatchContains);
    client_->completer()->setCaseSensitivity(Qt::CaseInsensitive);
    part(tr("Client"), client_, clientNote_ = note("clientNote"), 2, 4);

    const auto date = [&](const QString& title, const char* name) {
        auto* field = new DateField(model_.today(), this);
        // One step when the date is typed, not one for each digit.
        field->setKeyboardTracking(false);
        Controls::name(*field, name, title);
        return field;
    };
    part(tr("Date"), date_ = date(tr("Date"), "issueDate"), nullptr, 1, 2);
    QWidget* dueBox = part(tr("Due"), due_ = date(tr("Due"), "dueDate"), dueNote_ = note("dueNote"), 1, 2);
    dueTitle_ = dueBox->findChild<QLabel*>();
    part(tr("Client’s order number"), reference_ = line(tr("Client’s order number"), "reference"), nullptr, 1, 2);

    place_ = combo(tr("Place of supply"), "placeOfSupply");
    supply_ = note("supply");
    placeBox_ = part(tr("Place of supply"), place_, supply_, 2, 2);
    lut_ = new QCheckBox(tr("Under LUT"), placeBox_);
    Controls::name(*lut_, "lut", tr("Under a letter of undertaking, without IGST"));
    lut_->setToolTip(lut_->accessibleName());
    qobject_cast<QVBoxLayout*>(placeBox_->layout())->insertWidget(3, lut_);

    part(tr("Currency"), currency_ = combo(tr("Currency"), "documentCurrency"), nullptr, 1, 2);
    rate_ = line(tr("Exchange rate"), "documentRate");
    rate_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rateBox_ = part(tr("Exchange rate"), rate_, rateNote_ = note("rateNote"), 1, 2);
    seriesBox_ = part(tr("Numbered by"), series_ = combo(tr("Number series"), "documentSeries"), nullptr, 1, 2);
}

QWidget* DocumentEditor::makeFoot() {
    auto* foot = new QWidget;
    auto* columns = new QHBoxLayout(foot);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(28);
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    const auto text = [&](const QString& title, const char* name) {
        auto* field = new GrowingText(2, foot);
        Controls::name(*field, name, title);
        auto* label = Controls::label(title, "caption", foot);
        label->setBuddy(field);
        words->addWidget(label);
        words->addWidget(field);
        words->addSpacing(8);
        return field;
    };
    notes_ = text(tr("Notes for the client"), "documentNotes");
    terms_ = text(tr("Terms"), "documentTerms");
    words->addStretch(1);
    columns->addLayout(words, 1);
    auto* figures = new QVBoxLayout;
    figures->setSpacing(10);
    totals_ = new QGridLayout;
    totals_->setHorizontalSpacing(16);
    totals_->setVerticalSpacing(5);
    totals_->setColumnStretch(0, 1);
    figures->addLayout(totals_);
    roundOff_ = new QCheckBox(tr("Round the total"), foot);
    Controls::name(*roundOff_, "roundOff", tr("Round the total to whole units"));
    figures->addWidget(roundOff_, 0, Qt::AlignRight);
    number_ = Controls::label({}, "caption", foot);
    number_->setObjectName(QStringLiteral("willBeNumbered"));
    number_->setAlignment(Qt::AlignRight);
    figures->addWidget(number_);
    figures->addStretch(1);
    columns->addLayout(figures, 1);
    return foot;
}

void DocumentEditor::connectFields() {
    connect(client_, &QComboBox::activated, this, [this] { takeClient(); });
    connect(client_->lineEdit(), &QLineEdit::returnPressed, this, [this] {
        // Whoever enters a name that nobody has means somebody new; leaving the field may be a slip.
        const QString name = client_->currentText().trimmed();
        const bool chosen = client_->currentIndex() >= 0 && client_->itemText(client_->currentIndex()) == name;
        if (!filling_ && draft() && !name.isEmpty() && !chosen && !clientMeant(name)) newClient(toStd(name));
    });
    connect(client_->lineEdit(), &QLineEdit::editingFinished, this, [this] { takeClient(); });
    connect(date_, &QDateEdit::dateChanged, this, [this](const QDate& date) {
        apply([day = dayOf(date)](const Library&, Document draft) {
            return Books::withIssueDate(std::move(draft), day);
        });
    });
    connect(due_, &QDateEdit::dateChanged, this, [this](const QDate& date) {
        if (filling_) return;
        const QString problem = apply([day = dayOf(date)](const Library&, Document draft) {
            draft.dueDate = day;
            return draft;
        });
        Controls::markProblem(*due_, problem);
        setNote(*dueNote_, problem, "problem");
    });
    connect(place_, &QComboBox::activated, this, [this] {
        const std::string code = toStd(place_->currentData().toString());
        apply([code](const Library& library, Document draft) {
            return Books::withPlaceOfSupply(library, std::move(draft),
                                            code.empty() ? std::nullopt : std::optional(code));
        });
    });
    connect(lut_, &QCheckBox::toggled, this, [this](bool on) {
        apply([on](const Library& library, Document draft) { return Books::withLUT(library, std::move(draft), on); });
    });
    connect(currency_, &QComboBox::activated, this, [this] {
        apply([code = toStd(currency_->currentData().toString())](const Library& library, Document draft) {
            return draft.currency == code ? draft : Books::withCurrency(library, std::move(draft), code);
        });
    });
    connect(series_, &QComboBox::activated, this, [this] {
        apply([id = UUID::parse(toStd(series_->currentData().toString()))](const Library&, Document draft) {
            draft.seriesID = id;
            return draft;
        });
    });
    connect(rate_, &QLineEdit::editingFinished, this, &DocumentEditor::takeRate);
    connect(reference_, &QLineEdit::editingFinished, this, &DocumentEditor::takeReference);
    connect(roundOff_, &QCheckBox::toggled, this, [this](bool on) {
        apply([on](const Library&, Document draft) {
            draft.roundOff = on;
            return draft;
        });
    });
    connect(expenses_, &QPushButton::clicked, this, &DocumentEditor::addExpenses);
    connect(lines_, &LinesTable::typed, this, &DocumentEditor::showTotals);
    connect(lines_, &LinesTable::noticed, this, &DocumentEditor::noticed);
}

void DocumentEditor::connectTexts() {
    connect(notes_, &GrowingText::left, this, [this] { takeText(*notes_, &Document::notes); });
    connect(terms_, &GrowingText::left, this, [this] { takeText(*terms_, &Document::terms); });
}

const Document* DocumentEditor::draft() const {
    const Document* document = model_.library().document(id_);
    return document && document->state == DocState::draft ? document : nullptr;
}

QString DocumentEditor::apply(const Change& change) {
    const Document* present = draft();
    if (filling_ || !present) return {};
    const QString kind = Translations::shown(Books::title(present->kind));
    try {
        const Document changed = change(model_.library(), *present);
        if (const auto problem = Books::problem(model_.library(), changed))
            return toQt(std::string_view(problem->what()));
    } catch (const BooksError& refusal) {
        return toQt(std::string_view(refusal.what()));
    }
    model_.perform(tr("Edit %1").arg(kind), [id = id_, change](Library library, Day) {
        const Document* now = library.document(id);
        if (!now) return library;
        Document changed = change(library, *now);
        return changed == *now ? library : Books::replaceDraft(library, std::move(changed));
    });
    return {};
}

void DocumentEditor::takeClient() {
    const Document* present = draft();
    if (filling_ || !present) return;
    if (client_->currentData().toString() == newEntry &&
        client_->currentText() == client_->itemText(client_->currentIndex()))
        return newClient({});
    const QString text = client_->currentText().trimmed();
    const std::optional<UUID> wanted = clientMeant(text);
    const bool unknown = !text.isEmpty() && !wanted;
    Controls::markProblem(*client_, unknown ? tr("No client has this name.") : QString());
    if (unknown)
        return setNote(*clientNote_, tr("No client has this name. Choose “New Client…” to add one."), "problem");
    client_->lineEdit()->setModified(false);
    if (wanted != present->clientID)
        apply([wanted](const Library& library, Document draft) {
            return Books::withClient(library, std::move(draft), wanted);
        });
    refresh();
}

std::optional<UUID> DocumentEditor::clientMeant(const QString& text) const {
    // Of two clients with one name the one that was chosen from the list counts.
    if (client_->currentIndex() >= 0 && client_->itemText(client_->currentIndex()) == text)
        return UUID::parse(toStd(client_->currentData().toString()));
    const std::string name = Text::lower(toStd(text));
    if (name.empty()) return {};
    std::vector<UUID> containing;
    for (const Client& client : model_.library().clients) {
        if (client.archived) continue;
        const std::string known = Text::lower(Text::trim(client.name));
        if (known == name) return client.id;
        if (Text::contains(known, name)) containing.push_back(client.id);
    }
    // A part of one client's name only says who is meant.
    if (containing.size() == 1) return containing.front();
    return {};
}

void DocumentEditor::newClient(const std::string& name) {
    const auto client = prompts_.newClient(model_.library(), name);
    if (!client && !name.empty()) return;  // what was typed stays, to be put right
    const Document* present = draft();
    client_->lineEdit()->setModified(false);
    if (client && present)
        model_.perform(tr("New Client"), [client = *client, id = id_](Library library, Day) {
            library = Clients::put(std::move(library), client);
            const Document* now = library.document(id);
            return now ? Books::replaceDraft(library, Books::withClient(library, *now, client.id)) : library;
        });
    refresh();
    if (client) focusLines();
}

void DocumentEditor::takeReference() {
    if (filling_ || !reference_->isModified()) return;
    reference_->setModified(false);
    apply([text = toStd(reference_->text().trimmed())](const Library&, Document draft) {
        draft.reference = text;
        return draft;
    });
}

void DocumentEditor::takeRate() {
    const Document* present = draft();
    if (filling_ || !present || !rate_->isModified()) return;
    const QString text = rate_->text().trimmed();
    const auto value = text.isEmpty() ? std::optional<std::int64_t>(0) : MoneyFormat::parseFXRate(toStd(text));
    if (!value || !isBelievable(*value)) {
        Controls::markProblem(*rate_, tr("Enter a rate such as 83.25."));
        return setNote(*rateNote_, tr("Enter a rate such as 83.25."), "problem");
    }
    rate_->setModified(false);
    model_.perform(tr("Change Exchange Rate"), [id = id_, rate = *value](Library library, Day today) {
        const Document* now = library.document(id);
        if (!now || now->rateMicros == rate) return library;
        Document changed = *now;
        changed.rateMicros = rate;
        library = Books::replaceDraft(std::move(library), changed);
        return rate == 0 ? library : keepingRate(std::move(library), changed.currency, rate, today);
    });
    refresh();
}

void DocumentEditor::takeText(GrowingText& field, std::string Document::* member) {
    if (filling_ || !field.isModified()) return;
    field.setModified(false);
    apply([text = toStd(field.toPlainText()), member](const Library&, Document draft) {
        draft.*member = text;
        return draft;
    });
}

void DocumentEditor::addExpenses() {
    commit();
    const Document* present = draft();
    if (!present) return;
    const std::vector<UUID> expenses = prompts_.expensesToBill(model_.library(), *present);
    if (expenses.empty()) return;
    const QString problem = apply([expenses](const Library& library, Document draft) {
        return Rebilling::withExpenses(library, std::move(draft), expenses);
    });
    if (!problem.isEmpty()) emit noticed(problem);
}

void DocumentEditor::setDocument(const UUID& id) {
    if (id != id_) {
        commit();
        lines_->forget();
        client_->lineEdit()->setModified(false);
        for (QLineEdit* field : {reference_, rate_}) field->setModified(false);
        for (GrowingText* field : {notes_, terms_}) field->setModified(false);
        for (QLabel* note : {clientNote_, dueNote_, rateNote_}) setNote(*note, {}, "caption");
        Controls::markProblem(*client_, {});
        Controls::markProblem(*due_, {});
        id_ = id;
        ensureVisible(0, 0);
    }
    refresh();
}

void DocumentEditor::commit() {
    if (!draft()) return;
    if (client_->lineEdit()->isModified()) takeClient();
    date_->interpretText();
    due_->interpretText();
    takeReference();
    if (rateBox_->isVisibleTo(this)) takeRate();
    lines_->commit();
    takeText(*notes_, &Document::notes);
    takeText(*terms_, &Document::terms);
}

bool DocumentEditor::hasUnsavedText() const {
    return client_->lineEdit()->isModified() || reference_->isModified() || rate_->isModified() ||
           lines_->hasUnsavedText() || notes_->isModified() || terms_->isModified();
}

void DocumentEditor::focusClient() {
    client_->setFocus(Qt::TabFocusReason);
    client_->lineEdit()->selectAll();
}

void DocumentEditor::focusLines() { lines_->focusFirst(); }

}  // namespace tamba
