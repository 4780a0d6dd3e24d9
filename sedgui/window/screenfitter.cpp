#include "window/screenfitter.h"

#include "session/sessionkeeper.h"

#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QWindow>

namespace koru::sedgui {

ScreenFitter::ScreenFitter(QMainWindow *window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
}

bool ScreenFitter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Show) {
        if (QWindow *handle = m_window->windowHandle()) {
            connect(handle, &QWindow::screenChanged, this, &ScreenFitter::followScreen,
                    Qt::UniqueConnection);
            followScreen(handle->screen());
        }
    } else if (watched == m_window && !m_frameKnown &&
               (event->type() == QEvent::Paint || event->type() == QEvent::Move ||
                event->type() == QEvent::WindowActivate) &&
               m_window->isVisible() && m_window->frameGeometry() != m_window->geometry()) {
        m_frameKnown = true;
        fit();
    }
    return QObject::eventFilter(watched, event);
}

void ScreenFitter::followScreen(QScreen *screen)
{
    if (m_screen != screen) {
        if (m_screen)
            disconnect(m_screen, nullptr, this, nullptr);
        m_screen = screen;
        if (screen)
            connect(screen, &QScreen::availableGeometryChanged, this, &ScreenFitter::fit);
    }
    fit();
}

void ScreenFitter::fit()
{
    if (!m_screen || m_window->isMaximized() || m_window->isFullScreen())
        return;
    // The frame counts: a title bar off the screen cannot be grabbed to move it back.
    const QRect frame = m_window->frameGeometry();
    const QRect inner = m_window->geometry();
    const QRect fit = SessionKeeper::fitted(frame, m_screen->availableGeometry());
    if (fit == frame)
        return;
    const QMargins margins(inner.left() - frame.left(), inner.top() - frame.top(),
                           frame.right() - inner.right(), frame.bottom() - inner.bottom());
    m_window->setGeometry(fit.marginsRemoved(margins));
}

} // namespace koru::sedgui
