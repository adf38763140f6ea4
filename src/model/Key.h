#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace trevandix {

/// An immutable key text that a record, its node and the indexes share, so that its characters are stored
/// once. Copies are cheap; the hash is computed once. Not for several threads.
class Key {
public:
    Key() = default;
    Key(std::string_view text);  // implicit, so that a text can be used as a key
    Key(const std::string& text) : Key(std::string_view(text)) {}
    Key(const char* text) : Key(std::string_view(text)) {}
    /// The key of `name` inside `container`: container, ".", name.
    Key(const Key& container, std::string_view name);
    Key(const Key& other) noexcept : rep_(other.rep_) { retain(); }
    Key(Key&& other) noexcept : rep_(other.rep_) { other.rep_ = nullptr; }
    Key& operator=(Key other) noexcept {
        std::swap(rep_, other.rep_);
        return *this;
    }
    ~Key() { release(); }
    friend void swap(Key& a, Key& b) noexcept { std::swap(a.rep_, b.rep_); }

    std::string_view view() const noexcept {
        return rep_ == nullptr ? std::string_view() : std::string_view(characters(rep_), rep_->length);
    }
    operator std::string_view() const noexcept { return view(); }
    std::string str() const { return std::string(view()); }
    bool empty() const noexcept { return rep_ == nullptr; }
    std::size_t hash() const noexcept { return rep_ == nullptr ? kEmptyHash : rep_->hash; }

    /// The key without its last "." and what follows it; empty when there is no ".".
    std::string_view parent() const;

    friend bool operator==(const Key& a, const Key& b) noexcept {
        return a.rep_ == b.rep_ || (a.hash() == b.hash() && a.view() == b.view());
    }

private:
    struct Rep {
        std::uint32_t references;
        std::uint32_t length;
        std::size_t hash;
    };
    static char* characters(Rep* rep) noexcept { return reinterpret_cast<char*>(rep + 1); }
    static Rep* allocate(std::size_t length);
    static void seal(Rep* rep);
    void retain() const noexcept {
        if (rep_ != nullptr) ++rep_->references;
    }
    void release() noexcept {
        if (rep_ != nullptr && --rep_->references == 0) ::operator delete(rep_);
    }

    static constexpr std::size_t kEmptyHash = 0;
    Rep* rep_ = nullptr;
};

/// The key text up to its last "."; empty if there is none.
std::string_view parentKey(std::string_view key);

/// A text that very many records share, such as a type label or an access right: a pointer into a pool that
/// lives as long as the program.
class InternedText {
public:
    InternedText();
    explicit InternedText(std::string_view text);
    const std::string& str() const { return *text_; }
    friend bool operator==(const InternedText&, const InternedText&) = default;

private:
    const std::string* text_;
};

}  // namespace trevandix

template <>
struct std::hash<trevandix::Key> {
    std::size_t operator()(const trevandix::Key& key) const noexcept { return key.hash(); }
};
