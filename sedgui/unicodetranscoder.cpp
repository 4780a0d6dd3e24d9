#include "unicodetranscoder.h"

#include <cstdint>
#include <cstring>

namespace koru::sedgui {

namespace {

constexpr std::uint64_t HighBits = 0x8080808080808080ULL;

inline unsigned char byteAt(const char *data, qsizetype i)
{
    return static_cast<unsigned char>(data[i]);
}

inline bool isContinuation(unsigned char c)
{
    return (c & 0xC0) == 0x80;
}

// Decodes the well-formed sequence at data[0]; returns its length, or 0.
int decodeUtf8(const char *data, qsizetype size, char32_t *cp)
{
    const unsigned char c = byteAt(data, 0);
    if (c < 0x80) {
        *cp = c;
        return 1;
    }
    if (c < 0xC2)
        return 0;
    if (c < 0xE0) {
        if (size < 2 || !isContinuation(byteAt(data, 1)))
            return 0;
        *cp = (char32_t(c & 0x1F) << 6) | (byteAt(data, 1) & 0x3F);
        return 2;
    }
    if (c < 0xF0) {
        if (size < 3)
            return 0;
        const unsigned char c1 = byteAt(data, 1);
        // E0 needs A0..BF (no overlongs), ED needs 80..9F (no surrogates).
        const unsigned char lo = c == 0xE0 ? 0xA0 : 0x80;
        const unsigned char hi = c == 0xED ? 0x9F : 0xBF;
        if (c1 < lo || c1 > hi || !isContinuation(byteAt(data, 2)))
            return 0;
        *cp = (char32_t(c & 0x0F) << 12) | (char32_t(c1 & 0x3F) << 6) | (byteAt(data, 2) & 0x3F);
        return 3;
    }
    if (c < 0xF5) {
        if (size < 4)
            return 0;
        const unsigned char c1 = byteAt(data, 1);
        // F0 needs 90..BF (no overlongs), F4 needs 80..8F (<= U+10FFFF).
        const unsigned char lo = c == 0xF0 ? 0x90 : 0x80;
        const unsigned char hi = c == 0xF4 ? 0x8F : 0xBF;
        if (c1 < lo || c1 > hi || !isContinuation(byteAt(data, 2)) ||
            !isContinuation(byteAt(data, 3)))
            return 0;
        *cp = (char32_t(c & 0x07) << 18) | (char32_t(c1 & 0x3F) << 12) |
              (char32_t(byteAt(data, 2) & 0x3F) << 6) | (byteAt(data, 3) & 0x3F);
        return 4;
    }
    return 0;
}

void appendUtf8(char32_t cp, QByteArray *out)
{
    char buf[4];
    int n = 0;
    if (cp < 0x80) {
        buf[n++] = char(cp);
    } else if (cp < 0x800) {
        buf[n++] = char(0xC0 | (cp >> 6));
        buf[n++] = char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        buf[n++] = char(0xE0 | (cp >> 12));
        buf[n++] = char(0x80 | ((cp >> 6) & 0x3F));
        buf[n++] = char(0x80 | (cp & 0x3F));
    } else {
        buf[n++] = char(0xF0 | (cp >> 18));
        buf[n++] = char(0x80 | ((cp >> 12) & 0x3F));
        buf[n++] = char(0x80 | ((cp >> 6) & 0x3F));
        buf[n++] = char(0x80 | (cp & 0x3F));
    }
    out->append(buf, n);
}

inline std::uint32_t readUnit(const char *p, int width, bool bigEndian)
{
    std::uint32_t v = 0;
    for (int k = 0; k < width; ++k) {
        const int shift = bigEndian ? 8 * (width - 1 - k) : 8 * k;
        v |= std::uint32_t(static_cast<unsigned char>(p[k])) << shift;
    }
    return v;
}

inline void appendUnit(std::uint32_t v, int width, bool bigEndian, QByteArray *out)
{
    char buf[4];
    for (int k = 0; k < width; ++k) {
        const int shift = bigEndian ? 8 * (width - 1 - k) : 8 * k;
        buf[k] = char((v >> shift) & 0xFF);
    }
    out->append(buf, width);
}

// Skips the ASCII run starting at data[i], 16 bytes at a time; returns the
// index of the first non-ASCII byte, or size.
inline qsizetype skipAscii(const char *data, qsizetype i, qsizetype size)
{
    while (size - i >= 16) {
        std::uint64_t a;
        std::uint64_t b;
        std::memcpy(&a, data + i, 8);
        std::memcpy(&b, data + i + 8, 8);
        if ((a | b) & HighBits)
            break;
        i += 16;
    }
    while (i < size && byteAt(data, i) < 0x80)
        ++i;
    return i;
}

} // namespace

qsizetype UnicodeTranscoder::firstInvalidUtf8(const char *data, qsizetype size)
{
    qsizetype i = 0;
    while (i < size) {
        i = skipAscii(data, i, size);
        // A run of non-ASCII text (CJK, Cyrillic) rarely has ASCII between
        // characters, so stay in this loop until one comes.
        while (i < size && byteAt(data, i) >= 0x80) {
            char32_t cp;
            const int n = decodeUtf8(data + i, size - i, &cp);
            if (n == 0)
                return i;
            i += n;
        }
    }
    return -1;
}

int UnicodeTranscoder::utf8SequenceLength(const char *data, qsizetype size)
{
    if (size <= 0)
        return 0;
    char32_t cp;
    return decodeUtf8(data, size, &cp);
}

void UnicodeTranscoder::countUtf8(const char *data, qsizetype size, qsizetype *multiByte,
                                  qsizetype *invalid)
{
    *multiByte = 0;
    *invalid = 0;
    qsizetype i = 0;
    while (i < size) {
        i = skipAscii(data, i, size);
        if (i >= size)
            break;
        char32_t cp;
        const int n = decodeUtf8(data + i, size - i, &cp);
        if (n == 0) {
            ++*invalid;
            ++i;
        } else {
            ++*multiByte;
            i += n;
        }
    }
}

bool UnicodeTranscoder::utf16ToUtf8(const char *data, qsizetype size, bool bigEndian,
                                    QByteArray *out)
{
    if (size % 2 != 0)
        return false;
    out->clear();
    out->reserve(size + size / 2);
    for (qsizetype i = 0; i < size; i += 2) {
        char32_t cp = readUnit(data + i, 2, bigEndian);
        if (cp >= 0xDC00 && cp <= 0xDFFF)
            return false;
        if (cp >= 0xD800 && cp <= 0xDBFF) {
            if (size - i < 4)
                return false;
            const char32_t low = readUnit(data + i + 2, 2, bigEndian);
            if (low < 0xDC00 || low > 0xDFFF)
                return false;
            cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
            i += 2;
        }
        appendUtf8(cp, out);
    }
    return true;
}

bool UnicodeTranscoder::utf32ToUtf8(const char *data, qsizetype size, bool bigEndian,
                                    QByteArray *out)
{
    if (size % 4 != 0)
        return false;
    out->clear();
    out->reserve(size / 2);
    for (qsizetype i = 0; i < size; i += 4) {
        const char32_t cp = readUnit(data + i, 4, bigEndian);
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        appendUtf8(cp, out);
    }
    return true;
}

qsizetype UnicodeTranscoder::utf8ToUtf16(const QByteArray &utf8, bool bigEndian, QByteArray *out)
{
    out->reserve(out->size() + utf8.size() * 2);
    const char *data = utf8.constData();
    const qsizetype size = utf8.size();
    for (qsizetype i = 0; i < size;) {
        char32_t cp;
        const int n = decodeUtf8(data + i, size - i, &cp);
        if (n == 0)
            return i;
        if (cp >= 0x10000) {
            appendUnit(0xD800 + ((cp - 0x10000) >> 10), 2, bigEndian, out);
            appendUnit(0xDC00 + ((cp - 0x10000) & 0x3FF), 2, bigEndian, out);
        } else {
            appendUnit(cp, 2, bigEndian, out);
        }
        i += n;
    }
    return -1;
}

qsizetype UnicodeTranscoder::utf8ToUtf32(const QByteArray &utf8, bool bigEndian, QByteArray *out)
{
    out->reserve(out->size() + utf8.size() * 4);
    const char *data = utf8.constData();
    const qsizetype size = utf8.size();
    for (qsizetype i = 0; i < size;) {
        char32_t cp;
        const int n = decodeUtf8(data + i, size - i, &cp);
        if (n == 0)
            return i;
        appendUnit(cp, 4, bigEndian, out);
        i += n;
    }
    return -1;
}

} // namespace koru::sedgui
