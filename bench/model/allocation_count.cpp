#include "bench/model/allocation_count.hpp"

#include <cstddef>

// The C library's own allocator, under the names it keeps for programs that replace the usual
// ones. Everything else, `operator new` included, comes here.
extern "C" {
void* __libc_malloc(std::size_t size);                      // NOLINT
void* __libc_calloc(std::size_t count, std::size_t size);   // NOLINT
void* __libc_realloc(void* block, std::size_t size);        // NOLINT
void* __libc_memalign(std::size_t align, std::size_t size); // NOLINT
}

namespace {

// In the executable itself, this thread-local needs no allocation of its own.
thread_local long allocations = 0;

} // namespace

extern "C" {
void* malloc(std::size_t size) {
    ++allocations;
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    ++allocations;
    return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
    ++allocations;
    return __libc_realloc(block, size);
}
void* memalign(std::size_t align, std::size_t size) {
    ++allocations;
    return __libc_memalign(align, size);
}
void* aligned_alloc(std::size_t align, std::size_t size) {
    ++allocations;
    return __libc_memalign(align, size);
}
int posix_memalign(void** block, std::size_t align, std::size_t size) {
    ++allocations;
    *block = __libc_memalign(align, size);
    return *block != nullptr ? 0 : 12; // ENOMEM
}
}

namespace bench {

AllocationCount::AllocationCount() : start_(allocations) {}

long AllocationCount::sinceStart() const {
    return allocations - start_;
}

} // namespace bench
