#include "TambaCore/Documents/UPI.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"

namespace tamba::UPI {
namespace {

/// What stands as it is in a query's value. "&", "=" and ";" would part it, "#" and "%" mean something else; "@" must
/// stay because payment apps misread %40.
bool staysInQuery(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           (c != '\0' && std::string_view("-._~@:/?,+!$'()*").find(c) != std::string_view::npos);
}

std::string encoded(std::string_view value) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : Text::repairedUTF8(value)) {
        if (staysInQuery(c)) {
            result += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        result += '%';
        result += digits[byte >> 4];
        result += digits[byte & 15];
    }
    return result;
}

/// Payment apps show letters, digits, blanks, "-" and "/" in a note reliably; a number may hold others.
std::string note(const Document& invoice) {
    std::string result = "Invoice ";
    const std::string number = invoice.number.value_or("");
    for (const std::string_view character : Text::characters(number))
        result += Text::isLetterOrDigit(character) || character == "/" ? character : "-";
    return result;
}

}  // namespace

bool isValidVPA(std::string_view text) {
    static const Text::Pattern shape("^[A-Za-z0-9.\\-_]{2,256}@[A-Za-z][A-Za-z0-9]{1,64}$");
    return shape.matches(Text::trim(text));
}

std::string link(std::string_view vpa, std::string_view payee, std::int64_t amountMinor, std::string_view note) {
    return "upi://pay?pa=" + encoded(Text::trim(vpa)) + "&pn=" + encoded(payee) +
           "&am=" + encoded(MoneyFormat::plain(amountMinor, Currency::inr())) +
           "&cu=INR&tn=" + encoded(Text::prefix(note, 60));
}

std::optional<std::string> linkFor(const Library& library, const Document& invoice) {
    const Business& business = library.business;
    if (invoice.kind != DocKind::invoice || !invoice.isIssued() || invoice.currency != Currency::inr().code) return {};
    if (!business.showUPIQR || !isValidVPA(business.upiID) || !DocMath::isBelievable(invoice)) return {};
    const std::int64_t due = Books::balance(library, invoice);
    if (due < 1) return {};
    return link(business.upiID, invoice.seller ? invoice.seller->name : business.name, due, note(invoice));
}

}  // namespace tamba::UPI
