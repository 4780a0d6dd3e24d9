#pragma once

#include <QByteArray>

namespace koru::sedgui {

enum class LineEnding { LF, CRLF, CR };

// How a document's text is stored on disk.
struct TextFormat
{
    // Canonical encoding name: "UTF-8", "UTF-16LE", "UTF-16BE", "UTF-32LE",
    // "UTF-32BE", or an iconv name such as "WINDOWS-1252" or "SHIFT_JIS".
    QByteArray encoding = "UTF-8";
    bool bom = false;
    // The ending used for new lines; a file with mixed endings keeps its
    // existing ones byte for byte.
    LineEnding lineEnding = LineEnding::LF;

    friend bool operator==(const TextFormat &, const TextFormat &) = default;
};

} // namespace koru::sedgui
