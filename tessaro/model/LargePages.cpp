#include "LargePages.h"

#include <array>
#include <cstdint>
#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace tessaro {

bool preferLargePagesForHeap(std::size_t reserve)
{
#if defined(__GLIBC__) && defined(M_TOP_PAD) && defined(MADV_HUGEPAGE)
    constexpr std::uintptr_t largePage = std::uintptr_t{2} << 20;
    if (reserve < largePage || reserve > std::size_t{1} << 30)
        return false;
    // Every growth of the heap now takes `reserve` more than it needs.
    if (::mallopt(M_TOP_PAD, static_cast<int>(reserve)) != 1)
        return false;
    // Make it grow now, with blocks small enough to come from the heap
    // rather than from mappings of their own.
    const auto end = [] { return reinterpret_cast<std::uintptr_t>(::sbrk(0)); };
    const std::uintptr_t before = end();
    std::array<void*, 64> blocks{};
    std::size_t count = 0;
    while (count < blocks.size() && end() == before)
        blocks[count++] = std::malloc(64 * 1024);
    for (std::size_t i = 0; i < count; ++i)
        std::free(blocks[i]);
    const std::uintptr_t after = end();
    // Advise the new part of the heap from its first large-page boundary.
    const std::uintptr_t start = (before + largePage - 1) / largePage * largePage;
    if (after <= start + largePage)
        return false;
    return ::madvise(reinterpret_cast<void*>(start), after - start, MADV_HUGEPAGE) == 0;
#else
    (void)reserve;
    return false;
#endif
}

} // namespace tessaro
