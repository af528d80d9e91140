#include "TambaCore/Base/MailText.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tamba::MailText {
namespace {

constexpr std::size_t lineLength = 76;
constexpr char digits[] = "0123456789ABCDEF";

std::string inBase64(std::string_view bytes) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    result.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<std::uint8_t>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k) result += i + k <= bytes.size() ? letters[group >> (18 - 6 * k) & 63] : '=';
    }
    return result;
}

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<std::uint8_t>(c) < 128; });
}

/// One line of good UTF-8, so that nothing in it can begin a header of its own.
std::string oneLine(std::string_view text) {
    std::string line = Text::repairedUTF8(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<std::uint8_t>(c) < 32 || c == 127; }, ' ');
    return std::string(Text::trim(line));
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words = Text::split(text, ' ');
    std::erase(words, "");
    return words;
}

/// As much of the text as fits in `bytes`, never nothing and never half a code point.
std::string_view piece(std::string_view text, std::size_t bytes) {
    const std::string_view whole = Text::prefixBytes(text, bytes);
    if (!whole.empty()) return whole;
    std::size_t end = 0;
    for (std::size_t at = 0; at < text.size(); end = at) {
        (void)Text::codePoint(text, at);
        if (end > 0 && at > bytes) break;
    }
    return text.substr(0, end);
}

/// Encoded words of at most 75 characters (RFC 2047), short enough to stand behind a header's name.
std::vector<std::string> encodedWords(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::string_view part = piece(text, 39);
        words.push_back("=?UTF-8?B?" + inBase64(part) + "?=");
        text.remove_prefix(part.size());
    }
    return words;
}

/// A text that could be taken for an encoded word, or has a word too long for a line, is encoded too.
bool standsAsItIs(std::string_view text) {
    const std::vector<std::string> words = wordsOf(text);
    return isASCII(text) && !Text::contains(text, "=?") &&
           std::all_of(words.begin(), words.end(), [](const std::string& word) { return word.size() <= 60; });
}

std::string folded(std::string_view name, const std::vector<std::string>& words) {
    std::string result = std::string(name) + ":";
    std::size_t onLine = result.size();
    for (const std::string& word : words) {
        if (onLine + 1 + word.size() > lineLength && onLine > 1) {
            result += "\r\n";
            onLine = 0;
        }
        result += " " + word;
        onLine += 1 + word.size();
    }
    return result + "\r\n";
}

struct Address {
    std::string name, mailbox;
};

/// Parted at commas and semicolons that follow a mailbox and are neither quoted nor in angle brackets.
std::vector<std::string> parted(std::string_view text) {
    std::vector<std::string> all(1);
    bool quoted = false, bracketed = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (!quoted && (c == '<' || c == '>')) bracketed = c == '<';
        if ((c == ',' || c == ';') && !quoted && !bracketed && Text::contains(all.back(), "@"))
            all.emplace_back();
        else
            all.back() += c;
    }
    return all;
}

Address addressOf(std::string_view text) {
    Address address;
    const std::size_t open = text.rfind('<');
    address.mailbox = open == std::string_view::npos ? text : text.substr(open + 1, text.find('>', open) - open - 1);
    std::erase_if(address.mailbox,
                  [](char c) { return std::string_view(" <>(),;:\\\"").find(c) != std::string_view::npos; });
    if (open != std::string_view::npos)
        address.name = Text::trim(Text::replaceAll(std::string(text.substr(0, open)), "\"", ""));
    return address;
}

std::vector<std::string> nameWords(const std::string& name) {
    if (!standsAsItIs(name)) return encodedWords(name);
    if (name.find_first_of("()<>[]:;@\\,.\"") == std::string::npos) return wordsOf(name);
    return wordsOf("\"" + Text::replaceAll(name, "\\", "\\\\") + "\"");
}

}  // namespace

std::string base64(std::string_view bytes) {
    const std::string all = inBase64(bytes);
    std::string result;
    result.reserve(all.size() + all.size() / lineLength * 2 + 2);
    for (std::size_t at = 0; at < all.size(); at += lineLength) result.append(all, at, lineLength).append("\r\n");
    return result;
}

std::string quotedPrintable(std::string_view text) {
    std::string result;
    for (const std::string& line : Text::splitLines(text)) {
        std::size_t onLine = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const char c = line[i];
            const auto byte = static_cast<std::uint8_t>(c);
            // A blank at the end of a line gets lost on the way.
            const bool plain = byte > 32 && byte < 127 && c != '=';
            const bool blank = (c == ' ' || c == '\t') && i + 1 < line.size();
            const std::size_t size = plain || blank ? 1 : 3;
            if (onLine + size > lineLength - 1) {
                result += "=\r\n";
                onLine = 0;
            }
            if (size == 1)
                result += c;
            else
                result.append({'=', digits[byte >> 4], digits[byte & 15]});
            onLine += size;
        }
        result += "\r\n";
    }
    return result;
}

std::string header(std::string_view name, std::string_view text) {
    const std::string line = oneLine(text);
    return folded(name, standsAsItIs(line) ? wordsOf(line) : encodedWords(line));
}

std::string addressHeader(std::string_view name, std::string_view addresses) {
    std::vector<std::string> words;
    for (const std::string& each : parted(oneLine(addresses))) {
        const Address address = addressOf(each);
        if (address.mailbox.empty()) continue;
        if (!words.empty()) words.back() += ",";
        if (address.name.empty()) {
            words.push_back(address.mailbox);
            continue;
        }
        for (std::string& word : nameWords(address.name)) words.push_back(std::move(word));
        words.push_back("<" + address.mailbox + ">");
    }
    return words.empty() ? std::string() : folded(name, words);
}

std::string parameter(std::string_view name, std::string_view value) {
    const std::string line = oneLine(value);
    if (isASCII(line) && line.size() <= 60 && line.find_first_of("\"\\") == std::string::npos)
        return ";\r\n " + std::string(name) + "=\"" + line + "\"";
    std::string encoded = "UTF-8''", result;
    int part = 0;
    const auto end = [&] {
        result += ";\r\n " + std::string(name) + "*" + std::to_string(part++) + "*=" + encoded;
        encoded.clear();
    };
    for (const char c : line) {
        const auto byte = static_cast<std::uint8_t>(c);
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
                           c == '.' || c == '_';
        if (encoded.size() > 54) end();
        if (plain)
            encoded += c;
        else
            encoded.append({'%', digits[byte >> 4], digits[byte & 15]});
    }
    end();
    return result;
}

}  // namespace tamba::MailText
