#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Fixtures/Receipts.h"
#include "TambaCore/Model/LibraryStore.h"

#include <array>

namespace tamba::Fixtures::Receipts {

namespace {

std::string base64(std::string_view bytes, std::size_t lineLength) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    std::size_t onLine = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<std::uint8_t>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k) out += i + k <= bytes.size() ? letters[group >> (18 - 6 * k) & 63] : '=';
        onLine += 4;
        if (lineLength != 0 && onLine >= lineLength) {
            out += "\r\n";
            onLine = 0;
        }
    }
    return out;
}

/// RFC 2045, section 6.7: lines of at most 76 characters, soft breaks where a longer one was cut.
std::string quotedPrintable(std::string_view text) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string out, line;
    const auto put = [&](std::string_view piece) {
        if (line.size() + piece.size() > 75) {
            out += line + "=\r\n";
            line.clear();
        }
        line += piece;
    };
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (c == '\n') {
            out += line + "\r\n";
            line.clear();
        } else if (byte >= 32 && byte < 127 && c != '=') {
            put(std::string_view(&c, 1));
        } else {
            const char escaped[] = {'=', digits[byte >> 4], digits[byte & 15]};
            put({escaped, 3});
        }
    }
    return out + line;
}

/// RFC 2047: as it is when all ASCII, else one encoded word.
std::string headerText(std::string_view text) {
    for (const char c : text)
        if (static_cast<std::uint8_t>(c) >= 128) return "=?UTF-8?B?" + base64(text, 0) + "?=";
    return std::string(text);
}

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
    const std::string sender = headerText(bill.vendor);
    const bool isASCII = sender == bill.vendor;  // an encoded word must not stand between quotes
    return "Return-Path: <bounce@" + domain(bill) + ">\r\nFrom: " + (isASCII ? '"' + sender + '"' : sender) +
           " <billing@" + domain(bill) + ">\r\nTo: accounts@haladandink.example\r\nSubject: " + headerText(subject) +
           "\r\nDate: " + headerDate(bill) + "\r\nMessage-ID: <" + LibraryStore::slug(bill.number) + "@" +
           domain(bill) + ">\r\nMIME-Version: 1.0\r\nContent-Type: " + type + "\r\n";
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
           quotedPrintable(body) + "\r\n--" + boundary + "\r\nContent-Type: application/pdf; name=\"" + file +
           "\"\r\nContent-Disposition: attachment; filename=\"" + file +
           "\"\r\nContent-Transfer-Encoding: base64\r\n\r\n" + base64(invoicePDF(bill), 76) + "\r\n--" + boundary +
           "--\r\n";
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
           "Content-Transfer-Encoding: quoted-printable\r\n\r\n" + quotedPrintable(html);
}

}  // namespace tamba::Fixtures::Receipts
