#pragma once

#include "sedguiexport.h"
#include "textformat.h"

#include <QFont>
#include <QString>

namespace koru::sedgui {

// The editor's user options, kept in the "SRC_EDITOR" settings store, groups
// "Editor" and "Files".
class SEDGUI_EXPORT EditorSettings
{
public:
    struct Values
    {
        QFont font;
        // Columns between tab stops, and columns per indentation level; both
        // yield to a document's own indentation (see Indentation).
        int tabWidth = 4;
        int indentWidth = 4;
        bool indentWithSpaces = true;
        bool autoIndent = true;
        bool lineNumbers = true;
        bool wordWrap = false;
        bool showWhitespace = false;
        bool highlightCurrentLine = true;
        bool braceMatching = true;
        // Brackets and quotes close themselves and wrap a selection.
        bool autoCloseBrackets = true;
        // A ColourScheme id; the automatic one follows the desktop.
        QString colourScheme = QStringLiteral("automatic");

        QByteArray defaultEncoding = "UTF-8";
        LineEnding defaultLineEnding = LineEnding::LF;
        bool reloadUnmodifiedSilently = false;
        bool trimTrailingWhitespace = false;
        // Reopen the files of the last clean exit when started without files.
        bool restoreSession = true;
        // Quit closes at once, keeping every unsaved change for the next start.
        bool keepWorkOnQuit = false;
    };

    static constexpr int MinTabWidth = 1;
    static constexpr int MaxTabWidth = 16;
    static constexpr int MinFontSize = 4;
    static constexpr int MaxFontSize = 96;

    static Values defaults();
    // The stored values; a missing or malformed value reads as its default.
    static Values load();
    // Returns false when the settings file could not be written.
    static bool store(const Values &values);

    // "LF", "CRLF", "CR": how a line ending is written in the settings.
    static QString lineEndingName(LineEnding ending);
    static bool lineEndingFromName(const QString &name, LineEnding *ending);
};

} // namespace koru::sedgui
