#pragma once

#include <QtGlobal>
#include <malloc.h>

namespace testsupport {

/// Bytes that the process has on the heap. Always 0 under a sanitizer: it finds leaks itself, and
/// it never reuses an address, so that caches by address grow.
inline qint64 heapInUse()
{
    const auto info = ::mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
}

} // namespace testsupport
