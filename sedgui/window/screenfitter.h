#pragma once

#include "sedguiexport.h"

#include <QObject>
#include <QPointer>

class QMainWindow;
class QScreen;

namespace koru::sedgui {

// Attached to the main window from main(): keeps the window, with its frame,
// within the available area of its screen when it is shown, when it moves to
// another screen and when that area changes (a panel added, the resolution or
// the scale changed). It is moved first and shrunk only as far as needed
// (SessionKeeper::fitted); a maximized or full-screen window is left to the
// window manager. The fitter is a child of the window.
class SEDGUI_EXPORT ScreenFitter : public QObject
{
    Q_OBJECT

public:
    explicit ScreenFitter(QMainWindow *window);

    void fit();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followScreen(QScreen *screen);

    QMainWindow *m_window = nullptr;
    QPointer<QScreen> m_screen;
    // The window manager's frame is not known when the window is shown,
    // only by its first paint: it is fitted again then, once.
    bool m_frameKnown = false;
};

} // namespace koru::sedgui
