#include "TambaCore/Model/JSONWriter.h"

#include "TambaCore/Base/Helper.h"
#include "TambaCore/Base/Text.h"

#include <simdjson.h>

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <thread>

namespace tamba::ModelsJSON {

namespace {

/// How many characters from the beginning need no escape, looked at eight at a time.
std::size_t cleanPrefix(std::string_view text) {
    constexpr std::uint64_t ones = 0x0101010101010101, highs = 0x8080808080808080;
    const auto below = [](std::uint64_t word, std::uint64_t limit) { return (word - ones * limit) & ~word & highs; };
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, 8);
        if (below(word, 0x20) | below(word ^ (ones * '"'), 1) | below(word ^ (ones * '\\'), 1)) break;
    }
    return i;
}

}  // namespace

void Writer::repair() {
    if (simdjson::validate_utf8(text())) return;
    out_ = Text::repairedUTF8(text());
    at_ = end_ = out_.data() + out_.size();
}

void Writer::handOver() {
    repair();
    (*pieces_)(text());
    restart();
}

void Writer::inPieces(std::size_t records, const std::function<void(Writer&, std::size_t)>& write) {
    handOver();
    const std::size_t count = (records + recordsOfPiece - 1) / recordsOfPiece;
    const unsigned processors = std::clamp(std::thread::hardware_concurrency(), 1U, 8U);
    // Few enough to stay in the processors’ caches: each is written again as soon as it was handed over.
    std::vector<Writer> places(std::size_t{4} * processors, Writer(pretty_ ? Layout::pretty : Layout::line));
    std::vector<std::size_t> finished(places.size());  // the piece in each place, counted from one
    std::size_t taken = 0, handedOver = 0;
    std::mutex mutex;
    std::condition_variable changed;
    const auto layOut = [&](std::size_t i) {
        Writer& piece = places[i % places.size()];
        piece.restart();
        piece.depth_ = depth_;
        piece.first_ = i == 0;
        const std::size_t end = std::min((i + 1) * recordsOfPiece, records);
        for (std::size_t record = i * recordsOfPiece; record < end; ++record) write(piece, record);
        piece.repair();
    };
    const auto work = [&] {
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, [&] { return taken == count || taken < handedOver + places.size(); });
            if (taken == count) return;
            const std::size_t i = taken++;
            lock.unlock();
            layOut(i);
            lock.lock();
            finished[i % places.size()] = i + 1;
            changed.notify_all();
        }
    };
    std::vector<std::jthread> threads;
    try {
        for (unsigned i = 0; i < processors; ++i)
            if (std::jthread thread = helper(work); thread.joinable()) threads.push_back(std::move(thread));
        for (std::size_t i = 0; i < count; ++i) {
            if (threads.empty()) layOut(i), finished[i % places.size()] = i + 1;
            std::unique_lock lock(mutex);
            changed.wait(lock, [&] { return finished[i % places.size()] == i + 1; });
            lock.unlock();
            (*pieces_)(places[i % places.size()].text());
            lock.lock();
            handedOver = i + 1;
            changed.notify_all();
        }
    } catch (...) {
        const std::lock_guard lock(mutex);
        taken = count;
        changed.notify_all();
        throw;
    }
    first_ = false;
}

void Writer::grow(std::size_t bytes) {
    const std::size_t used = size();
    // Small texts are written by the thousand, and zeroes cost time, too.
    out_.resize(used + std::max(bytes, std::clamp(used, std::size_t{128}, std::size_t{64 * 1024})));
    at_ = out_.data() + used;
    end_ = out_.data() + out_.size();
}

void Writer::quoted(std::string_view text) {
    constexpr char hex[] = "0123456789abcdef";
    put("\"");
    std::size_t clean = 0;
    for (std::size_t i = cleanPrefix(text); i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c >= 0x20 && c != '"' && c != '\\') continue;
        put(text.substr(clean, i - clean));
        clean = i + 1;
        switch (c) {
            case '"':
                put("\\\"");
                break;
            case '\\':
                put("\\\\");
                break;
            case '\n':
                put("\\n");
                break;
            case '\r':
                put("\\r");
                break;
            case '\t':
                put("\\t");
                break;
            default: {
                const char code[] = {'\\', 'u', '0', '0', hex[c >> 4], hex[c & 15]};
                put({code, sizeof code});
            }
        }
    }
    put(text.substr(clean));
    put("\"");
}

std::string quoted(std::string_view text) {
    Writer writer(Layout::line);
    writer.value(std::string(text));
    return std::string(writer.text());
}

/// JSON without blanks that was checked when it was read, laid out anew at the present depth. No recursion: it may be
/// nested deeply.
void Writer::raw(std::string_view json) {
    const std::size_t base = depth_;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (c == '}' || c == ']') {
            --depth_;
            newLine();
        }
        const std::size_t begin = i;
        if (c == '"')
            while (json[++i] != '"') i += json[i] == '\\' ? 1 : 0;
        const bool opens = c == '{' || c == '[';
        const bool empty = opens && (json[i + 1] == '}' || json[i + 1] == ']');
        if (empty) ++i;
        put(json.substr(begin, i + 1 - begin));
        if (opens && !empty) ++depth_;
        if ((opens && !empty) || c == ',') newLine();
        if (c == ':' && pretty_) put(" ");
    }
    depth_ = base;
}

void encode(const Library& library, const Pieces& pieces) {
    Writer writer(Layout::pretty, pieces);
    writer.value(library);
    writer.handOver();
    pieces("\n");
}

std::string encode(const Library& library) {
    std::string bytes;
    encode(library, [&bytes](std::string_view piece) { bytes += piece; });
    return bytes;
}

template <class Record>
std::string json(const Record& record, Layout layout) {
    Writer writer(layout);
    writer.value(record);
    return std::string(writer.text());
}

template std::string json(const Library&, Layout);
template std::string json(const Business&, Layout);
template std::string json(const Client&, Layout);
template std::string json(const PartySnapshot&, Layout);
template std::string json(const CatalogItem&, Layout);
template std::string json(const Category&, Layout);
template std::string json(const Project&, Layout);
template std::string json(const Attachment&, Layout);
template std::string json(const Expense&, Layout);
template std::string json(const RecurringExpense&, Layout);
template std::string json(const Line&, Layout);
template std::string json(const Payment&, Layout);
template std::string json(const Document&, Layout);
template std::string json(const NumberSeries&, Layout);
template std::string json(const BankAccount&, Layout);
template std::string json(const BankTransaction&, Layout);
template std::string json(const CategoryRule&, Layout);
template std::string json(const FXRate&, Layout);
template std::string json(const TaxSplit&, Layout);
template std::string json(const Currency&, Layout);
template std::string json(const FinancialYear&, Layout);

}  // namespace tamba::ModelsJSON
