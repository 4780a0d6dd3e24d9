#pragma once

#include "sedguiexport.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

namespace koru::sedgui {

class CompletionList;
class SedGUI;

// Offers words to complete the one being typed: words near the caret, words
// of every open document and the keywords of the document's language. The
// list opens by itself once a word has MinimumPrefix characters, and on
// request (Ctrl+Space) for any word.
//
// Typing never waits for a scan of the whole document: the words near the
// caret are read on each request from a bounded window, and every document
// keeps an index of its words that is built in slices while the program is
// idle, from the first time any document asks for words. The index counts
// every word and follows each edit by recounting only the words the edit
// touches, so the work per keystroke does not grow with the document; an
// edit too large for that, or a change it was not told about, has the index
// built again in slices, the old words still offered until it is done.
// The other documents' words are looked up in a sorted copy, so that opening
// the list does not read every word of every open document.
class SEDGUI_EXPORT WordCompleter : public QObject
{
    Q_OBJECT

public:
    WordCompleter(SedGUI *tool, QObject *parent);

    static constexpr int MinimumPrefix = 3;
    // Bytes read on each side of the caret on every request.
    static constexpr qint64 Window = 32 * 1024;
    // Bytes the index reads in one slice, and the most words it keeps. An
    // edit larger than a slice has the index built again.
    static constexpr qint64 IndexSlice = 256 * 1024;
    static constexpr qsizetype MaxIndexedWords = 200000;

    // Shows the words that start with the word before the caret in the list
    // (explicitly: however short it is, and a single one is inserted at
    // once). Returns how many were offered.
    int complete(bool explicitly);

    // The words offered for prefix, sorted, without prefix itself.
    QStringList candidates(const QByteArray &prefix);

    // True once the index has read the whole document.
    bool isIndexed() const
    {
        return m_indexedTo >= 0 && !m_indexTimer.isActive() && !m_checkTimer.isActive();
    }

private:
    void onCharAdded(int ch);
    // Starts building the index if it has not been started.
    void startIndexing();
    void restartIndexing();
    void indexSlice();
    void onModified(int position, int type, int length);
    // Adds (sign 1) or takes away (-1) the words that lie in [from, to)
    // widened to whole words, as far as the index has read.
    void recount(qint64 from, qint64 to, int sign);
    void addWord(QByteArrayView word);
    QByteArray prefixAtCaret(qint64 *caret) const;
    void addKeywords(QSet<QByteArray> *words) const;
    // Adds the indexed words that start with prefix and are longer (sort:
    // keeping them sorted for the next time).
    void collect(const QByteArray &prefix, bool sort, QSet<QByteArray> *words);

    SedGUI *m_tool;
    CompletionList *m_list;
    // How often each word occurs in the part of the document read so far.
    QHash<QByteArray, qint32> m_index;
    // The words of the index before it was started again, until it is complete.
    QHash<QByteArray, qint32> m_previous;
    // The words of both, sorted, while m_sortedCurrent: until a word comes
    // or goes.
    QList<QByteArray> m_sorted;
    bool m_sortedCurrent = false;
    // Where the index goes on reading; -1 before it started. It always lies
    // just after a character that is not part of a word.
    qint64 m_indexedTo = -1;
    bool m_complete = false;
    QTimer m_indexTimer;
    // Changes heard of as text changes and as edits with a place; when they
    // differ, some change came without a place and the index is built again.
    qint64 m_textChanges = 0;
    qint64 m_edits = 0;
    QTimer m_checkTimer;
};

} // namespace koru::sedgui
