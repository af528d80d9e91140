#pragma once

#include <string>
#include <string_view>

/// Writes the syntax of e-mails (RFC 5322, MIME RFC 2045–2047, RFC 2231). Lines end in CR LF and stay below 79
/// characters. A value from outside can neither end a header line nor begin another: control characters become blanks.
namespace tamba::MailText {

/// In lines of 76 characters, each ended.
[[nodiscard]] std::string base64(std::string_view bytes);
/// Text with any line ends; the last line is ended.
[[nodiscard]] std::string quotedPrintable(std::string_view text);

/// A whole header line: words as they are where all is ASCII, else encoded words.
[[nodiscard]] std::string header(std::string_view name, std::string_view text);
/// "Asha Rao <asha@saffron.example>, ravi@saffron.example": names are quoted or encoded as they need it. A name may
/// hold commas ("Rao, Asha <asha@saffron.example>"). Nothing without an address: an empty field is no field of RFC
/// 5322, and a mail program fills in one that is missing.
[[nodiscard]] std::string addressHeader(std::string_view name, std::string_view addresses);
/// A parameter on a line of its own: ";\r\n filename=\"bill.pdf\"", in RFC 2231's encoding where it is not ASCII.
[[nodiscard]] std::string parameter(std::string_view name, std::string_view value);

}  // namespace tamba::MailText
