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
/// A title or sentence of the core, the row builders or the updates, in the language of the windows.
[[nodiscard]] QString shown(std::string_view text);
/// For months and weekdays where the toolkit writes them.
[[nodiscard]] QLocale locale();
/// Has the application speak that language, as far as it is translated. Before the first window.
void install(QCoreApplication& application, Remembered::Appearance::Language language);

}  // namespace tamba::Translations
