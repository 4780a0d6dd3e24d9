#pragma once

#include <QByteArray>

namespace koru::sedgui {

// The Unicode encoding forms done by hand: strict UTF-8 validation and
// UTF-16/32 <-> UTF-8, without a QString round trip. Every function rejects
// what the standard forbids (overlongs, surrogates, values above U+10FFFF),
// so that decoding then encoding always gives back the same bytes.
class UnicodeTranscoder
{
public:
    // Offset of the first byte that is not part of a well-formed UTF-8
    // sequence, or -1 when all are.
    static qsizetype firstInvalidUtf8(const char *data, qsizetype size);
    // Length of the well-formed sequence at data[0], 0 when it is malformed.
    static int utf8SequenceLength(const char *data, qsizetype size);
    // How UTF-8-like some invalid bytes are: well-formed multi-byte
    // sequences against bytes that belong to no sequence.
    static void countUtf8(const char *data, qsizetype size, qsizetype *multiByte,
                          qsizetype *invalid);

    // UTF-16/32 (no BOM) to UTF-8. False on a truncated unit, an unpaired
    // surrogate or a value out of range.
    static bool utf16ToUtf8(const char *data, qsizetype size, bool bigEndian, QByteArray *out);
    static bool utf32ToUtf8(const char *data, qsizetype size, bool bigEndian, QByteArray *out);
    // UTF-8 to UTF-16/32 (no BOM), appended to *out. Returns -1, or the
    // offset of the first malformed byte.
    static qsizetype utf8ToUtf16(const QByteArray &utf8, bool bigEndian, QByteArray *out);
    static qsizetype utf8ToUtf32(const QByteArray &utf8, bool bigEndian, QByteArray *out);
};

} // namespace koru::sedgui
