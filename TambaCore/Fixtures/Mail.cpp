#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/MailText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Fixtures/Receipts.h"
#include "TambaCore/Model/LibraryStore.h"

#include <array>

namespace tamba::Fixtures::Receipts {

namespace {

std::string headerDate(const Bill& bill) {
    constexpr std::array days{"Thu", "Fri", "Sat", "Sun", "Mon", "Tue", "Wed"};  // 1 January 1970 was a Thursday
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto weekday = static_cast<std::size_t>(((bill.date.number() % 7) + 7) % 7);
    return std::string(days[weekday]) + ", " + std::to_string(bill.date.d) + " " +
           months[static_cast<std::size_t>(bill.date.m - 1)] + " " + std::to_string(bill.date.y) + " " + bill.time +
           ":07 +0530";
}

std::string escaped(std::string_view text) {
    return Text::replaceAll(Text::replaceAll(std::string(text), "&", "&amp;"), "<", "&lt;");
}

std::string amount(const Bill& bill, std::int64_t minor) {
    return MoneyFormat::string(minor, Currency::of(bill.currency));
}

/// "Neelpankh Airways" sends from neelpankhairways.example.
std::string domain(const Bill& bill) {
    std::string name;
    for (const char c : Text::lower(bill.vendor))
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) name += c;
    return name + ".example";
}

std::string headers(const Bill& bill, const std::string& subject, const std::string& type) {
    const std::string sender = bill.vendor + " <billing@" + domain(bill) + ">";
    return "Return-Path: <bounce@" + domain(bill) + ">\r\n" + MailText::addressHeader("From", sender) +
           "To: accounts@haladandink.example\r\n" + MailText::header("Subject", subject) + "Date: " + headerDate(bill) +
           "\r\nMessage-ID: <" + LibraryStore::slug(bill.number) + "@" + domain(bill) +
           ">\r\nMIME-Version: 1.0\r\nContent-Type: " + type + "\r\n";
}

}  // namespace

std::string emailWithPDF(const Bill& bill) {
    const std::string boundary = "=_part_" + LibraryStore::slug(bill.number);
    const std::string body = "Hello,\n\nthank you for choosing " + bill.vendor + ". Your invoice " + bill.number +
                             " over " + amount(bill, bill.total()) +
                             " is attached as a PDF.\n\nThere is nothing more to pay.\n\n— The team at " + bill.vendor +
                             "\n";
    const std::string file = LibraryStore::slug(bill.number) + ".pdf";
    return headers(bill, "Your invoice " + bill.number + " – " + amount(bill, bill.total()),
                   "multipart/mixed; boundary=\"" + boundary + "\"") +
           "\r\nThis is a message in several parts.\r\n--" + boundary +
           "\r\nContent-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: quoted-printable\r\n\r\n" +
           MailText::quotedPrintable(body) + "\r\n--" + boundary + "\r\nContent-Type: application/pdf; name=\"" + file +
           "\"\r\nContent-Disposition: attachment; filename=\"" + file +
           "\"\r\nContent-Transfer-Encoding: base64\r\n\r\n" + MailText::base64(invoicePDF(bill)) + "\r\n--" +
           boundary + "--\r\n";
}

std::string htmlEmail(const Bill& bill) {
    std::string html =
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\">\n<style>body{font-family:sans-serif;color:#222}"
        "td{padding:6px 12px}.sum td{border-top:1px solid #ccc;font-weight:bold}</style></head>\n<body>\n";
    html += "<h1 style=\"color:#" + bill.accentHex + "\">" + escaped(bill.vendor) + "</h1>\n";
    html += "<p>Thank you for your payment. Here is your receipt.</p>\n";
    html += "<p>Date: " + bill.date.formatted("d MMMM yyyy") + ", " + bill.time + "<br>Receipt no. " +
            escaped(bill.number) + "</p>\n<table>\n";
    const auto row = [&html](const std::string& label, const std::string& value, const char* look) {
        html += std::string("<tr") + look + "><td>" + escaped(label) + "</td><td align=\"right\">&nbsp;" + value +
                "</td></tr>\n";
    };
    // The rupee sign as mailers write it, so that it survives any character set.
    const auto figure = [&bill](std::int64_t minor) { return Text::replaceAll(amount(bill, minor), "₹", "&#8377;"); };
    for (const Bill::Item& item : bill.items) row(item.name, figure(Checked::mul(item.price, item.quantity)), "");
    if (bill.tax.cgst != 0) row("CGST", figure(bill.tax.cgst), "");
    if (bill.tax.sgst != 0) row("SGST", figure(bill.tax.sgst), "");
    if (bill.tax.igst != 0) row("IGST", figure(bill.tax.igst), "");
    if (bill.roundOff != 0) row("Rounding", figure(bill.roundOff), "");
    row("Total paid", figure(bill.total()), " class=\"sum\"");
    html += "</table>\n";
    if (!bill.gstin.empty()) html += "<p>GSTIN " + bill.gstin + "</p>\n";
    html += "<p style=\"font-size:11px;color:#777\">" + Text::replaceAll(escaped(bill.address), "\n", ", ") +
            "</p>\n</body></html>\n";
    return headers(bill, "Your receipt, " + bill.date.formatted("d MMMM") + " – " + amount(bill, bill.total()),
                   "text/html; charset=utf-8") +
           "Content-Transfer-Encoding: quoted-printable\r\n\r\n" + MailText::quotedPrintable(html);
}

}  // namespace tamba::Fixtures::Receipts
