#include "TambaCore/Base/Helper.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/JSONLayout.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <bitset>
#include <charconv>
#include <cstring>
#include <exception>
#include <limits>
#include <thread>

namespace tamba::ModelsJSON {

void DecodeError::inKey(std::string_view key) {
    path_ = std::string(key) + (path_.empty() || path_.front() == '[' ? "" : ".") + path_;
    compose();
}

void DecodeError::inList(std::size_t index) {
    path_ = "[" + std::to_string(index) + "]" + (path_.empty() || path_.front() == '[' ? "" : ".") + path_;
    compose();
}

void DecodeError::compose() { text_ = path_.empty() ? message_ : message_ + " (" + path_ + ")"; }

namespace {

namespace od = simdjson::ondemand;

/// Throws where the text itself is broken; a value of another type is the caller's to explain.
[[noreturn]] void fail(simdjson::error_code error, const char* expected) {
    switch (error) {
        case simdjson::INCORRECT_TYPE:
        case simdjson::NUMBER_ERROR:
        case simdjson::NUMBER_OUT_OF_RANGE:
            throw DecodeError(expected);
        case simdjson::UTF8_ERROR:
            throw DecodeError("The text is not UTF-8");
        case simdjson::EMPTY:
            throw DecodeError("The file is empty");
        case simdjson::MEMALLOC:
        case simdjson::CAPACITY:
            throw DecodeError("The file is too large for this machine");
        default:
            throw DecodeError("The file is damaged or cut off");
    }
}

template <class T>
T get(simdjson::simdjson_result<T> result, const char* expected) {
    T value;
    if (const auto error = std::move(result).get(value)) fail(error, expected);
    return value;
}

/// Valid until the books' text is gone. Most texts have nothing escaped and are taken as they stand, without a copy;
/// that they are whole, UTF-8 and without control characters was checked over the whole text.
std::string_view text(od::value& v) {
    std::string_view token = v.raw_json_token();
    token = token.substr(0, token.rfind('"') + 1);
    if (token.size() < 2 || token.front() != '"' || token.find('\\') != token.npos)
        return get(v.get_string(), "Not a text");
    get(v.get_raw_json_string(), "Not a text");
    return token.substr(1, token.size() - 2);
}

std::string shortened(std::string_view word) {
    return word.size() <= 60 ? std::string(word) : std::string(Text::prefixBytes(word, 57)) + "…";
}

void decode(od::value& v, bool& out) { out = get(v.get_bool(), "Neither true nor false"); }
void decode(od::value& v, std::int64_t& out) { out = get(v.get_int64(), "Not a whole number"); }
void decode(od::value& v, int& out) {
    std::int64_t wide = 0;
    decode(v, wide);
    if (wide < std::numeric_limits<int>::min() || wide > std::numeric_limits<int>::max())
        throw DecodeError("Not a number of this size");
    out = static_cast<int>(wide);
}
void decode(od::value& v, std::string& out) { out = text(v); }
void decode(od::value& v, UUID& out) {
    const std::string_view word = text(v);
    const auto id = UUID::parse(word);
    if (!id) throw DecodeError("Bad identifier " + shortened(word));
    out = *id;
}
/// As it is written. `Day::iso` looks at ten characters, and the year 10000, due after the last days of 9999, has more.
std::optional<Day> readDay(std::string_view word) {
    constexpr std::size_t monthAndDay = 6;  // -04-01
    const std::size_t digits = std::min(word.find_first_not_of("0123456789"), word.size());
    if (digits < 5 || word.size() != digits + monthAndDay) return Day::iso(word);
    int year = 0;
    if (std::from_chars(word.data(), word.data() + digits, year).ec != std::errc{}) return {};
    const auto day = Day::iso("2000" + std::string(word.substr(digits)));
    return day ? Day::valid(year, day->m, day->d) : std::nullopt;
}

void decode(od::value& v, Day& out) {
    const std::string_view word = text(v);
    const auto day = readDay(word);
    if (!day) throw DecodeError("Bad day " + shortened(word));
    out = *day;
}
void decode(od::value& v, Instant& out) {
    const std::string_view word = text(v);
    const auto instant = parseInstant(word);
    if (!instant) throw DecodeError("Bad point in time " + shortened(word));
    out = *instant;
}
template <class E>
    requires std::is_enum_v<E>
void decode(od::value& v, E& out) {
    const std::string_view written = text(v);
    const auto value = fromWord<E>(written);
    if (!value) throw DecodeError("Unknown word " + shortened(written));
    out = *value;
}
template <IsRecord R>
void decode(od::value& v, R& out);
void decode(od::value& v, std::map<std::string, std::int64_t>& out);

/// Calls `element(value)` for each element, naming its position in errors.
template <class Element>
void eachElement(od::array& array, Element&& element) {
    std::size_t index = 0;
    try {
        for (auto item : array) {
            auto value = get(std::move(item), "Not a value");
            element(value);
            ++index;
        }
    } catch (DecodeError& error) {
        error.inList(index);
        throw;
    } catch (const simdjson::simdjson_error& error) {
        fail(error.error(), "Not a list");
    }
}

template <class T>
void decode(od::value& v, std::vector<T>& out) {
    auto array = get(v.get_array(), "Not a list");
    eachElement(array, [&](od::value& item) { decode(item, out.emplace_back()); });
}

template <class T>
void decode(od::value& v, List<T>& out) {
    auto array = get(v.get_array(), "Not a list");
    eachElement(array, [&](od::value& item) {
        auto record = std::make_shared<T>();
        decode(item, *record);
        out.append(std::move(record));
    });
}

template <class T>
void decode(od::value& v, std::optional<T>& out) {
    if (v.is_null()) return;
    decode(v, out.emplace());
}

template <class R>
struct Reader {
    static constexpr std::size_t count = fieldCount<R>;
    using Decode = void (*)(od::value&, R&);

    static constexpr auto keys = std::apply([](const auto&... field) { return std::array{field.key...}; }, Fields<R>);

    template <std::size_t I>
    static void decodeField(od::value& v, R& record) {
        decode(v, record.*std::get<I>(Fields<R>).member);
    }
    static constexpr auto decoders = []<std::size_t... I>(std::index_sequence<I...>) {
        return std::array<Decode, count>{&decodeField<I>...};
    }(std::make_index_sequence<count>{});

    static constexpr auto required = std::apply(
        [](const auto&... field) {
        return std::array{!requires(const R& record){(record.*field.member).has_value(); }...
};
},
        Fields<R>);

/// Files have their keys in the table's order, so the next one is tried first.
static std::size_t find(std::string_view key, std::size_t expected) {
    if (expected < count && keys[expected] == key) return expected;
    const auto place = std::lower_bound(keys.begin(), keys.end(), key);
    return place != keys.end() && *place == key ? static_cast<std::size_t>(place - keys.begin()) : count;
}
};

/// The key as written, without its quotes; escapes are left as they are. Nearly every key is the one that comes next in
/// the table, and is compared with that before anybody looks for its end.
std::string_view rawKey(od::field& field, std::string_view likely) {
    const char* begin = field.key().raw();
    if (std::memcmp(begin, likely.data(), likely.size()) == 0 && begin[likely.size()] == '"')
        return {begin, likely.size()};
    const char* end = begin;
    while (*end != '"') end += *end == '\\' ? 2 : 1;
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// A value that no table names, kept as checked JSON text without blanks. The quick parser skips over it without
/// looking, so it is read once more by the thorough one.
std::string keep(od::value& v) {
    std::string raw(get(simdjson::to_json_string(v), "Not a value"));
    simdjson::dom::parser thorough;
    simdjson::dom::element ignored;
    if (const auto error = thorough.parse(raw).get(ignored)) fail(error, "Not a value");
    std::string bare(raw.size(), ' ');
    std::size_t length = 0;
    if (const auto error = simdjson::minify(raw.data(), raw.size(), bare.data(), length)) fail(error, "Not a value");
    bare.resize(length);
    return bare;
}

template <IsRecord R>
void decode(od::value& v, R& out) {
    std::bitset<fieldCount<R>> seen;
    UnknownKeys::Entries unknown;
    std::string_view key;
    std::size_t expected = 0;
    try {
        auto object = get(v.get_object(), "Not a record");
        for (auto item : object) {
            auto field = get(std::move(item), "Not a record");
            key = rawKey(field, expected < fieldCount<R> ? Reader<R>::keys[expected] : "");
            // A key of the table may be written with escapes; kept as unknown, it would be written twice.
            std::string_view name = key;
            if (key.find('\\') != key.npos) name = get(field.unescaped_key(), "Not a key");
            const std::size_t index = Reader<R>::find(name, expected);
            od::value value = field.value();
            if (index == fieldCount<R>) {
                if constexpr (KeepsUnknownKeys<R>) {
                    unknown.emplace_back(std::string(name), keep(value));
                } else {
                    throw DecodeError("Unknown key");
                }
            } else {
                if (seen[index]) throw DecodeError("Key written twice");
                seen[index] = true;
                Reader<R>::decoders[index](value, out);
                expected = index + 1;
            }
            key = {};
        }
    } catch (DecodeError& error) {
        if (!key.empty()) error.inKey(key);
        throw;
    } catch (const simdjson::simdjson_error& error) {
        try {
            fail(error.error(), "Not a record");
        } catch (DecodeError& told) {
            if (!key.empty()) told.inKey(key);
            throw;
        }
    }
    for (std::size_t i = 0; i < fieldCount<R>; ++i)
        if (Reader<R>::required[i] && !seen[i]) {
            DecodeError missing("Missing key");
            missing.inKey(Reader<R>::keys[i]);
            throw missing;
        }
    if constexpr (KeepsUnknownKeys<R>) {
        if (unknown.empty()) return;
        std::sort(unknown.begin(), unknown.end());
        const auto twice = std::adjacent_find(unknown.begin(), unknown.end(),
                                              [](const auto& a, const auto& b) { return a.first == b.first; });
        if (twice != unknown.end()) {
            DecodeError error("Key written twice");
            error.inKey(twice->first);
            throw error;
        }
        out.unknown = UnknownKeys(std::move(unknown));
    }
}

void decode(od::value& v, std::map<std::string, std::int64_t>& out) {
    std::string key;
    try {
        auto object = get(v.get_object(), "Not a record");
        for (auto item : object) {
            auto field = get(std::move(item), "Not a record");
            key = std::string(get(field.unescaped_key(), "Not a key"));
            if (out.contains(key)) throw DecodeError("Key written twice");
            od::value value = field.value();
            decode(value, out[key]);
            key.clear();
        }
    } catch (DecodeError& error) {
        if (!key.empty()) error.inKey(key);
        throw;
    } catch (const simdjson::simdjson_error& error) {
        fail(error.error(), "Not a record");
    }
}

/// A whole text that is one record, with room behind it for the parser.
template <IsRecord R>
void decodeAlone(od::parser& parser, simdjson::padded_string_view text, R& out) {
    auto document = get(parser.iterate(text), "Not a record");
    auto value = get(document.get_value(), "Not a record");
    decode(value, out);
    if (!document.current_location().error()) throw DecodeError("There is something after the end of the books");
}

Library decodeAlone(const std::string& bytes) {
    od::parser parser;
    Library library;
    try {
        decodeAlone(parser, simdjson::padded_string_view(bytes, bytes.capacity()), library);
    } catch (const simdjson::simdjson_error& error) {
        fail(error.error(), "Not a record");
    }
    return library;
}

/// Reads the lists that were cut out of the books' text, in pieces, with as many threads as there are processors.
class Lists {
public:
    template <std::size_t I>
    void add(std::string_view text) {
        using Member = std::remove_cvref_t<decltype(std::declval<Library>().*std::get<I>(Fields<Library>).member)>;
        if constexpr (requires(const Member& list) { list.at(0); }) {
            const auto pieces = JSONLayout::pieces(text);
            const auto read = std::make_shared<std::vector<Records<Member>>>(pieces.size());
            for (std::size_t i = 0; i < pieces.size(); ++i)
                steps_.emplace_back([piece = pieces[i], &records = (*read)[i]] { decodePiece(piece, records); });
            gather_.emplace_back([read](Library& library) {
                Member& list = library.*std::get<I>(Fields<Library>).member;
                std::size_t count = 0;
                for (const auto& records : *read) count += records.size();
                list.reserve(count);
                for (auto& records : *read)
                    for (auto& record : records) list.append(std::move(record));
            });
        }
    }

    /// False where a piece is no row of good records.
    bool read(Library& library) {
        const auto threads = std::min<std::size_t>(std::thread::hardware_concurrency(), steps_.size());
        {
            std::vector<std::jthread> others;
            for (std::size_t i = 1; i < threads; ++i) others.push_back(helper([this] { work(); }));
            work();
        }
        if (failed_) return false;
        for (const auto& gather : gather_) gather(library);
        return true;
    }

private:
    template <class Member>
    using Records = std::vector<std::remove_cvref_t<decltype(std::declval<const Member&>().at(0))>>;

    void work() {
        try {
            for (std::size_t i = next_++; i < steps_.size() && !failed_; i = next_++) steps_[i]();
        } catch (const std::exception&) {
            failed_ = true;
        }
    }

    template <class T>
    static void decodePiece(std::string_view piece, std::vector<std::shared_ptr<const T>>& out) {
        od::parser parser;
        JSONLayout::eachRecord(piece, [&](std::string_view text) {
            auto record = std::make_shared<T>();
            // The books' text goes on behind each record, which is all the room the parser asks for.
            decodeAlone(parser, simdjson::padded_string_view(text, text.size() + simdjson::SIMDJSON_PADDING), *record);
            out.push_back(std::move(record));
        });
    }

    std::vector<std::function<void()>> steps_;
    std::vector<std::function<void(Library&)>> gather_;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<bool> failed_ = false;
};

/// Books laid out as they are written here, by all processors. Nothing for others, and for those that are not good
/// throughout: why is told by reading them from end to end.
std::optional<Library> decodeLaidOut(std::string_view bytes) {
    constexpr auto adders = []<std::size_t... I>(std::index_sequence<I...>) {
        return std::array{&Lists::add<I>...};
    }(std::make_index_sequence<fieldCount<Library>>{});
    try {
        auto [rest, cut] = JSONLayout::withoutLists(bytes);
        if (cut.empty()) return std::nullopt;
        Lists lists;
        for (const auto& [key, text] : cut) {
            const std::size_t field = Reader<Library>::find(key, 0);
            if (field == fieldCount<Library>) return std::nullopt;
            (lists.*adders[field])(text);
        }
        rest.reserve(rest.size() + simdjson::SIMDJSON_PADDING);
        Library library = decodeAlone(rest);
        if (!lists.read(library)) return std::nullopt;
        return library;
    } catch (const DecodeError&) {
        return std::nullopt;
    }
}

}  // namespace

Library decode(std::string bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    bytes.reserve(bytes.size() + simdjson::SIMDJSON_PADDING);
    if (auto library = decodeLaidOut(bytes)) return *std::move(library);
    return decodeAlone(bytes);
}

}  // namespace tamba::ModelsJSON
