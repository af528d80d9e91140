#pragma once

#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba::ModelsJSON {

/// Streams values straight to bytes by walking the field tables; no tree in between. The text grows in steps of zeroed
/// bytes that are then written through a pointer: a large book has millions of small pieces.
class Writer {
public:
    explicit Writer(Layout layout) : pretty_(layout == Layout::pretty) {}
    /// Hands the text to `pieces` while it grows, and of a long list lets each processor write a stretch.
    Writer(Layout layout, const Pieces& pieces) : pieces_(&pieces), pretty_(layout == Layout::pretty) {}

    /// The text, or what of it was not handed over yet.
    [[nodiscard]] std::string_view text() const { return {out_.data(), size()}; }
    /// Hands over what there is.
    void handOver();

    void value(bool v) { put(v ? "true" : "false"); }
    void value(std::int64_t v) {
        room(24);
        at_ = std::to_chars(at_, at_ + 24, v).ptr;
    }
    void value(int v) { value(std::int64_t{v}); }
    void value(const std::string& v) { quoted(v); }
    void value(const UUID& v) {
        room(38);
        *at_++ = '"';
        v.write(at_);
        at_ += 36;
        *at_++ = '"';
    }
    void value(const Day& v) { plain(v.iso()); }
    void value(const Instant& v) { plain(instantText(v)); }
    template <class E>
        requires std::is_enum_v<E>
    void value(E v) {
        plain(word(v));
    }
    template <class T>
    void value(const std::optional<T>& v) {
        value(*v);  // absent ones are left out before
    }
    template <class T>
    void value(const std::vector<T>& items) {
        list(items);
    }
    template <class T>
    void value(const List<T>& items) {
        if (!pieces_ || items.size() < recordsOfPiece) return list(items);
        open('[');
        inPieces(items.size(), [&items](Writer& piece, std::size_t i) {
            piece.next();
            piece.value(items[i]);
        });
        close(']');
    }
    void value(const std::map<std::string, std::int64_t>& counters) {
        open('{');
        for (const auto& [key, count] : counters) {
            member(key);
            value(count);
        }
        close('}');
    }
    template <IsRecord R>
    void value(const R& record) {
        open('{');
        if constexpr (KeepsUnknownKeys<R>) {
            auto unknown = record.unknown.entries().begin();
            const auto end = record.unknown.entries().end();
            std::apply(
                [&](const auto&... field) { (..., (unknownBefore(unknown, end, field.key), one(record, field))); },
                Fields<R>);
            unknownBefore(unknown, end, "\xFF");
        } else {
            std::apply([&](const auto&... field) { (..., one(record, field)); }, Fields<R>);
        }
        close('}');
    }

private:
    static constexpr std::size_t recordsOfPiece = 250;

    template <class R, class M>
    void one(const R& record, const Field<R, M>& field) {
        const M& member = record.*field.member;
        if constexpr (requires { member.has_value(); }) {
            if (!member) return;
        }
        begin(field.key);
        value(member);
    }
    template <class It>
    void unknownBefore(It& unknown, It end, std::string_view key) {
        for (; unknown != end && unknown->first < key; ++unknown) {
            member(unknown->first);
            raw(unknown->second);
        }
    }
    template <class Items>
    void list(const Items& items) {
        open('[');
        for (const auto& item : items) {
            next();
            value(item);
        }
        close(']');
    }

    /// Begins a text anew, in the memory of the last.
    void restart() {
        at_ = out_.data();
        end_ = at_ + out_.size();
    }
    /// Writes that many records, of which there is one at least, and hands them over in their order.
    void inPieces(std::size_t records, const std::function<void(Writer& piece, std::size_t record)>& write);
    /// Text from outside is repaired where it comes in; what slips through must not make the books unreadable.
    void repair();
    void raw(std::string_view json);
    void quoted(std::string_view text);
    /// A text in quotes that needs no escapes.
    void plain(std::string_view text) {
        room(text.size() + 2);
        *at_++ = '"';
        put(text);
        *at_++ = '"';
    }
    void open(char bracket) {
        put({&bracket, 1});
        ++depth_;
        first_ = true;
    }
    void close(char bracket) {
        --depth_;
        if (!first_) newLine();
        first_ = false;
        put({&bracket, 1});
    }
    void next() {
        if (!first_) put(",");
        first_ = false;
        newLine();
    }
    /// A key of any text.
    void member(std::string_view key) {
        next();
        quoted(key);
        put(pretty_ ? ": " : ":");
    }
    /// A key of the tables.
    void begin(std::string_view key) {
        next();
        plain(key);
        put(pretty_ ? ": " : ":");
    }
    void newLine() {
        if (!pretty_) return;
        room(1 + 2 * depth_);
        *at_++ = '\n';
        std::memset(at_, ' ', 2 * depth_);
        at_ += 2 * depth_;
    }

    [[nodiscard]] std::size_t size() const { return out_.size() - static_cast<std::size_t>(end_ - at_); }
    void put(std::string_view text) {
        room(text.size());
        std::memcpy(at_, text.data(), text.size());
        at_ += text.size();
    }
    void room(std::size_t bytes) {
        if (static_cast<std::size_t>(end_ - at_) < bytes) grow(bytes);
    }
    void grow(std::size_t bytes);

    std::string out_;
    char* at_ = nullptr;   // where the next byte goes, in out_
    char* end_ = nullptr;  // the end of out_
    const Pieces* pieces_ = nullptr;
    bool pretty_;
    bool first_ = true;
    std::size_t depth_ = 0;
};

}  // namespace tamba::ModelsJSON
