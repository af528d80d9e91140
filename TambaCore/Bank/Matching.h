#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// Operations that link bank lines with what they paid. A line is linked to one expense, or to the payments it made on
/// invoices; both sides carry the other's id, and every operation keeps both. Each takes the books by value; a refusal
/// throws `BooksError`, an id that is not there changes nothing. `Expenses::remove` and `Books::removePayment` free the
/// line. Linking a line that was set aside brings it back.
///
///     library = Bank::matchToInvoice(std::move(library), line, invoice, Bank::Remainder::asTDS);
namespace tamba::Bank {

struct AutoMatched {
    Library library;
    int count = 0;  ///< lines that were linked
};
/// Links every open line that has one strong suggestion, clearly ahead of the next; a payment of its amount that was
/// typed within a week is one. Lines are taken in their order and each sees the links made before it; a payment that is
/// refused is passed over.
[[nodiscard]] AutoMatched autoMatch(Library library);

/// Throws `lineMatched`, `expenseMatched`, `wrongDirection` (money in goes with an expense below zero, a refund).
[[nodiscard]] Library matchToExpense(Library library, const UUID& line, const UUID& expense);

/// What becomes of the rest of an invoice that a payment does not cover.
enum class Remainder {
    due,
    asTDS,       ///< the client withheld it as tax and paid it to the government
    asExchange,  ///< lost in exchange: money of another currency pays the whole balance
};
/// Records the line, or what is unassigned of it, as a payment. Money in another currency than the invoice's goes by
/// the home currency: at the rate kept for the account's, then back at the invoice's own rate. Where that is more than
/// the balance, by a tenth at most, the rate has moved: the payment is the balance, and `exchangeDifference` tells of
/// the rest. Throws `lineMatched`, `wrongDirection`, `missingRate`, `split` for `asExchange` where nothing was
/// exchanged or more than a tenth is missing, and as `Books::recordPayment`.
[[nodiscard]] Library matchToInvoice(Library library, const UUID& line, const UUID& invoice, Remainder remainder);

/// A part of a line's money, in its account's currency, and the invoice it pays.
struct Share {
    UUID invoice;
    std::int64_t amount = 0;
    Remainder remainder = Remainder::due;
};
/// One receipt of money that pays several invoices: a payment on each. Throws `split` where the shares do not come to
/// what is unassigned of the line, or one is not above zero, or two are for one invoice; else as `matchToInvoice`.
[[nodiscard]] Library splitReceipt(Library library, const UUID& line, const std::vector<Share>& shares);

/// A payment somebody typed before the money was seen on a statement.
struct TypedPayment {
    UUID invoice, payment;
    std::int64_t days = 0;  ///< between it and the line
};
/// Payments of what is unassigned of the line, that no line is linked to and whose day is so near; the nearest first.
/// In another currency a tenth may lie between.
[[nodiscard]] std::vector<TypedPayment> typedPayments(const Library& library, const BankTransaction& line,
                                                      int dayWindow);
/// Links the line to a payment that is there, instead of recording it twice; the payment stays as it was typed. Throws
/// `lineMatched`, `wrongDirection`, `split` where the payment belongs to another line or is more than is unassigned.
[[nodiscard]] Library matchToPayment(Library library, const UUID& line, const UUID& invoice, const UUID& payment);

/// The part of money in that no payment takes, in minor units of the account: all of it for an open line, none for one
/// that is matched in full; something between where one of several payments was removed. It can be matched again.
[[nodiscard]] std::int64_t unassigned(const Library& library, const BankTransaction& line);

/// That part of every line of which payments take some and not all, for a list of many.
[[nodiscard]] std::unordered_map<UUID, std::int64_t> partlyMatched(const Library& library);

/// What money of another currency brought more, or less, than its invoices say at their own rates.
struct ExchangeDifference {
    std::int64_t minor = 0;  ///< of the home currency; a loss is negative
    std::string sentence;
};
[[nodiscard]] std::optional<ExchangeDifference> exchangeDifference(const Library& library, const BankTransaction& line);

/// Removes the link, and the payments the line made; one that was typed before stays. An expense stays, also one that
/// was made from the line.
[[nodiscard]] Library unmatch(Library library, const UUID& line);

/// Sets a line aside that belongs to nothing (a transfer between own accounts), or brings it back. Throws
/// `lineMatched`.
[[nodiscard]] Library setIgnored(Library library, const UUID& line, bool ignored);

struct Created {
    Library library;
    std::optional<Expense> expense;  ///< nothing where there is no such line
};
/// An expense of a line's date, amount, currency and counterparty (or narration, without one), linked to it. Rules may
/// set vendor and category; else the category of the vendor's latest expense, else the one the statement names. Throws
/// `lineMatched`, `wrongDirection`, `figures`.
[[nodiscard]] Created createExpense(Library library, const UUID& line);

/// The account's currency; the home currency for a line without an account.
[[nodiscard]] Currency currency(const Library& library, const BankTransaction& line);

}  // namespace tamba::Bank
