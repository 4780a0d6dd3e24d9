#include "keyprobe.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

constexpr int PollMs = 50;
constexpr int WarmUpKeys = 10;
constexpr int KeyTimeoutMs = 5000;
constexpr int StartTimeoutMs = 120000;
// Lines between the carets when there are several.
constexpr long CaretLineStep = 10;

qint64 cpuNs(clockid_t clock = CLOCK_PROCESS_CPUTIME_ID)
{
    timespec now{};
    clock_gettime(clock, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

int envInt(const char *name, int fallback)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok && value > 0 ? value : fallback;
}

// The editing widget a user would type into: the visible one in the window.
QsciScintilla *visibleEditor()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (!window->isVisible())
            continue;
        const QList<QsciScintilla *> editors = window->findChildren<QsciScintilla *>();
        for (QsciScintilla *editor : editors) {
            if (editor->isVisible())
                return editor;
        }
    }
    return nullptr;
}

} // namespace

KeyProbe::KeyProbe()
{
    m_idleMs = envInt("KEYPROBE_IDLE_MS", m_idleMs);
    m_keys = envInt("KEYPROBE_KEYS", m_keys);
    m_clock.start();
    m_poll.setInterval(PollMs);
    connect(&m_poll, &QTimer::timeout, this, &KeyProbe::waitForIdle);
    m_keyTimeout.setSingleShot(true);
    m_keyTimeout.setInterval(KeyTimeoutMs);
    connect(&m_keyTimeout, &QTimer::timeout, this, [this] { finish("timeout"); });
    // Made while the application itself is being set up: start once its
    // event loop runs.
    QMetaObject::invokeMethod(
        this,
        [this] {
            qApp->installEventFilter(this);
            m_poll.start();
        },
        Qt::QueuedConnection);
}

void KeyProbe::waitForIdle()
{
    const qint64 now = m_clock.elapsed();
    const qint64 cpu = cpuNs();
    const bool busy = m_cpuNs < 0 || cpu - m_cpuNs > 2000000;
    m_cpuNs = cpu;
    if (busy || !visibleEditor())
        m_idleSinceMs = now;
    if (now > StartTimeoutMs) {
        finish("never-idle");
        return;
    }
    if (now - m_idleSinceMs < m_idleMs)
        return;
    if (!m_editor) {
        // Caret placed, then idle once more before the first key.
        if (!placeCaret())
            finish("no-editor");
        m_idleSinceMs = now;
        return;
    }
    m_poll.stop();
    typeNext();
}

bool KeyProbe::placeCaret()
{
    m_editor = visibleEditor();
    if (!m_editor)
        return false;
    QApplication::setActiveWindow(m_editor->window());
    m_editor->setFocus();
    if (qgetenv("KEYPROBE_AT") == "middle")
        m_editor->SendScintilla(QsciScintillaBase::SCI_GOTOLINE, m_editor->lines() / 2);
    else
        m_editor->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    // More carets, each at the start of a line above the first one, the way
    // a user adds them; typing then goes to all of them.
    const int carets = envInt("KEYPROBE_CARETS", 1);
    if (carets > 1) {
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETMULTIPLESELECTION, 1);
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETADDITIONALSELECTIONTYPING, 1);
        const long line =
            m_editor->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                    m_editor->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS));
        for (int i = 1; i < carets; ++i) {
            const long position = m_editor->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE,
                                                          std::max(0L, line - i * CaretLineStep));
            m_editor->SendScintilla(QsciScintillaBase::SCI_ADDSELECTION,
                                    static_cast<unsigned long>(position), position);
        }
    }
    return true;
}

void KeyProbe::typeNext()
{
    if (!m_editor) {
        finish("no-editor");
        return;
    }
    // Letters, and a space every eighth key, so that words form.
    const int n = m_typed;
    const bool space = n % 8 == 7;
    const int key = space ? int(Qt::Key_Space) : int(Qt::Key_A) + n % 26;
    const QString text = space ? QStringLiteral(" ") : QString(QChar(u'a' + n % 26));
    m_state = State::Typing;
    m_handled = false;
    m_pressedNs = m_clock.nsecsElapsed();
    m_pressedCpuNs = cpuNs(CLOCK_THREAD_CPUTIME_ID);
    QCoreApplication::postEvent(m_editor,
                                new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    QCoreApplication::postEvent(m_editor,
                                new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, text));
    m_keyTimeout.start();
}

bool KeyProbe::eventFilter(QObject *watched, QEvent *event)
{
    if (m_state != State::Typing || !m_editor)
        return false;
    if (event->type() == QEvent::KeyPress && watched == m_editor) {
        m_handled = true;
        return false;
    }
    if (event->type() != QEvent::UpdateRequest || !m_handled)
        return false;
    QWidget *window = m_editor->window();
    if (watched != window && watched != window->windowHandle())
        return false;
    // Paint now, inside the filter, to see when the repaint ends.
    m_state = State::Painting;
    watched->event(event);
    keyPainted();
    return true;
}

void KeyProbe::keyPainted()
{
    m_keyTimeout.stop();
    const double ms = double(m_clock.nsecsElapsed() - m_pressedNs) / 1e6;
    // KEYPROBE_TRACE=1: each key's time on the standard error, to see which
    // keys are slow, and the processor time the main thread spent on it,
    // which a busy machine disturbs less.
    static const bool trace = qEnvironmentVariableIsSet("KEYPROBE_TRACE");
    if (trace)
        std::fprintf(stderr, "keyprobe: key %d %.2f ms %.2f cpu\n", m_typed, ms,
                     double(cpuNs(CLOCK_THREAD_CPUTIME_ID) - m_pressedCpuNs) / 1e6);
    if (++m_typed > WarmUpKeys)
        m_latencies.append(ms);
    if (m_latencies.size() >= m_keys) {
        finish("ok");
        return;
    }
    QMetaObject::invokeMethod(this, &KeyProbe::typeNext, Qt::QueuedConnection);
}

void KeyProbe::finish(const char *status)
{
    m_state = State::Done;
    QList<double> sorted = m_latencies;
    std::sort(sorted.begin(), sorted.end());
    const qsizetype n = sorted.size();
    const auto at = [&](double share) {
        return n ? sorted.at(
                       std::clamp<qsizetype>(qsizetype(share * double(n) + 0.999) - 1, 0, n - 1))
                 : 0.0;
    };
    const double median =
        n ? (n % 2 ? sorted.at(n / 2) : (sorted.at(n / 2 - 1) + sorted.at(n / 2)) / 2) : 0.0;
    const QByteArray path = qgetenv("KEYPROBE_OUT");
    FILE *out = path.isEmpty() ? stdout : std::fopen(path.constData(), "w");
    if (out) {
        // The document's size and lines show which editor took the keys.
        std::fprintf(out,
                     "status=%s keys=%lld median_ms=%.2f p99_ms=%.2f max_ms=%.2f doc_bytes=%d "
                     "doc_lines=%d carets=%ld\n",
                     status, static_cast<long long>(n), median, at(0.99), n ? sorted.last() : 0.0,
                     m_editor ? m_editor->length() : -1, m_editor ? m_editor->lines() : -1,
                     m_editor ? m_editor->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONS)
                              : -1L);
        std::fflush(out);
    }
    // At once: the typed text must not lead to a "save changes?" question.
    std::_Exit(0);
}
