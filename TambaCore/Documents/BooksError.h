#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace tamba {

/// A refusal of an operation on the books; `what()` is the finished sentence for the user.
class BooksError : public std::exception {
public:
    enum class Code {
        numberTooLong,
        overpaid,
        missingRate,
        noClient,
        noLines,
        notDraft,
        issuedCannotDelete,
        alreadyVoid,
        notInvoice,
        creditExceeds,
        noSeries,
        figures,  ///< a quantity, price, rate or discount that cannot be; the detail names line and figure
        dueBeforeIssue,
        noGSTIN,          ///< a registered business without its GSTIN (CGST Rules 2017, rule 46(a))
        notIssued,        ///< works on issued documents only: it is a draft or void
        hasPayments,      ///< voiding an invoice with payments
        hasCreditNotes,   ///< voiding an invoice with credit notes
        badPayment,       ///< settles nothing, has a negative part, or is beyond belief
        paidBeforeIssue,  ///< a payment dated before its invoice
        notEstimate,
        alreadyConverted,  ///< the estimate has become an invoice
        alreadyBilled,     ///< the expense is on another invoice, or twice on this one
        inUse,             ///< what others refer to; the detail names it and who
        nothingDue,        ///< a reminder for an invoice that is paid
        lineMatched,       ///< the bank line is linked already
        expenseMatched,    ///< the expense is linked to another bank line
        wrongDirection,    ///< a bank line of money in for an expense, or of money out for an invoice
        split,             ///< shares of a bank line that cannot be
        rule,              ///< a category rule that cannot work
    };

    /// `detail`: the number of `numberTooLong`, the currency of `missingRate`, the whole sentence of `figures`,
    /// `inUse`, `split` and `rule`, and of `notIssued` where there is more to say; ignored by the others.
    explicit BooksError(Code code, std::string_view detail = {});
    [[nodiscard]] Code code() const { return code_; }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

private:
    Code code_;
    std::string text_;
};

}  // namespace tamba
