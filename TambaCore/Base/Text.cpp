#include "TambaCore/Base/Text.h"

#include "TambaCore/Base/Check.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace tamba::Text {
namespace {

bool isASCII(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

/// ICU counts in 32 bits. No text of the books comes near that; a foreign file that does is cut by its reader.
std::int32_t icuLength(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 4)) fatal("text too long");
    return static_cast<std::int32_t>(text.size());
}

icu::StringPiece piece(std::string_view text) { return {text.data(), icuLength(text)}; }

UChar32 firstCodePoint(std::string_view character) {
    std::size_t at = 0;
    return character.empty() ? 0 : static_cast<UChar32>(codePoint(character, at));
}

bool isSpace(UChar32 c) { return c < 0x80 ? c == ' ' || (c >= '\t' && c <= '\r') : u_isUWhiteSpace(c) != 0; }

template <class Mapping>
std::string mapCase(std::string_view text, Mapping&& mapping) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, icuLength(text));
    UErrorCode status = U_ZERO_ERROR;
    mapping(piece(text), sink, status);
    if (U_FAILURE(status)) fatal("case mapping failed");
    return repairedUTF8(result);
}

/// Calls `visit(begin, end)` for each character until it returns false.
template <class Visit>
void forEachCharacter(std::string_view text, Visit&& visit) {
    if (isASCII(text)) {
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = begin + (text.substr(begin, 2) == "\r\n" ? 2 : 1);
            if (!visit(begin, end)) return;
            begin = end;
        }
        return;
    }
    // Making an iterator loads its rules; it is not safe on two threads at once.
    thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::BreakIterator> made(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        if (U_FAILURE(status)) fatal("no rules for characters");
        return made;
    }();
    UErrorCode status = U_ZERO_ERROR;
    UText view = UTEXT_INITIALIZER;
    utext_openUTF8(&view, text.data(), icuLength(text), &status);
    iterator->setText(&view, status);
    if (U_FAILURE(status)) fatal("characters cannot be told apart");
    std::int32_t begin = iterator->first();
    for (std::int32_t end = iterator->next(); end != icu::BreakIterator::DONE; end = iterator->next()) {
        if (!visit(static_cast<std::size_t>(begin), static_cast<std::size_t>(end))) break;
        begin = end;
    }
    utext_close(&view);
}

}  // namespace

char32_t codePoint(std::string_view text, std::size_t& at) {
    const auto byte = [text](std::size_t index) { return static_cast<std::uint8_t>(text[index]); };
    if (byte(at) < 0x80) return byte(at++);
    // Four bytes hold any code point, and ICU's positions have 32 bits.
    const std::string_view near = text.substr(at, 4);
    std::int32_t used = 0;
    UChar32 c = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // the macro's own arithmetic
    U8_NEXT_OR_FFFD(near.data(), used, static_cast<std::int32_t>(near.size()), c);
#pragma GCC diagnostic pop
    at += static_cast<std::size_t>(used);
    return static_cast<char32_t>(c);
}

std::string_view trim(std::string_view text) {
    const auto isPlain = [](char c) { return c > ' ' && c < '\x7F'; };
    if (text.empty() || (isPlain(text.front()) && isPlain(text.back()))) return text;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); begin = at)
        if (!isSpace(static_cast<UChar32>(codePoint(text, at)))) break;
    text.remove_prefix(begin);
    while (!text.empty()) {
        std::size_t last = text.size() - 1;
        while (last > 0 && (static_cast<unsigned char>(text[last]) & 0xC0) == 0x80) --last;
        std::size_t end = last;
        if (!isSpace(static_cast<UChar32>(codePoint(text, end))) || end < text.size()) break;
        text = text.substr(0, last);
    }
    return text;
}

std::string_view trim(std::string_view text, std::string_view asciiCharacters) {
    const std::size_t first = text.find_first_not_of(asciiCharacters);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(asciiCharacters) + 1 - first);
}

std::string lower(std::string_view text) {
    if (isASCII(text)) {
        std::string result(text);
        for (char& c : result)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
        return result;
    }
    return mapCase(text, [](auto source, auto& sink, UErrorCode& status) {
        icu::CaseMap::utf8ToLower("", 0, source, sink, nullptr, status);
    });
}

std::string upper(std::string_view text) {
    if (isASCII(text)) {
        std::string result(text);
        for (char& c : result)
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
        return result;
    }
    return mapCase(text, [](auto source, auto& sink, UErrorCode& status) {
        icu::CaseMap::utf8ToUpper("", 0, source, sink, nullptr, status);
    });
}

std::string capitalised(std::string_view text) {
    if (isASCII(text)) {
        std::string result = lower(text);
        bool begins = true;
        for (char& c : result) {
            if (isSpace(static_cast<UChar32>(c))) {
                begins = true;
            } else if (begins && c >= 'a' && c <= 'z') {
                c = static_cast<char>(c - ('a' - 'A'));
                begins = false;
            }
        }
        return result;
    }
    std::string result;
    const auto addWord = [&result](std::string_view word) {
        result += mapCase(word, [](auto source, auto& sink, UErrorCode& status) {
            icu::CaseMap::utf8ToTitle("", U_TITLECASE_WHOLE_STRING | U_TITLECASE_ADJUST_TO_CASED, nullptr, source, sink,
                                      nullptr, status);
        });
    };
    std::size_t word = 0;
    for (std::size_t at = 0, next = 0; at < text.size(); at = next) {
        if (!isSpace(static_cast<UChar32>(codePoint(text, next)))) continue;
        addWord(text.substr(word, at - word));
        result += text.substr(at, next - at);
        word = next;
    }
    addWord(text.substr(word));
    return result;
}

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> result;
    forEachCharacter(text, [&](std::size_t begin, std::size_t end) {
        result.push_back(text.substr(begin, end - begin));
        return true;
    });
    return result;
}

std::size_t length(std::string_view text) {
    std::size_t count = 0;
    forEachCharacter(text, [&](std::size_t, std::size_t) { return ++count, true; });
    return count;
}

std::string_view prefix(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    std::size_t cut = 0;
    forEachCharacter(text, [&](std::size_t, std::size_t end) {
        if (count == 0) return false;
        cut = end;
        return --count > 0;
    });
    return text.substr(0, cut);
}

std::string_view prefixBytes(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) return text;
    std::size_t cut = 0;
    forEachCharacter(text, [&](std::size_t, std::size_t end) {
        if (end > bytes) return false;
        cut = end;
        return true;
    });
    return text.substr(0, cut);
}

bool isLetter(std::string_view character) { return (U_GET_GC_MASK(firstCodePoint(character)) & U_GC_L_MASK) != 0; }

bool isLetterOrDigit(std::string_view character) {
    return (U_GET_GC_MASK(firstCodePoint(character)) & (U_GC_L_MASK | U_GC_N_MASK)) != 0;
}

std::string lettersAndDigits(std::string_view text) {
    std::string result;
    if (isASCII(text)) {
        for (const char c : text)
            if ((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) result += c;
        return result;
    }
    forEachCharacter(text, [&](std::size_t begin, std::size_t end) {
        const std::string_view character = text.substr(begin, end - begin);
        if (isLetterOrDigit(character)) result += character;
        return true;
    });
    return result;
}

bool contains(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

std::string replaceAll(std::string text, std::string_view from, std::string_view to) {
    if (from.empty()) return text;
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, done)) {
        result.append(text, done, at - done).append(to);
        done = at + from.size();
    }
    if (done == 0) return text;
    return result.append(text, done);
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> result;
    for (std::size_t at = text.find(separator); at != text.npos; at = text.find(separator)) {
        result.emplace_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    result.emplace_back(text);
    return result;
}

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> result;
    for (std::size_t at = text.find_first_of("\r\n"); at != text.npos; at = text.find_first_of("\r\n")) {
        result.emplace_back(text.substr(0, at));
        text.remove_prefix(at + (text.substr(at, 2) == "\r\n" ? 2 : 1));
    }
    result.emplace_back(text);
    return result;
}

std::string join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result += separator;
        result += pieces[i];
    }
    return result;
}

int compareForPeople(std::string_view a, std::string_view b) {
    static const std::unique_ptr<const icu::Collator> collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        if (U_FAILURE(status)) fatal("no collation rules");
        return made;
    }();
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult order = collator->compareUTF8(piece(a), piece(b), status);
    return order != UCOL_EQUAL ? order : a.compare(b);
}

bool isUTF8(std::string_view bytes) { return repairedUTF8(bytes) == bytes; }

std::string repairedUTF8(std::string_view bytes) {
    if (isASCII(bytes)) return std::string(bytes);
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t begin = 0, at = 0; begin < bytes.size(); begin = at) {
        if (codePoint(bytes, at) == U'\uFFFD')
            result += "\uFFFD";
        else
            result += bytes.substr(begin, at - begin);
    }
    return result;
}

std::optional<std::string> decode(std::string_view bytes, std::string_view charset) {
    // An empty name would mean the system's own set, and a name is looked up as a file.
    const auto allowed = [](char c) {
        return Text::isLetterOrDigit({&c, 1}) || std::string_view("-_.:+").find(c) != std::string_view::npos;
    };
    if (charset.empty() || charset.size() > 60 || !std::all_of(charset.begin(), charset.end(), allowed)) return {};
    std::string name(charset);
    if (ucnv_compareNames(name.c_str(), "us-ascii") == 0) name = "windows-1252";
    if (ucnv_compareNames(name.c_str(), "utf-8") == 0) return repairedUTF8(bytes);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(name.c_str(), &status), &ucnv_close);
    if (U_FAILURE(status)) return {};
    const icu::UnicodeString text(bytes.data(), icuLength(bytes), converter.get(), status);
    if (U_FAILURE(status)) return {};
    std::string result;
    text.toUTF8String(result);
    return result;
}

}  // namespace tamba::Text
