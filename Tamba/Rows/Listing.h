#pragma once

#include "TambaCore/Base/Difference.h"
#include "TambaCore/Base/List.h"
#include "TambaCore/Base/UUID.h"
#include "TambaCore/Model/Models.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tamba {

/// The rows of a table, looking like a vector of them. All are told apart by their ids; the texts of a row are made
/// when somebody asks for it, and of fifty thousand that is the two dozen in sight.
template <class Row>
class LazyRows {
public:
    /// One row before it is made: its id, and the record it is made of.
    struct Key {
        UUID id;
        const void* record;
    };
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Row;
        using difference_type = std::ptrdiff_t;
        using pointer = const Row*;
        using reference = const Row&;

        const_iterator() = default;
        const_iterator(const LazyRows& rows, std::size_t at) : rows_(&rows), at_(at) {}
        reference operator*() const { return (*rows_)[at_]; }
        pointer operator->() const { return &(*rows_)[at_]; }
        const_iterator& operator++() {
            ++at_;
            return *this;
        }
        const_iterator operator++(int) { return {*rows_, at_++}; }
        bool operator==(const const_iterator&) const = default;

    private:
        const LazyRows* rows_ = nullptr;
        std::size_t at_ = 0;
    };

    LazyRows() = default;
    /// Rows that are there already.
    LazyRows(std::vector<Row> rows) {
        keys_.reserve(rows.size());
        for (Row& row : rows) {
            keys_.push_back({row.id, nullptr});
            made_.emplace(made_.size(), std::move(row));
        }
    }
    /// `make` keeps the records alive. What a row says follows from its record and `books`: as long as both are the
    /// same, so is the row.
    template <class Make>
    LazyRows(std::vector<Key> keys, std::shared_ptr<const void> books, Make make)
        : keys_(std::move(keys)), books_(std::move(books)), make_(std::move(make)) {}

    [[nodiscard]] std::size_t size() const { return keys_.size(); }
    [[nodiscard]] bool empty() const { return keys_.empty(); }
    [[nodiscard]] const UUID& id(std::size_t at) const { return keys_.at(at).id; }
    /// Valid as long as these rows.
    [[nodiscard]] const Row& operator[](std::size_t at) const {
        const auto found = made_.find(at);
        return found == made_.end() ? made_.emplace(at, make_(keys_.at(at).record)).first->second : found->second;
    }
    [[nodiscard]] const_iterator begin() const { return {*this, 0}; }
    [[nodiscard]] const_iterator end() const { return {*this, size()}; }

    /// Whether this row reads like that one of `other`, which has the same id.
    [[nodiscard]] bool isSame(std::size_t at, const LazyRows& other, std::size_t otherAt) const {
        const void* record = keys_[at].record;
        if (record && other.keys_[otherAt].record)
            return record == other.keys_[otherAt].record && books_ == other.books_;
        return (*this)[at] == other[otherAt];
    }

    /// Takes over from `other` all rows but the first `head` and the last `tail`, which stay as they were here.
    void takeBetween(std::size_t head, std::size_t tail, const LazyRows& other) {
        const std::size_t old = size(), now = other.size();
        std::unordered_map<std::size_t, Row> made;
        for (auto& [at, row] : made_)
            if (at < head || at >= old - tail) made.emplace(at < head ? at : at + now - old, std::move(row));
        for (std::size_t at = head; at < now - tail; ++at) made.emplace(at, other[at]);
        std::vector<Key> keys(other.keys_);
        std::copy_n(keys_.begin(), head, keys.begin());
        std::copy(keys_.end() - static_cast<std::ptrdiff_t>(tail), keys_.end(),
                  keys.end() - static_cast<std::ptrdiff_t>(tail));
        keys_ = std::move(keys);
        made_ = std::move(made);
    }

private:
    std::vector<Key> keys_;
    std::shared_ptr<const void> books_;
    std::function<Row(const void*)> make_;
    mutable std::unordered_map<std::size_t, Row> made_;  // asked for so far; what they say never changes
};

/// A table of documents or clients, and all that it was made of: as long as that is the same, so is the table.
template <class Table, class Filter>
class KeptTable {
public:
    template <class Make>
    [[nodiscard]] const Table& get(const Library& library, const Filter& filter, Day today, Make&& make) {
        const bool holds = last_ && last_->documents.sharesAllWith(library.documents) &&
                           last_->clients.sharesAllWith(library.clients) && last_->business == library.business &&
                           last_->filter == filter && last_->today == today;
        if (!holds) last_ = Last{library.documents, library.clients, library.business, filter, today, make()};
        return last_->table;
    }

private:
    struct Last {
        List<Document> documents;
        List<Client> clients;
        Business business;
        Filter filter;
        Day today;
        Table table;
    };
    std::optional<Last> last_;
};

/// The records of a list in the order of a table, each with the facts that it is ordered, filtered and summed by. Given
/// the next version of the list, it works out the facts of the records that differ and puts them in their places; the
/// others are not looked at. That is right as long as a record's facts follow from the record alone: what else goes
/// into them makes the caller begin anew.
template <class Record, class Fact>
class Listing {
public:
    struct Item {
        const Record* record;
        Fact fact;
    };

    /// `factOf(record, place)` with the record's place in the list; `before(a, b)` is a total order of items.
    template <class FactOf, class Before>
    void begin(const List<Record>& list, FactOf&& factOf, Before&& before) {
        list_ = list;
        items_.clear();
        items_.reserve(list.size());
        for (std::size_t at = 0; at < list.size(); ++at) items_.push_back({&list[at], factOf(list[at], at)});
        std::sort(items_.begin(), items_.end(), before);
    }

    template <class FactOf, class Before>
    void update(const List<Record>& list, FactOf&& factOf, Before&& before) {
        const auto changed = difference(list_, list, 500);
        if (!changed) return begin(list, factOf, before);
        std::vector<Item> come;
        for (const std::size_t at : changed->come) come.push_back({&list[at], factOf(list[at], at)});
        std::sort(come.begin(), come.end(), before);
        std::vector<std::size_t> gone;
        for (const std::size_t at : changed->gone) {
            const Item old{&list_[at], factOf(list_[at], at)};
            const auto found = std::lower_bound(items_.begin(), items_.end(), old, before);
            if (found == items_.end() || found->record != old.record) return begin(list, factOf, before);
            gone.push_back(static_cast<std::size_t>(found - items_.begin()));
        }
        replace(std::move(gone), std::move(come), before);
        list_ = list;
    }

    [[nodiscard]] const List<Record>& list() const { return list_; }
    [[nodiscard]] const std::vector<Item>& items() const { return items_; }
    [[nodiscard]] std::vector<Item>& items() { return items_; }

private:
    template <class Before>
    void replace(std::vector<std::size_t> gone, std::vector<Item> come, Before&& before) {
        std::sort(gone.begin(), gone.end());
        // From the end, so that the places before stay what they are; one record at a time is what people change.
        for (auto at = gone.rbegin(); at != gone.rend(); ++at) items_.erase(items_.begin() + std::ptrdiff_t(*at));
        const auto sorted = std::ssize(items_);
        items_.insert(items_.end(), come.begin(), come.end());
        if (!come.empty()) std::inplace_merge(items_.begin(), items_.begin() + sorted, items_.end(), before);
    }

    List<Record> list_;  // keeps the records alive
    std::vector<Item> items_;
};

}  // namespace tamba
