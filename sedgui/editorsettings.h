#pragma once

#include "textformat.h"

#include <QFont>

namespace koru::sedgui {

// The editor's user options, kept in the "SRC_EDITOR" settings store.
class EditorSettings
{
public:
    struct Values
    {
        QFont font;
        int tabWidth = 4;
        bool indentWithSpaces = true;
        bool autoIndent = true;
        bool lineNumbers = true;
        bool wordWrap = false;
        bool showWhitespace = false;
        bool highlightCurrentLine = true;
        bool braceMatching = true;

        QByteArray defaultEncoding = "UTF-8";
        LineEnding defaultLineEnding = LineEnding::LF;
        bool reloadUnmodifiedSilently = false;
        bool trimTrailingWhitespace = false;
    };

    static Values defaults();
    // The stored values; a missing or malformed value reads as its default.
    static Values load();
    static void store(const Values &values);
};

} // namespace koru::sedgui
