#include "TambaCore/Receipts/MIME.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace tamba::MIME {
namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

/// The byte that two hex digits at `at` stand for, or -1.
int hexByte(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size()) return -1;
    const int high = hexDigit(text[at]), low = hexDigit(text[at + 1]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

int base64Digit(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (c >= '0' && c <= '9') return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

std::string percentDecoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const int byte = text[i] == '%' ? hexByte(text, i + 1) : -1; byte >= 0) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

/// One encoded word at the start of `text`: =?charset?B or Q?data?=
struct Word {
    std::string_view charset, data;
    char encoding = 0;
    std::size_t length = 0;  ///< 0: there is none
};
Word encodedWord(std::string_view text) {
    if (!text.starts_with("=?")) return {};
    const std::size_t first = text.find('?', 2);
    if (first == std::string_view::npos || first == 2 || first + 2 >= text.size() || text[first + 2] != '?') return {};
    const std::size_t last = text.find('?', first + 3);
    if (last == std::string_view::npos || last + 1 >= text.size() || text[last + 1] != '=') return {};
    Word word;
    // RFC 2231 lets a language follow: utf-8*en
    word.charset = text.substr(2, first - 2);
    word.charset = word.charset.substr(0, word.charset.find('*'));
    word.encoding = static_cast<char>(text[first + 1] & ~0x20);
    word.data = text.substr(first + 3, last - first - 3);
    if (word.encoding == 'B' || word.encoding == 'Q') word.length = last + 2;
    return word;
}

/// One parameter as written: attribute, value without quotes, and whether it stood in quotes.
struct Parameter {
    std::string name, value;
};

std::vector<Parameter> parameters(std::string_view text) {
    constexpr std::size_t most = 200;
    std::vector<Parameter> result;
    std::size_t at = text.find(';');
    while (at < text.size() && result.size() < most) {
        ++at;  // the semicolon
        const std::size_t equals = text.find_first_of("=;", at);
        if (equals == std::string_view::npos) break;
        if (text[equals] == ';') {
            at = equals;
            continue;
        }
        Parameter parameter{Text::lower(Text::trim(text.substr(at, equals - at))), {}};
        at = equals + 1;
        while (at < text.size() && isBlank(text[at])) ++at;
        if (at < text.size() && text[at] == '"') {
            for (++at; at < text.size() && text[at] != '"'; ++at) {
                // A backslash quotes these two only: senders write C:\bills\may.pdf as it is.
                if (text[at] == '\\' && at + 1 < text.size() && (text[at + 1] == '"' || text[at + 1] == '\\')) ++at;
                parameter.value += text[at];
            }
            at = text.find(';', std::min(at, text.size()));
        } else {
            // Blanks belong to it: the standard wants quotes around such a name, but not all senders set them.
            const std::size_t end = std::min(text.find(';', at), text.size());
            parameter.value = Text::trim(text.substr(at, end - at));
            at = end;
        }
        result.push_back(std::move(parameter));
    }
    return result;
}

/// Value of an extended parameter: charset'language'percent-encoded.
struct Extended {
    std::string charset, bytes;
};
Extended extended(std::string_view value) {
    const std::size_t first = value.find('\'');
    const std::size_t second = first == std::string_view::npos ? first : value.find('\'', first + 1);
    if (second == std::string_view::npos) return {"", percentDecoded(value)};
    return {std::string(value.substr(0, first)), percentDecoded(value.substr(second + 1))};
}

}  // namespace

std::string base64(std::string_view text) {
    std::string result;
    result.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        if (c == '=') {  // padding; another encoded piece may follow
            count = 0;
            continue;
        }
        const int digit = base64Digit(c);
        if (digit < 0) continue;
        bits = (bits << 6 | static_cast<std::uint32_t>(digit)) & 0xffffff;
        if (count == 0) {
            count = 6;
            continue;
        }
        count += 6;
        if (count >= 8) {
            count -= 8;
            result += static_cast<char>(bits >> count & 0xff);
        }
    }
    return result;
}

std::string quotedPrintable(std::string_view text, Place place) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '_' && place == Place::header) {
            result += ' ';
        } else if (c != '=') {
            result += c;
        } else if (const int byte = hexByte(text, i + 1); byte >= 0) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            // A soft line break; blanks may have been added behind it on the way. Any other "=" is printed.
            std::size_t end = i + 1;
            while (end < text.size() && (text[end] == ' ' || text[end] == '\t')) ++end;
            if (end < text.size() && text[end] == '\r') ++end;
            if (end >= text.size())
                i = end;
            else if (text[end] == '\n' || text[end - 1] == '\r')
                i = text[end] == '\n' ? end : end - 1;
            else
                result += c;
        }
    }
    return result;
}

std::string decoded(std::string_view bytes, std::string_view charset) {
    charset = Text::trim(charset, " \t\"'");
    if (!charset.empty())
        if (auto text = Text::decode(bytes, charset)) return *text;
    if (Text::isUTF8(bytes)) return std::string(bytes);
    return Text::decode(bytes, "windows-1252").value_or(Text::repairedUTF8(bytes));
}

std::string decodedWords(std::string_view text) {
    std::string result, bytes;
    std::string_view charset;
    const auto flush = [&] {
        if (!bytes.empty()) result += decoded(bytes, charset);
        bytes.clear();
    };
    std::size_t literal = 0;  // start of what is not yet taken over
    for (std::size_t at = text.find("=?"); at != std::string_view::npos;) {
        const Word word = encodedWord(text.substr(at));
        if (word.length == 0) {
            at = text.find("=?", at + 2);
            continue;
        }
        const std::string_view between = text.substr(literal, at - literal);
        const bool neighbours = literal > 0 && std::all_of(between.begin(), between.end(), isBlank);
        if (!neighbours) {
            flush();
            result += decoded(between, "");
        } else if (Text::lower(charset) != Text::lower(word.charset)) {
            flush();
        }
        // Bytes are gathered over neighbours: some senders cut a character in two.
        bytes += word.encoding == 'B' ? base64(word.data) : quotedPrintable(word.data, Place::header);
        charset = word.charset;
        literal = at + word.length;
        at = text.find("=?", literal);
    }
    flush();
    return result + decoded(text.substr(literal), "");
}

std::string_view Field::operator[](const std::string& name) const {
    const auto found = parameters.find(name);
    return found == parameters.end() ? std::string_view() : std::string_view(found->second);
}

Field field(std::string_view text) {
    Field result;
    result.value = Text::lower(Text::trim(text.substr(0, text.find(';'))));
    struct Pieces {
        std::map<int, std::pair<bool, std::string>> values;  ///< by number; true: percent-encoded
    };
    std::map<std::string, Pieces> continued;
    for (const Parameter& parameter : MIME::parameters(text)) {
        const std::string_view name = parameter.name;
        const std::size_t star = name.find('*');
        if (star == std::string_view::npos) {
            result.parameters.emplace(name, decodedWords(parameter.value));
            continue;
        }
        // name*=…, name*0=…, name*0*=…
        std::string_view number = name.substr(star + 1);
        const bool encoded = number.empty() || number.ends_with('*');
        if (number.ends_with('*')) number.remove_suffix(1);
        int index = 0;
        std::from_chars(number.data(), number.data() + number.size(), index);
        continued[std::string(name.substr(0, star))].values.emplace(index, std::pair{encoded, parameter.value});
    }
    for (const auto& [name, pieces] : continued) {
        std::string charset, bytes;
        for (const auto& [index, piece] : pieces.values) {
            const auto& [encoded, value] = piece;
            if (!encoded) {
                bytes += value;
            } else if (index == 0) {
                Extended first = extended(value);
                charset = std::move(first.charset);
                bytes += first.bytes;
            } else {
                bytes += percentDecoded(value);
            }
        }
        result.parameters[name] = decoded(bytes, charset);  // stands above a plain one for old readers
    }
    return result;
}

std::string_view nextLine(std::string_view text, std::size_t& at) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string_view line = text.substr(at, end - at);
    at = std::min(end + 1, text.size());
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

Halves halves(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t begin = at;
        if (nextLine(text, at).empty()) return {text.substr(0, begin), text.substr(at)};
    }
    return {text, {}};
}

std::vector<std::string_view> parts(std::string_view body, std::string_view boundary, std::size_t limit) {
    std::vector<std::string_view> result;
    std::size_t begin = std::string_view::npos;
    std::size_t at = 0;
    const auto close = [&](std::size_t end) {
        if (begin == std::string_view::npos) return;
        std::string_view part = body.substr(begin, end - begin);
        // The line end in front of a boundary belongs to the boundary.
        if (part.ends_with('\n')) part.remove_suffix(1);
        if (part.ends_with('\r')) part.remove_suffix(1);
        result.push_back(part);
    };
    while (at < body.size() && result.size() < limit) {
        const std::size_t lineBegin = at;
        std::string_view line = nextLine(body, at);
        if (!line.starts_with("--")) continue;
        line = Text::trim(line.substr(2));
        if (boundary.empty() && !line.empty() && line.front() != '-') boundary = line;
        if (boundary.empty() || !line.starts_with(boundary)) continue;
        const std::string_view rest = line.substr(boundary.size());
        if (!rest.empty() && rest != "--") continue;
        close(lineBegin);
        begin = rest.empty() ? at : std::string_view::npos;
        if (!rest.empty()) break;
    }
    if (result.size() < limit) close(body.size());
    return result;
}

}  // namespace tamba::MIME
