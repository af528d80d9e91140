#include "TambaCore/Documents/BooksError.h"

#include "TambaCore/Base/Check.h"

namespace tamba {
namespace {

std::string sentence(BooksError::Code code, std::string_view detail) {
    using enum BooksError::Code;
    const std::string what(detail);
    switch (code) {
        case numberTooLong:
            return "“" + what +
                   "” is longer than the 16 characters GST allows. Shorten the series pattern in Settings.";
        case overpaid:
            return "That’s more than the balance due.";
        case missingRate:
            return "Add the exchange rate from " + what + " to your home currency first.";
        case noClient:
            return "Choose who this is for first.";
        case noLines:
            return "Add at least one line with an amount.";
        case notDraft:
            return "Only drafts can be changed this way.";
        case issuedCannotDelete:
            return "Issued documents keep their number. Void it instead, so the series has no gaps.";
        case alreadyVoid:
            return "That’s already void.";
        case notInvoice:
            return "That works on invoices only.";
        case creditExceeds:
            return "A credit note can’t be more than what’s left on the invoice.";
        case noSeries:
            return "There’s no number series for this kind of document.";
        case figures:
        case inUse:
        case split:
        case rule:
            return what;
        case dueBeforeIssue:
            return "The due date is before the date of the document. Choose a later one.";
        case noGSTIN:
            return "A tax invoice needs your GSTIN. Add it to your business details in Settings first.";
        case notIssued:
            return what.empty() ? "That works only on documents that are issued and not void." : what;
        case hasPayments:
            return "Payments are recorded on this invoice. Remove them first, then void it.";
        case hasCreditNotes:
            return "Credit notes are issued on this invoice. Void them first, then void it.";
        case badPayment:
            return "A payment needs an amount above zero, or tax deducted, and neither can be below zero.";
        case paidBeforeIssue:
            return "The payment is dated before the invoice. Check its date.";
        case notEstimate:
            return "That works on estimates only.";
        case alreadyConverted:
            return "This estimate has already become an invoice.";
        case alreadyBilled:
            return "That expense is already on an invoice.";
        case nothingDue:
            return "Nothing is due on this invoice any more.";
        case lineMatched:
            return "That bank line is already matched. Unmatch it first.";
        case expenseMatched:
            return "That expense is already matched to another bank line.";
        case wrongDirection:
            return "Money that came in can’t pay an expense, and money that went out can’t pay an invoice.";
    }
    fatal("unknown refusal");
}

}  // namespace

BooksError::BooksError(Code code, std::string_view detail) : code_(code), text_(sentence(code, detail)) {}

}  // namespace tamba
