#include "TambaCore/Base/Entities.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/EmailReceipt.h"

#include <algorithm>
#include <array>

namespace tamba::EmailReceipt {
namespace {

/// Fillers that mail senders hide in a preview line, and blanks that are not " ".
char32_t plain(char32_t code) {
    if (code == 0xad || code == 0x34f || (code >= 0x200b && code <= 0x200f) || code == 0x2060 || code == 0xfeff)
        return 0;
    if (code == 0xa0 || (code >= 0x2000 && code <= 0x200a) || code == 0x202f) return ' ';
    return code;
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
            const auto entity = Entities::at(html.substr(i));
            if (const char32_t code = entity ? plain(entity->code) : U'&'; code != 0) Entities::appendUTF8(text, code);
            i += entity ? entity->length : 1;
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
