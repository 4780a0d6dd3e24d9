#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

class QsciScintilla;

// Types keys into the program it lives in and times each one from the moment
// the key press is queued to the end of the first repaint of the window after
// the key was handled: what a user sees between pressing a key and seeing it.
//
// It waits until the program has been idle (its own CPU time flat for
// KEYPROBE_IDLE_MS, default 300 ms), puts the caret of the first visible
// editing widget at KEYPROBE_AT ("end", the default, or "middle") and, with
// KEYPROBE_CARETS=N, N-1 more carets at line starts 10 lines apart above it
// (multiple selection and typing into all of them turned on), then
// types KEYPROBE_KEYS keys (default 300), letters with a space now and then,
// each posted to the editor through the event queue after the previous one
// was painted. It writes one line to the file KEYPROBE_OUT,
//   status=ok keys=N median_ms=M p99_ms=P max_ms=X doc_bytes=B doc_lines=L carets=C
// (status=timeout when a key was never painted within 5 s) and ends
// the process at once, so that no "save changes?" question holds it. With
// KEYPROBE_TRACE set, each key's time (and the main thread's processor time
// for it) goes to the standard error as well.
class KeyProbe : public QObject
{
    Q_OBJECT

public:
    KeyProbe();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void waitForIdle();
    bool placeCaret();
    void typeNext();
    void keyPainted();
    void finish(const char *status);

    enum class State { Waiting, Typing, Painting, Done };
    State m_state = State::Waiting;
    QTimer m_poll;
    QTimer m_keyTimeout;
    QElapsedTimer m_clock;
    qint64 m_cpuNs = -1;
    qint64 m_idleSinceMs = 0;
    int m_idleMs = 300;
    int m_keys = 300;
    int m_typed = 0;
    qint64 m_pressedNs = 0;
    qint64 m_pressedCpuNs = 0;
    bool m_handled = false;
    QPointer<QsciScintilla> m_editor;
    QList<double> m_latencies;
};
