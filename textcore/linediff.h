#pragma once

#include <QByteArray>

namespace koru::sedgui {

// The differences between two texts, line by line, as a unified diff: what a
// recovered document changes against the file on disk.
class LineDiff
{
public:
    // "--- before", "+++ after", then hunks ("@@ -1,3 +1,4 @@") with
    // `context` unchanged lines around each change. Lines end at LF; the
    // line end itself is not shown. Empty when the texts have the same lines.
    // Past `maxEdits` differing lines the changed middle is shown as wholly
    // replaced, so that two unrelated large texts do not take minutes.
    static QByteArray unified(const QByteArray &before, const QByteArray &after,
                              const QByteArray &beforeName, const QByteArray &afterName,
                              int context = 3, int maxEdits = 4000);
};

} // namespace koru::sedgui
