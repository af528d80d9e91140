#pragma once

#include "TambaCore/Model/Day.h"

#include <string>
#include <utility>
#include <vector>

/// One A4 page of figures under headings, in two columns, with notes below. What has no room is counted, never cut:
/// the page stays one.
namespace tamba::SummaryPDF {

struct Section {
    std::string title;
    std::vector<std::pair<std::string, std::string>> lines = {};  ///< what it is, and the figure
};
struct Sheet {
    std::string title, subtitle;
    std::string accentHex;
    std::vector<Section> left, right;
    std::string notesTitle;
    std::vector<std::string> notes = {};  ///< finished sentences
    std::string more;                     ///< "more in Summary.txt", after the count of the notes that have no room
};

/// The whole file. The same sheet and time give the same bytes.
[[nodiscard]] std::string render(const Sheet& sheet, std::string_view author, Instant created);

}  // namespace tamba::SummaryPDF
