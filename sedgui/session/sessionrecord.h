#pragma once

#include "sedguiexport.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace koru::sedgui {

// What a clean exit keeps for the next start: the open documents in tab
// order with their carets and scroll positions, the current tab, and the
// window's geometry and tool bar state. Kept in the "SRC_EDITOR" settings store, group
// "Session".
class SEDGUI_EXPORT SessionRecord
{
public:
    struct File
    {
        // Empty for an untitled document.
        QString path;
        // 0-based, as the editing component counts.
        int line = 0;
        int column = 0;
        int firstVisibleLine = 0;
        // An untitled document's recovery journal (its document id), which
        // brings it back when the program ended keeping unsaved work.
        QByteArray journal;
        friend bool operator==(const File &, const File &) = default;
    };

    QList<File> files;
    // Index into files of the tab in front; -1 for none.
    int current = -1;
    QByteArray geometry;
    QByteArray windowState;

    // The stored record; missing or malformed entries are left out, so a
    // damaged store gives a smaller session, never a failed start.
    static SessionRecord load();
    // Replaces the stored record; returns false when the store is not writable.
    bool store() const;
};

} // namespace koru::sedgui
