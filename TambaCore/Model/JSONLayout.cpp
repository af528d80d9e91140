#include "TambaCore/Model/JSONLayout.h"

#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <cstddef>

namespace tamba::ModelsJSON::JSONLayout {
namespace {

constexpr std::size_t pieceSize = 1 << 19;
constexpr std::string_view listOpens = ": [", listCloses = "\n  ]", recordOpens = "    {", recordCloses = "\n    }",
                           betweenRecords = ",\n";

/// Past the first `closing` from there on; what is inside has more blanks in front.
std::size_t pastClosing(std::string_view text, std::size_t from, std::string_view closing) {
    for (std::size_t at = text.find(closing.back(), from); at != text.npos; at = text.find(closing.back(), at + 1))
        if (text.substr(0, at + 1).ends_with(closing)) return at + 1;
    return text.npos;
}

}  // namespace

Cut withoutLists(std::string_view text) {
    Cut cut;
    std::size_t taken = 0;
    for (std::size_t line = 0; line < text.size();) {
        const std::size_t end = std::min(text.find('\n', line), text.size());
        const std::string_view words = text.substr(line, end - line),
                               next = text.substr(std::min(end + 1, text.size()));
        line = end + 1;
        if (!words.starts_with("  \"") || !words.ends_with("\"" + std::string(listOpens)) ||
            !next.starts_with(recordOpens))
            continue;
        const std::size_t close = pastClosing(text, end, listCloses);
        if (close == text.npos) return {};
        const std::size_t records = close - listCloses.size();
        cut.lists.push_back({words.substr(3, words.size() - 4 - listOpens.size()), text.substr(line, records - line)});
        cut.rest += text.substr(taken, end - taken);
        line = taken = close - 1;
    }
    cut.rest += text.substr(taken);
    return cut;
}

std::vector<std::string_view> pieces(std::string_view records) {
    std::vector<std::string_view> cut;
    while (!records.empty()) {
        const std::size_t end = std::min(pastClosing(records, pieceSize, recordCloses), records.size());
        cut.push_back(records.substr(0, end));
        records.remove_prefix(end);
        if (records.starts_with(betweenRecords) && records.size() > betweenRecords.size())
            records.remove_prefix(betweenRecords.size());
    }
    return cut;
}

void eachRecord(std::string_view piece, const std::function<void(std::string_view)>& take) {
    constexpr std::size_t blanks = recordOpens.size() - 1;
    while (true) {
        const std::size_t end = pastClosing(piece, 0, recordCloses);
        if (!piece.starts_with(recordOpens) || end == piece.npos) throw DecodeError("The file is damaged or cut off");
        take(piece.substr(blanks, end - blanks));
        piece.remove_prefix(end);
        if (piece.empty()) return;
        if (!piece.starts_with(betweenRecords)) throw DecodeError("The file is damaged or cut off");
        piece.remove_prefix(betweenRecords.size());
    }
}

}  // namespace tamba::ModelsJSON::JSONLayout
