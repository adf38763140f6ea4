#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <vector>

namespace trevandix {

/// Gives memory that nobody will look at again back to the system, from one address on upwards, piece by
/// piece. What is read from there afterwards is 0.
class ReturnedMemory {
public:
    explicit ReturnedMemory(const void* begin = nullptr) : begin_(static_cast<const char*>(begin)) {}
    /// All that is left up to `end`, in pieces of a quarter of a megabyte; nothing where the system cannot.
    void returnUpTo(const void* end);

private:
    const char* begin_;
};

/// The memory of one parsed document: large blocks that go back to the system with it. In the heap its nodes,
/// as large as the records made from them, would stay resident below those.
class NodeMemory {
public:
    NodeMemory() = default;
    ~NodeMemory();
    NodeMemory(const NodeMemory&) = delete;
    NodeMemory& operator=(const NodeMemory&) = delete;

    /// An empty document in this memory, to be parsed while a Use lives. It ends with the memory, without a
    /// destructor.
    pugi::xml_document& makeDocument();
    /// Nullptr, or std::bad_alloc, when there is none left.
    void* allocate(std::size_t size);
    /// The nodes allocated before `node` are not looked at again; the document itself and the text may be.
    void returnBefore(const void* node);

    /// While it lives, the parser allocates from the memory. One at a time, as the parser has one allocator
    /// for all.
    class Use {
    public:
        explicit Use(NodeMemory& memory);
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

    private:
        pugi::allocation_function allocate_ = pugi::get_memory_allocation_function();
        pugi::deallocation_function deallocate_ = pugi::get_memory_deallocation_function();
    };

private:
    struct Block {
        char* begin;
        std::size_t size;
        ReturnedMemory returned;
    };

    std::vector<Block> blocks_;  // of nodes
    std::vector<Block> texts_;
    std::size_t used_ = 0;         // of the last block
    std::size_t firstNeeded_ = 0;  // block; those before have been returned
};

}  // namespace trevandix
