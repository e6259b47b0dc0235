#pragma once

#include <QtGlobal>
#include <malloc.h>

namespace testsupport {

/// Bytes that the whole process has on the heap. None under a sanitizer, which finds what leaks at
/// the end, however small; it gives no address twice, so that what is kept by address would grow.
inline qint64 heapInUse()
{
    const auto info = ::mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
}

} // namespace testsupport
