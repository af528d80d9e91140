#include "TambaCore/Receipts/EmailReceipt.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/MIME.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <set>

namespace tamba::EmailReceipt {
namespace {

// Real messages stay far below each of these.
constexpr int deepest = 24;
constexpr std::size_t mostParts = 400;
constexpr std::size_t mostBytes = 64'000'000;  // of all attachments together
constexpr std::size_t longestBody = 2'000'000;
constexpr std::size_t longestHeader = 256'000;
constexpr std::size_t mostFields = 1'000;

using Headers = std::map<std::string, std::string>;

std::string_view value(const Headers& headers, const std::string& name) {
    const auto found = headers.find(name);
    return found == headers.end() ? std::string_view() : std::string_view(found->second);
}

/// One line of text for people: control characters, line ends among them, become blanks.
std::string oneLine(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
    return std::string(Text::trim(text));
}

std::string transferDecoded(std::string_view body, std::string_view encoding) {
    const std::string name = Text::lower(Text::trim(encoding));
    if (name.starts_with("base64")) return MIME::base64(body);
    if (name.starts_with("quoted-printable")) return quotedPrintable(body);
    return std::string(body);
}

/// Walks the parts of one message, within limits over all of it.
class Walk {
public:
    explicit Walk(Message& message) : message_(message) {}

    void entity(std::string_view text, int depth, std::string_view defaultType = "text/plain") {
        const MIME::Halves halves = MIME::halves(text);
        entity(headers(halves.header), halves.body, depth, defaultType);
    }

    void entity(const Headers& headers, std::string_view body, int depth, std::string_view defaultType = "text/plain") {
        if (depth > deepest || ++parts_ > mostParts) return;
        MIME::Field type = MIME::field(value(headers, "content-type"));
        const bool typed = type.value.find('/') != std::string::npos;
        if (!typed) type.value = defaultType;
        if (type.value.starts_with("multipart/")) {
            const auto parts = MIME::parts(body, type["boundary"], mostParts);
            if (!parts.empty()) return multipart(type.value, parts, depth);
            type.value = "text/plain";
        }
        const MIME::Field disposition = MIME::field(value(headers, "content-disposition"));
        std::string name(disposition["filename"].empty() ? type["name"] : disposition["filename"]);
        if (name.empty() && type.value == "application/pdf") name = "attachment.pdf";
        const std::string_view encoding = value(headers, "content-transfer-encoding");
        const bool isText = type.value == "text/plain" || type.value == "text/html";
        const bool isBody = isText && (name.empty() || (typed && disposition.value != "attachment"));

        if (type.value == "message/rfc822") {
            const std::string inner = transferDecoded(body, encoding);
            entity(std::string_view(inner), depth + 1);
        } else if (isBody) {
            const std::string bytes = transferDecoded(body.substr(0, 2 * longestBody), encoding);
            addText(MIME::decoded(bytes, type["charset"]), type.value == "text/html");
        }
        if (name.empty() || body.size() > mostBytes - bytes_) return;
        Part part{std::move(name), transferDecoded(body, encoding), type.value};
        bytes_ += part.data.size();
        message_.attachments.push_back(std::move(part));
    }

private:
    void multipart(std::string_view type, const std::vector<std::string_view>& parts, int depth) {
        // The alternatives say the same twice; a line of tax must not count twice.
        const bool alternative = type == "multipart/alternative";
        if (alternative) ++alternatives_;
        for (const std::string_view part : parts)
            entity(part, depth + 1, type == "multipart/digest" ? "message/rfc822" : "text/plain");
        if (alternative && --alternatives_ == 0) said_.clear();
    }

    void addText(std::string text, bool html) {
        if (html) text = stripHTML(text);
        std::set<std::string> saying;
        for (std::size_t at = 0; at < text.size() && message_.bodyText.size() < longestBody;) {
            const std::string_view line = MIME::nextLine(text, at);
            if (alternatives_ > 0) {
                std::string key = Text::lettersAndDigits(Text::lower(line));
                if (!key.empty() && said_.contains(key)) continue;
                saying.insert(std::move(key));
            }
            message_.bodyText += line;
            message_.bodyText += '\n';
        }
        said_.merge(saying);
    }

    Message& message_;
    std::set<std::string> said_;  ///< lines of the alternatives so far, letters and digits only
    int alternatives_ = 0;
    std::size_t parts_ = 0;
    std::size_t bytes_ = 0;
};

/// Without the byte count in front and the property list behind of an .emlx file.
std::string_view withoutEnvelope(std::string_view data) {
    if (data.starts_with("\xEF\xBB\xBF")) data.remove_prefix(3);
    std::size_t at = 0;
    const std::string_view first = Text::trim(MIME::nextLine(data.substr(0, 64), at));
    std::size_t count = 0;
    const auto [end, error] = std::from_chars(first.data(), first.data() + first.size(), count);
    if (first.empty() || error != std::errc{} || end != first.data() + first.size()) return data;
    return data.substr(at, count);
}

}  // namespace

Message parse(std::string_view data) {
    data = withoutEnvelope(data);
    while (data.starts_with('\r') || data.starts_with('\n')) data.remove_prefix(1);
    const MIME::Halves halves = MIME::halves(data);
    const Headers fields = headers(halves.header);
    Message message;
    message.subject = oneLine(decodeHeader(value(fields, "subject")));
    message.from = oneLine(decodeHeader(value(fields, "from")));
    message.date = parseRFCDate(value(fields, "date"));
    Walk(message).entity(fields, halves.body, 0);
    return message;
}

std::map<std::string, std::string> headers(std::string_view text) {
    Headers result;
    text = text.substr(0, longestHeader);
    std::string* last = nullptr;
    std::string repeated;  // where the lines of a field go that was there before
    for (std::size_t at = 0; at < text.size() && result.size() < mostFields;) {
        const std::string_view line = MIME::nextLine(text, at);
        if (line.empty()) break;
        if (line.front() == ' ' || line.front() == '\t') {
            if (last) (*last += ' ') += Text::trim(line, " \t");
            continue;
        }
        const std::size_t colon = line.find(':');
        last = nullptr;
        if (colon == std::string_view::npos || colon == 0) continue;
        const std::string name = Text::lower(Text::trim(line.substr(0, colon), " \t"));
        const auto [field, isNew] = result.emplace(name, Text::trim(line.substr(colon + 1), " \t"));
        last = isNew ? &field->second : &repeated;
    }
    return result;
}

std::string quotedPrintable(std::string_view text) { return MIME::quotedPrintable(text, MIME::Place::body); }

std::string decodeHeader(std::string_view text) { return MIME::decodedWords(text); }

std::optional<Day> parseRFCDate(std::string_view text) {
    static const Text::Pattern comment(R"(\([^()]*\))");
    // Wed, 14 Oct 2026 10:11:12 +0530; weekday, seconds and zone may be missing.
    static const Text::Pattern form(
        R"(^\s*(?:[A-Za-z]{3,9}\.?\s*,?\s*)?(\d{1,2})[\s-]+([A-Za-z]{3})[a-z]*[\s-]+(\d{4}|\d{2})\s+)"
        R"(\d{1,2}:\d{2}(?::\d{2})?(?:\s*[A-Za-z+-].*)?$)");
    constexpr std::string_view months = "janfebmaraprmayjunjulaugsepoctnovdec";
    const auto match = form.first(Text::trim(comment.replaceAll(text.substr(0, 200), " ")));
    if (!match) return std::nullopt;
    const std::size_t month = months.find(Text::lower((*match)[2]));
    if (month == std::string_view::npos || month % 3 != 0) return std::nullopt;
    const auto number = [](std::string_view digits) {
        int value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return value;
    };
    const std::string_view year = (*match)[3];
    return Day::valid(number(year) + (year.size() == 2 ? 2000 : 0), static_cast<int>(month / 3) + 1,
                      number((*match)[1]));
}

std::string senderName(std::string_view from) {
    // The old form: billing@nimbus.example (Nimbus Mail)
    static const Text::Pattern comment(R"(^\s*\S+@\S+\s+\((.+)\)\s*$)");
    const std::string text = decodeHeader(from);
    if (const auto match = comment.first(text)) return std::string(Text::trim((*match)[1], " <>"));
    std::string name, address;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted && c == '\\' && i + 1 < text.size()) {
            name += text[++i];
        } else if (c == '"') {
            quoted = !quoted;
        } else if (c == '<' && !quoted) {
            address = text.substr(i + 1, text.find('>', i) - i - 1);
            break;
        } else {
            name += c;
        }
    }
    const std::string shown(Text::trim(Text::trim(name), " <>"));
    return shown.empty() ? std::string(Text::trim(address, " <>")) : shown;
}

}  // namespace tamba::EmailReceipt
