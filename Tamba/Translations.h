#pragma once

#include "Tamba/Remembered.h"

#include <string_view>

class QCoreApplication;
class QLocale;
class QString;

/// The texts of the windows in other languages than English. What the books hold and what is printed stays as it is.
namespace tamba::Translations {

/// "hi" for Hindi; empty for English, in which the texts are written.
[[nodiscard]] QString codeOf(Remembered::Appearance::Language language, const QLocale& desktop);
/// A title of the core or of the row builders, in the language of the windows.
[[nodiscard]] QString shown(std::string_view title);
/// Has the application speak that language, as far as it is translated. Before the first window.
void install(QCoreApplication& application, Remembered::Appearance::Language language);

}  // namespace tamba::Translations
