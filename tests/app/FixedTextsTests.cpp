#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Sheets/ConflictSheet.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "TambaCore/Base/Files.h"
#include "tests/app/Places.h"
#include "tests/app/Support.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>

namespace tamba {
namespace {

QString plain(QString text) { return text.replace(QLatin1Char('\n'), QLatin1Char(' ')); }

/// All that can be read in a place, also by opening its combo boxes.
QStringList textsOf(const QWidget& place) {
    QStringList texts;
    const auto addModel = [&](const QAbstractItemModel& model) {
        for (int column = 0; column < model.columnCount(); ++column) {
            texts << model.headerData(column, Qt::Horizontal).toString();
            for (int row = 0; row < model.rowCount(); ++row)
                texts << model.index(row, column).data(Qt::DisplayRole).toString();
        }
    };
    for (const QWidget* widget : place.findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        if (const auto* label = qobject_cast<const QLabel*>(widget)) texts << label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            texts << button->text().remove(QLatin1Char('&')) << button->accessibleName() << button->toolTip();
        if (const auto* field = qobject_cast<const QLineEdit*>(widget)) texts << field->text();
        if (const auto* field = qobject_cast<const QPlainTextEdit*>(widget)) texts << field->toPlainText();
        if (const auto* combo = qobject_cast<const QComboBox*>(widget)) addModel(*combo->model());
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget); view && view->model())
            addModel(*view->model());
    }
    for (QString& text : texts) text = plain(text);
    return texts;
}

/// A text that is fixed, and a place where people meet it.
struct Fixed {
    const char* place;
    std::vector<const char*> texts;
};

const std::vector<Fixed>& fixedTexts() {
    static const std::vector<Fixed> all{
        {"settings-Business",
         {"Indian rupee", "US dollar", "Euro", "Pound sterling", "UAE dirham", "Singapore dollar", "Australian dollar",
          "Canadian dollar", "New Zealand dollar", "Swiss franc", "Japanese yen", "Kuwaiti dinar", "Bahraini dinar",
          "Saudi riyal", "South African rand", "Sri Lankan rupee", "Nepalese rupee", "Bangladeshi taka"}},
        {"settings-Tax",
         {"GST (India, regular)", "GST (India, composition scheme)", "VAT / sales tax", "Not registered for tax",
          "Tamba charges CGST + SGST (or UTGST) when the place of supply is your state and IGST otherwise. Exports and "
          "SEZ supplies are zero-rated, under LUT unless you switch it off on the invoice. CGST and SGST are each "
          "worked out at half the rate, so they always match."}},
        {"settings-Numbering",
         {"Invoices", "Estimates", "Credit notes", "INV/{FY}/{###}", "EST/{FY}/{###}", "CN/{FY}/{###}",
          "Tokens: {FY} 26-27, {YYYY}, {YY}, {MM}, and {###} for the counter (one # per digit). With a year token the "
          "count restarts each year. Drafts get a number only when issued, and issued documents can only be voided, so "
          "the series never has gaps."}},
        {"welcome-1", {"sample books for a made-up studio"}},
        {"settings-Invoices",
         {"Each line can carry its own rate. Tax is worked out per line and rounded half-up.", "Round totals to whole",
          "(shows a round-off line)", "Thank you for your business."}},
        {"settings-Categories",
         {"Software & subscriptions", "Equipment", "Travel", "Local transport", "Meals", "Office & supplies",
          "Rent & utilities", "Internet & phone", "Professional fees", "Marketing", "Bank & payment fees", "Mileage",
          "Other"}},
        {"bank-empty", {"Current account"}},
        {"expense-no-rate", {"Add the exchange rate to include this in reports."}},
        {"invoice-draft", {"Will be numbered"}},
        {"sheet-issue", {"Will be numbered"}},
        {"bank", {"Match the Obvious Ones"}},
        {"report-Profit and loss",
         {"By invoice date", "By payment received",
          "Income is the taxable value of invoices issued in each month, less credit notes. Expenses count net of tax "
          "you reclaim."}},
        {"report-Profit and loss by cash",
         {"Income is the taxable share of payments received (TDS included) in each month."}},
        {"report-Spending", {"Uncategorised"}},
        {"report-Money owed", {"Not yet due", "1–30 days", "31–60 days", "61–90 days", "Over 90 days"}},
        {"damaged", {"Tamba couldn’t read its library: ", ". A daily backup is in the Backups folder."}},
    };
    return all;
}

/// Books with a client and three documents: a draft, an issued invoice and an estimate.
struct Papers : OpenBooks {
    TestPrompts prompts;
    DocumentActions actions{model, prompts};
    UUID draft, invoice, estimate;

    Papers() {
        QObject::connect(&model, &AppModel::refused, &model, [this](const QString& text) { prompts.alert(text); });
        model.perform(QStringLiteral("Books"), [this](Library library, Day today) {
            library.business.taxID = GSTIN::make("27", "AAPFU0939F", "1");
            Client client = Client::make("Monsoon Tea");
            client.stateCode = "27";
            library.clients.append(client);
            const auto add = [&](DocKind kind) {
                Document document = Books::newDocument(library, kind, client.id, today);
                document.lines = {Line::make("Design", 1000, 100'000, 1800)};
                library = Books::addDraft(std::move(library), document);
                return document.id;
            };
            draft = add(DocKind::invoice);
            invoice = add(DocKind::invoice);
            estimate = add(DocKind::estimate);
            for (const UUID& id : {invoice, estimate}) library = Books::issue(std::move(library), id, today);
            return library;
        });
    }
    void change(const std::function<void(Library&)>& change) {
        model.perform(QStringLiteral("Change"), [&](Library library, Day) {
            change(library);
            return library;
        });
    }
    void changeDraft(const std::function<void(Document&)>& edit) {
        change([&](Library& library) {
            for (std::size_t i = 0; i < library.documents.size(); ++i)
                if (library.documents[i].id == draft) library.documents.update(i, edit);
        });
    }
};

}  // namespace

/// The texts that may not change by a letter, looked for where people read them.
class FixedTextsTests : public QObject {
    Q_OBJECT

    static std::filesystem::path put(const std::filesystem::path& file, const std::string& bytes) {
        Files::writeAtomically(file, bytes);
        return file;
    }

private slots:
    void standOnTheirScreens() {
        QMap<QString, QStringList> read;
        visitPlaces([&](const QString& name, QWidget& place) { read[name] = textsOf(place); });
        QStringList missing;
        for (const Fixed& fixed : fixedTexts())
            for (const char* words : fixed.texts) {
                const QString text = QString::fromUtf8(words);
                const QStringList& there = read[QLatin1String(fixed.place)];
                // One word alone is easily part of another text.
                const auto holds = [&](const QString& each) {
                    return each == text || each.endsWith(QStringLiteral(" · ") + text) ||
                           (text.contains(QLatin1Char(' ')) && each.contains(text));
                };
                if (std::none_of(there.begin(), there.end(), holds))
                    missing << QLatin1String(fixed.place) + QStringLiteral(": ") + text;
            }
        for (const QString& text : missing) qWarning("%s", qPrintable(text));
        QVERIFY(missing.isEmpty());
    }

    void newBooksHaveTheirTextsForInvoices() {
        SettingsSheet settings(nullptr, Library::make(), testDay);
        const auto text = [&](const char* name) {
            return settings.findChild<QLineEdit*>(QString::fromLatin1(name))->text();
        };
        QCOMPARE(text("signatory"), QStringLiteral("Authorised signatory"));
        QCOMPARE(text("footerText"), QStringLiteral("Thank you for your business."));
    }

    void fieldsSayWhatIsWrong_data() {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char* name, const char* page, const char* field, const char* typed,
                            const char* sentence) {
            QTest::newRow(name) << QString::fromUtf8(page) << QString::fromUtf8(field) << QString::fromUtf8(typed)
                                << QString::fromUtf8(sentence);
        };
        row("GSTIN too short", "Tax", "taxID", "27AAPFU0939F1Z", "A GSTIN has 15 characters.");
        row("no GSTIN", "Tax", "taxID", "27AAPFU09X9F1ZV",
            "That doesn’t look like a GSTIN (2 digits, PAN, entity number, Z, check).");
        row("no such state", "Tax", "taxID", "99AAPFU0939F1ZV", "The first two digits aren’t a GST state code.");
        row("mistyped", "Tax", "taxID", "27AAPFU0939F1ZX", "The last character doesn’t match. Check for a typo.");
        row("long number", "Numbering", "pattern1", "INVOICE/{FY}/{######}", "· too long for GST (16 max)");
        row("UPI ID", "Payment", "upiID", "studio", "That doesn’t look like a UPI ID (name@handle).");
    }
    void fieldsSayWhatIsWrong() {
        QFETCH(QString, page);
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, sentence);
        SettingsSheet settings(nullptr, Library::make(), testDay);
        const auto pages =
            settings.findChild<QListWidget*>(QStringLiteral("settingsPages"))->findItems(page, Qt::MatchExactly);
        QCOMPARE(pages.size(), 1);
        settings.showPage(pages[0]->listWidget()->row(pages[0]));
        settings.show();
        settings.findChild<QLineEdit*>(field)->setText(typed);
        const QStringList texts = textsOf(settings);
        QVERIFY2(texts.contains(sentence) || texts.filter(sentence).size() == 1, qPrintable(texts.join(u'\n')));
    }

    void aDraftSaysWhatKindOfSupplyItIs_data() {
        QTest::addColumn<QString>("client");
        QTest::addColumn<bool>("lut");
        QTest::addColumn<QString>("title");
        QTest::newRow("at home") << "27" << true << "Within the state (CGST + SGST)";
        QTest::newRow("elsewhere") << "29" << true << "Between states (IGST)";
        QTest::newRow("abroad") << "US" << true << "Export under LUT (no IGST)";
        QTest::newRow("taxed abroad") << "US" << false << "Export with IGST paid";
        QTest::newRow("zone") << "SEZ" << true << "SEZ unit under LUT (no IGST)";
        QTest::newRow("taxed zone") << "SEZ" << false << "SEZ unit with IGST";
        QTest::newRow("under the scheme") << "scheme" << true << "No tax charged";
    }
    void aDraftSaysWhatKindOfSupplyItIs() {
        QFETCH(QString, client);
        QFETCH(bool, lut);
        QFETCH(QString, title);
        Papers papers;
        InvoicesScreen screen(papers.model, papers.prompts, papers.actions);
        papers.change([&](Library& library) {
            library.business.lutReference = "AD270326000417X";
            if (client == QStringLiteral("scheme")) library.business.regime = TaxRegime::gstComposition;
            library.clients.update(0, [&](Client& c) {
                c.sez = client == QStringLiteral("SEZ");
                if (client == QStringLiteral("US")) c.country = "US", c.stateCode.reset();
                if (client == QStringLiteral("29")) c.stateCode = "29";
            });
            const Document made =
                Books::newDocument(library, DocKind::invoice, library.clients[0].id, papers.model.today());
            papers.draft = made.id;
            library.documents.append(made);
        });
        screen.select(papers.draft);
        screen.resize(1232, 820);
        screen.show();
        auto& box = *screen.findChild<QCheckBox*>(QStringLiteral("lut"));
        if (box.isVisible() && box.isChecked() != lut) box.click();
        QVERIFY2(textsOf(screen).contains(title),
                 qPrintable(screen.findChild<QLabel*>(QStringLiteral("supply"))->text()));
    }

    void aConflictNamesTheSupplies() {
        Papers papers;
        const auto with = [&](SupplyType supply) {
            Library library = papers.model.library();
            library.documents.update(0, [supply](Document& d) { d.supply = supply; });
            return library;
        };
        const Library ours = with(SupplyType::simple), theirs = with(SupplyType::noTax);
        Merged merged = merge(papers.model.library(), ours, theirs);
        ConflictSheet sheet(nullptr, {merged.library, ours, theirs, merged.conflicts});
        sheet.show();
        for (const char* title : {"Standard", "No tax charged"})
            QVERIFY2(textsOf(sheet).contains(QString::fromUtf8(title)), title);
    }

    void issuingSaysWhyNot() {
        struct Case {
            const char* sentence;
            std::function<void(Papers&)> spoil;
        };
        const Case cases[] = {
            {"Choose who this is for first.",
             [](Papers& p) { p.changeDraft([](Document& d) { d.clientID.reset(), d.billTo.reset(); }); }},
            {"Add at least one line with an amount.",
             [](Papers& p) { p.changeDraft([](Document& d) { d.lines.clear(); }); }},
            {"Add the exchange rate from USD to your home currency first.",
             [](Papers& p) { p.changeDraft([](Document& d) { d.currency = "USD", d.rateMicros = 0; }); }},
            {"There’s no number series for this kind of document.",
             [](Papers& p) { p.change([](Library& l) { l.series = {}; }); }},
            {"“INVOICE/26-27/000002” is longer than the 16 characters GST allows. Shorten the series pattern in "
             "Settings.",
             [](Papers& p) {
                 p.change([](Library& l) {
                     l.series.update(0, [](NumberSeries& s) { s.pattern = "INVOICE/{FY}/{######}"; });
                 });
             }},
            {"Only drafts can be changed this way.", [](Papers& p) { p.draft = p.invoice; }}};
        for (const Case& each : cases) {
            Papers papers;
            each.spoil(papers);
            QStringList texts;
            papers.prompts.drive = [&](QDialog& sheet) {
                sheet.show();
                texts = textsOf(sheet);
            };
            papers.actions.run(DocumentActions::Action::issue, papers.draft);
            QVERIFY2(texts.contains(QString::fromUtf8(each.sentence)), qPrintable(texts.join(u'\n')));
        }
    }

    void refusalsComeAsAlerts() {
        using Action = DocumentActions::Action;
        struct Case {
            const char* sentence;
            std::function<void(Papers&)> act;
        };
        const Case cases[] = {
            {"That’s more than the balance due.",
             [](Papers& p) {
                 p.prompts.drive = [&](QDialog&) {
                     // The money came in on another way while the sheet asked.
                     p.change([&](Library& l) {
                         l = Books::recordPayment(std::move(l), p.invoice,
                                                  Payment::make(testDay, 118'000, 0, PaymentMethod::upi));
                     });
                 };
                 p.actions.run(Action::recordPayment, p.invoice);
             }},
            {"Issued documents keep their number. Void it instead, so the series has no gaps.",
             [](Papers& p) { p.actions.run(Action::deleteDraft, p.invoice); }},
            {"That’s already void.",
             [](Papers& p) {
                 p.prompts.drive = [&](QDialog&) {
                     p.change([&](Library& l) { l = Books::voidDocument(std::move(l), p.invoice, ""); });
                 };
                 p.actions.run(Action::voidDocument, p.invoice);
             }},
            {"That works on invoices only.", [](Papers& p) { p.actions.run(Action::remind, p.estimate); }},
            {"A credit note can’t be more than what’s left on the invoice.",
             [](Papers& p) {
                 p.actions.run(Action::credit, p.invoice);
                 p.actions.run(Action::credit, p.invoice);
             }},
            {"Tamba couldn’t save: No space left on device.", [](Papers& p) {
                 Files::setObserver([](const char*) { throw FileError("No space left on device"); });
                 p.rename("unsaved");
                 p.model.saveNow();
                 Files::setObserver({});
             }}};
        for (const Case& each : cases) {
            Papers papers;
            each.act(papers);
            QVERIFY2(papers.prompts.alerts == QStringList(QString::fromUtf8(each.sentence)), each.sentence);
        }
    }

    void filesThatCannotBeTakenInAreAlerts() {
        OpenBooks books;
        const auto desk = books.path() / "Desk";
        Files::makeFolders(desk);
        QImage blank(400, 300, QImage::Format_RGB32);
        blank.fill(Qt::white);
        QVERIFY(blank.save(toQt(desk / "blank.png")));
        const std::pair<std::filesystem::path, const char*> cases[] = {
            {put(desk / "notes.xlsx", "Dear diary"),
             "Tamba doesn’t recognise that file. Export a CSV, OFX or QIF statement from your bank."},
            {put(desk / "empty.ofx", "<OFX></OFX>"), "No transactions were found in that file."},
            {put(desk / "photo.png", "no picture"), "photo.png: Tamba couldn’t open that file as an image or PDF."},
            {desk / "blank.png", "blank.png: No text was found on that receipt."},
        };
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        Window window(books.model, std::move(owned));
        for (const auto& [file, sentence] : cases) {
            prompts.alerts.clear();
            window.addFiles({file});
            QTRY_VERIFY_WITH_TIMEOUT(!prompts.alerts.isEmpty(), 60000);
            QCOMPARE(prompts.alerts, QStringList(QString::fromUtf8(sentence)));
        }
    }

    void aReceiptThatIsGoneBeforeItIsFiledIsAnAlert() {
        OpenBooks books;
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        Window window(books.model, std::move(owned), [] {
            return [](const std::filesystem::path& file, DateOrder, Day, const std::atomic<bool>*) {
                ReceiptScanner::Result result;
                result.files = {file};
                Files::remove(file);
                return result;
            };
        });
        window.addFiles({put(books.path() / "bill.png", "a picture")});
        QTRY_COMPARE(prompts.alerts, QStringList(QStringLiteral("bill.png: That file couldn’t be added.")));
    }

    void aStatementWithoutAColumnSaysSo() {
        OpenBooks books;
        QStringList texts;
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        prompts.drive = [&](QDialog& sheet) {
            sheet.show();
            texts = textsOf(sheet);
        };
        Window window(books.model, std::move(owned));
        window.addFiles({put(books.path() / "short.csv", "Txn Date,Narration\n01/11/2026,Chai\n02/11/2026,Tea\n")});
        QTRY_VERIFY(!texts.isEmpty() || !prompts.alerts.isEmpty());
        texts << prompts.alerts;
        const QString sentence =
            QStringLiteral("Tamba couldn’t find the date column. Check the file has a header row.");
        QVERIFY2(texts.contains(sentence), qPrintable(texts.join(u'\n')));
    }

    void suggestionsSayWhy() {
        OpenBooks books;
        UUID spent, near, paid, part, tds, whole;
        books.model.perform(QStringLiteral("Books"), [&](Library library, Day today) {
            library.business.taxID = GSTIN::make("27", "AAPFU0939F", "1");
            Client client = Client::make("Monsoon Tea");
            library.clients.append(client);
            Document draft = Books::newDocument(library, DocKind::invoice, client.id, today);
            draft.lines = {Line::make("Design", 1000, 100'000, 1800)};
            library = Books::issue(Books::addDraft(std::move(library), draft), draft.id, today);
            Expense expense = Expense::make(today);
            expense.vendor = "Chai Point";
            expense.amount = 250'000;
            library.expenses.append(expense);
            Document second = Books::newDocument(library, DocKind::invoice, client.id, today);
            second.lines = {Line::make("Print", 1000, 900'000, 1800)};
            library = Books::issue(Books::addDraft(std::move(library), second), second.id, today);
            library = Books::recordPayment(std::move(library), second.id,
                                           Payment::make(today, 500'000, 0, PaymentMethod::cash));
            const auto line = [&](std::int64_t amount, const char* text, int later = 0) {
                BankTransaction made = BankTransaction::make(today.addingDays(later), text, amount);
                made.accountID = library.accounts[0].id;
                library.transactions.append(made);
                return made.id;
            };
            spent = line(-250'000, "UPI CHAI 4471");
            near = line(-249'000, "UPI 4471", 1);
            whole = line(1'062'000, "NEFT N4472");
            paid = line(118'000, "NEFT MONSOON INV/26-27/001");
            part = line(50'000, "NEFT INV/26-27/001");
            tds = line(107'000, "NEFT N4471");
            return library;
        });
        TestPrompts prompts;
        BankScreen screen(books.model, prompts);
        screen.resize(1232, 820);
        screen.show();
        const std::pair<UUID, const char*> cases[] = {
            {spent, "same amount, same day, mentions chai"},
            {near, "amount within 1%, 1 day apart"},
            {whole, "same as invoice total"},
            {paid, "pays the balance, mentions INV/26-27/001, from Monsoon Tea"},
            {part, "part payment, mentions INV/26-27/001"},
            {tds, "close to the balance (TDS?)"}};
        for (const auto& [id, reason] : cases) {
            screen.select(id);
            QTRY_VERIFY2(!textsOf(screen).filter(QString::fromUtf8(reason)).isEmpty(),
                         qPrintable(textsOf(screen).join(u'|')));
        }
    }
};

static const TestClass<FixedTextsTests> registered;

}  // namespace tamba

#include "FixedTextsTests.moc"
