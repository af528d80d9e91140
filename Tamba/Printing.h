#pragma once

#include <QString>

#include <functional>
#include <string>

class QPrinter;
class QWidget;

/// Paper.
namespace tamba::Printing {

enum class Stage { running, printed, failed };
/// Hears on the window's thread what becomes of what is printed: that it runs, and then how it ended.
using Heard = std::function<void(const QString& title, Stage)>;

/// Asks which printer and prints a PDF made here on it, in the background.
void print(QWidget& window, const QString& title, const std::string& pdf, const Heard& heard);
/// The pages on the printer's pages, as large as they fit; false when there are none or the printer does not take them.
[[nodiscard]] bool draw(QPrinter& printer, const std::string& pdf);

}  // namespace tamba::Printing
