#include "TambaCore/Bank/Bank.h"

#include <algorithm>
#include <unordered_map>

namespace tamba::Bank {
namespace {

void sortByDate(Library& library) {
    const auto earlier = [](const BankTransaction& a, const BankTransaction& b) { return a.date < b.date; };
    if (!std::is_sorted(library.transactions.begin(), library.transactions.end(), earlier))
        library.transactions.sort(earlier);
}

}  // namespace

Added addTransactions(Library library, const std::vector<BankTransaction>& lines, std::optional<UUID> account) {
    Added result;
    std::unordered_map<std::string, UUID> known;
    known.reserve(library.transactions.size() + lines.size());
    for (const BankTransaction& line : library.transactions) known.emplace(line.fingerprint(), line.id);
    for (const BankTransaction& line : lines) {
        const auto [place, isNew] = known.emplace(line.fingerprint(), line.id);
        if (!isNew) {
            ++result.skipped;
            result.skippedLines.push_back({line, place->second});
            continue;
        }
        BankTransaction filed = line;
        filed.accountID = account;
        library.transactions.append(std::move(filed));
        ++result.added;
    }
    sortByDate(library);
    result.library = std::move(library);
    return result;
}

Library addAnyway(Library library, BankTransaction line, std::optional<UUID> account) {
    line.accountID = account;
    library.transactions.append(std::move(line));
    sortByDate(library);
    return library;
}

}  // namespace tamba::Bank
