#include "Tamba/Translations.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tamba::Translations {
namespace {

/// Titles and names of the core, which knows nothing of translations, for lupdate to find.
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
    QT_TRANSLATE_NOOP("Rows", "Indian rupee"),
    QT_TRANSLATE_NOOP("Rows", "US dollar"),
    QT_TRANSLATE_NOOP("Rows", "Euro"),
    QT_TRANSLATE_NOOP("Rows", "Pound sterling"),
    QT_TRANSLATE_NOOP("Rows", "UAE dirham"),
    QT_TRANSLATE_NOOP("Rows", "Singapore dollar"),
    QT_TRANSLATE_NOOP("Rows", "Australian dollar"),
    QT_TRANSLATE_NOOP("Rows", "Canadian dollar"),
    QT_TRANSLATE_NOOP("Rows", "New Zealand dollar"),
    QT_TRANSLATE_NOOP("Rows", "Swiss franc"),
    QT_TRANSLATE_NOOP("Rows", "Japanese yen"),
    QT_TRANSLATE_NOOP("Rows", "Kuwaiti dinar"),
    QT_TRANSLATE_NOOP("Rows", "Bahraini dinar"),
    QT_TRANSLATE_NOOP("Rows", "Saudi riyal"),
    QT_TRANSLATE_NOOP("Rows", "South African rand"),
    QT_TRANSLATE_NOOP("Rows", "Sri Lankan rupee"),
    QT_TRANSLATE_NOOP("Rows", "Nepalese rupee"),
    QT_TRANSLATE_NOOP("Rows", "Bangladeshi taka"),
    QT_TRANSLATE_NOOP("Rows", "Jammu and Kashmir"),
    QT_TRANSLATE_NOOP("Rows", "Himachal Pradesh"),
    QT_TRANSLATE_NOOP("Rows", "Punjab"),
    QT_TRANSLATE_NOOP("Rows", "Chandigarh"),
    QT_TRANSLATE_NOOP("Rows", "Uttarakhand"),
    QT_TRANSLATE_NOOP("Rows", "Haryana"),
    QT_TRANSLATE_NOOP("Rows", "Delhi"),
    QT_TRANSLATE_NOOP("Rows", "Rajasthan"),
    QT_TRANSLATE_NOOP("Rows", "Uttar Pradesh"),
    QT_TRANSLATE_NOOP("Rows", "Bihar"),
    QT_TRANSLATE_NOOP("Rows", "Sikkim"),
    QT_TRANSLATE_NOOP("Rows", "Arunachal Pradesh"),
    QT_TRANSLATE_NOOP("Rows", "Nagaland"),
    QT_TRANSLATE_NOOP("Rows", "Manipur"),
    QT_TRANSLATE_NOOP("Rows", "Mizoram"),
    QT_TRANSLATE_NOOP("Rows", "Tripura"),
    QT_TRANSLATE_NOOP("Rows", "Meghalaya"),
    QT_TRANSLATE_NOOP("Rows", "Assam"),
    QT_TRANSLATE_NOOP("Rows", "West Bengal"),
    QT_TRANSLATE_NOOP("Rows", "Jharkhand"),
    QT_TRANSLATE_NOOP("Rows", "Odisha"),
    QT_TRANSLATE_NOOP("Rows", "Chhattisgarh"),
    QT_TRANSLATE_NOOP("Rows", "Madhya Pradesh"),
    QT_TRANSLATE_NOOP("Rows", "Gujarat"),
    QT_TRANSLATE_NOOP("Rows", "Dadra and Nagar Haveli and Daman and Diu"),
    QT_TRANSLATE_NOOP("Rows", "Maharashtra"),
    QT_TRANSLATE_NOOP("Rows", "Karnataka"),
    QT_TRANSLATE_NOOP("Rows", "Goa"),
    QT_TRANSLATE_NOOP("Rows", "Lakshadweep"),
    QT_TRANSLATE_NOOP("Rows", "Kerala"),
    QT_TRANSLATE_NOOP("Rows", "Tamil Nadu"),
    QT_TRANSLATE_NOOP("Rows", "Puducherry"),
    QT_TRANSLATE_NOOP("Rows", "Andaman and Nicobar Islands"),
    QT_TRANSLATE_NOOP("Rows", "Telangana"),
    QT_TRANSLATE_NOOP("Rows", "Andhra Pradesh"),
    QT_TRANSLATE_NOOP("Rows", "Ladakh"),
    QT_TRANSLATE_NOOP("Rows", "Other Territory"),
};

std::string translateRow(const char* context, const char* text) {
    return toStd(QCoreApplication::translate(context, text));
}

}  // namespace

QString shown(std::string_view text) { return toQt(Sentences::shown(text)); }

QLocale locale() {
    return RowText::isTranslated() ? QLocale(QLocale::Hindi, QLocale::India)
                                   : QLocale(QLocale::English, QLocale::UnitedKingdom);
}

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
