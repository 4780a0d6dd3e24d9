#include "linecounter.h"

#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace koru::sedgui {

namespace {

// The number of LF bytes in [from, to).
qint64 countLineFeeds(const char *from, const char *to)
{
    constexpr quint64 Ones = 0x0101010101010101ULL;
    constexpr quint64 Highs = 0x8080808080808080ULL;
    constexpr quint64 LineFeeds = Ones * '\n';
    qint64 count = 0;
#ifdef __SSE2__
    // Sixteen bytes at a time: each LF adds one to its byte's counter, and the
    // counters are added up before any of them can overflow.
    const __m128i lineFeed = _mm_set1_epi8('\n');
    while (to - from >= 16) {
        const qsizetype blocks = std::min<qsizetype>((to - from) / 16, 255);
        __m128i counters = _mm_setzero_si128();
        for (qsizetype i = 0; i < blocks; ++i, from += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from));
            counters = _mm_sub_epi8(counters, _mm_cmpeq_epi8(bytes, lineFeed));
        }
        const __m128i sums = _mm_sad_epu8(counters, _mm_setzero_si128());
        count += _mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4);
    }
#endif
    while (to - from >= 8) {
        quint64 word;
        std::memcpy(&word, from, 8);
        // A byte of x is zero exactly where the byte of word is LF; the high bit
        // of each byte of zeros is set exactly for those (no borrow crosses bytes).
        const quint64 x = word ^ LineFeeds;
        const quint64 zeros = ~(((x & ~Highs) + ~Highs) | x) & Highs;
        // One bit per LF byte, at its bottom; the multiplication adds the bytes
        // up into the top one (at most 8, so no carry is lost).
        count += qint64(((zeros >> 7) * Ones) >> 56);
        from += 8;
    }
    for (; from < to; ++from)
        count += *from == '\n';
    return count;
}

} // namespace

void LineCounter::countLineFeedsTo(qsizetype to)
{
    const char *data = m_text.data();
    const qint64 breaks = countLineFeeds(data + m_offset, data + to);
    if (breaks > 0) {
        m_line += breaks;
        const void *last = memrchr(data + m_offset, '\n', size_t(to - m_offset));
        m_lineStart = static_cast<const char *>(last) - data + 1;
    }
    m_offset = to;
}

qint64 LineCounter::lineAt(qsizetype offset)
{
    offset = std::clamp<qsizetype>(offset, 0, m_text.size());
    if (offset < m_offset) {
        m_offset = 0;
        m_line = 1;
        m_lineStart = 0;
        m_nextCr = -1;
    }
    const char *data = m_text.data();
    const qsizetype size = m_text.size();
    while (m_offset < offset) {
        // Where the next CR lies is looked up once and kept until it is passed:
        // text without CR is searched for one once, and between two CRs only LFs
        // are counted.
        if (m_nextCr < m_offset) {
            const void *cr = std::memchr(data + m_offset, '\r', size_t(size - m_offset));
            m_nextCr = cr ? static_cast<const char *>(cr) - data : size;
        }
        countLineFeedsTo(std::min(m_nextCr, offset));
        if (m_offset == offset)
            break;
        // At a CR before offset. A CR followed by LF is counted at the LF, so an
        // offset between the two still lies on the line they end.
        ++m_offset;
        if (m_offset == size || data[m_offset] != '\n') {
            ++m_line;
            m_lineStart = m_offset;
        }
    }
    return m_line;
}

} // namespace koru::sedgui
