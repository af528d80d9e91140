#pragma once

#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/Models.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

/// What holds for the books whatever somebody does. Each gives what is wrong, as finished sentences.
namespace tamba::soak {

struct Fault {
    std::string key;  ///< what is wrong with which record
    std::string sentence;
    /// Two machines that met can leave it: each step was right beside what its machine knew.
    bool fromMeeting = false;
};

/// Nothing that `LibraryCheck` or `DocumentCheck` names; every document's figures add up; both ends of a link between
/// bank lines, expenses, payments and invoices name each other.
[[nodiscard]] std::vector<Fault> faultsOf(const Library& library, const LibraryStore& store);

/// Parts of a report come to its whole. Slower: for now and then.
[[nodiscard]] std::vector<Fault> reportFaults(const Library& library, Day today);

/// The payments on all documents.
[[nodiscard]] std::set<UUID> payments(const Library& library);

struct LostPaper {
    UUID id;
    std::string sentence;
    bool standsAgain = false;  ///< it was void and is not any more, as when another machine had it credited
};

/// What was issued keeps its number, day, parties and lines, also through undo and through other machines.
[[nodiscard]] std::vector<LostPaper> lostPaper(const Library& before, const Library& after);

}  // namespace tamba::soak
