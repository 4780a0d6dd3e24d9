#pragma once

#include <QString>
#include <QStringList>

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
    // Files another program changed or deleted while they were read (their
    // hits, if any, are what was read); at most MaxNamedFiles of them named.
    qint64 changed = 0;
    qint64 deleted = 0;
    QStringList changedFiles;
    QStringList deletedFiles;
    static constexpr qsizetype MaxNamedFiles = 20;
    bool cancelled = false;
    // Set when the search could not start, e.g. an invalid regular expression.
    QString error;
};
