#pragma once

#include <QStringList>

namespace koru::sedgui {

// The labels of documents shown side by side (tabs): a document's file name,
// and when another document of the list has the same file name, the fewest
// last folders of its path that tell the two apart, as "stdio.h — bits". A
// folder path shown whole is written from the root ("x.h — /src"), so that it
// cannot be mistaken for the end of a longer one. The labels are the names as they are; making them
// visible (DisplayName) is up to the caller.
class TabLabeler
{
public:
    // paths: absolute, '/'-separated file paths; an empty path (a document
    // without a file) gets an empty label.
    static QStringList labels(const QStringList &paths);
};

} // namespace koru::sedgui
