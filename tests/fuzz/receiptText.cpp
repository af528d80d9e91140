#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

using namespace tamba;

/// The first byte chooses order and source, the rest are the lines of a receipt.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto order = static_cast<DateOrder>(data[0] % 3);
    const auto source = data[0] & 4 ? ReceiptParser::Source::recognised : ReceiptParser::Source::text;
    const ReceiptGuess guess = ReceiptParser::parse(Text::splitLines(text), order, {2026, 10, 20}, source);
    if (guess.total && !isBelievable(*guess.total)) __builtin_trap();
    if (guess.tax && !isBelievable(*guess.tax)) __builtin_trap();
    if (guess.date && !Day::valid(guess.date->y, guess.date->m, guess.date->d)) __builtin_trap();
    if (!Text::isUTF8(guess.vendor) || !Text::isUTF8(guess.text)) __builtin_trap();
    return 0;
}
