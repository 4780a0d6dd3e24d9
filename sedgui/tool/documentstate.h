#pragma once

#include "fileidentity.h"
#include "textformat.h"

#include <QString>

namespace koru::sedgui {

// What an editor tool knows about its document besides the text: the file it
// is bound to, how the file is stored and which on-disk state the buffer has
// been reconciled with.
struct DocumentState
{
    // Absolute path as the user named it (a symlink stays the link's path);
    // empty for an untitled document.
    QString filePath;
    // "Untitled N" numbering of a document that never had a file.
    int untitledNumber = 0;
    TextFormat format;
    // The file on disk as loaded or saved, or as the user last decided about
    // it; an outside change is a difference from this.
    FileIdentity diskIdentity;
    // Modified although the buffer is at its save point: a format change, a
    // kept text after the file changed or vanished on disk.
    bool forcedModified = false;
    // The user picked the language; a new file name does not change it.
    bool languageChosen = false;
    QString language;
    // Lines so long that colouring and wrapping are off.
    bool hugeLines = false;
    // Lines so long that even plain layout is too slow: the editor shows a
    // read-only copy broken into short display lines, and the file's text
    // (as UTF-8) is kept here to be saved unchanged.
    bool displayOnly = false;
    QByteArray displayOnlyText;
    bool closing = false;
    // The info bar speaks about the file on disk (cleared by a save).
    bool diskNoticeShown = false;
    // A line to show once the widget has a size (goToLine before showing).
    int pendingLine = 0;
    bool selectPendingLine = false;

    // The states last sent to the shared actions.
    struct EditState
    {
        bool undo = false;
        bool redo = false;
        bool cut = false;
        bool copy = false;
        bool paste = false;
        bool modified = false;
        friend bool operator==(const EditState &, const EditState &) = default;
    };
    EditState shown;
};

} // namespace koru::sedgui
