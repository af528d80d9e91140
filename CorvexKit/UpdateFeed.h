#pragma once

#include "CorvexKit/Version.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The news of updates: a small JSON document, feed.json, and beside it feed.json.sig, the base64 of an Ed25519
/// signature (RFC 8032) of its very bytes. Judging one is pure: the caller brings the bytes, the time and what it
/// remembers. Nothing in a feed may be used before `judgeFeed` says `newer`.
///
///     {"version": "1.0.1", "published": "2026-11-20T09:00:00Z", "expires": "2026-12-20T09:00:00Z", "sequence": 7,
///      "notes": "…", "platforms": {"linux-x86_64": {"url": "https://…", "size": 1234, "sha256": "…64 digits…"}}}
namespace tamba {

/// A whole feed is no larger than this, its signature file than the other, the file it announces than the third.
inline constexpr std::uint64_t longestFeed = 256 * 1024, longestSignature = 1024, largestUpdate = 1'000'000'000;

/// An Ed25519 public key.
using UpdateKey = std::array<unsigned char, 32>;
/// From base64, as `scripts/release/make-keys` writes it.
[[nodiscard]] std::optional<UpdateKey> readUpdateKey(std::string_view base64);

using SHA256 = std::array<unsigned char, 32>;

/// The file that brings a version to one platform.
struct UpdateFile {
    std::string url;  // begins with https://
    std::uint64_t size = 0;
    SHA256 sha256 = {};
    bool operator==(const UpdateFile&) const = default;
};

struct UpdateFeed {
    Version version;
    std::int64_t published = 0;  // seconds since 1970, UTC
    std::int64_t expires = 0;
    std::uint64_t sequence = 0;  // grows with each feed that is signed
    std::string notes;           // plain text for people
    std::map<std::string, UpdateFile, std::less<>> platforms;
};

/// Which program asks, and what it trusts.
struct UpdateContext {
    std::string program;  // as people call it
    Version present;
    std::string platform;         // "linux-x86_64"
    std::vector<UpdateKey> keys;  // the present key and the next one; a signature by any of them counts
};

struct UpdateJudgement {
    enum class Verdict {
        newer,
        current,
        otherPlatform,
        badSignature,
        damaged,
        fromTheFuture,
        expired,     // somebody may be holding back a newer feed
        rolledBack,  // an older feed than one seen before, signed though it is
    };
    Verdict verdict = Verdict::damaged;
    std::string sentence;
    /// For `newer`, `current` and `otherPlatform`: its sequence is to be remembered.
    std::optional<UpdateFeed> feed;
    /// For `newer`.
    std::optional<UpdateFile> file;
};

/// `now` in seconds since 1970; `lastSequence` the highest of the feeds that were accepted before, 0 for none.
[[nodiscard]] UpdateJudgement judgeFeed(std::string_view feed, std::string_view signature, const UpdateContext& context,
                                        std::int64_t now, std::uint64_t lastSequence);

}  // namespace tamba
