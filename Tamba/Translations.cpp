#include "Tamba/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tamba::Translations {

QString codeOf(Remembered::Appearance::Language language, const QLocale& desktop) {
    using Language = Remembered::Appearance::Language;
    const bool hindi =
        language == Language::hindi || (language == Language::system && desktop.language() == QLocale::Hindi);
    return hindi ? QStringLiteral("hi") : QString();
}

void install(QCoreApplication& application, Remembered::Appearance::Language language) {
    const QString code = codeOf(language, QLocale::system());
    if (code.isEmpty()) return;
    const auto load = [&](const QString& name, const QString& folder) {
        auto* translator = new QTranslator(&application);
        if (translator->load(name + QLatin1Char('_') + code, folder)) QCoreApplication::installTranslator(translator);
    };
    // The toolkit's own buttons and menus first: what is installed last is asked first.
    load(QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    load(QStringLiteral("tamba"), QStringLiteral(":/translations"));
}

}  // namespace tamba::Translations
