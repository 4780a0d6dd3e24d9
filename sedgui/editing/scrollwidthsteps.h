#pragma once

#include <QObject>

class QsciScintilla;

namespace koru::sedgui {

// Lets the horizontal scroll bar span the widest line in steps instead of to
// the pixel. The editing component widens its scroll width to each wider line
// it paints; typing at the end of the widest line then changed the scroll bar
// every few keys, and each change repainted the bar and laid out the view
// again. Here the width is rounded up to a step (a quarter of the view, at
// least MinimumStep pixels), so most keys leave it alone; while every line
// fits the view the width never goes beyond it, so no scroll bar shows.
class ScrollWidthSteps : public QObject
{
    Q_OBJECT

public:
    explicit ScrollWidthSteps(QsciScintilla *editor);

    static constexpr long MinimumStep = 256;

private:
    void adjust();

    QsciScintilla *m_editor;
    // The width the component measured, and the rounded one set here.
    long m_measured = 0;
    long m_set = -1;
    bool m_pending = false;
};

} // namespace koru::sedgui
