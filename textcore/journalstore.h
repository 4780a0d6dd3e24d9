#pragma once

#include "journalentry.h"

#include <QAtomicInteger>
#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>

namespace koru::sedgui {

// The folder of recovery journals: one file per document with unsaved
// changes, holding a small header (journalentry.h) and the document's text as
// the editor holds it (UTF-8 bytes, invalid bytes and NULs included), closed
// by a checksum.
//
// Each store belongs to one owner (normally this process) and holds an
// advisory lock on "<owner key>.lock" for its life, so that other editors can
// tell its journals from those of a process that is gone. Journals are
// written atomically (a new file, created exclusively with mode 0600, synced,
// renamed over the old one) and nothing in the folder is followed if it is a
// link. write() and remove() may run on a worker thread while list() runs on
// another; list() and the claims it takes belong to one thread.
// keepOriginal(), dropOriginal(), noteTemporary() and dropTemporary() may run
// on any thread, several at once: each reads only what the constructor set and
// makes or removes files of names no other call uses.
class JournalStore
{
    Q_DECLARE_TR_FUNCTIONS(koru::sedgui::JournalStore)

public:
    enum class State {
        // Kept by another running editor: never offered, never touched.
        Alive,
        // Its owner is gone: offered back. The store holds the owner's lock
        // from list() on, so no other editor offers it as well.
        Dead,
        // Cannot be read back whole: moved to the "corrupt" sub-folder.
        Corrupt,
        // A dead editor's in-place save of entry.path that did not finish
        // and left a mix of old and new text: problem says whether the
        // original could be put back.
        InterruptedSave,
    };
    struct Found
    {
        State state = State::Alive;
        // The journal's file name in folder() (for Corrupt, in its sub-folder).
        QString fileName;
        // The header; for Corrupt only what the file name tells.
        JournalEntry entry;
        // The document's text; read for Dead journals only.
        QByteArray text;
        // For Corrupt: what is wrong with it.
        QString problem;
    };

    // An empty folder means defaultFolder().
    explicit JournalStore(const QString &folder = {},
                          const JournalOwner &owner = JournalOwner::current());
    // Releases the locks. Journals stay: a program that ends without closing
    // its documents offers them back at the next start.
    ~JournalStore();
    JournalStore(const JournalStore &) = delete;
    JournalStore &operator=(const JournalStore &) = delete;

    // $XDG_STATE_HOME/sourceeditor, or ~/.local/state/sourceeditor.
    static QString defaultFolder();

    // False when the folder could not be made or is not safe to use (a link,
    // another user's, open to others); error() says why.
    bool isReady() const { return m_dirFd >= 0; }
    QString error() const { return m_error; }
    QString folder() const { return m_folder; }
    const JournalOwner &owner() const { return m_owner; }

    // A new document id of this store's owner.
    QByteArray newDocumentId();

    // Replaces the journal of entry.documentId with this one; the owner is
    // this store's. False with *error set when it could not be written.
    bool write(const JournalEntry &entry, const QByteArray &text, QString *error = nullptr);
    // Deletes the journal of one of this store's documents.
    void remove(const QByteArray &documentId);

    // Every journal in the folder, oldest first. Leftovers of interrupted
    // writes by dead owners are deleted.
    QList<Found> list();
    // The headers of the journals that other running editors keep for path
    // (compared as given): they have unsaved changes to that file. Reads
    // headers only and takes no claim, so it may run at any time.
    QList<JournalEntry> othersEditing(const QString &path);
    // Deletes a journal found Dead (restored or discarded), and its owner's
    // lock file once the owner has no journal left.
    void discard(const Found &found);
    // Lets other editors take the dead owners' journals again.
    void releaseClaims();

    // Before `target` is overwritten in place: keeps its original bytes here,
    // with what the file will hold when whole, so that a start after a crash
    // in the middle of the write can tell a whole file from a mix and put the
    // original back (list()). Returns the copy's path, or empty.
    QString keepOriginal(const QString &target, const QByteArray &original,
                         const QByteArray &replacement);
    // The in-place write ended and the file is whole: the copy goes.
    void dropOriginal(const QString &copyPath);

    // Before a temporary file is made beside a file being saved: records its
    // path, so that a start after a crash removes it (list()). Returns the
    // record's path, or empty.
    QString noteTemporary(const QString &temporaryPath);
    // The temporary was renamed over its target or removed.
    void dropTemporary(const QString &recordPath);

    // The file as written: for tests and the readers of other tools.
    static QByteArray encode(const JournalEntry &entry, const QByteArray &text);
    // False with *problem set when the bytes are not a whole journal of this version.
    static bool decode(const QByteArray &bytes, JournalEntry *entry, QByteArray *text,
                       QString *problem);

private:
    bool openFolder();
    bool isOwnerAlive(const QByteArray &ownerKey);
    int lockOwner(const QByteArray &ownerKey, bool *held);
    QByteArray readJournal(const QByteArray &name, qsizetype limit, QString *problem) const;
    void moveAside(const QByteArray &name);
    void dropOwnerIfEmpty(const QByteArray &ownerKey);
    bool settleSave(const QByteArray &recordName, Found *found);
    void removeTemporary(const QByteArray &recordName);

    QString m_folder;
    QString m_error;
    JournalOwner m_owner;
    QByteArray m_ownerKey;
    int m_dirFd = -1;
    int m_lockFd = -1;
    QAtomicInteger<int> m_nextDocument = 1;
    // Dead owners whose locks this store holds: key -> descriptor.
    QHash<QByteArray, int> m_claims;
};

} // namespace koru::sedgui
