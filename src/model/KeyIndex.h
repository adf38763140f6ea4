#pragma once

#include <cstddef>
#include <vector>

#include "model/Key.h"

namespace trevandix {

/// Finds objects by key. `Handle` is a pointer or iterator to an object with a `key()`, which must not change
/// while it is in the index. Open addressing with the hashes in the table: in a std::unordered_map of a
/// million entries, cache misses took a third of the time to read a file.
template <typename Handle>
class KeyIndex {
public:
    /// Makes room for this many objects.
    void reserve(std::size_t count) {
        while (count * 4 > cells_.size() * 3) grow();
    }

    /// False if the key exists; the index is then unchanged.
    bool insert(Handle handle) {
        if ((size_ + 1) * 4 > cells_.size() * 3) grow();
        Cell& cell = cells_[search(handle->key())];
        if (cell.mark != kFree) return false;
        cell = {markOf(handle->key()), handle};
        ++size_;
        return true;
    }

    /// nullptr if there is no such key.
    const Handle* find(const Key& key) const {
        if (size_ == 0) return nullptr;
        const Cell& cell = cells_[search(key)];
        return cell.mark == kFree ? nullptr : &cell.handle;
    }

    void erase(const Key& key) {
        if (size_ == 0) return;
        std::size_t hole = search(key);
        if (cells_[hole].mark == kFree) return;
        --size_;
        // Backward-shift deletion: fill the hole unless the entry would move before its home slot.
        for (std::size_t next = after(hole); cells_[next].mark != kFree; next = after(next)) {
            const std::size_t home = cells_[next].mark & mask();
            if (((next - home) & mask()) < ((next - hole) & mask())) continue;
            cells_[hole] = cells_[next];
            hole = next;
        }
        cells_[hole] = {};
    }

    std::size_t size() const { return size_; }

private:
    struct Cell {
        std::size_t mark = kFree;
        Handle handle{};
    };
    static constexpr std::size_t kFree = 0;
    static constexpr std::size_t kUsed =
        ~(~std::size_t{0} >> 1);  // the top bit, so that no mark equals kFree

    static std::size_t markOf(const Key& key) { return key.hash() | kUsed; }
    std::size_t mask() const { return cells_.size() - 1; }
    std::size_t after(std::size_t place) const { return (place + 1) & mask(); }

    // The cell with the key, or the free cell for it.
    std::size_t search(const Key& key) const {
        const std::size_t mark = markOf(key);
        std::size_t place = mark & mask();
        while (cells_[place].mark != kFree &&
               (cells_[place].mark != mark || !(cells_[place].handle->key() == key))) {
            place = after(place);
        }
        return place;
    }

    void grow() {
        std::vector<Cell> old(cells_.empty() ? 16 : cells_.size() * 2);
        old.swap(cells_);
        for (const Cell& cell : old) {
            if (cell.mark == kFree) continue;
            std::size_t place = cell.mark & mask();
            while (cells_[place].mark != kFree) place = after(place);
            cells_[place] = cell;
        }
    }

    std::vector<Cell> cells_;  // a power of two; at most three quarters in use
    std::size_t size_ = 0;
};

}  // namespace trevandix
