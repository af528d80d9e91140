#pragma once

#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba::ModelsJSON {

void appendQuoted(std::string& out, std::string_view text);

/// Streams values straight to bytes by walking the field tables; no tree in between.
class Writer {
public:
    explicit Writer(Layout layout) : pretty_(layout == Layout::pretty) {}

    std::string out;

    void value(bool v) { out += v ? "true" : "false"; }
    void value(std::int64_t v) {
        char digits[24];
        out.append(digits, std::to_chars(digits, digits + sizeof digits, v).ptr);
    }
    void value(int v) { value(std::int64_t{v}); }
    void value(const std::string& v) { appendQuoted(out, v); }
    void value(const UUID& v) { (out += '"').append(v.text()) += '"'; }
    void value(const Day& v) { (out += '"').append(v.iso()) += '"'; }
    void value(const Instant& v) { (out += '"').append(instantText(v)) += '"'; }
    template <class E>
        requires std::is_enum_v<E>
    void value(E v) {
        (out += '"').append(word(v)) += '"';
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
        list(items);
    }
    void value(const std::map<std::string, std::int64_t>& counters) {
        open('{');
        for (const auto& [key, count] : counters) {
            begin(key);
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
            begin(unknown->first);
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

    void raw(std::string_view json);
    void open(char bracket) {
        out += bracket;
        ++depth_;
        first_ = true;
    }
    void close(char bracket) {
        --depth_;
        if (!first_) newLine();
        first_ = false;
        out += bracket;
    }
    void next() {
        if (!first_) out += ',';
        first_ = false;
        newLine();
    }
    void begin(std::string_view key) {
        next();
        appendQuoted(out, key);
        out += pretty_ ? ": " : ":";
    }
    void newLine() {
        if (!pretty_) return;
        out += '\n';
        out.append(2 * depth_, ' ');
    }

    bool pretty_;
    bool first_ = true;
    std::size_t depth_ = 0;
};

}  // namespace tamba::ModelsJSON
