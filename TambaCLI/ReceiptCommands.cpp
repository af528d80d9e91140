#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "TambaCore/Receipts/EmailReceipt.h"
#include "TambaCore/Receipts/ReceiptExpense.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/Receipts.h"

#include <charconv>
#include <chrono>
#include <iostream>
#include <iterator>

namespace tamba::cli {
namespace {

using std::chrono::steady_clock;

/// The temporary files of one result go when the result has been used, whatever happens.
class TemporaryFiles {
public:
    explicit TemporaryFiles(const std::vector<std::filesystem::path>& files) : files_(files) {}
    ~TemporaryFiles() {
        std::error_code ignored;
        for (const auto& file : files_) std::filesystem::remove(file, ignored);
    }
    TemporaryFiles(const TemporaryFiles&) = delete;
    TemporaryFiles& operator=(const TemporaryFiles&) = delete;

private:
    const std::vector<std::filesystem::path>& files_;
};

constexpr std::uint64_t maximumBytes = 200'000'000;

std::string contents(const std::string& file) {
    if (Files::size(file).value_or(0) > maximumBytes)
        throw Refusal("“" + oneLine(file) + "” is too large to be a receipt.");
    try {
        return Files::read(file);
    } catch (const FileError& error) {
        throw Refusal("“" + oneLine(file) + "” couldn’t be read: " + error.what() + ".");
    }
}

std::string secondsSince(steady_clock::time_point start) {
    char digits[32];
    const std::chrono::duration<double> elapsed = steady_clock::now() - start;
    const auto end = std::to_chars(digits, digits + sizeof digits, elapsed.count(), std::chars_format::fixed, 3).ptr;
    return {digits, end};
}

void addGuess(JSON& object, const ReceiptGuess& guess) {
    object.add("vendor", guess.vendor)
        .add("date", guess.date)
        .add("total", guess.total)
        .add("tax", guess.tax)
        .raw("taxSplit", ModelsJSON::json(guess.taxSplit))
        .add("gstin", guess.gstin)
        .add("currency", guess.currency)
        .add("text", guess.text);
    JSON doubts = JSON::array();
    for (const Doubt doubt : guess.doubts) doubts.append(sentence(doubt));
    object.add("doubts", doubts);
}

std::string guessForPeople(const ReceiptGuess& guess) {
    const Currency currency = Currency::of(guess.currency.value_or("INR"));
    const auto symbol = guess.currency ? MoneyFormat::Symbol::shown : MoneyFormat::Symbol::hidden;
    const auto amount = [&](std::optional<std::int64_t> minor) {
        return minor ? MoneyFormat::string(*minor, currency, symbol) : std::string();
    };
    std::string tax = amount(guess.tax);
    std::vector<std::string> parts;
    const TaxSplit& split = guess.taxSplit;
    for (const auto& [name, part] : {std::pair{"CGST ", split.cgst}, {"SGST ", split.sgst}, {"IGST ", split.igst}})
        if (part != 0) parts.push_back(name + amount(part));
    if (!parts.empty()) tax += " (" + Text::join(parts, ", ") + ")";
    std::vector<std::string> doubts;
    for (const Doubt doubt : guess.doubts) doubts.emplace_back(sentence(doubt));
    return details({{"Vendor", guess.vendor},
                    {"Date", guess.date ? guess.date->formatted("d MMM yyyy") : ""},
                    {"Total", amount(guess.total)},
                    {"Tax", tax},
                    {"GSTIN", guess.gstin},
                    {"Check", Text::join(doubts, " ")}});
}

}  // namespace

int scanReceipts(const Context& context, const ReceiptOptions& options) {
    ReceiptReader reader;
    int status = 0;
    for (const std::string& file : options.files) {
        const auto start = steady_clock::now();
        JSON object = JSON::object().add("file", file);
        try {
            const auto result =
                ReceiptScanner::scan(reader, file, options.order.value_or(DateOrder::dmy), context.today);
            const TemporaryFiles temporary(result.temporary);
            addGuess(object, result.guess);
            if (!context.json) std::cout << oneLine(file) << "\n" << guessForPeople(result.guess);
        } catch (const std::exception& error) {
            status = 1;
            object.add("error", error.what());
            if (!context.json) std::cerr << oneLine(file) << ": " << error.what() << "\n";
        }
        // Each line as soon as it is known: whoever reads along may be waiting for the first of a thousand.
        if (context.json) std::cout << object.raw("seconds", secondsSince(start)).text() << std::endl;
    }
    return status;
}

int parseReceipt(const Context& context, const ReceiptOptions& options) {
    const std::string& file = options.files.front();
    const std::string text =
        file == "-" ? std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>())
                    : contents(file);
    const ReceiptGuess guess = ReceiptParser::parse(Text::splitLines(Text::repairedUTF8(text)),
                                                    options.order.value_or(DateOrder::dmy), context.today);
    if (context.json) {
        JSON object = JSON::object();
        addGuess(object, guess);
        std::cout << object.text() << "\n";
    } else {
        std::cout << guessForPeople(guess);
    }
    return 0;
}

int showMail(const Context& context, const std::string& file) {
    const EmailReceipt::Message message = EmailReceipt::parse(contents(file));
    const std::string sender = EmailReceipt::senderName(message.from);
    if (context.json) {
        JSON attachments = JSON::array();
        for (const EmailReceipt::Part& part : message.attachments)
            attachments.append(JSON::object()
                                   .add("name", part.name)
                                   .add("mime", part.mime)
                                   .add("size", static_cast<std::int64_t>(part.data.size())));
        std::cout << JSON::object()
                         .add("subject", message.subject)
                         .add("from", message.from)
                         .add("senderName", sender)
                         .add("date", message.date)
                         .add("attachments", attachments)
                         .add("bodyText", message.bodyText)
                         .text()
                  << "\n";
        return 0;
    }
    std::vector<std::pair<std::string, std::string>> lines{
        {"Subject", message.subject},
        {"From", message.from},
        {"Sender", sender},
        {"Date", message.date ? message.date->formatted("d MMM yyyy") : ""}};
    for (const EmailReceipt::Part& part : message.attachments)
        lines.emplace_back("Attached",
                           part.name + " (" + part.mime + ", " + counted(part.data.size(), "byte", "bytes") + ")");
    std::cout << details(lines) << "\n" << Text::trim(message.bodyText) << "\n";
    return 0;
}

int addReceipts(const Context& context, const ReceiptOptions& options) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    Library library = existing(session);
    const DateOrder order = options.order.value_or(library.business.receiptDateOrder);
    ReceiptReader reader;
    int status = 0;
    for (const std::string& file : options.files) {
        JSON object = JSON::object().add("file", file);
        try {
            if (!options.again) {
                if (const auto holder = ReceiptExpense::holding(library, session.store(), file)) {
                    const Expense* expense = library.expense(*holder);
                    throw Refusal("That file is already in the books, with “" + (expense ? expense->vendor : "") +
                                  "” (" + shortID(*holder) + "). Use --again to file it once more.");
                }
            }
            const auto result = ReceiptScanner::scan(reader, file, order, context.today);
            const TemporaryFiles temporary(result.temporary);
            const auto filed =
                ReceiptExpense::file(library, session.store(), result, Expense::make(context.today), context.today);
            // One save a receipt: a later one that ends the program must not take the earlier ones with it.
            library = save(session, filed.library);
            const Expense* expense = library.expense(filed.expenseID);
            if (!expense) throw Refusal("That receipt was filed, but another machine has removed it since.");
            object.raw("expense", ModelsJSON::json(*expense));
            if (!context.json) std::cout << oneLine(file) << "\n" << expenseDetails(library, *expense);
        } catch (const std::exception& error) {
            // A file that cannot be read is one of many; a folder that cannot be written ends the work.
            const auto* store = dynamic_cast<const StoreError*>(&error);
            if (store && store->code() != StoreError::Code::notAFile) throw;
            status = 1;
            object.add("error", error.what());
            if (!context.json) std::cerr << oneLine(file) << ": " << error.what() << "\n";
        }
        if (context.json) std::cout << object.text() << std::endl;
    }
    return status;
}

}  // namespace tamba::cli
