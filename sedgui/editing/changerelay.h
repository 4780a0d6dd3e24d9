#pragma once

#include <QObject>

class QsciScintilla;

namespace koru::sedgui {

// Keeps the editor's change signals (textChanged, linesChanged) coming
// without the cost the editing component adds to each reported change: for
// every insertion or deletion it reports, it counts the characters from the
// start of the document to the change and converts the changed text to
// UTF-16, for assistive technology, whether any is listening or not. Typing
// at the end of a 50 MB file spent half a second per key on that count, and
// loading a file converted all of it once more.
//
// A small change near the start is reported as it always was. For a change
// that ends further in, the component is told not to report it (the notice that comes before a
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

    // Changes that end before this byte are reported by the component.
    static constexpr long NearBytes = 64 * 1024;

private:
    void beforeChange(int position, int length);
    void flush();

    QsciScintilla *m_editor;
    // Lines before the first change not yet reported; -1 when none is.
    long m_linesBefore = -1;
};

} // namespace koru::sedgui
