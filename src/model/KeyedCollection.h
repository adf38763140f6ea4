#pragma once

#include <cstddef>
#include <iterator>
#include <list>
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
    class Entry {
    public:
        Entry(Pointer entryRecord, const Key& key) : record(std::move(entryRecord)), key_(key) {}
        const Key& key() const { return key_; }
        Pointer record;

    private:
        Key key_;
    };
    using Entries = std::list<Entry>;
    using Handle = typename Entries::iterator;

public:
    class Iterator {
    public:
        using value_type = std::pair<const Key&, const Record*>;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        value_type operator*() const { return {place_->key(), place_->record.get()}; }
        Iterator& operator++() {
            ++place_;
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
        explicit Iterator(typename Entries::const_iterator place) : place_(place) {}
        typename Entries::const_iterator place_;
    };

    KeyedCollection() = default;
    KeyedCollection(const KeyedCollection&) = delete;
    KeyedCollection& operator=(const KeyedCollection&) = delete;

    /// An entry of the collection, or one taken out of it that can go back to its place.
    class Seat {
    public:
        Seat(Seat&&) noexcept = default;
        Seat& operator=(Seat&&) noexcept = default;
        const Pointer& record() const { return entry_->record; }

    private:
        friend KeyedCollection;
        explicit Seat(Handle entry) : entry_(entry) {}
        Handle entry_;
        Handle next_{};  // while it is out: the entry that followed it
        Entries out_{};  // holds it while it is out
    };

    /// Errors: KeyInCollection; the collection is then unchanged.
    Seat add(Pointer record, const Key& key) {
        Entries added;
        added.emplace_back(std::move(record), key);
        Seat seat(added.begin());
        if (!index_.insert(added.begin())) throw RuntimeError(ErrorNumber::KeyInCollection);
        entries_.splice(entries_.end(), added);
        return seat;
    }

    /// Errors: InvalidCall when no record has the key.
    Seat remove(const Key& key) {
        Seat seat(handle(key));
        flip(seat);
        return seat;
    }

    /// Takes the entry out, or puts it back: all other changes since it was taken out have been taken back.
    void flip(Seat& seat) {
        if (seat.out_.empty()) {
            index_.erase(seat.entry_->key());
            seat.next_ = std::next(seat.entry_);
            seat.out_.splice(seat.out_.end(), entries_, seat.entry_);
        } else {
            index_.insert(seat.entry_);
            entries_.splice(seat.next_, seat.out_);
        }
    }

    /// The record under the key, or nullptr.
    ConstPointer find(const Key& key) const {
        const Handle* place = index_.find(key);
        return place == nullptr ? nullptr : (*place)->record;
    }

    /// Errors: InvalidCall when no record has the key.
    ConstPointer at(const Key& key) const { return handle(key)->record; }
    const Pointer& at(const Key& key) { return handle(key)->record; }

    /// The same, looked for at `place` first, which then moves behind the record found: who asks in about the
    /// order of addition saves the search. `place` may start at begin(); changes of the collection make it
    /// invalid.
    const Record& at(const Key& key, Iterator& place) const {
        if (place == end() || !((*place).first == key)) place = Iterator(handle(key));
        return *(*place++).second;
    }

    bool contains(const Key& key) const { return index_.find(key) != nullptr; }

    /// The record added last. Errors: SubscriptOutOfRange when empty.
    ConstPointer last() const {
        if (empty()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return entries_.back().record;
    }

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    void clear() {
        index_ = {};
        entries_.clear();
    }

    Iterator begin() const { return Iterator(entries_.begin()); }
    Iterator end() const { return Iterator(entries_.end()); }

private:
    Handle handle(const Key& key) const {
        const Handle* place = index_.find(key);
        if (place == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
        return *place;
    }

    KeyIndex<Handle> index_;
    Entries entries_;
};

}  // namespace trevandix
