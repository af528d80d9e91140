#include "CorvexKit/UpdateFeed.h"

#include <simdjson.h>
#include <sodium.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <utility>

namespace tamba {
namespace {

using Verdict = UpdateJudgement::Verdict;

/// Clocks differ, and so do the ideas of what hour it is.
constexpr std::int64_t clockTolerance = 24 * 60 * 60;
constexpr std::size_t longestNotes = 20'000, longestURL = 2'000;

/// The path of the value that a feed lacks or that makes no sense.
struct Unreadable {
    std::string path;
};

template <std::size_t size>
std::optional<std::array<unsigned char, size>> fromBase64(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
    std::array<unsigned char, size> bytes;
    std::size_t length = 0;
    const char* end = nullptr;
    if (sodium_base642bin(bytes.data(), size, text.data(), text.size(), nullptr, &length, &end,
                          sodium_base64_VARIANT_ORIGINAL) != 0 ||
        length != size || end != text.data() + text.size())
        return {};
    return bytes;
}

bool isSigned(std::string_view bytes, std::string_view signature, const std::vector<UpdateKey>& keys) {
    const auto mark = fromBase64<crypto_sign_BYTES>(signature);
    return mark && sodium_init() >= 0 && std::any_of(keys.begin(), keys.end(), [&](const UpdateKey& key) {
               return crypto_sign_verify_detached(mark->data(), reinterpret_cast<const unsigned char*>(bytes.data()),
                                                  bytes.size(), key.data()) == 0;
           });
}

/// "2026-11-20T09:00:00Z" in seconds since 1970.
std::optional<std::int64_t> readTime(std::string_view text) {
    constexpr std::string_view shape = "0000-00-00T00:00:00Z";
    if (text.size() != shape.size()) return {};
    for (std::size_t i = 0; i < shape.size(); ++i)
        if (shape[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != shape[i]) return {};
    const auto number = [&](std::size_t from, std::size_t count) {
        int value = 0;
        std::from_chars(text.data() + from, text.data() + from + count, value);
        return value;
    };
    namespace chrono = std::chrono;
    const chrono::year_month_day day{chrono::year(number(0, 4)), chrono::month(static_cast<unsigned>(number(5, 2))),
                                     chrono::day(static_cast<unsigned>(number(8, 2)))};
    const int hour = number(11, 2), minute = number(14, 2), second = number(17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59) return {};
    return chrono::sys_days(day).time_since_epoch().count() * 86'400LL + hour * 3600 + minute * 60 + second;
}

template <class T>
T value(const simdjson::dom::object& object, std::string_view key, const std::string& path) {
    T result;
    if (object.at_key(key).get(result) != simdjson::SUCCESS) throw Unreadable{path + std::string(key)};
    return result;
}

std::int64_t timeOf(const simdjson::dom::object& object, std::string_view key) {
    const auto time = readTime(value<std::string_view>(object, key, {}));
    if (!time) throw Unreadable{std::string(key)};
    return *time;
}

UpdateFile readFile(const simdjson::dom::object& object, const std::string& path) {
    UpdateFile file;
    file.url = value<std::string_view>(object, "url", path);
    const bool printable =
        std::all_of(file.url.begin(), file.url.end(), [](char letter) { return letter > ' ' && letter <= '~'; });
    if (!file.url.starts_with("https://") || !printable || file.url.size() > longestURL) throw Unreadable{path + "url"};
    file.size = value<std::uint64_t>(object, "size", path);
    if (file.size == 0 || file.size > largestUpdate) throw Unreadable{path + "size"};
    const auto digits = value<std::string_view>(object, "sha256", path);
    std::size_t length = 0;
    if (digits.size() != 2 * file.sha256.size() ||
        sodium_hex2bin(file.sha256.data(), file.sha256.size(), digits.data(), digits.size(), nullptr, &length,
                       nullptr) != 0 ||
        length != file.sha256.size())
        throw Unreadable{path + "sha256"};
    return file;
}

UpdateFeed readFeed(std::string_view bytes) {
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (bytes.size() > longestFeed || parser.parse(bytes.data(), bytes.size()).get(object) != simdjson::SUCCESS)
        throw Unreadable{};
    UpdateFeed feed;
    const auto version = Version::read(value<std::string_view>(object, "version", {}));
    if (!version) throw Unreadable{"version"};
    feed.version = *version;
    feed.published = timeOf(object, "published");
    feed.expires = timeOf(object, "expires");
    feed.sequence = value<std::uint64_t>(object, "sequence", {});
    feed.notes = value<std::string_view>(object, "notes", {});
    if (feed.notes.size() > longestNotes) throw Unreadable{"notes"};
    for (const auto& [platform, file] : value<simdjson::dom::object>(object, "platforms", {})) {
        const std::string path = "platforms." + std::string(platform);
        simdjson::dom::object members;
        if (file.get(members) != simdjson::SUCCESS) throw Unreadable{path};
        feed.platforms.emplace(platform, readFile(members, path + '.'));
    }
    return feed;
}

}  // namespace

std::optional<UpdateKey> readUpdateKey(std::string_view base64) {
    return fromBase64<std::tuple_size_v<UpdateKey>>(base64);
}

UpdateJudgement judgeFeed(std::string_view bytes, std::string_view signature, const UpdateContext& context,
                          std::int64_t now, std::uint64_t lastSequence) {
    if (!isSigned(bytes, signature, context.keys))
        return {Verdict::badSignature,
                "The list of updates isn’t signed by the makers of " + context.program + ", so nothing in it was used.",
                {},
                {}};
    UpdateFeed feed;
    try {
        feed = readFeed(bytes);
    } catch (const Unreadable& unreadable) {
        const std::string where =
            unreadable.path.empty() ? "." : ": “" + unreadable.path + "” is missing or makes no sense.";
        return {Verdict::damaged, "The list of updates can’t be read" + where, {}, {}};
    }
    if (feed.published > now + clockTolerance)
        return {Verdict::fromTheFuture,
                "The list of updates is dated after today. Set this computer’s date, then look again.",
                {},
                {}};
    if (feed.expires <= now)
        return {Verdict::expired,
                "The list of updates is out of date, and a newer one may be held back. Nothing in it was used.",
                {},
                {}};
    if (feed.sequence < lastSequence)
        return {Verdict::rolledBack,
                "The list of updates is older than one that was here before, so nothing in it was used.",
                {},
                {}};
    if (feed.version <= context.present)
        return {Verdict::current,
                context.program + ' ' + context.present.text() + " is the latest version.",
                std::move(feed),
                {}};
    const std::string newer = context.program + ' ' + feed.version.text();
    const auto file = feed.platforms.find(context.platform);
    if (file == feed.platforms.end())
        return {
            Verdict::otherPlatform, newer + " is available, but not for this kind of computer.", std::move(feed), {}};
    const UpdateFile found = file->second;
    return {Verdict::newer, newer + " is available.", std::move(feed), found};
}

}  // namespace tamba
