#pragma once

#include <cstddef>
#include <memory_resource>
#include <pugixml.hpp>

namespace trevandix {

/// The memory of one parsed document: large blocks that go back to the system with it. In the heap its nodes,
/// twice as large as the records made from them, would stay resident below those. Huge pages halve the cost
/// of first touching it.
class NodeMemory {
public:
    NodeMemory() = default;
    NodeMemory(const NodeMemory&) = delete;
    NodeMemory& operator=(const NodeMemory&) = delete;

    /// An empty document in this memory, to be parsed while a Use lives. It ends with the memory, without a
    /// destructor.
    pugi::xml_document& makeDocument() {
        return *std::pmr::polymorphic_allocator<>(&nodes_).new_object<pugi::xml_document>();
    }

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
    class Blocks : public std::pmr::memory_resource {
        void* do_allocate(std::size_t size, std::size_t alignment) override;
        void do_deallocate(void* block, std::size_t size, std::size_t alignment) override;
        bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
    };
    static constexpr std::size_t kFirstBlock = std::size_t{8} << 20;

    Blocks blocks_;
    std::pmr::monotonic_buffer_resource nodes_{kFirstBlock, &blocks_};
};

}  // namespace trevandix
