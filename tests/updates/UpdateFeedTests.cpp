#include "CorvexKit/UpdateFeed.h"
#include "tests/updates/Signed.h"

#include <gtest/gtest.h>

#include <functional>

namespace tamba {
namespace {

using testing::SigningKey;
using Verdict = UpdateJudgement::Verdict;

constexpr std::int64_t noon = 1'795'262'400;  // 2026-11-21T12:00:00Z

const std::string good = R"({"version": "1.0.1", "published": "2026-11-20T09:00:00Z", "expires": "2026-12-20T09:00:00Z",
"sequence": 7, "notes": "Statements of two more banks.", "platforms": {"linux-x86_64": {"url":
"https://updates.example/tamba-1.0.1.tar.xz", "size": 5000,
"sha256": "5feceb66ffc86f38d952786c6d696c79c2dbc239dd4e91b46729d73a27fb57e9"}}})";

std::string changed(std::string_view from, std::string_view to) {
    std::string text = good;
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

class UpdateFeedTest : public ::testing::Test {
protected:
    const SigningKey present_, next_, stranger_;
    UpdateContext context_{"Tamba", {1, 0, 0}, "linux-x86_64", {present_.open(), next_.open()}};

    UpdateJudgement judge(const std::string& feed, std::int64_t now = noon, std::uint64_t lastSequence = 7) const {
        return judgeFeed(feed, present_.sign(feed), context_, now, lastSequence);
    }
};

TEST_F(UpdateFeedTest, offersWhatItsMakersSigned) {
    for (const SigningKey* key : {&present_, &next_}) {
        const auto judgement = judgeFeed(good, key->sign(good), context_, noon, 0);
        ASSERT_EQ(judgement.verdict, Verdict::newer) << judgement.sentence;
        EXPECT_EQ(judgement.sentence, "Tamba 1.0.1 is available.");
        EXPECT_EQ(judgement.feed->version.text(), "1.0.1");
        EXPECT_EQ(judgement.feed->sequence, 7U);
        EXPECT_EQ(judgement.feed->notes, "Statements of two more banks.");
        EXPECT_EQ(judgement.feed->expires - judgement.feed->published, 30 * 86'400);
        EXPECT_EQ(judgement.file->url, "https://updates.example/tamba-1.0.1.tar.xz");
        EXPECT_EQ(judgement.file->size, 5000U);
        EXPECT_EQ(judgement.file->sha256, testing::sha256("0"));
    }
}

TEST_F(UpdateFeedTest, usesNothingThatAnotherSigned) {
    const std::string mark = present_.sign(good);
    EXPECT_EQ(judgeFeed(good, stranger_.sign(good), context_, noon, 0).verdict, Verdict::badSignature);
    for (const std::string& signature : {std::string(), mark.substr(1), "A" + mark, mark.substr(0, 40), mark + mark})
        EXPECT_EQ(judgeFeed(good, signature, context_, noon, 0).verdict, Verdict::badSignature) << signature;
    for (std::size_t i = 0; i < good.size(); ++i) {
        std::string altered = good;
        altered[i] = static_cast<char>(altered[i] ^ 1);
        ASSERT_EQ(judgeFeed(altered, mark, context_, noon, 0).verdict, Verdict::badSignature) << i;
    }
    context_.keys.clear();
    EXPECT_EQ(judgeFeed(good, mark, context_, noon, 0).verdict, Verdict::badSignature);
}

TEST_F(UpdateFeedTest, judgesTimeOrderAndVersion) {
    const struct {
        std::string feed;
        std::int64_t now;
        std::uint64_t lastSequence;
        Verdict verdict;
    } cases[] = {
        {good, 1'797'757'199, 7, Verdict::newer},  // 2026-12-20T08:59:59Z
        {good, 1'797'757'200, 7, Verdict::expired},
        {good, 1'795'165'200 - 86'400, 7, Verdict::newer},  // a day before it was published
        {good, 1'795'165'200 - 86'401, 7, Verdict::fromTheFuture},
        {good, noon, 8, Verdict::rolledBack},
        {changed("1.0.1", "1.0.0"), noon, 7, Verdict::current},
        {changed("1.0.1", "0.9.10"), noon, 7, Verdict::current},
        {changed("1.0.1", "0.9.10"), noon, 8, Verdict::rolledBack},
        {changed("1.0.1", "1.0.10"), noon, 7, Verdict::newer},
        {changed("linux-x86_64", "linux-aarch64"), noon, 7, Verdict::otherPlatform},
    };
    for (const auto& each : cases) {
        const auto judgement = judge(each.feed, each.now, each.lastSequence);
        EXPECT_EQ(judgement.verdict, each.verdict) << each.feed << each.now << judgement.sentence;
        EXPECT_EQ(judgement.file.has_value(), each.verdict == Verdict::newer);
    }
}

TEST_F(UpdateFeedTest, namesWhatMakesNoSense) {
    const struct {
        std::string feed, path;
    } cases[] = {
        {changed("1.0.1", "1.0"), "version"},
        {changed("1.0.1", "../1.0"), "version"},
        {changed("1.0.1", "1.0.01"), "version"},
        {changed("1.0.1", "1.0.-1"), "version"},
        {changed("1.0.1", "1.0.99999"), "version"},
        {changed("11-20T", "02-30T"), "published"},
        {changed("12-20T09:00:00Z", "12-20"), "expires"},
        {changed("\"sequence\": 7", "\"sequence\": -7"), "sequence"},
        {changed("notes", "note"), "notes"},
        {changed("https:", "http:"), "platforms.linux-x86_64.url"},
        {changed("5000", "0"), "platforms.linux-x86_64.size"},
        {changed("5000", "1000000001"), "platforms.linux-x86_64.size"},
        {changed("5feceb66", "5feceb6"), "platforms.linux-x86_64.sha256"},
        {changed("5feceb66", "xfeceb66"), "platforms.linux-x86_64.sha256"},
        {changed("{\"url\"", "7, \"x\": {\"url\""), "platforms.linux-x86_64"},
    };
    for (const auto& each : cases) {
        const auto judgement = judge(each.feed);
        EXPECT_EQ(judgement.verdict, Verdict::damaged) << each.feed;
        EXPECT_EQ(judgement.sentence,
                  "The list of updates can’t be read: “" + each.path + "” is missing or makes no sense.");
    }
    for (const std::string& feed : {std::string(), good.substr(0, 200), "[" + good + "]", std::string(9, '\0')})
        EXPECT_EQ(judge(feed).sentence, "The list of updates can’t be read.") << feed;
}

}  // namespace
}  // namespace tamba
