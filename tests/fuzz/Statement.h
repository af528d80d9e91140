#pragma once

#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Base/Text.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tamba::fuzzing {

/// Whatever the bytes are, what comes out can stand in the books. The first byte chooses order and currency.
inline void readStatement(const std::uint8_t* data, std::size_t size, std::string_view fileName) {
    if (size == 0) return;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto order = static_cast<DateOrder>(data[0] % 3);
    const Currency currency = Currency::of(data[0] & 4 ? "KWD" : data[0] & 8 ? "JPY" : "INR");
    BankImport::Parsed parsed;
    try {
        parsed = BankImport::parse(bytes, fileName, order, currency);
    } catch (const BankImport::ImportError&) {
        return;
    }
    if (parsed.transactions.empty() || parsed.rows.size() != parsed.transactions.size()) __builtin_trap();
    if (parsed.skippedRows.size() != static_cast<std::size_t>(parsed.skipped)) __builtin_trap();
    for (const BankTransaction& line : parsed.transactions) {
        if (!isBelievable(line.amount) || !isBelievable(line.balance.value_or(0))) __builtin_trap();
        if (!Day::valid(line.date.y, line.date.m, line.date.d)) __builtin_trap();
        for (const std::string* text : {&line.text, &line.reference})
            if (!Text::isUTF8(*text)) __builtin_trap();
        if (line.counterparty && (line.counterparty->empty() || !Text::isUTF8(*line.counterparty))) __builtin_trap();
    }
    for (const BankImport::SkippedRow& row : parsed.skippedRows)
        if (row.reason.empty() || !Text::isUTF8(row.reason)) __builtin_trap();
}

}  // namespace tamba::fuzzing
