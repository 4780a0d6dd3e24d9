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
// valid UTF-8 is written \x{HH}, and a backslash that would begin an escape
// \u{005C}: toNative gives back the bytes of every name exactly.
//
// Inside the program a file's name is a QString that keeps only the last
// two kinds of escape (fromNative): a name whose bytes are not UTF-8 is held, shown
// and stored as "bad\x{FF}.txt", and toNative turns it back into its bytes
// at every system call. QFile and QFileInfo cannot reach such a file; the
// file code goes through toNative and POSIX calls instead.
class FileNameEscape
{
public:
    static QString fromBytes(QByteArrayView name);
    // A name from the system as the program holds it: its UTF-8 decoded, a
    // byte that is not part of valid UTF-8 written \x{HH}, and a backslash
    // that would begin an escape written \u{005C}, so that no two names are
    // held alike; other characters stay as they are. The same as QFile::decodeName for every UTF-8
    // name without such a backslash.
    static QString fromNative(QByteArrayView name);
    // The bytes a name stands for, with every escape undone: \x{HH} is the
    // byte, \u{XXXX} the character. Undoes fromNative and fromBytes exactly.
    static QByteArray toNative(QStringView name);
    // The same for a name already decoded.
    static QString escape(QStringView name);
    static bool hasEscapes(QStringView text);
    static bool needsEscape(char32_t c);
};

} // namespace koru::sedgui
