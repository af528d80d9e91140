#include "TambaCore/Fixtures/Receipts.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Fixtures/Camera.h"
#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Pages/PDFCanvas.h"

#include <algorithm>
#include <cstdio>

namespace tamba::Fixtures::Receipts {

namespace {

using Style = PDFCanvas::Style;
using Weight = PDFCanvas::Weight;

std::string figure(const Bill& bill, std::int64_t minor) {
    return MoneyFormat::string(minor, Currency::of(bill.currency), MoneyFormat::Symbol::hidden);
}
std::string amount(const Bill& bill, std::int64_t minor) {
    return MoneyFormat::string(minor, Currency::of(bill.currency));
}

std::string numeric(Day day) {
    char out[16];
    std::snprintf(out, sizeof out, "%02d/%02d/%04d", day.d, day.m, day.y);
    return out;
}

std::string paidBy(const Bill& bill) {
    Dice dice(bill.vendor + bill.number);
    switch (bill.method) {
        case PaymentMethod::upi:
            return "Paid by UPI  Ref " + std::to_string(400000000000 + dice.below(99999999999));
        case PaymentMethod::card:
            return "Paid by card ending " + std::to_string(1000 + dice.below(9000));
        case PaymentMethod::bank:
            return "Paid by bank transfer";
        case PaymentMethod::cheque:
            return "Paid by cheque";
        case PaymentMethod::wallet:
            return "Paid from wallet";
        case PaymentMethod::cash:
        case PaymentMethod::pettyCash:
        case PaymentMethod::other:
            break;
    }
    return "Paid in cash";
}

struct TaxLine {
    std::string label;
    std::int64_t amount;
};
std::vector<TaxLine> taxLines(const Bill& bill) {
    std::vector<TaxLine> lines;
    const std::string half = " @ " + MoneyFormat::rate(bill.taxBP / 2);
    if (bill.tax.cgst != 0) lines.push_back({"CGST" + half, bill.tax.cgst});
    if (bill.tax.sgst != 0) lines.push_back({"SGST" + half, bill.tax.sgst});
    if (bill.tax.igst != 0) lines.push_back({"IGST @ " + MoneyFormat::rate(bill.taxBP), bill.tax.igst});
    if (bill.tax.other != 0) lines.push_back({"Tax", bill.tax.other});
    return lines;
}

// ---- The paper of a till -------------------------------------------------------------------------------------------

constexpr std::size_t columns = 40;

enum class Print { normal, bold, large };
struct TillLine {
    std::string text;
    Print print = Print::normal;
};

std::string padded(std::string_view text, std::size_t width) {
    const std::size_t length = Text::length(text);
    return std::string(text) + std::string(length < width ? width - length : 0, ' ');
}
std::string leftPadded(std::string_view text, std::size_t width) {
    const std::size_t length = Text::length(text);
    return std::string(length < width ? width - length : 0, ' ') + std::string(text);
}
std::string centred(std::string_view text, std::size_t width = columns) {
    const std::size_t length = Text::length(text);
    return std::string(length < width ? (width - length) / 2 : 0, ' ') + std::string(text);
}
std::string spread(std::string_view left, std::string_view right) {
    const std::size_t used = Text::length(right);
    return padded(left, used < columns ? columns - used : 0) + std::string(right);
}

std::vector<TillLine> tillLines(const Bill& bill) {
    const std::string rule(columns, '-');
    std::vector<TillLine> lines;
    lines.push_back({bill.vendor, Print::large});
    for (const std::string& line : Text::splitLines(bill.address)) lines.push_back({centred(line)});
    if (!bill.contact.empty()) lines.push_back({centred(bill.contact)});
    if (!bill.gstin.empty()) lines.push_back({centred("GSTIN: " + bill.gstin)});
    lines.push_back({rule});
    lines.push_back({centred(bill.gstin.empty() ? "CASH MEMO" : "TAX INVOICE"), Print::bold});
    lines.push_back({spread("Bill No: " + bill.number, "Date: " + numeric(bill.date))});
    lines.push_back({spread("Counter: 1", "Time: " + bill.time)});
    lines.push_back({rule});
    lines.push_back({padded("Item", 17) + leftPadded("Qty", 3) + leftPadded("Rate", 10) + leftPadded("Amount", 10)});
    lines.push_back({rule});
    for (const Bill::Item& item : bill.items) {
        std::string_view name = item.name;
        lines.push_back({padded(Text::prefix(name, 16), 17) + leftPadded(std::to_string(item.quantity), 3) +
                         leftPadded(figure(bill, item.price), 10) +
                         leftPadded(figure(bill, Checked::mul(item.price, item.quantity)), 10)});
    }
    lines.push_back({rule});
    if (!taxLines(bill).empty() || bill.roundOff != 0)
        lines.push_back({spread("Sub Total", figure(bill, bill.subtotal()))});
    for (const TaxLine& tax : taxLines(bill)) lines.push_back({spread(tax.label, figure(bill, tax.amount))});
    if (bill.roundOff != 0) lines.push_back({spread("Round off", MoneyFormat::plain(bill.roundOff, Currency::inr()))});
    lines.push_back({rule});
    lines.push_back({spread("GRAND TOTAL", "Rs. " + figure(bill, bill.total())), Print::bold});
    lines.push_back({rule});
    lines.push_back({centred(paidBy(bill))});
    lines.push_back({centred("Thank you, please visit again")});
    return lines;
}

// ---- The A4 invoice ------------------------------------------------------------------------------------------------

constexpr Size a4{595, 842};
constexpr double leftEdge = 48, rightEdge = 547, contentWidth = rightEdge - leftEdge;

void drawInvoice(PDFCanvas& canvas, const Bill& bill) {
    const Color accent = Color::hex(bill.accentHex), ink = Color::gray(0.12), faint = Color::gray(0.42);
    const auto style = [&](double size, Weight weight = Weight::regular) {
        return Style{.font = PDFCanvas::systemFont(size, weight), .color = ink};
    };
    const Style body = style(9), small = style(8).colored(faint), strong = style(9, Weight::bold);
    const bool home = bill.currency == "INR";

    canvas.fill({0, 0, a4.width, 8}, accent);
    double y = 40;
    y += canvas.text(bill.vendor, leftEdge, y, contentWidth, style(19, Weight::bold).colored(accent)) + 3;
    if (!bill.address.empty()) y += canvas.text(bill.address, leftEdge, y, 300, small);
    if (!bill.contact.empty()) y += canvas.text(bill.contact, leftEdge, y, 300, small);
    if (!bill.gstin.empty()) y += canvas.text("GSTIN: " + bill.gstin, leftEdge, y + 2, 300, body) + 2;
    y += 16;
    canvas.line({leftEdge, y}, {rightEdge, y}, accent, 1);
    y += 12;
    y += canvas.text(bill.tax.total() == 0 ? "Invoice" : "Tax Invoice", leftEdge, y, contentWidth,
                     style(14, Weight::bold)) +
         10;

    double left = y, right = y;
    left += canvas.text("BILLED TO", leftEdge, left, 240, small);
    left += canvas.text(bill.customer, leftEdge, left, 240, body);
    const std::pair<std::string, std::string> facts[] = {
        {home ? "Invoice No." : "Invoice number", bill.number},
        {home ? "Invoice Date" : "Date", bill.date.formatted(home ? "d MMM yyyy" : "MMMM d, yyyy")},
        {"Payment", std::string(paidBy(bill)).substr(8)},
    };
    for (const auto& [label, value] : facts) {
        canvas.text(label, 330, right, 90, small);
        right += canvas.text(value, 410, right, rightEdge - 410, body.aligned(Align::right)) + 3;
    }
    y = std::max(left, right) + 22;

    struct Column {
        const char* title;
        double x, width;
        Align align;
    };
    const Column table[] = {{"Description", leftEdge + 8, 240, Align::left},
                            {home ? "HSN/SAC" : "", 300, 60, Align::left},
                            {"Qty", 362, 30, Align::right},
                            {"Rate", 395, 66, Align::right},
                            {"Amount", 465, 74, Align::right}};
    canvas.fill({leftEdge, y, contentWidth, 22}, accent, 3);
    for (const Column& column : table)
        canvas.text(column.title, column.x, y + 5, column.width,
                    style(8.5, Weight::bold).colored(Color::gray(1)).aligned(column.align));
    y += 30;
    for (const Bill::Item& item : bill.items) {
        const std::string cells[] = {item.name, item.hsn, std::to_string(item.quantity), figure(bill, item.price),
                                     figure(bill, Checked::mul(item.price, item.quantity))};
        double tallest = 0;
        for (std::size_t i = 0; i < std::size(table); ++i)
            tallest =
                std::max(tallest, canvas.text(cells[i], table[i].x, y, table[i].width, body.aligned(table[i].align)));
        y += tallest + 7;
        canvas.line({leftEdge, y}, {rightEdge, y}, Color::gray(0.85), 0.5);
        y += 7;
    }

    y += 6;
    const auto sum = [&](const std::string& label, const std::string& value, const Style& look) {
        canvas.text(label, 345, y, 110, look);
        y += canvas.text(value, 440, y, 99, look.aligned(Align::right)) + 5;
    };
    if (!taxLines(bill).empty()) sum("Subtotal", amount(bill, bill.subtotal()), body);
    for (const TaxLine& tax : taxLines(bill)) sum(tax.label, amount(bill, tax.amount), body);
    if (bill.roundOff != 0) sum("Round off", amount(bill, bill.roundOff), body);
    canvas.fill({335, y, rightEdge - 335, 24}, Color{accent.red, accent.green, accent.blue, 0.12}, 3);
    y += 5;
    sum(home ? "Grand Total" : "Total paid", amount(bill, bill.total()), style(11, Weight::bold));
    y += 18;
    if (home)
        y += canvas.text(MoneyFormat::words(bill.total(), Currency::of(bill.currency)), leftEdge, y, contentWidth,
                         small) +
             14;
    if (!bill.gstin.empty()) {
        canvas.text("For " + bill.vendor, leftEdge, y, contentWidth, strong.aligned(Align::right));
        canvas.text("Authorised signatory", leftEdge, y + 46, contentWidth, small.aligned(Align::right));
        const double x = rightEdge - 92;
        const Point pen[] = {{x, y + 38},      {x + 10, y + 20}, {x + 16, y + 40}, {x + 26, y + 24},
                             {x + 34, y + 36}, {x + 46, y + 29}, {x + 54, y + 35}, {x + 84, y + 27}};
        for (std::size_t i = 1; i < std::size(pen); ++i) canvas.line(pen[i - 1], pen[i], Color::hex("27408B"), 1.1);
    }
    canvas.line({leftEdge, 788}, {rightEdge, 788}, Color::gray(0.8), 0.5);
    canvas.text("This is a computer-generated document.", leftEdge, 794, contentWidth, small.aligned(Align::center));
}

}  // namespace

std::int64_t Bill::subtotal() const {
    std::int64_t sum = 0;
    for (const Item& item : items) sum = Checked::add(sum, Checked::mul(item.price, item.quantity));
    return sum;
}

std::int64_t Bill::total() const { return Checked::add(Checked::add(subtotal(), tax.total()), roundOff); }

Bill taxed(Bill bill, int taxBP, SupplyType supply) {
    bill.taxBP = taxBP;
    bill.tax = TaxSplit::compute(bill.subtotal(), taxBP, supply);
    bill.roundOff = 0;
    if (bill.currency == "INR")
        bill.roundOff = Checked::sub(MoneyMath::roundToWhole(bill.total(), Currency::inr().scale()), bill.total());
    return bill;
}

std::string text(const Bill& bill) {
    std::vector<std::string> lines;
    for (const TillLine& line : tillLines(bill))
        if (line.text.find_first_not_of('-') != std::string::npos) lines.emplace_back(Text::trim(line.text));
    return Text::join(lines, "\n");
}

Image tillBill(const Bill& bill) {
    constexpr double lineHeight = 14, margin = 18, letters = 10;
    const Style normal{.font = PDFCanvas::monospacedFont(letters)};
    const Style bold{.font = PDFCanvas::monospacedFont(letters, Weight::bold)};
    const double width = PDFCanvas::width(std::string(columns, '0'), normal) + 1;
    const Style large{.font = PDFCanvas::monospacedFont(letters * 1.5, Weight::bold), .align = Align::center};

    const std::vector<TillLine> lines = tillLines(bill);
    const double title = PDFCanvas::measure(lines[0].text, width, large);
    auto canvas = PDFCanvas::bitmap(
        {width + 2 * margin, 2 * margin + title + lineHeight * static_cast<double>(lines.size() - 1) + 20}, 2.8);
    double y = margin;
    for (const TillLine& line : lines) {
        const Style& style = line.print == Print::large ? large : line.print == Print::bold ? bold : normal;
        const double height = canvas.text(line.text, margin, y, width, style);
        y += line.print == Print::large ? height : lineHeight;
    }
    return *canvas.image();
}

std::string tillBillJPEG(const Bill& bill) {
    const std::string seed = bill.vendor + bill.number;
    Dice dice(seed);
    const auto between = [&dice](double low, double high) {
        return low + (high - low) * static_cast<double>(dice.below(1001)) / 1000;
    };
    const Camera camera{.degrees = between(-0.8, 0.8),
                        .curl = between(-3, 3),
                        .taper = between(-0.02, 0.03),
                        .margin = 54,
                        .paper = static_cast<int>(between(206, 228)),
                        .table = static_cast<int>(between(58, 104)),
                        .dimming = between(0.06, 0.2),
                        .fading = between(0.1, 0.3),
                        .grain = 3};
    return ImageFile::jpeg(photographed(tillBill(bill), camera, seed), 78);
}

std::string invoicePDF(const Bill& bill) {
    const Instant created = std::chrono::sys_days(std::chrono::days(bill.date.number())) + std::chrono::hours(6);
    auto canvas = PDFCanvas::pdf(a4, "Invoice " + bill.number, bill.vendor, created);
    canvas.beginPage();
    drawInvoice(canvas, bill);
    return *canvas.finish();
}

std::string scannedPDF(const Bill& bill) {
    auto sheet = PDFCanvas::bitmap(a4, 200.0 / 72);
    drawInvoice(sheet, bill);
    const Camera scanner{.degrees = 0.3, .margin = 0, .paper = 246, .table = 214, .fading = 0.12, .grain = 3};
    Image scan = photographed(*sheet.image(), scanner, bill.number);
    scan.jpeg = ImageFile::jpeg(scan, 70);
    const Instant created = std::chrono::sys_days(std::chrono::days(bill.date.number())) + std::chrono::hours(9);
    auto canvas = PDFCanvas::pdf(a4, "Scan", "", created);
    canvas.beginPage();
    canvas.draw(scan, {0, 0, a4.width, a4.height});
    return *canvas.finish();
}

}  // namespace tamba::Fixtures::Receipts
