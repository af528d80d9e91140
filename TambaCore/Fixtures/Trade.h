#pragma once

#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tamba::Fixtures {

/// Money that a client sends to the bank; nothing of it is in the books until a statement line is matched.
struct Receipt {
    enum class Says { client, invoice };  ///< what the client wrote beside it

    Day date;
    std::vector<UUID> invoices;  ///< of one client
    int tdsBP = 0;               ///< kept back for the tax department
    std::int64_t part = 0;       ///< 0: all that is due
    PaymentMethod method = PaymentMethod::bank;
    Says says = Says::client;
};

struct Traded {
    Library library;
    std::vector<Receipt> receipts;  ///< by date
};
/// The books with what the sample studio offered and billed from `start` to `today`: documents of every kind in every
/// state. Made by the operations that people use, so that numbers, parties and links are theirs.
[[nodiscard]] Traded withTrade(Library library, Dice& dice, Day start, Day today);

/// What the bank paid for a unit of the currency on that day; 0 where the user never gave a rate.
[[nodiscard]] std::int64_t rateOn(const Library& library, std::string_view currency, Day date, Day today);

}  // namespace tamba::Fixtures
