#include "TambaCore/Base/List.h"

#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace tamba {
namespace {

std::vector<std::string> read(const List<std::string>& list) { return {list.begin(), list.end()}; }

TEST(List, aChangedCopyLeavesTheOriginalAndSharesTheRest) {
    const List<std::string> before{"a", "b", "c"};
    List<std::string> after = before;
    EXPECT_TRUE(after.sharesAllWith(before));
    after.update(1, [](std::string& s) { s += "!"; });
    after.append("d");
    EXPECT_EQ(read(before), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(read(after), (std::vector<std::string>{"a", "b!", "c", "d"}));
    EXPECT_FALSE(after.sharesAllWith(before));
    EXPECT_EQ(after.at(0), before.at(0)) << "the very same record";
    EXPECT_NE(after.at(1), before.at(1));
}

RC_GTEST_PROP(List, behavesLikeAVectorWhateverIsDoneToIt, (std::vector<std::pair<int, int>> steps)) {
    List<int> list;
    std::vector<int> model;
    std::vector<std::pair<List<int>, std::vector<int>>> earlier;
    for (const auto& [what, value] : steps) {
        const std::size_t at = model.empty() ? 0 : static_cast<std::size_t>(value & 0x7FFF) % model.size();
        const auto place = model.begin() + static_cast<std::ptrdiff_t>(at);
        switch (what & 7) {
            case 0:
                list.insert(at, value), model.insert(place, value);
                break;
            case 1:
                if (!model.empty()) list.erase(at), model.erase(place);
                break;
            case 2:
                if (!model.empty()) list.update(at, [](int& x) { ++x; }), ++model[at];
                break;
            case 3:
                list.sort([](int a, int b) { return a / 10 < b / 10; });
                std::stable_sort(model.begin(), model.end(), [](int a, int b) { return a / 10 < b / 10; });
                break;
            case 4:
                earlier.emplace_back(list, model);
                break;
            default:
                list.append(value), model.push_back(value);
        }
    }
    earlier.emplace_back(list, model);
    for (const auto& [then, expected] : earlier) RC_ASSERT(std::vector<int>(then.begin(), then.end()) == expected);
}

TEST(List, comparesByContent) {
    const List<std::string> one{"a", "b"};
    List<std::string> other{"a", "b"};
    EXPECT_EQ(one, other);
    other.update(1, [](std::string& s) { s = "x"; });
    EXPECT_FALSE(one == other);
    EXPECT_FALSE(one == List<std::string>{"a"});
    EXPECT_EQ(List<std::string>{}, List<std::string>());
}

}  // namespace
}  // namespace tamba
