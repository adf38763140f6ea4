#include "platform/pugi/NodeMemory.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace trevandix {

namespace {

constexpr std::size_t kPiece = std::size_t{256} << 10;
constexpr std::size_t kFirstBlock = std::size_t{8} << 20;
constexpr std::size_t kLargestBlock = std::size_t{64} << 20;
constexpr std::size_t kMostNodes = std::size_t{64} << 10;  // the parser allocates nodes by 32 KiB, and texts

NodeMemory* inUse = nullptr;

// The parser is told of a lack of memory by a null pointer.
void* allocateNodes(std::size_t size) {
    try {
        return inUse->allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void keepNodes(void*) {}

#ifdef __linux__

char* newBlock(std::size_t size) {
    void* block = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return block == MAP_FAILED ? nullptr : static_cast<char*>(block);
}

void deleteBlock(char* block, std::size_t size) {
    munmap(block, size);
}

void returnPages(const char* begin, const char* end) {
    madvise(const_cast<char*>(begin), static_cast<std::size_t>(end - begin), MADV_DONTNEED);
}

#else

char* newBlock(std::size_t size) {
    return static_cast<char*>(::operator new(size, std::nothrow));
}

void deleteBlock(char* block, std::size_t) {
    ::operator delete(block);
}

void returnPages(const char*, const char*) {}

#endif

}  // namespace

void ReturnedMemory::returnUpTo(const void* end) {
    const auto page = [](std::uintptr_t address) { return address / kPiece * kPiece; };
    const auto first = page(reinterpret_cast<std::uintptr_t>(begin_) + kPiece - 1);
    const auto last = page(reinterpret_cast<std::uintptr_t>(end));
    if (begin_ == nullptr || first >= last) return;
    returnPages(reinterpret_cast<const char*>(first), reinterpret_cast<const char*>(last));
    begin_ = reinterpret_cast<const char*>(last);
}

NodeMemory::~NodeMemory() {
    for (const auto* blocks : {&blocks_, &texts_}) {
        for (const Block& block : *blocks) deleteBlock(block.begin, block.size);
    }
}

pugi::xml_document& NodeMemory::makeDocument() {
    void* place = allocate(sizeof(pugi::xml_document));
    if (place == nullptr) throw std::bad_alloc();
    return *new (place) pugi::xml_document;
}

void* NodeMemory::allocate(std::size_t size) {
    constexpr std::size_t kAlignment = alignof(std::max_align_t);
    size = (size + kAlignment - 1) / kAlignment * kAlignment;
    if (size > kMostNodes) {
        texts_.reserve(texts_.size() + 1);
        char* text = newBlock(size);
        if (text != nullptr) texts_.push_back({text, size, ReturnedMemory()});
        return text;
    }
    if (blocks_.empty() || blocks_.back().size - used_ < size) {
        const bool first = blocks_.empty();
        const std::size_t blockSize = first ? kFirstBlock : std::min(blocks_.back().size * 2, kLargestBlock);
        blocks_.reserve(blocks_.size() + 1);  // so that what has been made is always noted
        char* block = newBlock(blockSize);
        if (block == nullptr) return nullptr;
        // The document, and a short text, stand in the first piece of the first block.
        blocks_.push_back({block, blockSize, ReturnedMemory(first ? block + kPiece : block)});
        used_ = 0;
    }
    char* place = blocks_.back().begin + used_;
    used_ += size;
    return place;
}

void NodeMemory::returnBefore(const void* node) {
    const std::less<> before;
    const auto holds = [&](const Block& block) {
        return !before(node, block.begin) && before(node, block.begin + block.size);
    };
    const auto from = blocks_.begin() + static_cast<std::ptrdiff_t>(firstNeeded_);
    const auto current = std::find_if(from, blocks_.end(), holds);
    if (current == blocks_.end()) return;
    for (auto block = from; block != current; ++block) block->returned.returnUpTo(block->begin + block->size);
    current->returned.returnUpTo(node);
    firstNeeded_ = static_cast<std::size_t>(current - blocks_.begin());
}

NodeMemory::Use::Use(NodeMemory& memory) {
    inUse = &memory;
    pugi::set_memory_management_functions(allocateNodes, keepNodes);
}

NodeMemory::Use::~Use() {
    pugi::set_memory_management_functions(allocate_, deallocate_);
    inUse = nullptr;
}

}  // namespace trevandix
