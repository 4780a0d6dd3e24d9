#include "editing/multiselection.h"

#include "editing/scintillacalls.h"
#include "searchcore.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

using scintilla::send;

} // namespace

MultiSelection::MultiSelection(QsciScintilla *editor, QObject *parent)
    : QObject(parent)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("MultiSelection"));
    send(editor, Sci::SCI_SETMULTIPLESELECTION, 1);
    send(editor, Sci::SCI_SETADDITIONALSELECTIONTYPING, 1);
    send(editor, Sci::SCI_SETMULTIPASTE, Sci::SC_MULTIPASTE_EACH);
    // A column may reach past the ends of shorter lines.
    send(editor, Sci::SCI_SETVIRTUALSPACEOPTIONS, Sci::SCVS_RECTANGULARSELECTION);

    const struct
    {
        QsciCommand::Command command;
        int key;
    } columnKeys[] = {
        {QsciCommand::LineDownRectExtend, Qt::Key_Down},
        {QsciCommand::LineUpRectExtend, Qt::Key_Up},
        {QsciCommand::CharLeftRectExtend, Qt::Key_Left},
        {QsciCommand::CharRightRectExtend, Qt::Key_Right},
        {QsciCommand::VCHomeRectExtend, Qt::Key_Home},
        {QsciCommand::LineEndRectExtend, Qt::Key_End},
        {QsciCommand::PageUpRectExtend, Qt::Key_PageUp},
        {QsciCommand::PageDownRectExtend, Qt::Key_PageDown},
    };
    QsciCommandSet *commands = editor->standardCommands();
    for (const auto &binding : columnKeys) {
        const int key = binding.key | Qt::ALT | Qt::SHIFT;
        if (QsciCommand *other = commands->boundTo(key);
            other && other->command() != binding.command) {
            if (other->key() == key) {
                other->setKey(0);
            }
            if (other->alternateKey() == key) {
                other->setAlternateKey(0);
            }
        }
        if (QsciCommand *command = commands->find(binding.command)) {
            command->setKey(key);
        }
    }
    editor->installEventFilter(this);
    editor->viewport()->installEventFilter(this);
}

bool MultiSelection::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_editor && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Escape && key->modifiers() == Qt::NoModifier &&
            !send(m_editor, Sci::SCI_AUTOCACTIVE) && collapseToMainCaret()) {
            return true;
        }
    }
    if (watched == m_editor->viewport() && !m_forwarding) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            return filterMouse(static_cast<QMouseEvent *>(event));
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool MultiSelection::filterMouse(QMouseEvent *event)
{
    const Qt::KeyboardModifiers modifiers =
        event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press && event->button() == Qt::LeftButton && modifiers == Qt::ControlModifier) {
        const QPoint at = event->position().toPoint();
        const qint64 pos = send(m_editor, Sci::SCI_POSITIONFROMPOINT, at.x(), at.y());
        if (!isSelected(pos, pos)) {
            send(m_editor, Sci::SCI_ADDSELECTION, pos, pos);
        }
        m_addingCaret = true;
        return true;
    }
    if (m_addingCaret) {
        if (event->type() == QEvent::MouseButtonRelease) {
            m_addingCaret = false;
        }
        return true;
    }
    if (modifiers.testFlag(Qt::AltModifier) && !modifiers.testFlag(Qt::ControlModifier) &&
        (event->buttons() & Qt::LeftButton || event->button() == Qt::LeftButton)) {
        QMouseEvent asRectangle(event->type(), event->position(), event->scenePosition(),
                                event->globalPosition(), event->button(), event->buttons(),
                                (modifiers & ~Qt::AltModifier) | Qt::ControlModifier);
        m_forwarding = true;
        QCoreApplication::sendEvent(m_editor->viewport(), &asRectangle);
        m_forwarding = false;
        return true;
    }
    return false;
}

bool MultiSelection::collapseToMainCaret()
{
    if (send(m_editor, Sci::SCI_GETSELECTIONS) < 2 &&
        send(m_editor, Sci::SCI_GETSELECTIONMODE) == Sci::SC_SEL_STREAM) {
        return false;
    }
    const qint64 main = send(m_editor, Sci::SCI_GETMAINSELECTION);
    const qint64 caret = send(m_editor, Sci::SCI_GETSELECTIONNCARET, main);
    send(m_editor, Sci::SCI_SETSELECTION, caret, caret);
    return true;
}

bool MultiSelection::selectWordAtCaret()
{
    const qint64 caret = send(m_editor, Sci::SCI_GETCURRENTPOS);
    const qint64 start = send(m_editor, Sci::SCI_WORDSTARTPOSITION, caret, 1);
    const qint64 end = send(m_editor, Sci::SCI_WORDENDPOSITION, caret, 1);
    if (start == end) {
        return false;
    }
    send(m_editor, Sci::SCI_SETSELECTION, end, start);
    m_wordStart = start;
    m_wordEnd = end;
    return true;
}

bool MultiSelection::isSelected(qint64 start, qint64 end) const
{
    const qint64 count = send(m_editor, Sci::SCI_GETSELECTIONS);
    for (qint64 i = 0; i < count; ++i) {
        if (send(m_editor, Sci::SCI_GETSELECTIONNSTART, i) == start &&
            send(m_editor, Sci::SCI_GETSELECTIONNEND, i) == end) {
            return true;
        }
    }
    return false;
}

bool MultiSelection::addNextOccurrence()
{
    const qint64 count = send(m_editor, Sci::SCI_GETSELECTIONS);
    const qint64 main = send(m_editor, Sci::SCI_GETMAINSELECTION);
    const qint64 start = send(m_editor, Sci::SCI_GETSELECTIONNSTART, main);
    const qint64 end = send(m_editor, Sci::SCI_GETSELECTIONNEND, main);
    if (start == end) {
        return count == 1 && selectWordAtCaret();
    }
    if (count >= MaxSelections) {
        return false;
    }
    if (count == 1 && (start != m_wordStart || end != m_wordEnd)) {
        m_wordStart = m_wordEnd = -1; // chosen by the user: any occurrence will do
    }
    SearchCore::Options options = SearchCore::CaseSensitive;
    options.setFlag(SearchCore::WholeWord, m_wordStart >= 0);
    QByteArrayView text = scintilla::buffer(m_editor);
    const SearchCore core(QString::fromUtf8(text.sliced(start, end - start)), options);
    // The next match after the main selection that is not selected yet,
    // going once around the document.
    SearchCore::Match match = core.find(text, end);
    bool wrapped = false;
    while (true) {
        if (!match.found()) {
            if (wrapped) {
                return false;
            }
            wrapped = true;
            match = core.find(text, 0);
            continue;
        }
        if (wrapped && match.begin >= end) {
            return false;
        }
        if (!isSelected(match.begin, match.end)) {
            break;
        }
        match = core.findAfter(text, match);
    }
    send(m_editor, Sci::SCI_ADDSELECTION, match.end, match.begin);
    send(m_editor, Sci::SCI_SCROLLRANGE, match.begin, match.end);
    return true;
}

qint64 MultiSelection::selectAllOccurrences()
{
    const qint64 main = send(m_editor, Sci::SCI_GETMAINSELECTION);
    qint64 start = send(m_editor, Sci::SCI_GETSELECTIONNSTART, main);
    qint64 end = send(m_editor, Sci::SCI_GETSELECTIONNEND, main);
    if (start == end) {
        if (!selectWordAtCaret()) {
            return send(m_editor, Sci::SCI_GETSELECTIONS);
        }
        start = m_wordStart;
        end = m_wordEnd;
    } else if (start != m_wordStart || end != m_wordEnd) {
        m_wordStart = m_wordEnd = -1;
    }
    SearchCore::Options options = SearchCore::CaseSensitive;
    options.setFlag(SearchCore::WholeWord, m_wordStart >= 0);
    const QByteArrayView text = scintilla::buffer(m_editor);
    const SearchCore core(QString::fromUtf8(text.sliced(start, end - start)), options);
    // The main selection stays where it is, the others are set around it.
    send(m_editor, Sci::SCI_SETSELECTION, end, start);
    qint64 count = 1;
    for (auto match = core.find(text, 0); match.found() && count < MaxSelections;
         match = core.findAfter(text, match)) {
        if (match.begin != start || match.end != end) {
            send(m_editor, Sci::SCI_ADDSELECTION, match.end, match.begin);
            ++count;
        }
    }
    // Adding made the last one the main selection; give it back to the first.
    for (qint64 i = 0; i < count; ++i) {
        if (send(m_editor, Sci::SCI_GETSELECTIONNSTART, i) == start) {
            send(m_editor, Sci::SCI_SETMAINSELECTION, i);
            break;
        }
    }
    return count;
}

} // namespace koru::sedgui
