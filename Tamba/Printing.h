#pragma once

#include <QString>

#include <string>

class QPrinter;
class QWidget;

/// Paper.
namespace tamba::Printing {

/// Asks which printer and prints a PDF made here on it.
void print(QWidget& window, const QString& title, const std::string& pdf);
/// The pages on the printer's pages, as large as they fit.
void draw(QPrinter& printer, const std::string& pdf);

}  // namespace tamba::Printing
