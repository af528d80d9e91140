#pragma once

#include <QString>

#include <functional>
#include <string>

class QPrinter;
class QWidget;

/// Paper.
namespace tamba::Printing {

/// Asks which printer and prints a PDF made here on it, in the background; `failed` is called when nothing came of it.
void print(QWidget& window, const QString& title, const std::string& pdf, const std::function<void()>& failed);
/// The pages on the printer's pages, as large as they fit; false when there are none or the printer does not take them.
[[nodiscard]] bool draw(QPrinter& printer, const std::string& pdf);

}  // namespace tamba::Printing
