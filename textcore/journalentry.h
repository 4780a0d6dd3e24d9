#pragma once

#include "fileidentity.h"
#include "journalowner.h"
#include "textformat.h"

#include <QByteArray>
#include <QString>

namespace koru::sedgui {

// What a recovery journal records about its document besides the text.
struct JournalEntry
{
    // Unique in the journal folder: the owner's key, '_', a number.
    QByteArray documentId;
    JournalOwner owner;
    // Absolute path of the document's file; empty for an untitled document.
    QString path;
    // "Untitled N" of an untitled document.
    int untitledNumber = 0;
    // The file on disk that the unsaved edits apply to.
    FileIdentity identity;
    // How the text is written when saved.
    TextFormat format;
    // When the journal was written, in milliseconds since the epoch.
    qint64 writtenMs = 0;
    // Written when the user quit with "keep unsaved changes on quit without
    // asking": the next start brings the document back without a question.
    bool keptOnQuit = false;
};

} // namespace koru::sedgui
