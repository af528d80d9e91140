#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <limits>
#include <mutex>

namespace tamba::Text {
namespace {

/// Ten thousand steps of the matching engine each, its own measure, so that the outcome is the same on any machine:
/// five million for any text, about a tenth of a second, and 20 more for each byte.
std::int32_t stepLimit(std::size_t bytes) { return static_cast<std::int32_t>(500 + bytes / 500); }

/// A matcher that has seen a longer text is not kept: it holds the text and the memory of its search.
constexpr std::size_t longText = 65'536;

icu::UnicodeString unicode(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 4)) fatal("text too long");
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

/// A matcher with the text it works on: ICU keeps a reference to it.
struct Search {
    std::unique_ptr<icu::RegexMatcher> matcher;
    icu::UnicodeString text;
};

/// Byte positions for ICU's UTF-16 positions.
class Offsets {
public:
    explicit Offsets(std::string_view text, std::int32_t units) {
        // The same length means that every unit is one byte.
        if (static_cast<std::size_t>(units) == text.size()) return;
        bytes_.reserve(static_cast<std::size_t>(units) + 1);
        for (std::size_t at = 0; at < text.size();) {
            bytes_.push_back(at);
            if (codePoint(text, at) > 0xFFFF) bytes_.push_back(bytes_.back());
        }
        bytes_.push_back(text.size());
    }
    [[nodiscard]] std::size_t operator()(std::int32_t unit) const {
        const auto index = static_cast<std::size_t>(unit);
        return bytes_.empty() ? index : bytes_[index];
    }

private:
    std::vector<std::size_t> bytes_;
};

}  // namespace

/// The pattern, and matchers that wait for the next search: a matcher is dear to make and serves one thread at a time.
struct Pattern::Compiled {
    std::unique_ptr<icu::RegexPattern> pattern;
    std::mutex mutex;
    std::vector<std::unique_ptr<Search>> idle;

    std::unique_ptr<Search> take() {
        {
            const std::lock_guard lock(mutex);
            if (!idle.empty()) {
                auto search = std::move(idle.back());
                idle.pop_back();
                return search;
            }
        }
        UErrorCode status = U_ZERO_ERROR;
        auto search = std::make_unique<Search>();
        search->matcher.reset(pattern->matcher(status));
        if (U_FAILURE(status)) fatal("no matcher for a pattern");
        return search;
    }

    /// Calls `found(matcher, offsets)` for each match until it returns false. False when the search was given up.
    template <class Found>
    bool search(std::string_view text, Found&& found) {
        auto search = take();
        icu::RegexMatcher& matcher = *search->matcher;
        search->text = unicode(text);
        UErrorCode status = U_ZERO_ERROR;
        matcher.setTimeLimit(stepLimit(text.size()), status);
        matcher.reset(search->text);
        std::optional<Offsets> offsets;
        while (matcher.find(status)) {
            if (!offsets) offsets.emplace(text, search->text.length());
            if (!found(matcher, *offsets)) break;
        }
        if (text.size() < longText) {
            const std::lock_guard lock(mutex);
            idle.push_back(std::move(search));
        }
        return U_SUCCESS(status) != 0;
    }
};

Pattern::Pattern(std::string_view expression) : compiled_(std::make_unique<Compiled>()) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError where{};
    compiled_->pattern.reset(icu::RegexPattern::compile(unicode(expression), where, status));
    if (U_FAILURE(status)) fatal(("pattern does not compile: " + std::string(expression)).c_str());
}

Pattern::~Pattern() = default;

std::string_view Pattern::Match::operator[](std::size_t group) const {
    if (group >= groups.size()) fatal("the pattern has no such group");
    return groups[group] ? std::string_view(*groups[group]) : std::string_view();
}

namespace {

Pattern::Match matchAt(const icu::RegexMatcher& matcher, const Offsets& offsets, std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    Pattern::Match match;
    match.begin = offsets(matcher.start(status));
    match.end = offsets(matcher.end(status));
    const std::int32_t count = matcher.groupCount();
    match.groups.reserve(static_cast<std::size_t>(count) + 1);
    for (std::int32_t group = 0; group <= count; ++group) {
        const std::int32_t begin = matcher.start(group, status);
        if (begin < 0) {
            match.groups.emplace_back();
            continue;
        }
        const std::size_t from = offsets(begin);
        match.groups.emplace_back(text.substr(from, offsets(matcher.end(group, status)) - from));
    }
    return match;
}

}  // namespace

bool Pattern::matches(std::string_view text) const {
    bool any = false;
    compiled_->search(text, [&](const auto&, const auto&) {
        any = true;
        return false;
    });
    return any;
}

std::optional<Pattern::Match> Pattern::first(std::string_view text) const {
    std::optional<Match> result;
    compiled_->search(text, [&](const auto& matcher, const auto& offsets) {
        result = matchAt(matcher, offsets, text);
        return false;
    });
    return result;
}

std::vector<Pattern::Match> Pattern::all(std::string_view text) const {
    std::vector<Match> result;
    const bool complete = compiled_->search(text, [&](const auto& matcher, const auto& offsets) {
        result.push_back(matchAt(matcher, offsets, text));
        return true;
    });
    if (!complete) result.clear();
    return result;
}

std::string Pattern::replaceAll(std::string_view text, std::string_view replacement) const {
    std::string result;
    std::size_t done = 0;
    for (const Match& match : all(text)) {
        result += text.substr(done, match.begin - done);
        for (std::size_t i = 0; i < replacement.size(); ++i) {
            const char next = i + 1 < replacement.size() ? replacement[i + 1] : '\0';
            if (replacement[i] == '$' && next >= '1' && next <= '9') {
                result += match[static_cast<std::size_t>(next - '0')];
                ++i;
            } else {
                result += replacement[i];
            }
        }
        done = match.end;
    }
    result += text.substr(done);
    return result;
}

}  // namespace tamba::Text
