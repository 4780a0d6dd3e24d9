#pragma once

#include "sedguiexport.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

#include <utility>

class QFileSystemWatcher;
class QWidget;

namespace koru::sedgui {

class SedGUI;

// The registry of every open document. Documents register themselves while
// they exist; the shell asks it, on every activation of its window, for a
// document whose file was changed outside the program. A file system watch on
// every document's file puts a notice in that document's info bar as soon as
// the file changes.
class SEDGUI_EXPORT TemplateTree : public QObject
{
    Q_OBJECT

public:
    static TemplateTree *Instance();

    // The first document whose file changed outside since it was last asked,
    // after every such document has dealt with the user (several questions
    // are asked in one list); null when there is none.
    // Each on-disk state is dealt with once, however often this is called.
    QWidget *checkFileChanged();

    void addDocument(SedGUI *document);
    void removeDocument(SedGUI *document);
    QList<SedGUI *> documents() const { return m_documents; }

    // The open document bound to path (the same file, symlinks resolved), or null.
    SedGUI *findDocument(const QString &path) const;

    // (Re)arms the watch on path. Called after every load, save and outside
    // change: a watch is tied to an inode and dies when the file is replaced.
    void watchFile(const QString &path);
    // The files being watched.
    QStringList watchedFiles() const;

private:
    TemplateTree();
    void onFileChanged(const QString &path);
    void dropUnusedWatches();

    QList<SedGUI *> m_documents;
    QFileSystemWatcher *m_watcher = nullptr;
    bool m_checking = false;
    // Lookups by file: the resolved name of each document's file, kept with
    // the name it was resolved from, as resolving costs system calls per
    // directory of the name, for every open document at every lookup.
    QString documentKey(const SedGUI *document) const;
    mutable QHash<const SedGUI *, std::pair<QString, QString>> m_keys;
};

} // namespace koru::sedgui
