#pragma once

#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Finds any record of the books by words people remember: vendor, number, client, notes, narration, amounts, and the
/// text read from receipts. Words match in any order, upper and lower case alike, from the start of a word; an amount
/// is found however it is typed.
///
///     const Search::Index index(library);
///     for (const Search::Group& group : index.find("saffron 35,400")) …
namespace tamba::Search {

enum class Kind { expense, invoice, estimate, creditNote, client, project, item, bankLine };

struct Hit {
    Kind kind = Kind::expense;
    UUID id;
    std::string title;   ///< "INV/26-27/014 · Saffron Labs"
    std::string detail;  ///< "₹35,400.00 · 14 Oct 2026"
    std::string found;   ///< the words around a hit that neither title nor detail shows; else empty

    bool operator==(const Hit&) const = default;
};
struct Group {
    Kind kind = Kind::expense;
    std::size_t count = 0;  ///< all that match, more than `hits` may hold
    std::vector<Hit> hits;  ///< best first: those with more of the words in the title, then the newest
};

/// What is looked through, made once for one value of the books and fit for any number of searches, on any thread.
/// Records that two values share are taken over from `earlier` instead of being prepared again: after a change it costs
/// about as much as the change.
class Index {
public:
    Index();
    explicit Index(const Library& library, const Index* earlier = nullptr);

    /// Groups with hits, in the order of `Kind`, at most `limit` hits each. No words, no hits.
    [[nodiscard]] std::vector<Group> find(std::string_view words, std::size_t limit = 8) const;

private:
    struct Segment;
    /// False where too much has changed.
    [[nodiscard]] bool takeOver(const Library& library, const Index& earlier);

    std::shared_ptr<const Segment> base_;   // the books when all of them were last prepared
    std::shared_ptr<const Segment> since_;  // records that were added or altered since
    std::vector<bool> gone_;                // entries of `base_` that hold no longer
};

}  // namespace tamba::Search
