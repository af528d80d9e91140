#include "Tamba/Translations.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/RowText.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tamba::Translations {
namespace {

/// Titles of the core, which knows nothing of translations, for lupdate to find.
[[maybe_unused]] constexpr const char* titles[] = {
    QT_TRANSLATE_NOOP("Rows", "Invoice"),
    QT_TRANSLATE_NOOP("Rows", "Estimate"),
    QT_TRANSLATE_NOOP("Rows", "Credit note"),
    QT_TRANSLATE_NOOP("Rows", "Draft"),
    QT_TRANSLATE_NOOP("Rows", "Sent"),
    QT_TRANSLATE_NOOP("Rows", "Part paid"),
    QT_TRANSLATE_NOOP("Rows", "Paid"),
    QT_TRANSLATE_NOOP("Rows", "Overdue"),
    QT_TRANSLATE_NOOP("Rows", "Void"),
    QT_TRANSLATE_NOOP("Rows", "Accepted"),
    QT_TRANSLATE_NOOP("Rows", "Declined"),
    QT_TRANSLATE_NOOP("Rows", "Converted"),
    QT_TRANSLATE_NOOP("Rows", "Expired"),
    QT_TRANSLATE_NOOP("Rows", "Applied"),
    QT_TRANSLATE_NOOP("Rows", "By invoice date"),
    QT_TRANSLATE_NOOP("Rows", "By payment received"),
    QT_TRANSLATE_NOOP("Rows", "Friendly"),
    QT_TRANSLATE_NOOP("Rows", "Firm"),
    QT_TRANSLATE_NOOP("Rows", "Final"),
    QT_TRANSLATE_NOOP("Rows", "GST (India, regular)"),
    QT_TRANSLATE_NOOP("Rows", "GST (India, composition scheme)"),
    QT_TRANSLATE_NOOP("Rows", "VAT / sales tax"),
    QT_TRANSLATE_NOOP("Rows", "Not registered for tax"),
    QT_TRANSLATE_NOOP("Rows", "Within the state (CGST + SGST)"),
    QT_TRANSLATE_NOOP("Rows", "Between states (IGST)"),
    QT_TRANSLATE_NOOP("Rows", "Export under LUT (no IGST)"),
    QT_TRANSLATE_NOOP("Rows", "Export with IGST paid"),
    QT_TRANSLATE_NOOP("Rows", "SEZ unit under LUT (no IGST)"),
    QT_TRANSLATE_NOOP("Rows", "SEZ unit with IGST"),
    QT_TRANSLATE_NOOP("Rows", "Standard"),
    QT_TRANSLATE_NOOP("Rows", "No tax charged"),
};

std::string translateRow(const char* context, const char* text) {
    return toStd(QCoreApplication::translate(context, text));
}

}  // namespace

QString shown(std::string_view title) { return toQt(RowText::translate("Rows", title)); }

QString codeOf(Remembered::Appearance::Language language, const QLocale& desktop) {
    using Language = Remembered::Appearance::Language;
    const bool hindi =
        language == Language::hindi || (language == Language::system && desktop.language() == QLocale::Hindi);
    return hindi ? QStringLiteral("hi") : QString();
}

void install(QCoreApplication& application, Remembered::Appearance::Language language) {
    const QString code = codeOf(language, QLocale::system());
    if (code.isEmpty()) return;
    RowText::install(translateRow);
    const auto load = [&](const QString& name, const QString& folder) {
        auto* translator = new QTranslator(&application);
        if (translator->load(name + QLatin1Char('_') + code, folder)) QCoreApplication::installTranslator(translator);
    };
    // The toolkit's own buttons and menus first: what is installed last is asked first.
    load(QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    load(QStringLiteral("tamba"), QStringLiteral(":/translations"));
}

}  // namespace tamba::Translations
