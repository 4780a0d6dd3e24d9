#pragma once

#include <QByteArray>

namespace koru::sedgui {

// Legacy encodings through glibc's iconv. Conversions are strict: a byte
// sequence or a character the other side cannot represent stops the
// conversion and reports where, nothing is replaced or transliterated.
class IconvCodec
{
public:
    static bool isSupported(const QByteArray &encoding);
    // On failure returns false and sets *errorOffset (when given) to the
    // offset in the input where conversion stopped.
    static bool toUtf8(const QByteArray &bytes, const QByteArray &encoding, QByteArray *out,
                       qsizetype *errorOffset = nullptr);
    static bool fromUtf8(const QByteArray &utf8, const QByteArray &encoding, QByteArray *out,
                         qsizetype *errorOffset = nullptr);
    // Decodes only when encoding the result again gives back exactly these
    // bytes (some tables map two codes to one character). Single-byte
    // encodings go through a table built once, many times faster than iconv.
    static bool toUtf8Reversibly(const QByteArray &bytes, const QByteArray &encoding,
                                 QByteArray *out);
};

} // namespace koru::sedgui
