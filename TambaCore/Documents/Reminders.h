#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Model/Models.h"

#include <string>
#include <string_view>

/// E-mails that carry a document to the client: the first sending, and reminders in three tones. A draft is a plain
/// value that the person may edit; `message` makes the MIME message of it.
namespace tamba::Reminders {

struct Draft {
    std::string to;  ///< "Asha Rao <asha@saffron.example>", may be empty
    std::string subject;
    std::string body;            ///< plain text, lines ended by LF
    std::string attachmentName;  ///< "INV-26-27-007.pdf"

    bool operator==(const Draft&) const = default;
};

/// How a reminder speaks, by how many went before: friendly, firm from the second on, final from the third on. None
/// threatens.
enum class Tone { friendly, firm, final };
[[nodiscard]] Tone tone(const Document& invoice);
[[nodiscard]] std::string_view title(Tone tone);

/// The e-mail that sends an issued invoice, estimate or credit note. Throws `notIssued`, and `figures` for one whose
/// figures are beyond belief.
[[nodiscard]] Draft sending(const Library& library, const Document& document, Day today);
/// The reminder for an issued invoice with something due: number, date, amount due after payments, tax deducted and
/// credit notes, due date, days late, ways to pay (bank, UPI link), and a word for those who have paid. Throws
/// `notInvoice`, `notIssued`, `nothingDue`, `figures`.
[[nodiscard]] Draft reminder(const Library& library, const Document& invoice, Day today);
[[nodiscard]] Draft reminder(const Library& library, const Document& invoice, Day today, Tone tone);

/// The draft as a message that mail programs open for sending, `from` like `Draft::to` (RFC 5322, 2045–2047,
/// `X-Unsent`), the PDF attached. The same arguments give the same bytes.
[[nodiscard]] std::string message(const Draft& draft, std::string_view from, std::string_view pdf, Instant date);

/// The reminder has gone, and the invoice with it: counts it. Throws `notInvoice`, `notIssued`.
[[nodiscard]] Library recordReminder(Library library, const UUID& invoice, Day on);

}  // namespace tamba::Reminders
