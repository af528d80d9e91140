#include "TambaCLI/DocCommands.h"
#include "TambaCLI/Words.h"
#include "TambaCore/Model/Fields.h"

namespace tamba::cli {
namespace {

void addNumber(CLI::App* app, std::string& document) {
    app->add_option("NUMBER", document, "The document’s number, the beginning of its ID, or “draft” for the only draft")
        ->required();
}

void addKind(CLI::App* app, const std::vector<std::string>& kinds, std::function<void(DocKind)> set,
             const std::string& help) {
    app->add_option_function<std::string>(
           "--kind",
           [set = std::move(set)](const std::string& text) {
               set(text == "credit-note" ? DocKind::creditNote : *fromWord<DocKind>(text));
           },
           help)
        ->check(CLI::IsMember(kinds));
}

void addEntry(CLI::App* app, DocEntry& entry) {
    addText(app, "--client", entry.client, "Who it is for");
    addDay(app, "--date", entry.date, "Its date (today)");
    addDay(app, "--due", entry.due, "Due, or for an estimate valid until");
    addText(app, "--place", entry.place, "Place of supply, a state or its GST code");
    auto* lut = app->add_flag_callback("--lut", [&entry] { entry.lut = true; }, "Under a letter of undertaking");
    app->add_flag_callback("--no-lut", [&entry] { entry.lut = false; }, "Not under one")->excludes(lut);
    addText(app, "--currency", entry.currency, "Currency (that of the client)");
    addText(app, "--rate", entry.rate, "Exchange rate to the home currency");
    addText(app, "--reference", entry.reference, "The client’s order number");
    addText(app, "--notes", entry.notes, "Notes on the page");
    addText(app, "--terms", entry.terms, "Terms on the page");
    addTexts(app, "--line", entry.lines, "A line, as below; once for each");
    app->footer(
        "A line is its name and what else is known of it, such as\n"
        "  --line \"Design, qty=12.5, unit=day, price=2400, discount=10, tax=18, hsn=998391\"\n"
        "It may also have detail=, a text below the name. A price takes a sum such as 3*1200.\n"
        "What is left out: one unit, no price, no discount, the usual tax rate.");
    addTexts(app, "--item", entry.items, "A line from the catalogue");
    app->add_flag("--bill-expenses", entry.billExpenses, "A line for each expense to be billed on to this client");
}

void addDrafting(CLI::App* doc, Command& c) {
    auto& entry = c.options<DocEntry>();
    auto* fresh = c.add(doc, "new", "Make a draft", [&](const Context& x) { return newDocument(x, entry); });
    addKind(fresh, {"invoice", "estimate"}, [&entry](DocKind kind) { entry.kind = kind; }, "Its kind (invoice)");
    addEntry(fresh, entry);

    auto& number = c.options<std::string>();
    auto& change = c.options<DocEntry>();
    auto* edit = c.add(doc, "edit", "Change a draft; what is not named stays, --line adds a line",
                       [&](const Context& x) { return editDocument(x, number, change); });
    addNumber(edit, number);
    addEntry(edit, change);
    addTexts(edit, "--change", change.changed, "Change a line: \"2: price=2600, qty=3\"");
    edit->add_option("--drop", change.dropped, "Take the line with this number out")->allow_extra_args(false);

    auto* remove = c.add(doc, "delete", "Delete a draft", [&](const Context& x) { return deleteDocument(x, number); });
    addNumber(remove, number);
    auto* copy = c.add(doc, "duplicate", "Make a draft like it, dated today",
                       [&](const Context& x) { return duplicateDocument(x, number); });
    addNumber(copy, number);

    auto& credit = c.options<CreditEntry>();
    auto* note = c.add(doc, "credit", "Make a draft credit note for what is left of an invoice",
                       [&](const Context& x) { return creditDocument(x, credit); });
    addNumber(note, credit.document);
    addText(note, "--reason", credit.reason, "Why");
    addDay(note, "--date", credit.date, "Its date (today)");
    addTexts(note, "--line", credit.lines,
             "Credit this line instead, written as for doc new; rate and code are those of the invoice");
    note->add_flag("--issue", credit.issue, "Issue it at once");
}

void addSteps(CLI::App* doc, Command& c) {
    auto& number = c.options<std::string>();
    auto& date = c.options<std::optional<Day>>();
    auto* issue = c.add(doc, "issue", "Give a draft its number; things to know go to standard error",
                        [&](const Context& x) { return issueDocument(x, number, date); });
    addNumber(issue, number);
    addDay(issue, "--date", date, "The date it gets (that of the draft)");

    auto& reason = c.options<std::string>();
    auto* cancel = c.add(doc, "void", "Make an issued document void; it keeps its number",
                         [&](const Context& x) { return voidDocument(x, number, reason); });
    addNumber(cancel, number);
    addText(cancel, "--reason", reason, "Why");

    auto& payment = c.options<PaymentEntry>();
    auto* pay = c.add(doc, "pay", "Record a payment", [&](const Context& x) { return payDocument(x, payment); });
    addNumber(pay, payment.document);
    addText(pay, "AMOUNT", payment.amount, "What was received (what is due, less the tax deducted)");
    auto* tds = addText(pay, "--tds", payment.tds, "Tax the client deducted, in addition to AMOUNT");
    addText(pay, "--tds-rate", payment.tdsRate, "The rate of that tax instead, such as 10%")->excludes(tds);
    addDay(pay, "--date", payment.date, "The day (today)");
    addWord(pay, "--method", payment.method, "How it was paid (bank)");
    addText(pay, "--reference", payment.reference, "The bank’s reference");

    auto& id = c.options<std::string>();
    auto* unpay =
        c.add(doc, "unpay", "Remove a payment", [&](const Context& x) { return removePayment(x, number, id); });
    addNumber(unpay, number);
    unpay->add_option("ID", id, "The beginning of the payment’s ID, when there are several");

    for (const auto& [name, help, answer] :
         {std::tuple{"accept", "The client has accepted an estimate", Answer::accepted},
          {"decline", "The client has declined an estimate", Answer::declined}}) {
        auto* command = c.add(doc, name, help, [&number, answer = answer](const Context& x) {
            return answerEstimate(x, number, answer);
        });
        addNumber(command, number);
    }
    auto* convert = c.add(doc, "convert", "Make a draft invoice from an estimate",
                          [&](const Context& x) { return convertEstimate(x, number); });
    addNumber(convert, number);
}

void addPages(CLI::App* doc, Command& c) {
    auto& page = c.options<PageOptions>();
    auto* pdf = c.add(doc, "pdf", "Make the PDF; that of an issued document is also kept in Invoices/",
                      [&](const Context& x) { return writePDF(x, page); });
    addNumber(pdf, page.document);
    pdf->add_option("-o,--output", page.output, "The file, or - (standard output)");

    auto* mail = c.add(doc, "mail", "Make the e-mail that carries it to the client; nothing is sent",
                       [&](const Context& x) { return writeMail(x, page); });
    addNumber(mail, page.document);
    mail->add_flag("--reminder", page.reminder, "Remind of an invoice that is due");
    mail->add_flag("--sent", page.sent, "Note in the books that it went out today");
    mail->add_option("-o,--output", page.output, "The file, as mail programs open it (standard output)");
    c.add(doc, "remind", "List who is late, and the reminders they had", listReminders);
}

}  // namespace

void addDocumentCommands(CLI::App& app, Command& c) {
    auto* doc = app.add_subcommand("doc", "Invoices, estimates and credit notes")->require_subcommand(1);
    auto& filter = c.options<DocFilter>();
    auto* list = c.add(doc, "list", "List documents with what is owed",
                       [&](const Context& x) { return listDocuments(x, filter); });
    addKind(list, {"invoice", "estimate", "credit-note"}, [&filter](DocKind kind) { filter.kind = kind; }, "One kind");
    addWord(list, "--status", filter.status, "Only those that stand so");
    addText(list, "--client", filter.client, "Clients whose name holds this");
    addDay(list, "--from", filter.from, "First day");
    addDay(list, "--to", filter.to, "Last day");

    auto& number = c.options<std::string>();
    auto* show = c.add(doc, "show", "Show one document with its figures",
                       [&](const Context& x) { return showDocument(x, number); });
    addNumber(show, number);
    addDrafting(doc, c);
    addSteps(doc, c);
    addPages(doc, c);
}

}  // namespace tamba::cli
