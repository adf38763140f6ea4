#include "platform/pugi/NodeMemory.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace trevandix {

namespace {

std::pmr::memory_resource* inUse = nullptr;

// The parser is told of a lack of memory by a null pointer.
void* allocateNodes(std::size_t size) {
    try {
        return inUse->allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void keepNodes(void*) {}

}  // namespace

NodeMemory::Use::Use(NodeMemory& memory) {
    inUse = &memory.nodes_;
    pugi::set_memory_management_functions(allocateNodes, keepNodes);
}

NodeMemory::Use::~Use() {
    pugi::set_memory_management_functions(allocate_, deallocate_);
    inUse = nullptr;
}

#ifdef __linux__

void* NodeMemory::Blocks::do_allocate(std::size_t size, std::size_t) {
    void* block = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) throw std::bad_alloc();
    madvise(block, size, MADV_HUGEPAGE);  // advice: where the system has none, the small ones do
    return block;
}

void NodeMemory::Blocks::do_deallocate(void* block, std::size_t size, std::size_t) {
    munmap(block, size);
}

#else

void* NodeMemory::Blocks::do_allocate(std::size_t size, std::size_t) {
    return ::operator new(size);
}

void NodeMemory::Blocks::do_deallocate(void* block, std::size_t, std::size_t) {
    ::operator delete(block);
}

#endif

}  // namespace trevandix
