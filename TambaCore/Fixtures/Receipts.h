#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Pages/Images.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Receipts of shops that do not exist, as the files a person would have of them. Each function gives the bytes of one
/// file; the same bill gives the same bytes. What is printed is the bill's figures, so a reading can be held against
/// them.
///
///     Bill bill{.vendor = "Chulha & Charcha", .number = "4821", .date = day, .items = {{"Thali", 2, 28000}}};
///     std::string photo = tillBillJPEG(taxed(bill, 500, SupplyType::intraState));
namespace tamba::Fixtures::Receipts {

struct Bill {
    struct Item {
        std::string name;
        std::int64_t quantity = 1;
        std::int64_t price = 0;  ///< of one, before tax, minor units
        std::string hsn = {};    ///< printed on invoices only
    };
    std::string vendor;
    std::string address = {};  ///< several lines
    std::string contact = {};  ///< phone or e-mail, as printed
    std::string gstin = {};
    std::string number = {};
    Day date = {};
    std::string time = "13:42";
    std::vector<Item> items = {};
    std::string currency = "INR";
    int taxBP = 0;
    TaxSplit tax = {};
    std::int64_t roundOff = 0;
    PaymentMethod method = PaymentMethod::upi;
    std::string customer = {};  ///< several lines; on invoices and e-mails only
    std::string accentHex = "1E4A66";

    [[nodiscard]] std::int64_t subtotal() const;
    [[nodiscard]] std::int64_t total() const;
};

/// With tax on the items, and a rupee total rounded to whole rupees as shops do.
[[nodiscard]] Bill taxed(Bill bill, int taxBP, SupplyType supply);

/// What a perfect reading of the till bill gives, line by line.
[[nodiscard]] std::string text(const Bill& bill);

/// A thermal-paper bill photographed on a table.
[[nodiscard]] std::string tillBillJPEG(const Bill& bill);
/// The same as it came out of the printer: flat, sharp, black on white.
[[nodiscard]] Image tillBill(const Bill& bill);
/// An A4 invoice with a text layer.
[[nodiscard]] std::string invoicePDF(const Bill& bill);
/// An A4 invoice as a flat-bed scanner gives it: a PDF that holds one picture.
[[nodiscard]] std::string scannedPDF(const Bill& bill);
/// A saved message with the invoice attached as a PDF.
[[nodiscard]] std::string emailWithPDF(const Bill& bill);
/// A saved message whose HTML body is the receipt.
[[nodiscard]] std::string htmlEmail(const Bill& bill);

}  // namespace tamba::Fixtures::Receipts
