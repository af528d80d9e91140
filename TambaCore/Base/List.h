#pragma once

#include "TambaCore/Base/Check.h"

#include <algorithm>
#include <atomic>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace tamba {

/// The list value of the books. Reading looks like a vector of `const T`; the records are immutable and shared between
/// copies, so that copying a list costs nothing and changing one record of 20,000 copies 20,000 pointers, no records.
/// That is what makes undo a stack of whole `Library` values and lets two versions be compared by what they share.
///
///     library.expenses.append(expense);
///     library.expenses.update(3, [](Expense& e) { e.notes = "lunch"; });
///     for (const Expense& e : library.expenses) …
///
/// An index outside the list is a mistake in the program and stops it.
template <class T>
class List {
    using Items = std::vector<std::shared_ptr<const T>>;

public:
    using value_type = T;

    class const_iterator {
    public:
        using iterator_category = std::random_access_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        const_iterator() = default;
        explicit const_iterator(typename Items::const_iterator at) : at_(at) {}
        reference operator*() const { return **at_; }
        pointer operator->() const { return at_->get(); }
        reference operator[](difference_type n) const { return *at_[n]; }
        const_iterator& operator++() {
            ++at_;
            return *this;
        }
        const_iterator operator++(int) {
            auto old = *this;
            ++at_;
            return old;
        }
        const_iterator& operator--() {
            --at_;
            return *this;
        }
        const_iterator operator--(int) {
            auto old = *this;
            --at_;
            return old;
        }
        const_iterator& operator+=(difference_type n) {
            at_ += n;
            return *this;
        }
        const_iterator& operator-=(difference_type n) {
            at_ -= n;
            return *this;
        }
        friend const_iterator operator+(const_iterator i, difference_type n) { return i += n; }
        friend const_iterator operator+(difference_type n, const_iterator i) { return i += n; }
        friend const_iterator operator-(const_iterator i, difference_type n) { return i -= n; }
        friend difference_type operator-(const const_iterator& a, const const_iterator& b) { return a.at_ - b.at_; }
        auto operator<=>(const const_iterator&) const = default;
        bool operator==(const const_iterator&) const = default;

    private:
        typename Items::const_iterator at_{};
    };

    List() = default;
    List(std::initializer_list<T> records) {
        for (const T& record : records) append(record);
    }

    [[nodiscard]] std::size_t size() const { return items_ ? items_->size() : 0; }
    [[nodiscard]] bool empty() const { return size() == 0; }
    [[nodiscard]] const T& operator[](std::size_t index) const { return *at(index); }
    [[nodiscard]] const T& front() const { return *at(0); }
    [[nodiscard]] const T& back() const { return *at(size() - 1); }
    [[nodiscard]] const_iterator begin() const { return const_iterator(items().begin()); }
    [[nodiscard]] const_iterator end() const { return const_iterator(items().end()); }

    /// The record itself, to be shared with another list or compared by identity.
    [[nodiscard]] const std::shared_ptr<const T>& at(std::size_t index) const {
        if (index >= size()) fatal("list index out of range");
        return (*items_)[index];
    }
    /// True when both are the very same list: no record needs to be looked at.
    [[nodiscard]] bool sharesAllWith(const List& other) const { return items_ == other.items_; }

    void append(T record) { own().push_back(std::make_shared<const T>(std::move(record))); }
    void append(std::shared_ptr<const T> record) { own().push_back(std::move(record)); }
    void insert(std::size_t index, T record) {
        if (index > size()) fatal("list index out of range");
        Items& mine = own();
        mine.insert(mine.begin() + static_cast<std::ptrdiff_t>(index), std::make_shared<const T>(std::move(record)));
    }
    void erase(std::size_t index) {
        if (index >= size()) fatal("list index out of range");
        Items& mine = own();
        mine.erase(mine.begin() + static_cast<std::ptrdiff_t>(index));
    }
    /// Replaces one record by a copy that `change` was applied to.
    template <std::invocable<T&> Change>
    void update(std::size_t index, Change&& change) {
        T record = *at(index);
        std::forward<Change>(change)(record);
        own()[index] = std::make_shared<const T>(std::move(record));
    }
    /// Stable sort by `less(const T&, const T&)`.
    template <class Less>
    void sort(Less&& less) {
        Items& mine = own();
        std::stable_sort(mine.begin(), mine.end(), [&less](const auto& a, const auto& b) { return less(*a, *b); });
    }
    void reserve(std::size_t count) { own().reserve(count); }

    friend bool operator==(const List& a, const List& b) {
        if (a.items_ == b.items_) return true;
        return std::equal(a.items().begin(), a.items().end(), b.items().begin(), b.items().end(),
                          [](const auto& x, const auto& y) { return x == y || *x == *y; });
    }

private:
    [[nodiscard]] const Items& items() const {
        static const Items none;
        return items_ ? *items_ : none;
    }
    Items& own() {
        if (!items_)
            items_ = std::make_shared<Items>();
        else if (items_.use_count() > 1)
            items_ = std::make_shared<Items>(*items_);
        else
            // A copy on another thread may have been the last but one; what was read through it is read by now.
            std::atomic_thread_fence(std::memory_order_acquire);
        return *items_;
    }

    std::shared_ptr<Items> items_;
};

/// Position of the record with this id, or the list's size.
template <class T, class Id>
[[nodiscard]] std::size_t indexOf(const List<T>& list, const Id& id) {
    std::size_t index = 0;
    for (const T& record : list) {
        if (record.id == id) return index;
        ++index;
    }
    return index;
}

/// The record with this id, or null. Valid as long as the list is.
template <class T, class Id>
[[nodiscard]] const T* find(const List<T>& list, const Id& id) {
    const std::size_t index = indexOf(list, id);
    return index < list.size() ? &list[index] : nullptr;
}

}  // namespace tamba
