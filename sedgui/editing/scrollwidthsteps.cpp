#include "editing/scrollwidthsteps.h"

#include <QScrollBar>

#include <Qsci/qsciscintilla.h>

#include <algorithm>

namespace koru::sedgui {

ScrollWidthSteps::ScrollWidthSteps(QsciScintilla *editor)
    : QObject(editor)
    , m_editor(editor)
{
    // The bar's range changes when the width or the view does; the rounding
    // waits for the event loop, outside the component's own scroll bar update.
    connect(editor->horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this] {
        if (m_pending)
            return;
        m_pending = true;
        QMetaObject::invokeMethod(this, &ScrollWidthSteps::adjust, Qt::QueuedConnection);
    });
}

void ScrollWidthSteps::adjust()
{
    m_pending = false;
    const long width = m_editor->SendScintilla(QsciScintillaBase::SCI_GETSCROLLWIDTH);
    // A width other than the one set here is the component's own: a wider
    // line seen, or a new text measured afresh.
    if (width != m_set)
        m_measured = width;
    // The bar's page is the width of the text area.
    const long view = m_editor->horizontalScrollBar()->pageStep();
    if (view <= 0)
        return;
    const long step = std::max(MinimumStep, view / 4);
    long rounded = (m_measured + step - 1) / step * step;
    if (m_measured <= view)
        rounded = std::min(rounded, view);
    m_set = rounded;
    if (rounded != width)
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETSCROLLWIDTH,
                                static_cast<unsigned long>(rounded));
}

} // namespace koru::sedgui
