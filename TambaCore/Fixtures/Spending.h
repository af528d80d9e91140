#pragma once

#include "TambaCore/Fixtures/Receipts.h"
#include "TambaCore/Fixtures/Shops.h"

#include <vector>

/// What the sample studio bought, and where it drove.
namespace tamba::Fixtures {

/// As what the receipt was kept.
enum class Paper { none, till, invoice, scan, mailWithPDF, htmlMail };

/// One purchase. Amounts in minor units of the shop's currency, before tax.
struct Spend {
    int daysAgo;
    const Shop* shop;
    const char* category;  ///< none: to be sorted out by the user
    std::vector<Receipts::Bill::Item> items;
    int taxBP = 0;  ///< before 22 September 2025, when 12 % became 5 %
    PaymentMethod method = PaymentMethod::upi;
    Paper paper = Paper::none;
    const char* project = nullptr;  ///< and for its client
    const char* notes = "";
    bool billable = false;
};
/// Over two years, oldest first; without what is paid every month.
[[nodiscard]] const std::vector<Spend>& spending();

/// What is paid again and again.
struct Subscription {
    Spend spend;     ///< its `daysAgo` is not used
    int dayOfMonth;  ///< 31: the last
    int monthsApart;
    int receipts;  ///< of the latest ones
    bool planned;  ///< kept as a recurring expense
};
[[nodiscard]] const std::vector<Subscription>& subscriptions();

struct Trip {
    int daysAgo;
    const char* route;
    std::int64_t distanceMilli;
    const char* project;
};
[[nodiscard]] const std::vector<Trip>& trips();

}  // namespace tamba::Fixtures
