#pragma once

#include <QObject>

class QsciScintilla;

namespace koru::sedgui {

// Keeps the editor's change signals (textChanged, linesChanged) coming
// without the cost the editing component adds to each reported change: for
// every insertion or deletion it reports, it counts the characters from the
// start of the document to the change, for assistive technology, whether any
// is listening or not. Typing at the end of a 50 MB file spent half a second
// per key on that count.
//
// A change near the start is reported as it always was. For a change further
// in, the component is told not to report it (the notice that comes before a
// change still comes, and costs nothing); this object then emits textChanged
// once from the event loop, before the next repaint, and linesChanged with it
// when the number of lines differs from before the change. Readers of the
// change's details listen to the notice before it (SC_MOD_BEFOREINSERT,
// SC_MOD_BEFOREDELETE), which always comes.
class ChangeRelay : public QObject
{
    Q_OBJECT

public:
    explicit ChangeRelay(QsciScintilla *editor);

    // Changes that start before this byte are reported by the component.
    static constexpr long NearBytes = 64 * 1024;

private:
    void beforeChange(int position);
    void flush();

    QsciScintilla *m_editor;
    // Lines before the first change not yet reported; -1 when none is.
    long m_linesBefore = -1;
};

} // namespace koru::sedgui
