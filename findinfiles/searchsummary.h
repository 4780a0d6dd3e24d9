#pragma once

#include <QString>

// How a find-in-files search ended.
struct SearchSummary
{
    qint64 filesSearched = 0;
    qint64 filesWithHits = 0;
    qint64 hits = 0;
    // Hits counted but not written out, beyond SearchOptions::maxHitLines.
    qint64 hitsNotShown = 0;
    qint64 binaryFilesSkipped = 0;
    // Files and folders that could not be opened or read.
    qint64 unreadable = 0;
    bool cancelled = false;
    // Set when the search could not start, e.g. an invalid regular expression.
    QString error;
};
