#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// UPI payment links (NPCI, UPI linking document 1.6): what the code on an invoice says.
namespace tamba::UPI {

/// Shown beside a UPI ID that is not valid.
inline constexpr std::string_view invalidVPA = "That doesn’t look like a UPI ID (name@handle).";

/// name@handle, white space around it ignored.
[[nodiscard]] bool isValidVPA(std::string_view text);
/// upi://pay with pa, pn, am, cu and tn in this order. `amountMinor` in paise; the note is cut to its first 60
/// characters. Values are percent-encoded as in the query of an RFC 3986 URL; a blank is %20.
[[nodiscard]] std::string link(std::string_view vpa, std::string_view payee, std::int64_t amountMinor,
                               std::string_view note);

/// The link that pays what is due on an invoice; nothing unless it is an issued invoice in rupees with something due,
/// and the business shows codes and has a valid UPI ID. Names in it are the ones frozen on the invoice.
[[nodiscard]] std::optional<std::string> linkFor(const Library& library, const Document& invoice);

}  // namespace tamba::UPI
