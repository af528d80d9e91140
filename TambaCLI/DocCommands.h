#pragma once

#include "TambaCLI/Commands.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/FieldTable.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// `tamba-cli doc`: invoices, estimates and credit notes. A document is named by its number or the beginning of its ID.
namespace tamba {

/// How a document stands, as --status and --json have it.
template <>
inline constexpr std::array<std::string_view, 11> enumWords<DocStatus>{
    "draft", "sent", "partial", "paid", "overdue", "void", "accepted", "declined", "converted", "expired", "applied"};

}  // namespace tamba

namespace tamba::cli {

struct DocFilter {
    std::optional<DocKind> kind;
    std::optional<DocStatus> status;
    std::string client;
    std::optional<Day> from, to;
};
int listDocuments(const Context& context, const DocFilter& filter);
int showDocument(const Context& context, const std::string& document);

/// A draft as typed; what is absent stays as it is, or as client and business say.
struct DocEntry {
    DocKind kind = DocKind::invoice;
    std::optional<std::string> client, place, currency, rate, reference, notes, terms;
    std::optional<Day> date, due;
    std::optional<bool> lut;
    std::vector<std::string> lines;    ///< "name=Design, qty=12.5, price=2400"
    std::vector<std::string> changed;  ///< "2: price=2600"
    std::vector<int> dropped;          ///< counted from 1
    std::vector<std::string> items;    ///< names of the catalogue
    bool billExpenses = false;
};
int newDocument(const Context& context, const DocEntry& entry);
int editDocument(const Context& context, const std::string& document, const DocEntry& entry);
int deleteDocument(const Context& context, const std::string& document);
int duplicateDocument(const Context& context, const std::string& document);

int issueDocument(const Context& context, const std::string& document, const std::optional<Day>& date);
int voidDocument(const Context& context, const std::string& document, const std::string& reason);

struct PaymentEntry {
    std::string document;
    std::string amount;        ///< received; empty: what is due
    std::string tds, tdsRate;  ///< at most one of them
    std::optional<Day> date;
    std::optional<PaymentMethod> method;
    std::string reference;
};
int payDocument(const Context& context, const PaymentEntry& entry);
/// The payment with this ID; the only one when that is empty.
int removePayment(const Context& context, const std::string& document, const std::string& payment);

struct CreditEntry {
    std::string document;
    std::string reason;
    std::vector<std::string> lines;  ///< instead of what is left of the invoice
    std::optional<Day> date;
    bool issue = false;
};
int creditDocument(const Context& context, const CreditEntry& entry);

enum class Answer : bool { declined, accepted };
int answerEstimate(const Context& context, const std::string& document, Answer answer);
int convertEstimate(const Context& context, const std::string& document);

struct PageOptions {
    std::string document;
    std::string output;     ///< a file, "-" for standard output, empty for none
    bool reminder = false;  ///< mail: the reminder instead of the first sending
    bool sent = false;      ///< mail: count it as sent
};
int writePDF(const Context& context, const PageOptions& options);
int writeMail(const Context& context, const PageOptions& options);
/// Overdue invoices, the latest first, with the reminders they have had.
int listReminders(const Context& context);

/// As frozen on the document, else as the client is called today; empty without one.
[[nodiscard]] std::string clientName(const Library& library, const Document& document);
/// Prints a document, or with --json its record and what follows from it: totals, paid, tds, credited, balance, status,
/// daysLate.
void printDocument(const Context& context, const Library& library, const UUID& document);
/// The same in one line for people: number, client, total, how it stands.
void printStanding(const Context& context, const Library& library, const UUID& document);

/// The books with the draft issued; things to know go to standard error.
[[nodiscard]] Library issued(const Library& library, const Document& draft, Day date);

/// "name=Design, qty=12.5, unit=day, price=2400": changes the fields named; a first piece without "=" is the name. A
/// comma that no field's name follows belongs to the text before it.
[[nodiscard]] Line lineFrom(std::string_view typed, Line line, const Currency& currency);

}  // namespace tamba::cli
