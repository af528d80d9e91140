#include "TambaCore/Bank/Bank.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <string>

namespace tamba::Bank {
namespace {

bool isEarlier(const BankTransaction& a, const BankTransaction& b) { return a.date < b.date; }

/// Lines by their fingerprints. Keeps only hashes beside the lines, which are compared where hashes agree: a hundred
/// thousand texts would cost more than everything else here.
class Known {
public:
    explicit Known(std::size_t count) : slots_(std::bit_ceil(2 * count + 2)) {}

    /// The line with this fingerprint; when there is none, null, and `line` is it from now on.
    const BankTransaction* findOrAdd(const BankTransaction& line) {
        const std::string fingerprint = line.fingerprint();
        const std::size_t hash = std::hash<std::string>()(fingerprint);
        for (std::size_t i = hash;; ++i) {
            Slot& slot = slots_[i & (slots_.size() - 1)];
            if (!slot.line) {
                slot = {hash, &line};
                return nullptr;
            }
            if (slot.hash == hash && slot.line->fingerprint() == fingerprint) return slot.line;
        }
    }

private:
    struct Slot {
        std::size_t hash = 0;
        const BankTransaction* line = nullptr;
    };
    std::vector<Slot> slots_;
};

/// The books' lines and the new ones in the order of their dates; of one day, the books' own stand first.
List<BankTransaction> merged(const List<BankTransaction>& books, List<BankTransaction> lines) {
    lines.sort(isEarlier);
    List<BankTransaction> result;
    result.reserve(books.size() + lines.size());
    std::size_t next = 0;
    for (std::size_t i = 0; i < books.size(); ++i) {
        while (next < lines.size() && isEarlier(lines[next], books[i])) result.append(lines.at(next++));
        result.append(books.at(i));
    }
    while (next < lines.size()) result.append(lines.at(next++));
    // Books that were not in order still come out so.
    if (!std::is_sorted(result.begin(), result.end(), isEarlier)) result.sort(isEarlier);
    return result;
}

}  // namespace

Added addTransactions(Library library, const std::vector<BankTransaction>& lines, std::optional<UUID> account) {
    Added result;
    List<BankTransaction> fresh;
    Known known(library.transactions.size() + lines.size());
    for (const BankTransaction& line : library.transactions) (void)known.findOrAdd(line);
    for (const BankTransaction& line : lines) {
        if (const BankTransaction* equal = known.findOrAdd(line)) {
            result.skippedLines.push_back({line, equal->id});
            continue;
        }
        BankTransaction filed = line;
        filed.accountID = account;
        fresh.append(std::move(filed));
    }
    result.added = static_cast<int>(fresh.size());
    result.skipped = static_cast<int>(result.skippedLines.size());
    const bool inOrder = std::is_sorted(library.transactions.begin(), library.transactions.end(), isEarlier);
    if (!fresh.empty() || !inOrder) library.transactions = merged(library.transactions, std::move(fresh));
    result.library = std::move(library);
    return result;
}

Library addAnyway(Library library, BankTransaction line, std::optional<UUID> account) {
    line.accountID = account;
    library.transactions = merged(library.transactions, {std::move(line)});
    return library;
}

}  // namespace tamba::Bank
