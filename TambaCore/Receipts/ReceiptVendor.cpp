#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptParts.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace tamba::ReceiptParser {
namespace {

constexpr std::string_view separators = " -*=#:|,";

// At the start of a word only, or every Hotel ("tel"), Medicines ("cin") and Border ("order") would go; where a word's
// beginning is common in names (Cinema, Telecom, Mobile World, Dates) the whole word.
const std::string noiseWords = R"((?:tax ?invoice|invoice|receipt|bill of supply|cash memo|original|duplicate|welcome|)"
                               R"(gstin|gst no|bill no|phone|ph:|order|fssai|)"
                               R"((?:date|dated|tel|telephone|mob|mobile no|cin)(?![\p{L}\p{M}\d])))";

/// A line that is never the vendor: titles, labels, registrations, courtesies, invocations.
bool isNoise(std::string_view lower) {
    static const Text::Pattern noise(R"((?<![\p{L}\p{M}\d]))" + noiseWords + "|www|http|@");
    static const Text::Pattern courtesy(
        R"(\b(?:thank ?you|thanks|please visit|visit (?:us|again|our)|cash (?:sales?|bill)|guest check)\b|)"
        R"(\brupees\b.*\bonly\b|\bcopy\W*$|)"
        R"(^\W*(?:visit\b|(?:towards|received|the sum|for the)\b|(?:hi|hello|hey|dear)\b(?:.*[,!])?$|(?:re|fwd?)\s*:|)"
        R"(your (?:\w+ )?(?:trip|ride|payment|booking|ticket|purchase|plan|account|recent|monthly|statement|)"
        R"(subscription)\b))");
    // Whole lines: "Bill", "Billing Address:", "Payment Successful", "Sold by:  Shipped to:".
    static const Text::Pattern title(
        R"(^\W*(?:bill|cash|estimate|reprint|from|to|subject to .*|(?:transaction|payment)(?: \w+)?|)"
        R"((?:sold|paid|bill(?:ed)?|ship(?:ped)?) (?:by|to)|(?:billing|shipping) address|forwarded message|)"
        R"((?:\w+ )?(?:details|summary|breakup)|)"
        R"((?:restaurant|seller|merchant|store|shop|vendor|supplier|company)(?: name)?)\W*(?:\s{2}.*)?$)");
    // "No. 12, MG Road", "411001 Pune", "Customer Name: Asha"
    static const Text::Pattern label(
        R"(^\W*(?:\d{5,6}\s+\p{L}|(?:no|lot|plot|(?:shop|flat|door) no)\b[\s.:]*\d|)"
        R"((?:customer|cashier|table|token|kot|server|user|pax|name|fax|pan|state|address)\b[^:]{0,12}:))");
    // || Shree Ganeshay Namah ||, !! Om Sai Ram !!
    static const Text::Pattern invocation(R"(^\s*(?:\|\||!!|॥|।।).*(?:\|\||!!|॥|।।)\s*$)");
    return noise.matches(lower) || courtesy.matches(lower) || title.matches(lower) || label.matches(lower) ||
           invocation.matches(lower);
}

/// At least three letters, which make up at least half of the line; no sentence.
bool reads(std::string_view text) {
    constexpr std::size_t mostWords = 10;
    if (Text::split(text, ' ').size() > mostWords) return false;
    std::size_t letters = 0, all = 0;
    for (const std::string_view character : Text::characters(text)) {
        if (Text::trim(character).empty()) continue;
        ++all;
        if (Text::isLetter(character)) ++letters;
    }
    return letters >= 3 && letters * 2 >= all && all <= 120;
}

/// Without registration numbers at its end: "(123456-H)", "234567-U (PQR)", "(Reg. No 12/AB)", "Co. No. 4711".
std::string withoutRegistration(std::string_view line) {
    static const Text::Pattern bracketed(R"(\s*[(\[][^()\[\]]*\d[^()\[\]]*[)\]]?\s*$)");
    static const Text::Pattern numbered(
        R"((?i)(?:\s*\b(?:co|company|regn?|roc|brn|registration|no)\b[\s.:-]*)+(?=[\w/-]*\d)[\w/-]{4,}\s*$)");
    // Five digits and more: "Cafe 1947" and "Studio 999" are names.
    static const Text::Pattern bare(R"(\s+\d{5,}(?:\s?-\s?\w)?(?:\s*\([\p{L}]{1,5}\))?\s*$)");
    std::string text(line);
    for (const Text::Pattern* pattern : {&bracketed, &numbered, &bare}) text = pattern->replaceAll(text, "");
    return text;
}

std::string cleaned(std::string_view line) {
    // What stands in the next column: three blanks, or two behind a legal form.
    static const Text::Pattern column(R"(\s{3,}.*$)");
    static const Text::Pattern behindForm(R"(((?i:ltd|limited|llp|bhd)\.?)\s{2,}.*$)");
    static const Text::Pattern named(
        R"(^\W*(?i:sold by|seller|merchant|vendor|supplier|restaurant|store|shop|company|billed by|paid to|landlord))"
        R"((?i: name)?\s*:\s*(?=\p{L}))");
    static const Text::Pattern blanks(R"(\s+)");
    const std::string name = named.replaceAll(Text::trim(Text::trim(line), separators), "");
    const std::string first = column.replaceAll(behindForm.replaceAll(name, "$1"), "");
    const std::string cut = withoutRegistration(reads(first) ? first : name);
    return blanks.replaceAll(Text::trim(Text::trim(cut), separators), " ");
}

/// Ends in the words of a legal form.
const Text::Pattern& legalForm() {
    static const Text::Pattern pattern(
        R"((?i)(?<![\p{L}])(?:sdn\.? ?bhd|s/b|bhd|berhad|(?:pvt|private|pte|pty)\.? ?(?:ltd|limited)|ltd|limited|llp|)"
        R"(l\.l\.p|inc|llc|plc|gmbh|corp|corporation|enterprises?|& co|and company)\.?\)?$)");
    return pattern;
}

/// Nothing but a legal form: "PVT LTD", "CO. (M) SDN BHD".
bool isMereLegalForm(std::string_view name) {
    static const Text::Pattern pattern(
        R"((?i)^(?:(?:co|pvt|pte|ltd|sdn|bhd|inc|corp)\.?|company|private|limited|llp|berhad|)"
        R"(\((?:m|malaysia|india|i|p|s|kl)\)|[\s,&])+$)");
    return pattern.matches(name);
}

/// Names a branch or the place it is in, so that the company's own name may follow.
bool namesPlace(std::string_view lower) {
    static const Text::Pattern pattern(
        R"((?<![\p{L}])(?:branch|outlet|store no|shop no|unit|counter|terminal|mall|plaza|complex|nagar|colony|road|)"
        R"(street|sector|phase|jalan|jln|taman|bandar|jaya|kota|city|airport|station|tower|towers|centre|center)"
        R"((?![\p{L}]))|\S \d+$| - \S)");
    return pattern.matches(lower);
}

enum class Case { capitals, title, small, mixed };

/// How a word of letters is written; nothing for one that holds anything else inside.
std::optional<Case> letterCase(std::string_view word) {
    static const Text::Pattern inner(R"([^\p{L}\p{M}.&'’-])");
    if (inner.matches(word)) return std::nullopt;
    if (word == Text::upper(word)) return Case::capitals;
    if (word == Text::lower(word)) return Case::small;
    return word == Text::capitalised(word) ? Case::title : Case::mixed;
}

/// What a logo or a stain is misread as ("Aeze9g", "ee ee eee", "ae VEO,") is seldom made of whole words in one case.
bool looksMisread(std::string_view line) {
    std::size_t whole = 0, all = 0, words = 0;
    bool longWord = false, small = false, capital = false;
    for (const std::string& word : Text::split(Text::replaceAll(std::string(line), "  ", " "), ' ')) {
        const std::string_view bare = Text::trim(word, " .,:;()[]*#\"'-/\\|");
        const std::size_t letters = Text::length(Text::lettersAndDigits(bare));
        all += Text::length(word);
        if (letters == 0) continue;
        ++words;
        const auto written = letterCase(bare);
        if (!written || *written == Case::mixed) continue;
        if (*written == Case::small && letters < 4) continue;
        small = small || *written == Case::small;
        whole += Text::length(word);
        longWord = longWord || letters >= 4;
        capital = capital || *written == Case::capitals;
    }
    const bool initials = words == 1 && capital;  // "KFC"
    return whole * 2 < all || (!longWord && !initials) || (small && capital);
}

/// "Udupi Tiffin Room", "Bank of the South": a few words with capitals, not "Booking confirmed: QX7T2K".
bool looksLikeName(std::string_view name, std::string_view line) {
    static const std::string word = R"re((?:[\p{Lu}\p{Lo}\d][^\s:!?₹$]*|\([^():]*\)|&|and|of|the|by|-))re";
    static const Text::Pattern pattern(R"re(^(?!(?i:your|(?:sub)?total|amount)\b))re" + word + "(?: " + word +
                                       "){0,5}$");
    // "Consumer No: 1029384756" names what follows.
    const std::size_t at = line.find(name);
    const bool isLabel = at != line.npos && Text::contains(line.substr(at + name.size()), ":");
    return pattern.matches(name) && !isLabel;
}

/// A line without the columns beside its name: "SHARMA ELECTRICALS  Mob: 98220" is no line of noise.
std::string_view nameColumn(std::string_view line) {
    static const Text::Pattern beside(R"((?i)^\s*([^\d:]{5,}?)\s{2,}\W*)" + noiseWords);
    const auto match = beside.first(line);
    if (!match) return line;
    const std::string_view name = line.substr(0, line.find((*match)[1]) + (*match)[1].size());
    return isNoise(Text::lower(name)) ? line : name;
}

}  // namespace

std::string vendor(const std::vector<std::string>& lines, Source source) {
    static const Text::Pattern customer(
        R"(\b(?:bill(?:ed)? to|ship(?:ped)? to|sold to|deliver to|buyer|customer|m/s)\b)");
    constexpr std::size_t headLines = 8;
    constexpr std::size_t messageHead = 8;
    std::string first;
    std::string doubtful;  // the first line of a picture that may be a misread logo; better than nothing
    std::size_t nth = 0;
    for (std::size_t i = 0, count = lookedAt(lines); i < count; ++i) {
        const std::string_view line = nameColumn(lookedAt(lines[i]));
        const std::string lower = Text::lower(line);
        if (!first.empty() && (++nth > headLines || customer.matches(lower))) break;
        if (isNoise(lower)) continue;
        std::string name = cleaned(line);
        // No name holds a yen sign; it is how the engine sees some a "Y".
        if (source == Source::recognised) name = Text::replaceAll(name, "¥", "Y");
        if (first.empty()) {
            if (source == Source::message && i >= messageHead) break;
            if (!reads(name) || (source == Source::message && !looksLikeName(name, line))) continue;
            if (source == Source::recognised && looksMisread(line) && !legalForm().matches(name)) {
                if (doubtful.empty()) doubtful = name;
                continue;
            }
            first = name;
            const std::string next = i + 1 < count ? cleaned(lookedAt(lines[i + 1])) : "";
            if (isMereLegalForm(next)) return first + " " + next;
            // On Indian bills the brand stands first and stays; only a branch gives way to the company's name.
            if (!namesPlace(Text::lower(first)) || legalForm().matches(first)) return first;
        } else if (legalForm().matches(name) && reads(name) && !isMereLegalForm(name)) {
            return name;
        }
    }
    return first.empty() ? doubtful : first;
}

}  // namespace tamba::ReceiptParser
