#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

#include "model/Key.h"
#include "model/KeyIndex.h"
#include "platform/RuntimeError.h"

namespace trevandix {

/// Records in order of addition, found and removed by key in constant time. Keys compare exactly. A record
/// may stand under more than one key (a copy made by dragging shares it), hence the shared ownership. The
/// records of a const collection are const.
template <typename Record>
class KeyedCollection {
public:
    using Pointer = std::shared_ptr<Record>;
    using ConstPointer = std::shared_ptr<const Record>;

private:
    struct Entry {
        const Key& key() const { return key_; }
        Key key_;
        Pointer record;
        Entry* previous = nullptr;
        Entry* next = nullptr;
    };

public:
    class Iterator {
    public:
        using value_type = std::pair<const Key&, const Record*>;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        value_type operator*() const { return {place_->key_, place_->record.get()}; }
        Iterator& operator++() {
            place_ = place_->next;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator&) const = default;

    private:
        friend KeyedCollection;
        explicit Iterator(const Entry* place) : place_(place) {}
        const Entry* place_ = nullptr;
    };

    /// An entry of the collection, or one taken out of it, which keeps its neighbours so that it can go back
    /// between them once all later changes have been taken back.
    class Seat {
    public:
        Seat(Seat&& other) noexcept : entry_(other.entry_), out_(std::exchange(other.out_, false)) {}
        Seat& operator=(Seat&& other) noexcept {
            std::swap(entry_, other.entry_);
            std::swap(out_, other.out_);
            return *this;
        }
        ~Seat() {
            if (out_) delete entry_;
        }
        const Pointer& record() const { return entry_->record; }

    private:
        friend KeyedCollection;
        explicit Seat(Entry* entry) : entry_(entry) {}
        Entry* entry_;
        bool out_ = false;  // owned then
    };

    KeyedCollection() = default;
    KeyedCollection(const KeyedCollection&) = delete;
    KeyedCollection& operator=(const KeyedCollection&) = delete;
    ~KeyedCollection() { clear(); }

    /// Errors: KeyInCollection; the collection is then unchanged.
    Seat add(Pointer record, const Key& key) {
        std::unique_ptr<Entry> added(new Entry{key, std::move(record), last_});
        if (!index_.insert(added.get())) throw RuntimeError(ErrorNumber::KeyInCollection);
        link(*added);
        return Seat(added.release());
    }

    /// Errors: InvalidCall when no record has the key.
    Seat remove(const Key& key) {
        Seat seat(&entry(key));
        flip(seat);
        return seat;
    }

    /// Takes the entry out, or puts it back.
    void flip(Seat& seat) {
        Entry& turned = *seat.entry_;
        if (seat.out_) {
            index_.insert(&turned);
            link(turned);
        } else {
            index_.erase(turned.key_);
            unlink(turned);
        }
        seat.out_ = !seat.out_;
    }

    /// An entry that gets another key. Several are released together before the first one settles, so that
    /// they can exchange their keys.
    class Move {
    public:
        const Pointer& record() const { return entry_->record; }

    private:
        friend KeyedCollection;
        explicit Move(Entry* entry) : entry_(entry) {}
        Entry* entry_;
        Entry* next_ = nullptr;  // followed it before
    };
    /// Errors: InvalidCall when no record has the key.
    Move moveOf(const Key& key) { return Move(&entry(key)); }
    /// Its key no longer finds the entry.
    void release(const Move& move) { index_.erase(move.entry_->key_); }
    /// The released entry goes to the end and gets the key, which is free. `key` becomes its key before.
    void settle(Move& move, Key& key) {
        Entry& moved = *move.entry_;
        move.next_ = moved.next;
        unlink(moved);
        moved.previous = last_;
        moved.next = nullptr;
        link(moved);
        enter(moved, key);
    }
    /// The same, back to where it stood.
    void settleBack(const Move& move, Key& key) {
        Entry& moved = *move.entry_;
        unlink(moved);
        moved.next = move.next_;
        moved.previous = move.next_ != nullptr ? move.next_->previous : last_;
        link(moved);
        enter(moved, key);
    }

    /// The record under the key, or nullptr.
    ConstPointer find(const Key& key) const {
        Entry* const* place = index_.find(key);
        return place == nullptr ? nullptr : (*place)->record;
    }

    /// Errors: InvalidCall when no record has the key.
    ConstPointer at(const Key& key) const { return entry(key).record; }
    const Pointer& at(const Key& key) { return entry(key).record; }

    /// The same, but tries `place` first and then moves it behind the record found. This saves the search
    /// when records are asked for in about the order of addition. `place` may start at begin(); changes of
    /// the collection invalidate it.
    const Record& at(const Key& key, Iterator& place) const {
        if (place == end() || !((*place).first == key)) place = Iterator(&entry(key));
        return *(*place++).second;
    }

    bool contains(const Key& key) const { return index_.find(key) != nullptr; }

    /// The record added last. Errors: SubscriptOutOfRange when empty.
    ConstPointer last() const {
        if (empty()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return last_->record;
    }

    std::size_t size() const { return index_.size(); }
    bool empty() const { return last_ == nullptr; }
    void clear() {
        index_ = {};
        for (Entry* next = std::exchange(first_, nullptr); next != nullptr;)
            delete std::exchange(next, next->next);
        last_ = nullptr;
    }

    Iterator begin() const { return Iterator(first_); }
    Iterator end() const { return Iterator(); }

private:
    Entry& entry(const Key& key) const {
        Entry* const* place = index_.find(key);
        if (place == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
        return **place;
    }

    // Between the neighbours that the entry names.
    void link(Entry& entry) {
        (entry.previous != nullptr ? entry.previous->next : first_) = &entry;
        (entry.next != nullptr ? entry.next->previous : last_) = &entry;
    }
    void unlink(const Entry& entry) {
        (entry.previous != nullptr ? entry.previous->next : first_) = entry.next;
        (entry.next != nullptr ? entry.next->previous : last_) = entry.previous;
    }
    void enter(Entry& entry, Key& key) {
        std::swap(entry.key_, key);
        index_.insert(&entry);
    }

    KeyIndex<Entry*> index_;
    Entry* first_ = nullptr;
    Entry* last_ = nullptr;
};

}  // namespace trevandix
