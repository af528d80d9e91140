#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/EmailReceipt.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tamba::EmailReceipt {
namespace {

constexpr std::array<std::pair<std::string_view, char32_t>, 40> entities{{
    {"amp", '&'},       {"apos", '\''},    {"bull", 0x2022},  {"cent", 0xa2},    {"copy", 0xa9},    {"dash", 0x2010},
    {"deg", 0xb0},      {"eacute", 0xe9},  {"emsp", ' '},     {"ensp", ' '},     {"euro", 0x20ac},  {"gt", '>'},
    {"hellip", 0x2026}, {"laquo", 0xab},   {"ldquo", 0x201c}, {"lsquo", 0x2018}, {"lt", '<'},       {"mdash", 0x2014},
    {"middot", 0xb7},   {"minus", 0x2212}, {"nbsp", ' '},     {"ndash", 0x2013}, {"ouml", 0xf6},    {"plus", '+'},
    {"pound", 0xa3},    {"quot", '"'},     {"raquo", 0xbb},   {"rdquo", 0x201d}, {"reg", 0xae},     {"rsquo", 0x2019},
    {"sect", 0xa7},     {"shy", 0},        {"thinsp", ' '},   {"times", 0xd7},   {"trade", 0x2122}, {"uuml", 0xfc},
    {"yen", 0xa5},      {"zwj", 0},        {"zwnj", 0},       {"zwsp", 0},
}};

void appendUTF8(std::string& text, char32_t code) {
    const auto byte = [&](char32_t value) { text += static_cast<char>(static_cast<unsigned char>(value)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xc0 | code >> 6);
        byte(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        byte(0xe0 | code >> 12);
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    } else {
        byte(0xf0 | code >> 18);
        byte(0x80 | (code >> 12 & 0x3f));
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    }
}

/// Fillers that mail senders hide in a preview line, and blanks that are not " ".
char32_t plain(char32_t code) {
    if (code == 0xad || code == 0x34f || (code >= 0x200b && code <= 0x200f) || code == 0x2060 || code == 0xfeff)
        return 0;
    if (code == 0xa0 || (code >= 0x2000 && code <= 0x200a) || code == 0x202f) return ' ';
    return code;
}

/// Appends what the entity at the start of `text` ("&#8377;", "&nbsp;") stands for; its length, 0 when it is none.
std::size_t appendEntity(std::string& result, std::string_view text) {
    constexpr std::size_t longest = 12;
    const std::size_t end = text.substr(0, longest).find(';');
    if (end == std::string_view::npos || end < 2) return 0;
    std::string_view name = text.substr(1, end - 1);
    char32_t code = 0;
    if (name.front() == '#') {
        name.remove_prefix(1);
        const bool hex = name.starts_with('x') || name.starts_with('X');
        if (hex) name.remove_prefix(1);
        std::uint32_t value = 0;
        const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), value, hex ? 16 : 10);
        if (error != std::errc{} || stop != name.data() + name.size()) return 0;
        if (value == 0 || value > 0x10ffff || (value >= 0xd800 && value < 0xe000)) value = 0xfffd;
        code = plain(value);
    } else {
        const auto found =
            std::find_if(entities.begin(), entities.end(), [&](const auto& e) { return e.first == name; });
        if (found == entities.end()) return 0;
        code = found->second;
    }
    if (code != 0) appendUTF8(result, code);
    return end + 1;
}

constexpr std::array<std::string_view, 24> blocks{
    "address", "article", "blockquote", "center", "dd", "div", "dl", "dt", "footer",  "h1",    "h2", "h3",
    "h4",      "h5",      "h6",         "header", "hr", "li",  "ol", "p",  "section", "table", "tr", "ul"};

}  // namespace

std::string stripHTML(std::string_view html) {
    std::string text;
    const auto atLineStart = [&] { return text.empty() || text.back() == '\n'; };
    const auto blank = [&] {
        if (!atLineStart() && text.back() != ' ') text += ' ';
    };
    const auto breakLine = [&] {
        while (text.ends_with(' ')) text.pop_back();
        text += '\n';
    };
    bool preformatted = false;
    bool unclosedScript = false, unclosedStyle = false;  // there is no end tag from here on
    for (std::size_t i = 0; i < html.size();) {
        const char c = html[i];
        if (c == '<' && i + 1 < html.size()) {
            if (html.substr(i).starts_with("<!--")) {
                const std::size_t end = html.find("-->", i + 4);
                i = end == std::string_view::npos ? html.size() : end + 3;
                continue;
            }
            const bool closing = html[i + 1] == '/';
            const std::size_t nameBegin = i + (closing ? 2 : 1);
            std::size_t nameEnd = nameBegin;
            const auto letter = [](char l) { return (l >= 'a' && l <= 'z') || (l >= 'A' && l <= 'Z'); };
            while (nameEnd < html.size() && nameEnd - nameBegin < 16 &&
                   (letter(html[nameEnd]) || (html[nameEnd] >= '0' && html[nameEnd] <= '9')))
                ++nameEnd;
            const bool tag =
                (nameEnd > nameBegin && letter(html[nameBegin])) || html[i + 1] == '!' || html[i + 1] == '?';
            if (!tag) {  // "2 < 3"
                text += c;
                ++i;
                continue;
            }
            const std::string name = Text::lower(html.substr(nameBegin, nameEnd - nameBegin));
            const std::size_t end = html.find('>', nameEnd);
            i = end == std::string_view::npos ? html.size() : end + 1;
            if (!closing && (name == "script" || name == "style")) {
                // To its own end tag, in any case. Where that is missing, what follows is text.
                bool& unclosed = name == "script" ? unclosedScript : unclosedStyle;
                std::size_t close = unclosed ? html.npos : html.find("</", i);
                while (close != html.npos && Text::lower(html.substr(close + 2, name.size())) != name)
                    close = html.find("</", close + 2);
                unclosed = close == html.npos;
                if (!unclosed) i = close;
            } else if (name == "pre") {
                preformatted = !closing;
                if (!atLineStart()) breakLine();
            } else if (name == "br") {
                breakLine();
            } else if (std::find(blocks.begin(), blocks.end(), name) != blocks.end()) {
                if (closing || !atLineStart()) breakLine();
            } else if (name == "td" || name == "th") {
                // Columns stay apart as on a printed line.
                if (closing && !atLineStart() && !text.ends_with("  ")) text += text.ends_with(' ') ? " " : "  ";
            }
        } else if (c == '&') {
            const std::size_t length = appendEntity(text, html.substr(i));
            if (length == 0) text += c;
            i += std::max<std::size_t>(length, 1);
        } else if (c == '\n' && preformatted) {
            breakLine();
            ++i;
        } else if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f') {
            blank();
            ++i;
        } else {
            text += c;
            ++i;
        }
    }
    return text;
}

}  // namespace tamba::EmailReceipt
