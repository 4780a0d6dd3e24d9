#pragma once

#include <QList>
#include <QObject>

class QKeyEvent;
class QsciScintilla;

namespace koru::sedgui {

// Helps with what is typed into one editing widget: a closing brace typed
// first on a line moves the line to its block's indentation; Alt with a key
// never types the key's text. With auto-closing on, an opening bracket or
// quote brings its closer, typing that closer steps over it, Backspace
// between the two removes both, and an opener typed over a selection wraps it.
// Stands aside for several selections and read-only text.
class TypingAssist : public QObject
{
    Q_OBJECT

public:
    explicit TypingAssist(QsciScintilla *editor, QObject *parent = nullptr);

    void setAutoClose(bool on) { m_autoClose = on; }
    bool autoClose() const { return m_autoClose; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleKey(const QKeyEvent *event);
    bool typeOpener(char opener, char closer);
    bool stepOverCloser(char closer);
    bool typeClosingBrace();
    bool deletePair();
    long matchingOpenBrace(long closePosition) const;
    void noteChange(int position, int type, int length);
    long send(unsigned int message, unsigned long wParam = 0, long lParam = 0) const;

    QsciScintilla *m_editor;
    bool m_autoClose = true;
    // Closers this object put in, on the caret's line, as positions.
    QList<long> m_closers;
    long m_closersLine = -1;
};

} // namespace koru::sedgui
