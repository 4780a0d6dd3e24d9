#pragma once

#include "textformat.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace koru::sedgui {

// A file's bytes made ready for the editor's UTF-8 buffer.
struct DecodedText
{
    // Goes into the editor's UTF-8 buffer as bytes, by length (NULs survive);
    // line endings are untouched.
    QByteArray utf8;
    // Encoding, BOM and dominant line ending (LF when the text has none).
    TextFormat format;
    bool mixedLineEndings = false;
    // Not valid UTF-8 and no lossless decoding found: the bytes are kept as
    // they are and saved back unchanged.
    bool rawBytes = false;
    // A sentence for the info bar; empty when there is nothing to say.
    QString notice;
};

// Bytes in, bytes out. Opening a file and saving it with no edit gives back
// the identical bytes, for every file it decodes. Pure functions, thread-safe.
class TextFileCodec
{
public:
    // Detects in this order: BOM; strict UTF-8; a statistical detector. A
    // detected legacy encoding is used only when decoding then encoding gives
    // back the identical bytes; otherwise the bytes are kept raw.
    static DecodedText decode(const QByteArray &bytes);
    // Decodes with a chosen encoding ("reopen with"). Returns false and sets
    // *error when the bytes are not valid in it (or it is unknown).
    static bool decodeAs(const QByteArray &bytes, const QByteArray &encoding, DecodedText *out,
                         QString *error);
    // Buffer bytes back to file bytes. UTF-8 (and raw) documents: the BOM, if
    // any, then the buffer bytes unchanged; without a BOM *out shares utf8's
    // data, so a QByteArray::fromRawData view must outlive the use of *out.
    // Returns false, with *out untouched, when a character cannot be held by
    // the encoding; *error names it and its line.
    static bool encode(const QByteArray &utf8, const TextFormat &format, QByteArray *out,
                       QString *error);
    // The most frequent line ending (LF when there is none); *mixed tells
    // whether more than one kind occurs.
    static LineEnding detectLineEnding(const QByteArray &bytes, bool *mixed = nullptr);
    // Converts every line ending of a UTF-8 buffer to one kind.
    static QByteArray convertLineEndings(const QByteArray &utf8, LineEnding to);
    // Canonical names for the Encoding menus, common ones first.
    static QList<QByteArray> availableEncodings();
    // The canonical spelling of an encoding name ("utf8" -> "UTF-8",
    // "windows-1252" -> "WINDOWS-1252"); empty when it is unknown.
    static QByteArray canonicalEncoding(const QByteArray &name);
    // True when the bytes are strict UTF-8 (no overlongs, surrogates or
    // values above U+10FFFF).
    static bool isValidUtf8(const char *data, qsizetype size);
};

} // namespace koru::sedgui
