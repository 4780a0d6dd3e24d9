#pragma once

#include "sedguiexport.h"

#include <QListWidget>

class QsciScintilla;

namespace koru::sedgui {

// The list of words offered to complete the one at the caret: one plain child
// of the editing widget, made once and shown again for every word. The
// component's own list was a window of its own, made anew each time it
// opened (about every eighth key while typing) and taken down at the next
// word's end, which cost more than the key itself.
//
// While it is open, Up, Down, Page Up and Page Down choose a word, Return and
// Tab put it in place of the word typed so far, Escape closes it. Other keys
// go to the text; then the list marks the first word that starts with what
// is typed, and closes when none does or the caret left the word.
class SEDGUI_EXPORT CompletionList : public QListWidget
{
    Q_OBJECT

public:
    explicit CompletionList(QsciScintilla *editor);

    static constexpr int VisibleRows = 10;

    // Offers words, sorted, for the word that starts at the byte wordStart
    // and ends at the caret.
    void open(const QStringList &words, qint64 wordStart);
    bool isOpen() const { return m_open; }
    // Puts word in place of the word typed so far and closes the list.
    void insert(const QString &word);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Marks the first word that starts with what is typed, or closes.
    void follow();
    void followSoon();
    void place();
    void shut();

    QsciScintilla *m_editor;
    QStringList m_words;
    QSize m_size;
    qint64 m_wordStart = 0;
    bool m_followPending = false;
    bool m_open = false;
};

} // namespace koru::sedgui
