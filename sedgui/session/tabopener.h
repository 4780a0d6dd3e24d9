#pragma once

#include <QString>

class QMainWindow;

namespace koru::sedgui {

class SedGUI;

// Opens the documents the program brings back by itself (the last session,
// recovered work) in tabs of the main window as File > New and File > Open
// do, but without touching the Recent Files list: that list keeps what the
// user opened and saved, not what a restore put back.
class TabOpener
{
public:
    // The document of path in a new tab (an open one if path is open
    // already), or a new untitled document for an empty path. Null, with
    // *error set, when the file cannot be read; no tab is left then.
    static SedGUI *open(QMainWindow *window, const QString &path, QString *error = nullptr);
};

} // namespace koru::sedgui
