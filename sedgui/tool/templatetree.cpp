#include "templatetree.h"

#include "filenameescape.h"
#include "sedgui.h"
#include "tool/externalchangebatch.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>

namespace koru::sedgui {

namespace {

// Two names of the same file compare equal: symlinks and "..", resolved
// where the file exists. *resolved tells whether they were.
QString fileKey(const QString &path, bool *resolved = nullptr)
{
    // A name Qt cannot reach (FileNameEscape) is compared as written.
    const QFileInfo info(path);
    const QString canonical =
        FileNameEscape::hasEscapes(path) ? QString() : info.canonicalFilePath();
    if (resolved)
        *resolved = !canonical.isEmpty();
    return canonical.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : canonical;
}

} // namespace

TemplateTree::TemplateTree() = default;

TemplateTree *TemplateTree::Instance()
{
    static TemplateTree *tree = new TemplateTree;
    return tree;
}

QWidget *TemplateTree::checkFileChanged()
{
    // A prompt runs an event loop in which the window is activated again.
    if (m_checking)
        return nullptr;
    m_checking = true;
    QWidget *changed = nullptr;
    // Copy: dealing with the user may close or open documents.
    const QList<SedGUI *> documents = m_documents;
    // Every change is dealt with now, with at most one question: several
    // questions are asked in one list.
    ExternalChangeBatch batch(documents);
    batch.ask();
    for (SedGUI *document : documents) {
        if (m_documents.contains(document) && document->handleExternalChange() && !changed)
            changed = document;
    }
    m_checking = false;
    return changed;
}

void TemplateTree::addDocument(SedGUI *document)
{
    if (!m_documents.contains(document))
        m_documents.append(document);
}

void TemplateTree::removeDocument(SedGUI *document)
{
    m_documents.removeAll(document);
    m_keys.remove(document);
    dropUnusedWatches();
}

SedGUI *TemplateTree::findDocument(const QString &path) const
{
    if (path.isEmpty())
        return nullptr;
    const QString key = fileKey(path);
    for (SedGUI *document : m_documents) {
        if (documentKey(document) == key)
            return document;
    }
    return nullptr;
}

QString TemplateTree::documentKey(const SedGUI *document) const
{
    const QString fileName = document->getFileName();
    if (fileName.isEmpty())
        return QString();
    const auto known = m_keys.constFind(document);
    if (known != m_keys.constEnd() && known->first == fileName)
        return known->second;
    // Kept once resolved only: a file not there yet may be created through
    // a symlinked folder.
    bool resolved = false;
    const QString key = fileKey(fileName, &resolved);
    if (resolved)
        m_keys.insert(document, {fileName, key});
    else
        m_keys.remove(document);
    return key;
}

void TemplateTree::watchFile(const QString &path)
{
    if (path.isEmpty())
        return;
    if (!m_watcher) {
        m_watcher = new QFileSystemWatcher(this);
        connect(m_watcher, &QFileSystemWatcher::fileChanged, this, &TemplateTree::onFileChanged);
    }
    if (m_watcher->files().contains(path))
        m_watcher->removePath(path);
    // The watcher takes names as Qt encodes them: one whose bytes are not
    // UTF-8 is not watched; saving still finds a change made on disk.
    if (!FileNameEscape::hasEscapes(path) && QFileInfo::exists(path))
        m_watcher->addPath(path);
    dropUnusedWatches();
}

QStringList TemplateTree::watchedFiles() const
{
    return m_watcher ? m_watcher->files() : QStringList();
}

void TemplateTree::onFileChanged(const QString &path)
{
    watchFile(path);
    const QString key = fileKey(path);
    for (SedGUI *document : std::as_const(m_documents)) {
        if (documentKey(document) == key)
            document->noteDiskChange();
    }
}

void TemplateTree::dropUnusedWatches()
{
    if (!m_watcher)
        return;
    const QStringList watched = m_watcher->files();
    for (const QString &path : watched) {
        const bool used =
            std::any_of(m_documents.cbegin(), m_documents.cend(), [&path](const SedGUI *document) {
                return document->getFileName() == path;
            });
        if (!used)
            m_watcher->removePath(path);
    }
}

} // namespace koru::sedgui
