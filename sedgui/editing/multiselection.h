#pragma once

#include "sedguiexport.h"

#include <QObject>

class QMouseEvent;
class QsciScintilla;

namespace koru::sedgui {

// Column selection and multiple carets on one editor: Alt+drag and
// Alt+Shift+arrows select a rectangle, Ctrl+click adds a caret, typing,
// Backspace and paste act at every caret as one undo step, and Escape goes
// back to the main caret. Lives as long as the editor's tool.
class SEDGUI_EXPORT MultiSelection : public QObject
{
    Q_OBJECT

public:
    // Switches the editor's multiple selection on and binds the column keys.
    MultiSelection(QsciScintilla *editor, QObject *parent);

    // Selects the word at the caret when nothing is selected; otherwise adds
    // the next occurrence of the main selection's text after it (wrapping
    // around) as a new selection. Returns false when there is none to add.
    bool addNextOccurrence();
    // Adds every occurrence of the main selection's text (of the word at the
    // caret when nothing is selected) as a selection. Returns how many
    // selections there are afterwards.
    qint64 selectAllOccurrences();
    // Keeps only the main selection's caret; false when there was one caret.
    bool collapseToMainCaret();

    // More selections than this are not added: the editor does work for each
    // of them on every key.
    static constexpr qint64 MaxSelections = 10000;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Selects the word around the caret; false when the caret is not in one.
    bool selectWordAtCaret();
    // Ctrl+click adds a caret; Alt+drag goes to the editor as the drag that
    // selects a rectangle, which it takes with Ctrl held.
    bool filterMouse(QMouseEvent *event);
    bool isSelected(qint64 start, qint64 end) const;

    QsciScintilla *m_editor;
    // The word Ctrl+D picked at the caret: its occurrences are whole words.
    qint64 m_wordStart = -1;
    qint64 m_wordEnd = -1;
    // Between a Ctrl+click's press and release, the editor sees no mouse.
    bool m_addingCaret = false;
    bool m_forwarding = false;
};

} // namespace koru::sedgui
