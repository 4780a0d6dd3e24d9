#include "editing/changerelay.h"

#include "editing/scintillacalls.h"

#include <Qsci/qsciscintilla.h>

#include <utility>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

// Every flag a reported insertion or deletion carries: leaving all of them
// out of the mask keeps the component from reporting it.
constexpr long TextChangeFlags =
    Sci::SC_MOD_INSERTTEXT | Sci::SC_MOD_DELETETEXT | Sci::SC_PERFORMED_USER |
    Sci::SC_PERFORMED_UNDO | Sci::SC_PERFORMED_REDO | Sci::SC_MULTISTEPUNDOREDO |
    Sci::SC_LASTSTEPINUNDOREDO | Sci::SC_MULTILINEUNDOREDO | Sci::SC_STARTACTION;

} // namespace

ChangeRelay::ChangeRelay(QsciScintilla *editor)
    : QObject(editor)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("ChangeRelay"));
    connect(editor, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *, int length, int, int, int, int, int, int) {
                if (type & (Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE))
                    beforeChange(position, length);
            });
}

void ChangeRelay::beforeChange(int position, int length)
{
    using scintilla::send;
    // Set for the change that follows this notice; the mask's other flags
    // are left as they are.
    const qint64 mask = send(m_editor, Sci::SCI_GETMODEVENTMASK);
    if (qint64(position) + length < NearBytes) {
        send(m_editor, Sci::SCI_SETMODEVENTMASK, mask | TextChangeFlags);
        return;
    }
    send(m_editor, Sci::SCI_SETMODEVENTMASK, mask & ~TextChangeFlags);
    if (m_linesBefore >= 0)
        return;
    m_linesBefore = long(send(m_editor, Sci::SCI_GETLINECOUNT));
    QMetaObject::invokeMethod(this, &ChangeRelay::flush, Qt::QueuedConnection);
}

void ChangeRelay::flush()
{
    const long linesBefore = std::exchange(m_linesBefore, -1);
    Q_EMIT m_editor->textChanged();
    if (scintilla::send(m_editor, Sci::SCI_GETLINECOUNT) != linesBefore)
        Q_EMIT m_editor->linesChanged();
}

} // namespace koru::sedgui
