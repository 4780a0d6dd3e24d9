#pragma once

#include "sedguiexport.h"

#include <QByteArray>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

namespace koru::sedgui {

class SedGUI;

// Offers words to complete the one being typed: words near the caret, words
// of every open document and the keywords of the document's language. The
// list opens by itself once a word has MinimumPrefix characters, and on
// request (Ctrl+Space) for any word.
//
// Typing never waits for a scan of the whole document: the words near the
// caret are read on each request from a bounded window, and every document
// keeps an index of its words that is built in slices while the program is
// idle, from the first time any document asks for words.
class SEDGUI_EXPORT WordCompleter : public QObject
{
    Q_OBJECT

public:
    WordCompleter(SedGUI *tool, QObject *parent);

    static constexpr int MinimumPrefix = 3;
    // Bytes read on each side of the caret on every request.
    static constexpr qint64 Window = 32 * 1024;
    // Bytes the index reads in one slice, and the most words it keeps.
    static constexpr qint64 IndexSlice = 256 * 1024;
    static constexpr qsizetype MaxIndexedWords = 200000;

    // Shows the words that start with the word before the caret (explicitly:
    // however short it is, and a single one is inserted at once). Returns how
    // many were offered.
    int complete(bool explicitly);

    // The words offered for prefix, sorted, without prefix itself.
    QStringList candidates(const QByteArray &prefix);

    // True once the index has read the whole document.
    bool isIndexed() const { return m_indexedTo >= 0 && !m_indexTimer.isActive(); }

private:
    void onCharAdded(int ch);
    // Starts building the index if it has not been started.
    void startIndexing();
    void indexSlice();
    QByteArray prefixAtCaret(qint64 *caret) const;
    void addKeywords(QSet<QByteArray> *words) const;

    SedGUI *m_tool;
    QSet<QByteArray> m_index;
    // Where the index goes on reading; -1 before it started.
    qint64 m_indexedTo = -1;
    QTimer m_indexTimer;
};

} // namespace koru::sedgui
