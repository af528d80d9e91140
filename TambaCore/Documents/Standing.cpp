#include "TambaCore/Documents/Standing.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Difference.h"

#include <algorithm>
#include <array>

namespace tamba::Books {
namespace {

/// What an issued credit note takes off its invoice; nothing for any other document.
std::int64_t credit(const Document& note) {
    const bool counts =
        note.kind == DocKind::creditNote && note.isIssued() && note.linkedID && DocMath::isBelievable(note);
    return counts ? DocMath::sums(note).total : 0;
}

/// Adds a credit. A sum beyond belief stays just beyond it, so that nothing computed from it overflows.
void addCredit(std::int64_t& sum, std::int64_t amount) { sum = std::min(sum + amount, maximumAmount + 1); }

/// What the payments of a believable document settle.
std::int64_t settled(const Document& document) {
    std::int64_t sum = 0;
    for (const Payment& payment : document.payments) sum = Checked::add(sum, payment.settles());
    return sum;
}

Standing standing(const Document& document, DocTotals totals, std::int64_t credited, Day today) {
    Standing result;
    result.totals = std::move(totals);
    result.paid = settled(document);
    for (const Payment& payment : document.payments) result.tds = Checked::add(result.tds, payment.tds);
    result.credited = credited;
    // Only estimates are accepted or declined; an invoice in such a state is in no report and never late.
    const bool owed = document.kind == DocKind::invoice && document.state == DocState::issued;
    if (owed) result.balance = Checked::sub(Checked::sub(result.totals.total, credited), result.paid);

    using enum DocStatus;
    const auto issuedStatus = [&] {
        switch (document.kind) {
            case DocKind::invoice:
                if (!owed) return sent;
                if (result.balance < 1) return paid;
                if (document.dueDate < today) return overdue;
                return result.paid > 0 || credited > 0 ? partial : sent;
            case DocKind::estimate:
                if (document.state == DocState::declined) return declined;
                if (document.linkedID) return converted;
                if (document.state == DocState::accepted) return accepted;
                return document.dueDate < today ? expired : sent;
            case DocKind::creditNote:
                return applied;
        }
        fatal("unknown kind of document");
    };
    result.status = document.state == DocState::draft   ? draft
                    : document.state == DocState::void_ ? void_
                                                        : issuedStatus();
    if (result.status == overdue) result.daysLate = document.dueDate.daysUntil(today);
    return result;
}

}  // namespace

std::int64_t paid(const Document& invoice) { return DocMath::isBelievable(invoice) ? settled(invoice) : 0; }

std::int64_t credits(const Library& library, const UUID& invoice) {
    std::int64_t sum = 0;
    for (const Document& document : library.documents)
        if (document.linkedID == invoice) addCredit(sum, credit(document));
    return sum;
}

std::int64_t balance(const Library& library, const Document& invoice) {
    if (!DocMath::isBelievable(invoice)) return 0;
    const std::int64_t owed = Checked::sub(DocMath::sums(invoice).total, credits(library, invoice.id));
    return Checked::sub(owed, paid(invoice));
}

DocStatus status(const Library& library, const Document& document, Day today) {
    Document judged = document;
    // How much is beyond belief cannot be said, but whether the document is a draft, sent or void can.
    const bool believable = DocMath::isBelievable(document);
    if (!believable) judged.lines.clear(), judged.payments.clear();
    const DocStatus result = standing(judged, DocMath::sums(judged), credits(library, document.id), today).status;
    return !believable && result == DocStatus::paid ? DocStatus::sent : result;
}

std::string_view title(DocStatus status) {
    static constexpr std::array<std::string_view, 11> titles{"Draft",     "Sent",    "Part paid", "Paid",
                                                             "Overdue",   "Void",    "Accepted",  "Declined",
                                                             "Converted", "Expired", "Applied"};
    return titles[static_cast<std::size_t>(status)];
}

std::string_view title(DocKind kind) {
    static constexpr std::array<std::string_view, 3> titles{"Invoice", "Estimate", "Credit note"};
    return titles[static_cast<std::size_t>(kind)];
}

Standings::Standings(const Library& library, Day today) : today_(today) {
    for (const Document& document : library.documents)
        if (const std::int64_t amount = credit(document)) addCredit(credits_[*document.linkedID], amount);
}

std::optional<std::int64_t> Standings::credited(const Document& document) const {
    if (!DocMath::isBelievable(document)) return {};
    const std::int64_t amount = credits(document.id);
    return isBelievable(amount) ? std::optional(amount) : std::nullopt;
}

std::optional<Standing> Standings::of(const Document& document) const {
    const auto amount = credited(document);
    return amount ? std::optional(standing(document, DocMath::totals(document), *amount, today_)) : std::nullopt;
}

std::optional<Standing> Standings::sumsOf(const Document& document) const {
    const auto amount = credited(document);
    return amount ? std::optional(standing(document, DocMath::sums(document), *amount, today_)) : std::nullopt;
}

std::int64_t Standings::credits(const UUID& invoice) const {
    const auto found = credits_.find(invoice);
    return found == credits_.end() ? 0 : found->second;
}

std::optional<std::int64_t> Standings::balance(const Document& invoice) const {
    const auto amount = credited(invoice);
    if (!amount) return {};
    return Checked::sub(Checked::sub(DocMath::sums(invoice).total, *amount), settled(invoice));
}

const std::vector<std::optional<Standing>>& KeptStandings::update(const Library& library, Day today) {
    const Standings standings(library, today);
    const auto changed = today == today_ ? difference(documents_, library.documents, 100) : std::nullopt;
    // What is not known of a document yet is as if another amount had been credited on it.
    constexpr std::int64_t unknown = -1;
    if (changed) {
        for (auto at = changed->gone.rbegin(); at != changed->gone.rend(); ++at) {
            credits_.erase(credits_.begin() + static_cast<std::ptrdiff_t>(*at));
            standings_.erase(standings_.begin() + static_cast<std::ptrdiff_t>(*at));
        }
        for (const std::size_t at : changed->come) {
            credits_.insert(credits_.begin() + static_cast<std::ptrdiff_t>(at), unknown);
            standings_.insert(standings_.begin() + static_cast<std::ptrdiff_t>(at), std::nullopt);
        }
    } else {
        credits_.assign(library.documents.size(), unknown);
        standings_.assign(library.documents.size(), std::nullopt);
    }
    documents_ = library.documents;
    today_ = today;
    for (std::size_t at = 0; at < documents_.size(); ++at) {
        const std::int64_t credited = standings.credits(documents_[at].id);
        if (credited == credits_[at]) continue;
        credits_[at] = credited;
        standings_[at] = standings.sumsOf(documents_[at]);
    }
    return standings_;
}

std::optional<std::int64_t> inHomeCurrency(const Library& library, const Document& document, std::int64_t amount) {
    if (document.currency == library.business.homeCurrency)
        return isBelievable(amount) ? std::optional(amount) : std::nullopt;
    return MoneyMath::tryConvert(amount, Currency::of(document.currency), library.home(), document.rateMicros);
}

std::optional<std::int64_t> fromHomeCurrency(const Library& library, const Document& document, std::int64_t amount) {
    const Currency to = Currency::of(document.currency);
    const Currency home = library.home();
    if (!isBelievable(amount)) return {};
    if (to.code == home.code) return amount;
    if (document.rateMicros < 1 || !isBelievable(document.rateMicros)) return {};
    const std::int64_t times = 1'000'000 * to.scale();
    const std::int64_t by = document.rateMicros * home.scale();
    __extension__ using Wide = __int128;
    const Wide value = static_cast<Wide>(amount) * times / by;
    if (value > maximumAmount || value < -maximumAmount) return {};
    return MoneyMath::mulDiv(amount, times, by);
}

}  // namespace tamba::Books
