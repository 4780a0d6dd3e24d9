#include "literalfinder.h"

#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace koru::sedgui {

qsizetype LiteralFinder::find(QByteArrayView text, qsizetype from, QByteArrayView needle)
{
    const qsizetype size = text.size();
    const qsizetype length = needle.size();
    if (from < 0 || length > size - from)
        return -1;
    if (length == 0)
        return from;
    const char *data = text.data();
    const char first = needle[0];
    if (length == 1) {
        const void *at = std::memchr(data + from, first, size_t(size - from));
        return at ? static_cast<const char *>(at) - data : -1;
    }
    const char last = needle[length - 1];
    const char *middle = needle.data() + 1;
    const size_t middleLength = size_t(length - 2);
    qsizetype at = from;
#ifdef __SSE2__
    const __m128i firsts = _mm_set1_epi8(first);
    const __m128i lasts = _mm_set1_epi8(last);
    // Both loads stay inside the text: the second ends at at + length - 1 + 16.
    for (; at + length - 1 + 16 <= size; at += 16) {
        const __m128i starts = _mm_loadu_si128(reinterpret_cast<const __m128i *>(data + at));
        const __m128i ends =
            _mm_loadu_si128(reinterpret_cast<const __m128i *>(data + at + length - 1));
        auto candidates = unsigned(_mm_movemask_epi8(
            _mm_and_si128(_mm_cmpeq_epi8(starts, firsts), _mm_cmpeq_epi8(ends, lasts))));
        while (candidates != 0) {
            const qsizetype start = at + __builtin_ctz(candidates);
            if (std::memcmp(data + start + 1, middle, middleLength) == 0)
                return start;
            candidates &= candidates - 1;
        }
    }
#endif
    for (; at + length <= size; ++at) {
        if (data[at] == first && data[at + length - 1] == last &&
            std::memcmp(data + at + 1, middle, middleLength) == 0)
            return at;
    }
    return -1;
}

} // namespace koru::sedgui
