// Large pages for the heap of a program that reads big project files.
//
// Decoding a 10 MB project touches some 30 MB of fresh memory: the parser's
// document and then the records, which reuse it. On machines where the first
// touch of every 4 KiB page is a costly fault (virtual machines above all),
// those 8,000 faults cost more than the parsing itself. Backing the heap with
// 2 MiB pages turns them into a handful.
#pragma once

#include <cstddef>

namespace tessaro {

/// From now on the heap grows in steps of at least `reserve` bytes of address
/// space, and the step made now asks the kernel for 2 MiB pages. Memory that
/// is never touched costs nothing; memory that is counts in 2 MiB units. Call
/// it once, early in `main`, before other threads start. Returns false, and
/// changes nothing that matters, where the C library or the kernel offers no
/// way (then the heap keeps its 4 KiB pages).
bool preferLargePagesForHeap(std::size_t reserve = std::size_t{256} << 20);

} // namespace tessaro
