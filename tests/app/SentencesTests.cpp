#include "Tamba/Rows/ImportRows.h"
#include "Tamba/Rows/ReportRows.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Reports/Deadlines.h"
#include "tests/app/Support.h"

#include <QRegularExpression>
#include <QTranslator>

namespace tamba {
namespace {

std::string inHindi(const char* context, const char* text) {
    static QTranslator hindi;
    static const bool isLoaded = hindi.load(QStringLiteral(":/translations/tamba_hi"));
    if (!isLoaded) qFatal("no Hindi");
    const QString found = hindi.translate(context, text);
    return found.isEmpty() ? text : toStd(found);
}

}  // namespace

class SentencesTests : public QObject {
    Q_OBJECT

    QStringList english_;

    void check(std::string_view text) {
        static const QRegularExpression word(QStringLiteral("[A-Za-z][a-z]{2,}"));
        if (toQt(Sentences::shown(text)).contains(word)) english_ << toQt(text);
    }

private slots:
    void init() { RowText::install(inHindi); }
    void cleanup() { RowText::install(nullptr); }

    void valuesGoToTheirPlaces() {
        const std::pair<const char*, const char*> cases[] = {
            {"GSTR-1 for October 2026", "अक्टूबर 2026 का GSTR-1"},
            {"CMP-08 for July–September 2026", "जुलाई–सितंबर 2026 का CMP-08"},
            {"14 documents · ₹2,500.00 taxable so far", "14 दस्तावेज़ · अब तक ₹2,500.00 कर योग्य"},
            {"2 numbers between A/1 and A/9 belong to no document of this period.",
             "A/1 और A/9 के बीच के 2 नंबर इस अवधि के किसी दस्तावेज़ के नहीं हैं।"},
            {"An invoice of 14 Oct 2026 is still a draft. Only what is issued counts.",
             "14 Oct 2026 का एक इनवॉइस: अभी ड्राफ़्ट है। केवल जारी दस्तावेज़ गिने जाते हैं।"},
            {"No date was found. No total was found.", "कोई तारीख़ नहीं मिली। कुल रक़म नहीं मिली।"},
            {"The disk has no room for Tamba 1.0.1. 1.0.0 stays in use.",
             "डिस्क पर Tamba 1.0.1 के लिए जगह नहीं है। 1.0.0 चलता रहेगा।"},
            {"27 · Maharashtra", "27 · महाराष्ट्र"},
            {"Saffron Labs", "Saffron Labs"},
            {"", ""}};
        for (const auto& [english, hindi] : cases)
            QCOMPARE(toQt(Sentences::shown(english)), toQt(std::string_view(hindi)));
        QCOMPARE(Sentences::reasons("part payment, mentions INV/1, from Ink, Paper and Sons"),
                 std::string("आंशिक भुगतान, INV/1 का ज़िक्र, Ink, Paper and Sons से"));
        QCOMPARE(Sentences::months("Saturday, 21 November 2026"), std::string("शनिवार, 21 नवंबर 2026"));
        RowText::install(nullptr);
        QCOMPARE(Sentences::shown("GSTR-1 for October 2026"), std::string("GSTR-1 for October 2026"));
    }

    void whatTheCoreSaysIsKnown() {
        Library library = Fixtures::library(testDay);
        for (const TaxRegime regime : {TaxRegime::gstIndia, TaxRegime::gstComposition}) {
            library.business.regime = regime;
            for (const auto& deadline : Deadlines::upcoming(library, testDay, 366)) {
                check(deadline.title);
                check(deadline.holds);
                check(deadline.note);
            }
            for (const ReportKind kind : reportsFor(library.business))
                for (const Table& table : reportPage(library, firstChoice(kind, testDay), testDay).tables) {
                    check(table.title);
                    for (const Table::Column& column : table.columns) check(column.title);
                    for (const std::string& note : table.notes) check(note);
                }
        }
        const StatementFile file = StatementFile::of(Files::read(TEST_DATA "/statements/bad-rows.csv"), "bad-rows.csv");
        const auto read = parsed(file, {file.columns, DateOrder::dmy, {}}, Currency::inr());
        check(read.orderReason);
        // What they quote stands in quotation marks.
        static const Text::Pattern quotation("“[^”]*”");
        for (const auto& row : read.skippedRows) check(quotation.replaceAll(row.reason, "“”"));
        for (int doubt = 0; doubt <= static_cast<int>(Doubt::sumsDoNotClose); ++doubt)
            check(sentence(static_cast<Doubt>(doubt)));
        QVERIFY2(english_.isEmpty(), qPrintable(english_.join(u'\n')));
    }
};

static const TestClass<SentencesTests> registered;

}  // namespace tamba

#include "SentencesTests.moc"
