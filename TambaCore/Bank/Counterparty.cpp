#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

/// The payee in a narration. Indian banks print a payment as fields ("UPI/DR/412345678901/SWIGGY/YESB/swiggy8@ybl"), so
/// the field that names somebody is chosen first, and cleaned then.
namespace tamba::BankImport {
namespace {

/// What a word says about the field it stands in.
enum Meaning : unsigned char {
    ofName = 0,
    noise = 1,     ///< about the way of paying; at the beginning of a name
    anywhere = 2,  ///< the same, wherever it stands
    purpose = 4,   ///< what a payment is for
    bank = 8,
    capitals = 16,  ///< an abbreviation that people write in capitals
};

struct Known {
    std::string_view word;
    unsigned char meaning;
};

constexpr auto known = std::to_array<Known>({
    {"upi", noise | anywhere},
    {"dr", noise | anywhere},
    {"cr", noise | anywhere},
    {"neft", noise | anywhere},
    {"imps", noise | anywhere},
    {"rtgs", noise | anywhere},
    {"pos", noise | anywhere},
    {"ach", noise | anywhere},
    {"nach", noise | anywhere},
    {"ecs", noise | anywhere},
    {"atm", noise | anywhere},
    {"int", noise | anywhere},
    {"txn", noise | anywhere},
    {"debit", noise | anywhere},
    {"credit", noise | anywhere},
    {"card", noise | anywhere},
    {"visa", noise | anywhere},
    {"mastercard", noise | anywhere},
    {"rupay", noise | anywhere},
    {"mmt", noise},
    {"bil", noise},
    {"onl", noise},
    {"inft", noise},
    {"clg", noise},
    {"mps", noise},
    {"inb", noise},
    {"p2a", noise},
    {"p2m", noise},
    {"upiout", noise},
    {"upiar", noise},
    {"upiin", noise},
    {"nbsm", noise},
    {"inward", noise},
    {"outward", noise},
    {"sb", noise},
    {"utr", noise},
    {"no", noise},
    {"micr", noise},
    {"cts", noise},
    {"ref", noise},
    {"by", noise},
    {"to", noise},
    {"transfer", noise},
    {"clearing", noise},
    {"chq", noise},
    {"cheque", noise},
    {"paid", noise},
    {"tpt", noise},
    {"ib", noise},
    {"mb", noise},
    {"ecom", noise},
    {"pur", noise},
    {"null", noise},
    {"c", noise},
    {"d", noise},
    {"via", noise},
    {"billpay", noise},
    {"si", noise},
    {"eefc", noise | anywhere},
    {"fcnr", noise | anywhere},
    {"nre", noise | anywhere},
    {"nro", noise | anywhere},
    {"firc", noise | anywhere},
    {"inr", noise | anywhere},
    {"usd", noise | anywhere},
    {"eur", noise | anywhere},
    {"gbp", noise | anywhere},
    {"aed", noise | anywhere},
    {"sgd", noise | anywhere},
    {"aud", noise | anywhere},
    {"jpy", noise | anywhere},
    {"forex", noise},
    {"remittance", noise},
    {"llp", capitals},
    {"llc", capitals},
    {"plc", capitals},
    {"opc", capitals},
    {"huf", capitals},
    {"bpo", capitals},
    {"gst", capitals},
    {"tds", capitals},
    {"lic", capitals},
    {"epfo", capitals},
    {"irctc", capitals},
    {"bsnl", capitals},
    {"mtnl", capitals},
    {"nsdl", capitals},
    {"fx", capitals},
    {"usa", capitals},
    {"uae", capitals},
    {"uk", capitals},
    {"rent", purpose},
    {"salary", purpose},
    {"sal", purpose},
    {"na", purpose},
    {"payment", purpose},
    {"pay", purpose},
    {"paymen", purpose},
    {"refund", purpose},
    {"self", purpose},
    {"bill", purpose},
    {"person", purpose},
    {"loan", purpose},
    {"emi", purpose},
    {"gift", purpose},
    {"misc", purpose},
    {"other", purpose},
    {"others", purpose},
    {"attn", purpose},
    {"amc", purpose},
    {"advance", purpose},
    {"invoice", purpose},
    {"from", purpose},
    {"ph", purpose},
    {"phone", purpose},
    {"for", purpose},
    {"the", purpose},
    {"month", purpose},
    {"of", purpose},
    {"jan", purpose},
    {"feb", purpose},
    {"mar", purpose},
    {"apr", purpose},
    {"may", purpose},
    {"jun", purpose},
    {"jul", purpose},
    {"aug", purpose},
    {"sep", purpose},
    {"sept", purpose},
    {"oct", purpose},
    {"nov", purpose},
    {"dec", purpose},
    {"january", purpose},
    {"february", purpose},
    {"march", purpose},
    {"april", purpose},
    {"june", purpose},
    {"july", purpose},
    {"august", purpose},
    {"september", purpose},
    {"october", purpose},
    {"november", purpose},
    {"december", purpose},
    {"yesb", bank},
    {"hdfc", bank | capitals},
    {"icic", bank},
    {"sbin", bank},
    {"utib", bank},
    {"kkbk", bank},
    {"barb", bank},
    {"punb", bank},
    {"cnrb", bank},
    {"ubin", bank},
    {"fdrl", bank},
    {"indb", bank},
    {"idib", bank},
    {"idfb", bank},
    {"ioba", bank},
    {"ratn", bank},
    {"aubl", bank},
    {"dbss", bank},
    {"hsbc", bank | capitals},
    {"citi", bank},
    {"scbl", bank},
    {"bkid", bank},
    {"ibkl", bank},
    {"mahb", bank},
    {"psib", bank},
    {"ucba", bank},
    {"jaka", bank},
    {"airp", bank},
    {"pytm", bank},
    {"jiop", bank},
    {"fino", bank},
    {"cbin", bank},
    {"cosb", bank},
    {"kvbl", bank},
    {"tmbl", bank},
    {"dlxb", bank},
    {"csbk", bank},
    {"dcbl", bank},
    {"esfb", bank},
    {"ujvn", bank},
    {"sibl", bank},
    {"svcb", bank},
    {"sbi", bank | capitals},
    {"pnb", bank | capitals},
    {"icici", bank | capitals},
    {"axis", bank},
    {"kotak", bank},
    {"idfc", bank | capitals},
    {"iciciban", bank},
    {"indusind", bank},
    {"canara", bank},
    {"federal", bank},
});

/// Bytes that end a word or a field. Every byte of a narration is asked, so a look-up is worth it.
class Separators {
public:
    constexpr explicit Separators(std::string_view characters) {
        for (const char c : characters) is_[static_cast<unsigned char>(c)] = true;
    }
    [[nodiscard]] constexpr bool contain(char c) const { return is_[static_cast<unsigned char>(c)]; }
    [[nodiscard]] std::size_t next(std::string_view text, std::size_t at) const {
        while (at < text.size() && !contain(text[at])) ++at;
        return at;
    }
    [[nodiscard]] std::size_t skip(std::string_view text, std::size_t at) const {
        while (at < text.size() && contain(text[at])) ++at;
        return at;
    }

private:
    std::array<bool, 256> is_{};
};

constexpr Separators blanks(" \t\n\r"), fieldEnds("/*-:"), namesEnds("/*"), allEnds(" \t\n\r/*-:");

bool isDigit(char c) { return c >= '0' && c <= '9'; }

unsigned char meaningOf(std::string_view word) {
    static const auto byLetter = [] {
        std::array<std::vector<Known>, 26> table;
        for (const Known& one : known) table[static_cast<std::size_t>(one.word.front() - 'a')].push_back(one);
        return table;
    }();
    if (word.empty() || word.front() < 'a' || word.front() > 'z') return ofName;
    for (const Known& one : byLetter[static_cast<std::size_t>(word.front() - 'a')])
        if (one.word == word) return one.meaning;
    return ofName;
}

/// A word in lower case, looked at once.
struct Word {
    std::string_view text;
    unsigned char meaning = ofName;
    bool isHandle = false;     ///< "swiggy8@ybl"
    bool isNumber = false;     ///< "412345678901", "438628XXXXXX1234", "#1204"
    bool isReference = false;  ///< letters with four digits or more, an IFSC code: YESB0YBLUPI
    bool isDay = false;        ///< "27apr", "jul25"

    explicit Word(std::string_view word = {}) : text(word) {
        std::size_t digits = 0, marks = 0;
        for (const char c : word) {
            digits += isDigit(c);
            marks += c == 'x' || c == '*' || c == '#' || c == '.' || c == ',';
            isHandle = isHandle || c == '@';
        }
        isNumber =
            digits + marks == word.size() || (marks > 2 && (word.starts_with("xxx") || word.find("xxxx") != word.npos));
        isReference = digits >= 4 ||
                      (word.size() == 11 && word[4] == '0' && std::none_of(word.begin(), word.begin() + 4, isDigit));
        meaning = meaningOf(word);
        if (digits > 0) {
            const std::size_t first = std::min(word.find_first_not_of("0123456789"), word.size());
            const std::size_t end = std::min(word.find_first_of("0123456789", first), word.size());
            isDay = word.find_first_not_of("0123456789", end) == word.npos &&
                    (first == end || (meaningOf(word.substr(first, end - first)) & purpose) != 0);
        }
    }
    [[nodiscard]] bool is(Meaning wanted) const { return (meaning & wanted) != 0; }
};

/// The words of one field, or the first of many.
class Words {
public:
    static constexpr std::size_t most = 16;
    explicit Words(std::string_view text, const Separators& separators = blanks, std::size_t atMost = most) {
        for (std::size_t at = separators.skip(text, 0); at < text.size() && count_ < atMost;) {
            const std::size_t end = separators.next(text, at);
            words_[count_++] = text.substr(at, end - at);
            at = separators.skip(text, end);
        }
    }
    [[nodiscard]] bool empty() const { return count_ == 0; }
    [[nodiscard]] std::size_t size() const { return count_; }
    [[nodiscard]] std::string_view operator[](std::size_t i) const { return words_[i]; }
    [[nodiscard]] std::string_view front() const { return words_.front(); }
    [[nodiscard]] std::string_view back() const { return words_[count_ - 1]; }
    [[nodiscard]] const std::string_view* begin() const { return words_.data(); }
    [[nodiscard]] const std::string_view* end() const { return words_.data() + count_; }

private:
    std::array<std::string_view, most> words_;
    std::size_t count_ = 0;
};

enum class Kind { empty, handle, bank, purpose, payee };

Kind kindOf(const Words& words) {
    bool forSomething = false, named = false, handle = false, atBank = false;
    std::string_view last;
    for (const std::string_view text : words) {
        const Word word(text);
        if (last == "bank" && text == "of") atBank = true;
        last = text;
        if (word.isHandle)
            handle = true;
        else if (word.isNumber || word.is(noise) || word.isReference)
            continue;
        else if (word.is(purpose) || word.isDay)
            forSomething = true;
        else
            named = true;
        if (words.size() == 1 && word.is(bank)) atBank = true;
    }
    if (handle) return Kind::handle;
    if (!named) return forSomething ? Kind::purpose : Kind::empty;
    return atBank || last == "bank" ? Kind::bank : Kind::payee;
}

/// Cash, interest and charges have no payee.
bool hasNoPayee(std::string_view lower) {
    const Words words(lower, allEnds, 4);  // the first tell, or there are no more than three
    if (words.empty()) return true;
    const std::string_view first = words.front();
    const std::string_view second = words.size() > 1 ? words[1] : std::string_view();
    if (first == "atw" || first == "eaw" || first == "nwd" || first == "sbint") return true;
    if (first == "atm") return second == "wdl" || second == "wd" || second == "cash" || second.starts_with("withdr");
    if (first == "cash" || second == "cash")
        for (const std::string_view word : Words(lower, allEnds))
            if (word == "wdl" || word == "dep" || word.starts_with("withdr") || word.starts_with("depos")) return true;
    if (Text::contains(lower, "int.pd"))
        for (const std::string_view word : Words(lower, allEnds))
            if (word.starts_with("int.pd")) return true;
    if (first == "interest" || (first == "credit" && second == "interest")) return true;
    return words.size() <= 3 && (words.back() == "charges" || words.back() == "chrg" || words.back() == "chg");
}

/// As people write names: abbreviations stay in capitals.
std::string inCapitals(std::string_view text) {
    std::string result = Text::capitalised(text);
    for (std::size_t at = blanks.skip(result, 0), end = at; at < result.size(); at = blanks.skip(result, end)) {
        end = blanks.next(result, at);
        constexpr std::size_t longest = 6;
        if (end - at > longest) continue;
        const std::string word(Text::trim(std::string_view(result).substr(at, end - at), ".,()"));
        if (Word(Text::lower(word)).is(capitals)) result.replace(result.find(word, at), word.size(), Text::upper(word));
    }
    return result;
}

/// Without what stands around the name: leading modes and numbers, references anywhere, an unclosed bracket.
std::string cleaned(std::string_view text, std::string_view lower) {
    const std::size_t bracket = text.rfind('(');
    if (bracket != text.npos && bracket > 0 && text.find(')', bracket) == text.npos) text = text.substr(0, bracket);
    lower = lower.substr(0, text.size());
    std::string result;
    for (const std::string_view small : Words(lower)) {
        const auto at = static_cast<std::size_t>(small.data() - lower.data());
        const std::string_view printed = Text::trim(text.substr(at, small.size()), ",;:|_-.");
        const Word word(small);
        if (printed.empty() || word.isNumber || word.is(anywhere) || word.isReference) continue;
        if (result.empty() && word.is(noise)) continue;
        if (!result.empty()) result += ' ';
        result += printed;
    }
    return inCapitals(result);
}

/// "swiggy.stores@ic" is Swiggy Stores; a phone number is nobody.
std::string handleName(std::string_view text) {
    for (const std::string_view word : Words(text)) {
        if (word.find('@') == word.npos) continue;
        std::string name(word.substr(0, word.find('@')));
        std::replace_if(name.begin(), name.end(), [](char c) { return c == '.' || c == '_' || c == '*'; }, ' ');
        while (!name.empty() && isDigit(name.back())) name.pop_back();
        return inCapitals(Text::trim(name));
    }
    return {};
}

/// What apps write before a name.
std::string_view withoutLead(std::string_view text, std::string_view lower) {
    for (const std::string_view lead : {"paid to ", "received from ", "payment to ", "money sent to ", "sent to "})
        if (lower.starts_with(lead)) return text.substr(lead.size());
    return text;
}

struct Reading {
    Kind kind = Kind::empty;
    std::string name;
};

Reading readField(std::string_view text, std::string_view lower) {
    const Words words(lower);
    Reading result;
    if (!words.empty()) result.kind = kindOf(words);
    if (result.kind == Kind::handle) result.name = handleName(text);
    if (result.kind != Kind::handle && result.kind != Kind::empty) result.name = cleaned(text, lower);
    return result;
}

constexpr std::size_t mostKnown = 256;

/// Fields with digits are mostly numbers of their own; all others are looked up among the known ones.
Reading readField(std::string_view text, std::string_view lower, std::vector<Payees::Field>* known) {
    if (!known || text.empty() || std::any_of(text.begin(), text.end(), isDigit)) return readField(text, lower);
    Payees::Field& field = (*known)[std::hash<std::string_view>()(text) % mostKnown];
    if (field.text != text) {
        Reading fresh = readField(text, lower);
        field = {std::string(text), static_cast<int>(fresh.kind), std::move(fresh.name)};
    }
    return {static_cast<Kind>(field.kind), field.name};
}

std::string payee(std::string_view narration, std::vector<Payees::Field>* known) {
    constexpr std::size_t longest = 400;
    std::string_view text = Text::trim(Text::prefixBytes(Text::trim(narration), longest));
    // In lower case for comparing, byte for byte as long as the text.
    std::array<char, longest> small;
    std::transform(text.begin(), text.end(), small.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    std::string_view lower(small.data(), text.size());
    text = withoutLead(text, lower);
    lower.remove_prefix(lower.size() - text.size());
    if (hasNoPayee(lower)) return {};

    std::string handle, reason, atBank;
    for (std::size_t begin = 0; begin < lower.size();) {
        std::size_t end = fieldEnds.next(lower, begin);
        const auto part = [&](std::string_view whole) { return whole.substr(begin, end - begin); };
        Reading field = readField(part(text), part(lower), known);
        // A name that the narration begins with may have a hyphen of its own: Coca-Cola.
        if (begin == 0 && field.kind == Kind::payee && end < lower.size()) {
            end = namesEnds.next(lower, end);
            field.name = cleaned(part(text), part(lower));
        }
        if (field.kind == Kind::payee && !field.name.empty()) return std::move(field.name);
        if (field.kind == Kind::handle && handle.empty()) handle = std::move(field.name);
        if (field.kind == Kind::purpose && reason.empty()) reason = std::move(field.name);
        if (field.kind == Kind::bank && atBank.empty()) atBank = std::move(field.name);
        begin = end + 1;
    }
    if (!handle.empty()) return handle;
    return reason.empty() ? atBank : reason;
}

}  // namespace

std::string cleanVendor(std::string_view narration) { return payee(narration, nullptr); }

std::string Payees::of(std::string_view narration) {
    known_.resize(mostKnown);
    return payee(narration, &known_);
}

}  // namespace tamba::BankImport
