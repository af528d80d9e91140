#pragma once

#include "TambaCore/Model/Day.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads a saved e-mail (RFC 5322, MIME RFC 2045–2047, RFC 2231). Hostile until read: nesting, parts and sizes are
/// bounded; what is broken is skipped, nothing throws.
namespace tamba::EmailReceipt {

struct Part {
    std::string name;  ///< file name as sent; may hold anything
    std::string data;  ///< decoded bytes
    std::string mime;  ///< lower-cased media type
    bool operator==(const Part&) const = default;
};

struct Message {
    std::string subject;
    std::string from;         ///< decoded header
    std::optional<Day> date;  ///< the day as written in the header
    std::string bodyText;
    std::vector<Part> attachments;
};

[[nodiscard]] Message parse(std::string_view data);
/// Header fields up to the first blank line, names in lower case, unfolded, not decoded. The first of a name counts.
[[nodiscard]] std::map<std::string, std::string> headers(std::string_view text);
[[nodiscard]] std::string quotedPrintable(std::string_view text);
/// Encoded words (RFC 2047) decoded; white space between neighbouring ones dropped.
[[nodiscard]] std::string decodeHeader(std::string_view text);
[[nodiscard]] std::optional<Day> parseRFCDate(std::string_view text);
/// Text of an HTML part: scripts and styles dropped, blocks on lines of their own, entities decoded.
[[nodiscard]] std::string stripHTML(std::string_view html);
/// Display name of a "from" header, else its address.
[[nodiscard]] std::string senderName(std::string_view from);

}  // namespace tamba::EmailReceipt
