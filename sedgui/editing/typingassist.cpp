#include "editing/typingassist.h"

#include <QKeyEvent>

#include <Qsci/qsciscintilla.h>

#include <cstring>

namespace koru::sedgui {

namespace {

// How far back a typed closing brace looks for its opener.
constexpr long BraceSearchBytes = 1024 * 1024;

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\0';
}

bool isWordChar(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           (static_cast<unsigned char>(c) & 0x80);
}

char closerOf(char opener)
{
    switch (opener) {
    case '(':
        return ')';
    case '[':
        return ']';
    case '{':
        return '}';
    case '"':
    case '\'':
    case '`':
        return opener;
    default:
        return 0;
    }
}

} // namespace

TypingAssist::TypingAssist(QsciScintilla *editor, QObject *parent)
    : QObject(parent)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("TypingAssist"));
    editor->installEventFilter(this);
    // The notice before each change: the one after it is not sent for every
    // change (see ChangeRelay).
    connect(editor, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *, int length, int, int, int, int, int, int) {
                noteChange(position, type, length);
            });
    connect(editor, &QsciScintilla::cursorPositionChanged, this, [this](int line, int) {
        if (line != m_closersLine)
            m_closers.clear();
    });
}

long TypingAssist::send(unsigned int message, unsigned long wParam, long lParam) const
{
    return m_editor->SendScintilla(message, wParam, lParam);
}

bool TypingAssist::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_editor && event->type() == QEvent::KeyPress &&
        handleKey(static_cast<QKeyEvent *>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}

bool TypingAssist::handleKey(const QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const QString text = event->text();
    // A key with Alt that no menu or command took is not meant as text.
    if ((modifiers & Qt::AltModifier) && !(modifiers & Qt::ControlModifier))
        return !text.isEmpty() && text.at(0).isPrint();
    if (modifiers & (Qt::ControlModifier | Qt::MetaModifier))
        return false;
    if (m_editor->isReadOnly() || send(QsciScintillaBase::SCI_GETSELECTIONS) > 1 ||
        send(QsciScintillaBase::SCI_SELECTIONISRECTANGLE))
        return false;
    if (event->key() == Qt::Key_Backspace)
        return deletePair();
    if (text.size() != 1)
        return false;
    const char typed = text.at(0).toLatin1();
    switch (typed) {
    case ')':
    case ']':
        return stepOverCloser(typed);
    case '}':
        return stepOverCloser(typed) || typeClosingBrace();
    case '"':
    case '\'':
    case '`':
        return stepOverCloser(typed) || typeOpener(typed, typed);
    case '(':
    case '[':
    case '{':
        return typeOpener(typed, closerOf(typed));
    default:
        return false;
    }
}

bool TypingAssist::typeOpener(char opener, char closer)
{
    if (!m_autoClose)
        return false;
    const long start = send(QsciScintillaBase::SCI_GETSELECTIONSTART);
    const long end = send(QsciScintillaBase::SCI_GETSELECTIONEND);
    const char pair[] = {opener, closer, '\0'};
    const char openerOnly[] = {opener, '\0'};
    send(QsciScintillaBase::SCI_BEGINUNDOACTION);
    if (start != end) {
        // Wrap the selection and keep it selected inside the pair.
        send(QsciScintillaBase::SCI_INSERTTEXT, static_cast<unsigned long>(end),
             reinterpret_cast<long>(pair + 1));
        send(QsciScintillaBase::SCI_INSERTTEXT, static_cast<unsigned long>(start),
             reinterpret_cast<long>(openerOnly));
        send(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(start + 1), end + 1);
        send(QsciScintillaBase::SCI_ENDUNDOACTION);
        return true;
    }
    send(QsciScintillaBase::SCI_ENDUNDOACTION);

    const long length = send(QsciScintillaBase::SCI_GETLENGTH);
    const char next = start < length ? static_cast<char>(send(QsciScintillaBase::SCI_GETCHARAT,
                                                              static_cast<unsigned long>(start)))
                                     : '\0';
    // Only where nothing follows that the pair would swallow.
    if (!isSpace(next) && !std::strchr(")]};,:", next))
        return false;
    if (opener == closer) {
        const char previous = start > 0
                                  ? static_cast<char>(send(QsciScintillaBase::SCI_GETCHARAT,
                                                           static_cast<unsigned long>(start - 1)))
                                  : '\0';
        // "don't", a closing quote, a string prefix such as r"
        if (isWordChar(previous) || previous == opener)
            return false;
    }
    send(QsciScintillaBase::SCI_REPLACESEL, 0, reinterpret_cast<long>(pair));
    send(QsciScintillaBase::SCI_SETEMPTYSELECTION, static_cast<unsigned long>(start + 1));
    m_closersLine =
        send(QsciScintillaBase::SCI_LINEFROMPOSITION, static_cast<unsigned long>(start));
    m_closers.append(start + 1);
    return true;
}

bool TypingAssist::stepOverCloser(char closer)
{
    const long caret = send(QsciScintillaBase::SCI_GETCURRENTPOS);
    if (send(QsciScintillaBase::SCI_GETSELECTIONSTART) !=
            send(QsciScintillaBase::SCI_GETSELECTIONEND) ||
        !m_closers.contains(caret) ||
        send(QsciScintillaBase::SCI_GETCHARAT, static_cast<unsigned long>(caret)) != closer)
        return false;
    m_closers.removeOne(caret);
    send(QsciScintillaBase::SCI_SETEMPTYSELECTION, static_cast<unsigned long>(caret + 1));
    return true;
}

bool TypingAssist::deletePair()
{
    const long caret = send(QsciScintillaBase::SCI_GETCURRENTPOS);
    if (!m_autoClose || caret == 0 || !m_closers.contains(caret) ||
        send(QsciScintillaBase::SCI_GETSELECTIONSTART) !=
            send(QsciScintillaBase::SCI_GETSELECTIONEND))
        return false;
    const auto opener = static_cast<char>(
        send(QsciScintillaBase::SCI_GETCHARAT, static_cast<unsigned long>(caret - 1)));
    const auto closer = static_cast<char>(
        send(QsciScintillaBase::SCI_GETCHARAT, static_cast<unsigned long>(caret)));
    if (closerOf(opener) == 0 || closerOf(opener) != closer)
        return false;
    send(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(caret - 1), caret + 1);
    send(QsciScintillaBase::SCI_REPLACESEL, 0, reinterpret_cast<long>(""));
    return true;
}

bool TypingAssist::typeClosingBrace()
{
    const long caret = send(QsciScintillaBase::SCI_GETCURRENTPOS);
    const long line =
        send(QsciScintillaBase::SCI_LINEFROMPOSITION, static_cast<unsigned long>(caret));
    // Only a brace typed first on its line, after nothing but indentation.
    if (send(QsciScintillaBase::SCI_GETSELECTIONSTART) !=
            send(QsciScintillaBase::SCI_GETSELECTIONEND) ||
        caret !=
            send(QsciScintillaBase::SCI_GETLINEINDENTPOSITION, static_cast<unsigned long>(line)))
        return false;
    send(QsciScintillaBase::SCI_BEGINUNDOACTION);
    send(QsciScintillaBase::SCI_REPLACESEL, 0, reinterpret_cast<long>("}"));
    const long open = matchingOpenBrace(caret);
    if (open >= 0) {
        const long indentation =
            send(QsciScintillaBase::SCI_GETLINEINDENTATION,
                 static_cast<unsigned long>(send(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                                 static_cast<unsigned long>(open))));
        send(QsciScintillaBase::SCI_SETLINEINDENTATION, static_cast<unsigned long>(line),
             indentation);
        send(QsciScintillaBase::SCI_SETEMPTYSELECTION,
             static_cast<unsigned long>(send(QsciScintillaBase::SCI_GETLINEINDENTPOSITION,
                                             static_cast<unsigned long>(line)) +
                                        1));
    }
    send(QsciScintillaBase::SCI_ENDUNDOACTION);
    return true;
}

long TypingAssist::matchingOpenBrace(long closePosition) const
{
    // Braces in comments and strings have other styles than code's and do
    // not count; colour what is not coloured yet up to the new brace.
    send(QsciScintillaBase::SCI_COLOURISE,
         static_cast<unsigned long>(send(QsciScintillaBase::SCI_GETENDSTYLED)), closePosition + 1);
    const long style =
        send(QsciScintillaBase::SCI_GETSTYLEAT, static_cast<unsigned long>(closePosition));
    const long first = std::max(0L, closePosition - BraceSearchBytes);
    // A range that ends where the gap is: no copying of the buffer.
    const auto *text = reinterpret_cast<const char *>(
        m_editor->SendScintilla(QsciScintillaBase::SCI_GETRANGEPOINTER,
                                static_cast<unsigned long>(first), closePosition - first));
    if (!text)
        return -1;
    int depth = 0;
    for (long position = closePosition - 1; position >= first; --position) {
        const char c = text[position - first];
        if ((c != '{' && c != '}') ||
            send(QsciScintillaBase::SCI_GETSTYLEAT, static_cast<unsigned long>(position)) != style)
            continue;
        if (c == '}')
            ++depth;
        else if (depth-- == 0)
            return position;
    }
    return -1;
}

void TypingAssist::noteChange(int position, int type, int length)
{
    for (qsizetype i = m_closers.size() - 1; i >= 0; --i) {
        long &closer = m_closers[i];
        if (type & QsciScintillaBase::SC_MOD_BEFOREINSERT) {
            if (position <= closer)
                closer += length;
        } else if (type & QsciScintillaBase::SC_MOD_BEFOREDELETE) {
            if (position + length <= closer)
                closer -= length;
            else if (position <= closer)
                m_closers.removeAt(i);
        }
    }
}

} // namespace koru::sedgui
