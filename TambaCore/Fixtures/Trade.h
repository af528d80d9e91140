#pragma once

#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <string_view>

namespace tamba::Fixtures {

/// The books with what the sample studio offered, billed and was paid over the year before `today`: documents of every
/// kind in every state. Made by the operations that people use, so that numbers, parties and links are theirs.
[[nodiscard]] Library withTrade(Library library, Dice& dice, Day today);

/// What the bank paid for a unit of the currency on that day; 0 where the user never gave a rate.
[[nodiscard]] std::int64_t rateOn(const Library& library, std::string_view currency, Day date, Day today);

}  // namespace tamba::Fixtures
