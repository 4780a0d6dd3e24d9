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

// Writes cp as UTF-8 at out; returns the position after it.
inline char *putUtf8(char32_t cp, char *out)
{
    if (cp < 0x80) {
        *out++ = char(cp);
    } else if (cp < 0x800) {
        *out++ = char(0xC0 | (cp >> 6));
        *out++ = char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        *out++ = char(0xE0 | (cp >> 12));
        *out++ = char(0x80 | ((cp >> 6) & 0x3F));
        *out++ = char(0x80 | (cp & 0x3F));
    } else {
        *out++ = char(0xF0 | (cp >> 18));
        *out++ = char(0x80 | ((cp >> 12) & 0x3F));
        *out++ = char(0x80 | ((cp >> 6) & 0x3F));
        *out++ = char(0x80 | (cp & 0x3F));
    }
    return out;
}

template<int Width> inline std::uint32_t readUnit(const char *p, bool bigEndian)
{
    std::uint32_t v = 0;
    for (int k = 0; k < Width; ++k) {
        const int shift = bigEndian ? 8 * (Width - 1 - k) : 8 * k;
        v |= std::uint32_t(static_cast<unsigned char>(p[k])) << shift;
    }
    return v;
}

template<int Width> inline char *putUnit(std::uint32_t v, bool bigEndian, char *out)
{
    for (int k = 0; k < Width; ++k) {
        const int shift = bigEndian ? 8 * (Width - 1 - k) : 8 * k;
        out[k] = char((v >> shift) & 0xFF);
    }
    return out + Width;
}

// The output buffers below are sized for the worst case up front and cut to
// what was written: appending character by character costs ten times more.
class Writer
{
public:
    Writer(QByteArray *out, qsizetype worstCase)
        : m_out(out)
        , m_start(out->size())
    {
        m_out->resize(m_start + worstCase);
        m_pos = m_out->data() + m_start;
    }
    char *&pos() { return m_pos; }
    void finish() { m_out->truncate(m_pos - m_out->constData()); }

private:
    QByteArray *m_out;
    qsizetype m_start;
    char *m_pos;
};

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
    // Every 2-byte unit gives at most 3 bytes, a surrogate pair (4) gives 4.
    Writer writer(out, size / 2 * 3);
    char *&pos = writer.pos();
    for (qsizetype i = 0; i < size; i += 2) {
        char32_t cp = readUnit<2>(data + i, bigEndian);
        if (cp >= 0xD800 && cp <= 0xDFFF) {
            if (cp >= 0xDC00 || size - i < 4)
                return false;
            const char32_t low = readUnit<2>(data + i + 2, bigEndian);
            if (low < 0xDC00 || low > 0xDFFF)
                return false;
            cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
            i += 2;
        }
        pos = putUtf8(cp, pos);
    }
    writer.finish();
    return true;
}

bool UnicodeTranscoder::utf32ToUtf8(const char *data, qsizetype size, bool bigEndian,
                                    QByteArray *out)
{
    if (size % 4 != 0)
        return false;
    out->clear();
    Writer writer(out, size);
    char *&pos = writer.pos();
    for (qsizetype i = 0; i < size; i += 4) {
        const char32_t cp = readUnit<4>(data + i, bigEndian);
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        pos = putUtf8(cp, pos);
    }
    writer.finish();
    return true;
}

qsizetype UnicodeTranscoder::utf8ToUtf16(const QByteArray &utf8, bool bigEndian, QByteArray *out)
{
    const char *data = utf8.constData();
    const qsizetype size = utf8.size();
    // One byte of ASCII becomes one 2-byte unit; longer sequences shrink.
    Writer writer(out, size * 2);
    char *&pos = writer.pos();
    for (qsizetype i = 0; i < size;) {
        char32_t cp;
        const int n = decodeUtf8(data + i, size - i, &cp);
        if (n == 0) {
            writer.finish();
            return i;
        }
        if (cp >= 0x10000) {
            pos = putUnit<2>(0xD800 + ((cp - 0x10000) >> 10), bigEndian, pos);
            pos = putUnit<2>(0xDC00 + ((cp - 0x10000) & 0x3FF), bigEndian, pos);
        } else {
            pos = putUnit<2>(cp, bigEndian, pos);
        }
        i += n;
    }
    writer.finish();
    return -1;
}

qsizetype UnicodeTranscoder::utf8ToUtf32(const QByteArray &utf8, bool bigEndian, QByteArray *out)
{
    const char *data = utf8.constData();
    const qsizetype size = utf8.size();
    Writer writer(out, size * 4);
    char *&pos = writer.pos();
    for (qsizetype i = 0; i < size;) {
        char32_t cp;
        const int n = decodeUtf8(data + i, size - i, &cp);
        if (n == 0) {
            writer.finish();
            return i;
        }
        pos = putUnit<4>(cp, bigEndian, pos);
        i += n;
    }
    writer.finish();
    return -1;
}

} // namespace koru::sedgui
