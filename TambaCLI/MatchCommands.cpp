#include "TambaCLI/MatchCommands.h"

#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Bank/Bank.h"
#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <iostream>
#include <unordered_map>
#include <utility>

namespace tamba::cli {
namespace {

constexpr std::size_t narrationLength = 48;

/// By the beginning of its ID, or a part of its narration that no other line has.
const BankTransaction& lineOf(const Library& library, const std::string& typed) {
    if (const BankTransaction* found = withID(library.transactions, typed, "bank line")) return *found;
    const std::string wanted = Text::lower(Text::trim(typed));
    const BankTransaction* found = nullptr;
    for (const BankTransaction& line : library.transactions) {
        if (wanted.empty() || !Text::contains(Text::lower(line.text), wanted)) continue;
        if (found) throw Refusal("More than one bank line holds “" + typed + "”. Give the beginning of its ID.");
        found = &line;
    }
    if (!found) throw Refusal("There is no bank line “" + typed + "” in these books.");
    return *found;
}

const CategoryRule& ruleOf(const Library& library, const std::string& typed) {
    const std::string wanted = Text::lower(Text::trim(typed));
    for (const CategoryRule& rule : library.rules)
        if (Text::lower(rule.contains) == wanted) return rule;
    if (const CategoryRule* found = withID(library.rules, typed, "rule")) return *found;
    throw Refusal("There is no rule “" + typed + "” in these books.");
}

/// Where a statement goes.
struct Destination {
    std::optional<BankAccount> account;
    bool isNew = false;
};

/// The account named, a new one of that name, or else the only one there is.
Destination destinationOf(const Library& library, const ImportOptions& options) {
    const std::string_view name = Text::trim(options.account);
    if (name.empty()) {
        if (library.accounts.size() > 1) throw Refusal("There are several bank accounts. Say which with --account.");
        if (library.accounts.empty()) return {};
        return {library.accounts.front(), false};
    }
    const auto isNamed = [wanted = Text::lower(name)](const BankAccount& account) {
        return Text::lower(Text::trim(account.name)) == wanted;
    };
    const auto found = std::find_if(library.accounts.begin(), library.accounts.end(), isNamed);
    const BankAccount* account =
        found != library.accounts.end() ? &*found : withID(library.accounts, name, "bank account");
    const std::string currency = options.currency.empty() ? library.home().code : currencyCode(options.currency);
    if (!account) return {BankAccount::make(std::string(name), currency), true};
    if (!options.currency.empty() && account->currency != currency)
        throw Refusal("The bank account “" + account->name + "” is in " + account->currency + ".");
    return {*account, false};
}

const Payment& paymentOf(const Document& invoice, const UUID& id) {
    return *std::find_if(invoice.payments.begin(), invoice.payments.end(),
                         [&id](const Payment& payment) { return payment.id == id; });
}

/// A payment of the books by the beginning of its ID, with its invoice.
Bank::TypedPayment paymentNamed(const Library& library, const std::string& typed) {
    std::optional<Bank::TypedPayment> found;
    for (const Document& document : library.documents)
        if (const Payment* payment = withID(document.payments, typed, "payment")) {
            if (found) throw Refusal("More than one payment begins with “" + typed + "”. Give more of its ID.");
            found = {document.id, payment->id};
        }
    if (!found) throw Refusal("There is no payment “" + typed + "” in these books.");
    return *found;
}

/// “expense Chai Point”, the invoices its payments are on, “set aside”; nothing while the line is open.
std::string matchedWith(const Library& library, const BankTransaction& line) {
    if (line.expenseID) {
        const Expense* expense = library.expense(*line.expenseID);
        return "expense " + (expense ? expense->vendor : "");
    }
    if (line.isMatched()) {
        std::vector<std::string> numbers;
        for (const Document& document : library.documents)
            for (const Payment& payment : document.payments)
                if (payment.bankTxnID == line.id || payment.id == line.paymentID)
                    numbers.push_back(document.displayNumber());
        const std::int64_t rest = Bank::unassigned(library, line);
        return Text::join(numbers, ", ") +
               (rest > 0 ? "; " + MoneyFormat::string(rest, Bank::currency(library, line)) + " of it open" : "");
    }
    return line.ignored ? "set aside" : "";
}

std::string amountText(const Library& library, const BankTransaction& line) {
    return MoneyFormat::string(line.amount, Bank::currency(library, line));
}

void printLine(const Context& context, const Library& library, const UUID& id) {
    const BankTransaction* found = find(library.transactions, id);
    if (!found) return;  // another machine's change, merged while saving, took it away
    const BankTransaction& line = *found;
    if (context.json) {
        std::cout << ModelsJSON::json(line) << "\n";
        return;
    }
    const std::string matched = matchedWith(library, line);
    const auto exchange = Bank::exchangeDifference(library, line);
    std::cout << details({{"Line", line.id.text()},
                          {"Date", line.date.formatted("d MMM yyyy")},
                          {"Narration", line.text},
                          {"Amount", amountText(library, line)},
                          {"Matched", line.isMatched() ? matched
                                      : line.ignored   ? "no, set aside"
                                                       : "no"},
                          {"Exchange", exchange ? exchange->sentence : ""}});
}

void printRules(const Context& context, const Library& library) {
    if (context.json) {
        JSON records = JSON::array();
        for (const CategoryRule& rule : library.rules) records.item(ModelsJSON::json(rule));
        std::cout << records.text() << "\n";
        return;
    }
    if (library.rules.empty()) {
        std::cout << "No rules.\n";
        return;
    }
    Table table({{"ID"}, {"Text"}, {"Category"}, {"Vendor"}});
    for (const CategoryRule& rule : library.rules) {
        const Category* category = library.category(rule.categoryID);
        table.add({shortID(rule.id), rule.contains, category ? category->name : "(deleted)", rule.vendor});
    }
    std::cout << table.text();
}

/// “INV/26-27/001=5000”: an invoice and the part of the line that pays it.
Bank::Share shareOf(const Library& library, const BankTransaction& line, const std::string& typed,
                    Bank::Remainder remainder) {
    const std::size_t at = typed.rfind('=');
    if (at == typed.npos) throw Refusal("“" + typed + "” is not a share such as INV/26-27/001=5000.");
    return {documentOf(library, typed.substr(0, at)).id, amountOf(typed.substr(at + 1), Bank::currency(library, line)),
            remainder};
}

Bank::Remainder remainderOf(const MatchOptions& options) {
    if (options.restAsExchange) return Bank::Remainder::asExchange;
    return options.restAsTDS ? Bank::Remainder::asTDS : Bank::Remainder::due;
}

/// Each line that is in the books or in the file already, with the one it equals, and each row that is no line, with
/// the reason.
void addLeftOut(JSON& object, const BankImport::Parsed& read, const std::vector<Bank::SkippedLine>& lines,
                const std::unordered_map<UUID, std::size_t>& rows) {
    const auto number = [](std::size_t row) { return static_cast<std::int64_t>(row); };
    JSON held = JSON::array(), repeated = JSON::array(), skipped = JSON::array(), breaks = JSON::array();
    for (const auto& [line, equal, isRepeated] : lines)
        (isRepeated ? repeated : held)
            .append(JSON::object()
                        .add("row", number(rows.at(line.id)))
                        .add("date", line.date.iso())
                        .add("amount", line.amount)
                        .add("text", line.text)
                        .add("equal", equal.text()));
    for (const auto& row : read.skippedRows)
        skipped.append(JSON::object().add("row", number(row.row)).add("reason", row.reason));
    for (const auto& one : read.balanceBreaks)
        breaks.append(JSON::object().add("row", number(one.row)).add("expected", one.expected).add("found", one.found));
    object.add("inBooksLines", held)
        .add("repeatedLines", repeated)
        .add("skippedRows", skipped)
        .add("balanceBreakRows", breaks);
}

BankImport::Parsed statementOf(const std::string& file, DateOrder order, const Currency& currency) {
    try {
        return BankImport::read(file, order, currency);
    } catch (const FileError& error) {
        throw Refusal("“" + oneLine(file) + "” couldn’t be read: " + error.what() + ".");
    }
}

Library matched(const Library& library, const BankTransaction& line, const MatchOptions& options) {
    if (!options.expense.empty()) return Bank::matchToExpense(library, line.id, expenseOf(library, options.expense).id);
    if (!options.invoice.empty())
        return Bank::matchToInvoice(library, line.id, documentOf(library, options.invoice).id, remainderOf(options));
    if (!options.payment.empty()) {
        const Bank::TypedPayment payment = paymentNamed(library, options.payment);
        return Bank::matchToPayment(library, line.id, payment.invoice, payment.payment);
    }
    std::vector<Bank::Share> shares;
    for (const std::string& typed : options.shares)
        shares.push_back(shareOf(library, line, typed, remainderOf(options)));
    return Bank::splitReceipt(library, line.id, shares);
}

}  // namespace

int importStatement(const Context& context, const ImportOptions& options) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    Library library = existing(session);
    const auto [destination, isNew] = destinationOf(library, options);
    const auto account = destination ? std::optional(destination->id) : std::nullopt;
    const Currency currency = destination ? Currency::of(destination->currency) : library.home();
    auto read = statementOf(options.file, options.order.value_or(library.business.receiptDateOrder), currency);
    if (isNew) library.accounts.append(*destination);
    std::unordered_map<UUID, std::size_t> rows;
    for (std::size_t i = 0; i < read.rows.size(); ++i) rows.emplace(read.transactions[i].id, read.rows[i]);
    auto result = Bank::addTransactions(std::move(library), std::move(read.transactions), account);
    if (options.anyway)
        for (const auto& skipped : std::exchange(result.skippedLines, {})) {
            result.library = Bank::addAnyway(std::move(result.library), skipped.line, account);
            ++result.added;
            --result.skipped;
            if (skipped.repeated) --result.repeated;
        }
    if (result.added > 0) save(session, result.library);
    if (context.json) {
        JSON object = JSON::object()
                          .add("format", read.format)
                          .add("added", std::int64_t{result.added})
                          .add("inBooks", std::int64_t{result.skipped} - result.repeated)
                          .add("repeated", std::int64_t{result.repeated})
                          .add("skipped", std::int64_t{read.skipped})
                          .add("balanceBreaks", static_cast<std::int64_t>(read.balanceBreaks.size()));
        if (isNew && result.added > 0) object.add("newAccount", destination->name);
        addLeftOut(object, read, result.skippedLines, rows);
        std::cout << object.text() << "\n";
        return 0;
    }
    if (isNew && result.added > 0)
        std::cout << "Made the bank account “" << oneLine(destination->name) << "” in " << destination->currency
                  << ".\n";
    const auto lines = [](std::int64_t count) { return counted(static_cast<std::size_t>(count), "line", "lines"); };
    std::cout << "Added " << lines(result.added) << ".";
    if (const int inBooks = result.skipped - result.repeated; inBooks > 0)
        std::cout << " " << lines(inBooks) << (inBooks == 1 ? " was" : " were") << " in the books already.";
    if (result.repeated > 0)
        std::cout << " " << lines(result.repeated) << (result.repeated == 1 ? " repeats another" : " repeat others")
                  << " of this file.";
    std::cout << "\n";
    for (const auto& [line, equal, repeated] : result.skippedLines)
        std::cout << "  Left out: " << line.date.formatted("d MMM yyyy") << ", "
                  << MoneyFormat::string(line.amount, currency) << ", " << oneLine(line.text) << "\n";
    for (const auto& row : read.skippedRows) std::cerr << "Row " << row.row << " was left out: " << row.reason << "\n";
    for (const auto& one : read.balanceBreaks)
        std::cerr << "Row " << one.row << ": the balance should be " << MoneyFormat::string(one.expected, currency)
                  << ", but the statement says " << MoneyFormat::string(one.found, currency) << ".\n";
    for (const std::string& note : read.notes) std::cerr << note << "\n";
    return 0;
}

int listLines(const Context& context, const LineFilter& filter) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    std::vector<const BankTransaction*> found;
    for (const BankTransaction& line : library.transactions) {
        if ((filter.from && line.date < *filter.from) || (filter.to && *filter.to < line.date)) continue;
        if (!filter.open || line.isOpen()) found.push_back(&line);
    }
    const auto open = static_cast<std::size_t>(
        std::count_if(found.begin(), found.end(), [](const auto* line) { return line->isOpen(); }));
    if (context.json) {
        JSON records = JSON::array();
        for (const BankTransaction* line : found) records.item(ModelsJSON::json(*line));
        std::cout << JSON::object().add("transactions", records).add("open", static_cast<std::int64_t>(open)).text()
                  << "\n";
        return 0;
    }
    if (found.empty()) {
        std::cout << "No bank lines.\n";
        return 0;
    }
    using enum Table::Align;
    Table table({{"ID"}, {"Date"}, {"Narration"}, {"Amount", right}, {"Matched with"}});
    for (const BankTransaction* line : found)
        table.add({shortID(line->id), line->date.iso(), std::string(Text::prefix(line->text, narrationLength)),
                   amountText(library, *line), matchedWith(library, *line)});
    std::cout << table.text() << "\n" << counted(found.size(), "line", "lines") << ", " << open << " open.\n";
    return 0;
}

int suggestMatches(const Context& context, const std::string& typed) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const BankTransaction& line = lineOf(library, typed);
    const auto suggestions = Matcher::suggestions(line, library, Matcher::listDays);
    const auto payments = Bank::typedPayments(library, line, Matcher::listDays);
    if (!context.json && suggestions.empty() && payments.empty()) {
        std::cout << "No suggestions.\n";
        return 0;
    }
    using enum Table::Align;
    JSON records = JSON::array();
    Table table({{"Score", right}, {"ID"}, {"Date"}, {"For"}, {"Amount", right}, {"Why"}});
    for (const auto& [invoiceID, paymentID, days] : payments) {
        const Document& invoice = *library.document(invoiceID);
        const Payment& payment = paymentOf(invoice, paymentID);
        const std::string reason = "a payment that is recorded already; match it with --payment";
        records.append(JSON::object()
                           .add("payment", paymentID.text())
                           .add("invoice", invoiceID.text())
                           .add("days", days)
                           .add("reason", reason));
        table.add({"", shortID(paymentID), payment.date.iso(), invoice.displayNumber(),
                   MoneyFormat::string(payment.amount, Currency::of(invoice.currency)), reason});
    }
    for (const auto& [target, score, reason] : suggestions) {
        const bool isExpense = target.kind == MatchSuggestion::Target::Kind::expense;
        records.append(JSON::object()
                           .add(isExpense ? "expense" : "invoice", target.id.text())
                           .add("score", std::int64_t{score})
                           .add("reason", reason));
        const Expense* expense = isExpense ? library.expense(target.id) : nullptr;
        const Document* invoice = isExpense ? nullptr : library.document(target.id);
        if (expense)
            table.add({std::to_string(score), shortID(target.id), expense->date.iso(), expense->vendor,
                       MoneyFormat::string(expense->amount, Currency::of(expense->currency)), reason});
        if (invoice)
            table.add({std::to_string(score), shortID(target.id), invoice->issueDate.iso(), invoice->displayNumber(),
                       MoneyFormat::string(Books::balance(library, *invoice), Currency::of(invoice->currency)),
                       reason});
    }
    std::cout << (context.json ? records.text() + "\n" : table.text());
    return 0;
}

int matchLine(const Context& context, const MatchOptions& options) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    if (!options.obvious) {
        const BankTransaction& line = lineOf(library, options.line);
        const UUID id = line.id;
        printLine(context, save(session, matched(library, line, options)), id);
        return 0;
    }
    const Bank::AutoMatched result = Bank::autoMatch(library);
    if (result.count > 0) save(session, result.library);
    if (context.json)
        std::cout << JSON::object().add("matched", std::int64_t{result.count}).text() << "\n";
    else
        std::cout << "Matched " << counted(static_cast<std::size_t>(result.count), "line", "lines") << ".\n";
    return 0;
}

int unmatchLine(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const UUID id = lineOf(library, typed).id;
    printLine(context, save(session, Bank::unmatch(library, id)), id);
    return 0;
}

int ignoreLine(const Context& context, const std::string& typed, bool ignored) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const UUID id = lineOf(library, typed).id;
    printLine(context, save(session, Bank::setIgnored(library, id, ignored)), id);
    return 0;
}

int expenseFromLine(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const Bank::Created created = Bank::createExpense(library, lineOf(library, typed).id);
    const Library saved = save(session, created.library);
    if (!created.expense) return 0;
    if (context.json)
        std::cout << ModelsJSON::json(*created.expense) << "\n";
    else
        std::cout << expenseDetails(saved, *created.expense);
    return 0;
}

int listRules(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    printRules(context, existing(session));
    return 0;
}

int addRule(const Context& context, const RuleEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    std::optional<CategoryRule> rule;
    if (entry.expense.empty())
        rule =
            CategoryRule::make(entry.contains, named(library.categories, entry.category, "category").id, entry.vendor);
    else if (!(rule = Rules::ruleFrom(library, expenseOf(library, entry.expense))))
        throw Refusal("That expense makes no rule: it needs a category and a vendor that its bank line names, too.");
    printRules(context, save(session, Rules::put(library, *rule)));
    return 0;
}

int removeRule(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    printRules(context, save(session, Rules::remove(library, ruleOf(library, typed).id)));
    return 0;
}

int moveRule(const Context& context, const std::string& typed, int place) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    printRules(context,
               save(session, Rules::move(library, ruleOf(library, typed).id, static_cast<std::size_t>(place - 1))));
    return 0;
}

}  // namespace tamba::cli
