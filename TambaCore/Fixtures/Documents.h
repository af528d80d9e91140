#pragma once

#include "TambaCore/Model/Models.h"

#include <string>
#include <vector>

/// Documents of every kind that a page must be able to show: each regime and supply, drafts, void and paid ones, other
/// scripts and currencies, long and large ones. For pictures of the pages and for tests of their layout.
namespace tamba::Fixtures {

struct Sample {
    std::string name;  ///< "export-lut-usd": what it shows, fit for a file name
    Library library;   ///< books that hold the document, and the invoice of a credit note
    UUID document;
};
/// The same on every run and machine.
[[nodiscard]] std::vector<Sample> documents();

}  // namespace tamba::Fixtures
