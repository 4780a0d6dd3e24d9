#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace koru::sedgui {

// A file name written as text that stays on one line and shows what it holds,
// and read back into the name: how Find in Files' result pane and the command
// line hand a name to the tool factory.
//
// A character that would break the line a text view shows it on (controls,
// line and paragraph separators, the block and object characters of Qt's text
// documents), and one that is invisible or turns the text around (format and
// bidirectional controls), is written \u{XXXX}. A byte that is not part of
// valid UTF-8 is written \x{HH}: no QString path reaches such a file, so a
// name holding one can be shown but not opened.
class FileNameEscape
{
public:
    static QString fromBytes(QByteArrayView name);
    // The same for a name already decoded.
    static QString escape(QStringView name);
    static bool hasEscapes(QStringView text);
    // The name with its \u{...} escapes undone; *rawBytes tells whether it
    // holds a \x{..} escape, which stays as it is.
    static QString unescape(QStringView text, bool *rawBytes = nullptr);
    static bool needsEscape(char32_t c);
};

} // namespace koru::sedgui
