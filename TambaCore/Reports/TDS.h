#pragma once

#include "TambaCore/Model/Models.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// Tax that clients deducted from what they paid, to compare with their certificates (Form 16A, from April 2026 Form
/// 131) and the tax department's statement (Form 26AS, now Form 168). Its year is April to March whatever the
/// business's own is, its quarters are those of the deductors' statements: April, July, October, January. Amounts in
/// minor units of the home currency.
///
///     for (const auto& client : TDS::year(library, 2026).clients) show(client.name, client.total);
namespace tamba::TDS {

/// What was deducted from one payment.
struct Deduction {
    UUID invoiceID, paymentID;
    Day date;  ///< of the payment; a client may book it at the invoice's date, in another quarter or year
    int quarter = 1;
    std::string client, gstin, pan;  ///< PAN: characters 3–12 of the GSTIN
    std::string number;
    Day invoiceDate;
    std::int64_t taxable = 0;  ///< share of the invoice's value without tax that the payment settles
    std::int64_t received = 0;
    std::int64_t tds = 0;
    std::int64_t rateBP = 0;  ///< tds of taxable; 0 where nothing is taxable

    bool operator==(const Deduction&) const = default;
};

struct ClientRow {
    std::string name, gstin, pan;
    std::array<std::int64_t, 4> quarters{};
    std::int64_t total = 0;
    std::vector<UUID> invoiceIDs;

    bool operator==(const ClientRow&) const = default;
};

struct Year {
    FinancialYear year;
    std::vector<Deduction> deductions;  ///< by date, then number
    std::vector<ClientRow> clients;     ///< one for each PAN (or name, where none is known), by name
    std::array<std::int64_t, 4> quarters{};
    std::int64_t total = 0;
    std::vector<UUID> leftOut;  ///< invoices without a rate or with figures beyond belief
};
/// Of the payments on issued invoices from April of that year to March.
[[nodiscard]] Year year(const Library& library, int startYear);

}  // namespace tamba::TDS
