#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>

/// The payee in a narration. Indian banks print a payment as fields ("UPI/DR/412345678901/SWIGGY/YESB/swiggy8@ybl"), so
/// the field that names somebody is chosen first, and cleaned then.
namespace tamba::BankImport {
namespace {

using Word = std::string_view;

template <std::size_t count>
consteval std::array<Word, count> sorted(std::array<Word, count> words) {
    std::sort(words.begin(), words.end());
    return words;
}

/// Words about the way of paying.
constexpr auto noise = sorted(std::to_array<Word>(
    {"upi",   "dr",   "cr",       "neft",     "imps",   "rtgs",   "pos",     "ach",        "nach",   "ecs",
     "atm",   "int",  "txn",      "debit",    "credit", "card",   "visa",    "mastercard", "rupay",  "mmt",
     "bil",   "onl",  "inft",     "clg",      "mps",    "inb",    "p2a",     "p2m",        "upiout", "upiar",
     "upiin", "nbsm", "inward",   "outward",  "sb",     "utr",    "no",      "micr",       "cts",    "ref",
     "by",    "to",   "transfer", "clearing", "chq",    "cheque", "paid",    "tpt",        "ib",     "mb",
     "ecom",  "pur",  "null",     "c",        "d",      "via",    "billpay", "si"}));
/// Those of them that mean nothing anywhere in a name; the others do so at its beginning only.
constexpr auto noiseAnywhere =
    sorted(std::to_array<Word>({"upi", "dr", "cr", "neft", "imps", "rtgs", "pos", "ach", "nach", "ecs", "atm", "int",
                                "txn", "debit", "credit", "card", "visa", "mastercard", "rupay"}));
/// What a payment is for.
constexpr auto purposes = sorted(std::to_array<Word>(
    {"rent", "salary",  "sal",     "na",        "payment", "pay",      "paymen",   "refund", "self",
     "bill", "person",  "loan",    "emi",       "gift",    "misc",     "other",    "others", "attn",
     "amc",  "advance", "invoice", "from",      "ph",      "phone",    "for",      "the",    "month",
     "of",   "jan",     "feb",     "mar",       "apr",     "may",      "jun",      "jul",    "aug",
     "sep",  "sept",    "oct",     "nov",       "dec",     "january",  "february", "march",  "april",
     "june", "july",    "august",  "september", "october", "november", "december"}));
constexpr auto banks = sorted(std::to_array<Word>(
    {"yesb",  "hdfc", "icic",  "sbin", "utib",     "kkbk",     "barb",   "punb",   "cnrb", "ubin", "fdrl",
     "indb",  "idib", "idfb",  "ioba", "ratn",     "aubl",     "dbss",   "hsbc",   "citi", "scbl", "bkid",
     "ibkl",  "mahb", "psib",  "ucba", "jaka",     "airp",     "pytm",   "jiop",   "fino", "cbin", "cosb",
     "kvbl",  "tmbl", "dlxb",  "csbk", "dcbl",     "esfb",     "ujvn",   "sibl",   "svcb", "sbi",  "pnb",
     "icici", "axis", "kotak", "idfc", "iciciban", "indusind", "canara", "federal"}));

template <std::size_t count>
bool isIn(const std::array<Word, count>& words, Word word) {
    return std::binary_search(words.begin(), words.end(), word);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// "438628XXXXXX1234", "XXXXXXX991HDFCnull", "#1204"; "412345678901".
bool isNumber(Word word) {
    std::size_t digits = 0, masks = 0;
    for (const char c : word) {
        digits += isDigit(c);
        masks += c == 'x' || c == '*' || c == '#' || c == '.' || c == ',';
    }
    return digits + masks == word.size() || word.starts_with("xxx") || word.find("xxxx") != word.npos;
}

/// Letters with four digits or more: a reference, an IFSC code, an account.
bool isReference(Word word) {
    const auto digits = std::count_if(word.begin(), word.end(), isDigit);
    if (digits >= 4) return true;
    // An IFSC code is four letters, a zero and six more: YESB0YBLUPI.
    return word.size() == 11 && word[4] == '0' && std::none_of(word.begin(), word.begin() + 4, isDigit);
}

/// "27apr", "01jul", "jul25"
bool isDayOrMonth(Word word) {
    const std::size_t first = word.find_first_not_of("0123456789");
    if (first == word.npos) return true;
    const std::size_t end = std::min(word.find_first_of("0123456789", first), word.size());
    return word.find_first_not_of("0123456789", end) == word.npos && isIn(purposes, word.substr(first, end - first));
}

bool isHandle(Word word) { return word.find('@') != word.npos; }

std::vector<Word> wordsOf(Word text) {
    std::vector<Word> words;
    std::size_t at = 0;
    while (at < text.size()) {
        while (at < text.size() && isBlank(text[at])) ++at;
        std::size_t end = at;
        while (end < text.size() && !isBlank(text[end])) ++end;
        if (end > at) words.push_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

/// In lower case for comparing, byte for byte as long as the text.
std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return result;
}

enum class Field { empty, handle, bank, purpose, payee };

Field kindOf(const std::vector<Word>& words) {
    bool purpose = false, other = false, handle = false;
    for (const Word word : words) {
        if (isHandle(word)) {
            handle = true;
            continue;
        }
        if (isNumber(word) || isIn(noise, word) || isReference(word)) continue;
        (isIn(purposes, word) || isDayOrMonth(word) ? purpose : other) = true;
    }
    if (handle) return Field::handle;
    if (!other) return purpose ? Field::purpose : Field::empty;
    if (words.size() == 1 && isIn(banks, words.front())) return Field::bank;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (words[i] == "bank" && (i + 1 == words.size() || words[i + 1] == "of")) return Field::bank;
    return Field::payee;
}

/// Cash, interest and charges have no payee.
bool hasNoPayee(const std::vector<Word>& words) {
    if (words.empty()) return true;
    const Word first = words.front();
    const Word second = words.size() > 1 ? words[1] : Word();
    if (first == "atw" || first == "eaw" || first == "nwd" || first == "sbint") return true;
    if (first == "atm") return second == "wdl" || second == "wd" || second == "cash" || second.starts_with("withdr");
    if (first == "cash" || second == "cash")
        for (const Word word : words)
            if (word == "wdl" || word == "dep" || word.starts_with("withdr") || word.starts_with("depos")) return true;
    for (const Word word : words)
        if (word == "int.pd" || word == "int.pd.") return true;
    if (first == "interest" || (first == "credit" && second == "interest")) return true;
    return (words.back() == "charges" || words.back() == "chrg" || words.back() == "chg") && words.size() <= 3;
}

/// Without what stands around the name: leading modes and numbers, references anywhere, an unclosed bracket.
std::string cleaned(std::string_view text) {
    const std::size_t bracket = text.rfind('(');
    if (bracket != text.npos && bracket > 0 && text.find(')', bracket) == text.npos) text = text.substr(0, bracket);
    std::string result;
    const std::string lower = lowered(text);
    for (const Word word : wordsOf(lower)) {
        const auto at = static_cast<std::size_t>(word.data() - lower.data());
        const std::string_view printed = Text::trim(text.substr(at, word.size()), ",;:|_-.");
        if (printed.empty()) continue;
        if (isNumber(word) || isIn(noiseAnywhere, word) || isReference(word)) continue;
        if (result.empty() && isIn(noise, word)) continue;
        if (!result.empty()) result += ' ';
        result += printed;
    }
    return Text::capitalised(result);
}

/// "swiggy.stores@ic" is Swiggy Stores; a phone number is nobody.
std::string handleName(std::string_view text) {
    for (const Word word : wordsOf(text)) {
        if (!isHandle(word)) continue;
        std::string name(word.substr(0, word.find('@')));
        std::replace_if(name.begin(), name.end(), [](char c) { return c == '.' || c == '_' || c == '*'; }, ' ');
        while (!name.empty() && isDigit(name.back())) name.pop_back();
        return Text::capitalised(Text::trim(name));
    }
    return {};
}

/// What apps write before a name.
std::string_view withoutLead(std::string_view text, std::string_view lower) {
    for (const std::string_view lead : {"paid to ", "received from ", "payment to ", "money sent to ", "sent to "})
        if (lower.starts_with(lead)) return text.substr(lead.size());
    return text;
}

}  // namespace

std::string cleanVendor(std::string_view narration) {
    constexpr std::size_t longest = 400;
    std::string_view text = Text::trim(Text::prefixBytes(Text::trim(narration), longest));
    text = withoutLead(text, lowered(text));
    const std::string lower = lowered(text);

    std::string handle, purpose, bank;
    bool first = true;
    std::string spaced = lower;
    std::replace_if(
        spaced.begin(), spaced.end(), [](char c) { return c == '/' || c == '*' || c == '-' || c == ':'; }, ' ');
    if (hasNoPayee(wordsOf(spaced))) return {};
    for (std::size_t begin = 0; begin < lower.size();) {
        std::size_t end = std::min(lower.find_first_of("/*-:", begin), lower.size());
        const auto words = wordsOf(std::string_view(lower).substr(begin, end - begin));
        const Field kind = words.empty() ? Field::empty : kindOf(words);
        // A name that the narration begins with may have a hyphen of its own: Coca-Cola.
        if (first && kind == Field::payee) end = std::min(lower.find_first_of("/*", begin), lower.size());
        const std::string_view field = text.substr(begin, end - begin);
        if (kind == Field::payee)
            if (std::string name = cleaned(field); !name.empty()) return name;
        if (kind == Field::handle && handle.empty()) handle = handleName(field);
        if (kind == Field::purpose && purpose.empty()) purpose = cleaned(field);
        if (kind == Field::bank && bank.empty()) bank = cleaned(field);
        first = false;
        begin = end + 1;
    }
    if (!handle.empty()) return handle;
    return purpose.empty() ? bank : purpose;
}

}  // namespace tamba::BankImport
