#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Pages/PDFCanvas.h"
#include "TambaCore/Reports/Table.h"

#include <string>
#include <vector>

/// Reports on A4, one table after the other, upright or lying as their columns need it. Titles of columns stand again
/// on each page; texts that are too wide wrap, figures never do. Nothing asks the clock: the same tables on the same
/// day give the same bytes.
namespace tamba::TablePDF {

struct Report {
    std::string title;  ///< over all tables; one of the same title has none of its own
    std::vector<Table> tables;
    Day today;  ///< printed at the foot, as the day the figures are of
};
[[nodiscard]] std::string render(const Business& business, const Report& report);
/// The same pages on a canvas of `pageSize`.
void draw(PDFCanvas& canvas, const Business& business, const Report& report);
/// Upright A4, or lying where the tables would not fit with readable figures.
[[nodiscard]] Size pageSize(const std::vector<Table>& tables);

}  // namespace tamba::TablePDF
