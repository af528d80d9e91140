#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptParts.h"

#include <algorithm>
#include <cstddef>

namespace tamba::ReceiptParser {
namespace {

constexpr std::string_view separators = " -*=#:|,";

/// A line that is never the vendor: titles, labels, registrations, courtesies.
bool isNoise(std::string_view lower) {
    // At the start of a word only, or every Hotel ("tel"), Medicines ("cin") and Border ("order") would go; where a
    // word's beginning is common in names (Cinema, Telecom, Mobile World, Dates) the whole word.
    static const Text::Pattern noise(
        R"((?<![\p{L}\p{M}\d])(?:tax ?invoice|invoice|receipt|bill of supply|cash memo|original|duplicate|welcome|gstin|)"
        R"(gst no|bill no|phone|ph:|order|fssai|)"
        R"((?:date|dated|tel|telephone|mob|mobile no|cin)(?![\p{L}\p{M}\d]))|www|http|@)");
    static const Text::Pattern courtesy(
        R"((?<![\p{L}\p{M}])(?:thank ?you|thanks|visit|cash sales?|cash bill|(?:customer|merchant|office|guest|your) (?:copy|check|bill)|)"
        R"(copy)(?![\p{L}\p{M}])|^\W*(?:bill|cash|estimate|reprint|sold by|bill to|ship to)\W*$)");
    return noise.matches(lower) || courtesy.matches(lower);
}

/// Letters, at least three unless told otherwise, that make up at least half of the line.
bool reads(std::string_view text, std::size_t least = 3) {
    std::size_t letters = 0, all = 0;
    for (const std::string_view character : Text::characters(text)) {
        if (Text::trim(character).empty()) continue;
        ++all;
        if (Text::isLetter(character)) ++letters;
    }
    return letters >= least && letters * 2 >= all;
}

/// Without registration numbers at its end: "(126926-H)", "273500-U (GKJ)", "(Reg. No 12/AB)", "GSTIN 27…".
std::string withoutRegistration(std::string_view line) {
    static const Text::Pattern tail(
        R"(\s*(?:[(\[][^()\[\]]*\d[^()\[\]]*[)\]]?|\b(?:co|company|regn?|roc|registration)\b[\s.:]*(?:regn?|no)?[\s.:]*[\w/-]*\d[\w/-]*|)"
        R"((?<!\S)\d{4,}[\w/-]*)\s*$)");
    static const Text::Pattern code(R"(\s*\d{5,}\s?-\s?[A-Z0-9]\s*\([A-Z]{2,5}\)\s*$)");
    std::string text(line);
    text = code.replaceAll(text, "");
    for (int i = 0; i < 2; ++i) text = tail.replaceAll(text, "");
    return text;
}

std::string cleaned(std::string_view line) {
    static const Text::Pattern columns(R"(\s{3,}.*$)");
    static const Text::Pattern blanks(R"(\s+)");
    const std::string name(Text::trim(Text::trim(line), separators));
    const std::string first = columns.replaceAll(name, "");
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
        R"((?i)^(?:co\.?|company|\((?:m|malaysia|india|i|p|s|kl)\)|pvt\.?|private|pte\.?|\(p\)|ltd\.?|limited|llp|sdn\.?|)"
        R"(bhd\.?|berhad|inc\.?|corp\.?|[\s,&])+$)");
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

}  // namespace

std::string vendor(const std::vector<std::string>& lines) {
    static const Text::Pattern customer(
        R"(\b(?:bill(?:ed)? to|ship(?:ped)? to|sold to|deliver to|buyer|customer|m/s)\b)");
    constexpr std::size_t headLines = 8;
    std::string first;
    std::size_t nth = 0;
    for (std::size_t i = 0, count = lookedAt(lines); i < count; ++i) {
        const std::string_view line = lookedAt(lines[i]);
        const std::string lower = Text::lower(line);
        if (!first.empty() && (++nth > headLines || customer.matches(lower))) break;
        if (isNoise(lower)) continue;
        const std::string name = cleaned(line);
        if (first.empty()) {
            if (!reads(name)) continue;
            first = name;
            const std::string next = i + 1 < count ? cleaned(lookedAt(lines[i + 1])) : "";
            if (isMereLegalForm(next)) return first + " " + next;
            // On Indian bills the brand stands first and stays; only a branch gives way to the company's name.
            if (!namesPlace(Text::lower(first)) || legalForm().matches(first)) return first;
        } else if (legalForm().matches(name) && reads(name) && !isMereLegalForm(name)) {
            return name;
        }
    }
    return first;
}

}  // namespace tamba::ReceiptParser
