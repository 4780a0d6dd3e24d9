#include "editing/completionlist.h"

#include "editing/scintillacalls.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <Qsci/qsciscintilla.h>

#include <algorithm>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;
using scintilla::send;

// Letters of any script (all bytes of multi-byte UTF-8), digits and '_'.
bool isWordByte(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') ||
           (u >= '0' && u <= '9') || u == '_';
}

} // namespace

CompletionList::CompletionList(QsciScintilla *editor)
    : QListWidget(editor)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("CompletionList"));
    // The keys stay with the text.
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Shown once, closed by taking its size away: showing and hiding a child
    // has its parent laid out again, which cost a millisecond at the next key.
    setGeometry(QRect());
    show();
    connect(this, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { insert(item->text()); });
    editor->installEventFilter(this);
    editor->viewport()->installEventFilter(this);
    // Scrolled away from the word: closed.
    for (QScrollBar *bar : {editor->verticalScrollBar(), editor->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] {
            if (isOpen())
                shut();
        });
}

void CompletionList::open(const QStringList &words, qint64 wordStart)
{
    m_wordStart = wordStart;
    // Words typed again bring the same list: it stays as it was made.
    if (words != m_words || font() != m_editor->font()) {
        m_words = words;
        clear();
        addItems(words);
        if (font() != m_editor->font())
            setFont(m_editor->font());
        const int rows = std::min<int>(VisibleRows, count());
        int width = 0;
        const QFontMetrics metrics(font());
        for (const QString &word : words)
            width = std::max(width, metrics.horizontalAdvance(word));
        const int frame = 2 * frameWidth();
        m_size = QSize(width + frame + 4 * metrics.averageCharWidth() +
                           (count() > rows ? verticalScrollBar()->sizeHint().width() : 0),
                       rows * std::max(1, sizeHintForRow(0)) + frame);
    }
    m_open = true;
    raise();
    follow();
}

void CompletionList::shut()
{
    m_open = false;
    setGeometry(QRect());
}

void CompletionList::place()
{
    const QSize size = m_size;
    // Below the caret's line at the word's start, or above it where there is
    // no room below; within the editing widget.
    const qint64 caret = send(m_editor, Sci::SCI_GETCURRENTPOS);
    const int lineHeight =
        int(send(m_editor, Sci::SCI_TEXTHEIGHT, send(m_editor, Sci::SCI_LINEFROMPOSITION, caret)));
    const QPoint word = m_editor->viewport()->mapTo(
        m_editor, QPoint(int(send(m_editor, Sci::SCI_POINTXFROMPOSITION, 0, m_wordStart)),
                         int(send(m_editor, Sci::SCI_POINTYFROMPOSITION, 0, caret))));
    int y = word.y() + lineHeight;
    if (y + size.height() > m_editor->height() && word.y() - size.height() >= 0)
        y = word.y() - size.height();
    const int x = std::clamp(word.x(), 0, std::max(0, m_editor->width() - size.width()));
    setGeometry(QRect(QPoint(x, y), size));
}

void CompletionList::followSoon()
{
    if (m_followPending)
        return;
    m_followPending = true;
    QMetaObject::invokeMethod(this, &CompletionList::follow, Qt::QueuedConnection);
}

void CompletionList::follow()
{
    m_followPending = false;
    if (!isOpen())
        return;
    const qint64 caret = send(m_editor, Sci::SCI_GETCURRENTPOS);
    if (caret < m_wordStart || caret - m_wordStart > 256 ||
        send(m_editor, Sci::SCI_GETSELECTIONS) > 1 || send(m_editor, Sci::SCI_GETANCHOR) != caret) {
        shut();
        return;
    }
    const auto *bytes = reinterpret_cast<const char *>(
        m_editor->SendScintilla(Sci::SCI_GETRANGEPOINTER, static_cast<unsigned long>(m_wordStart),
                                static_cast<long>(caret - m_wordStart)));
    const QByteArrayView typed(bytes, bytes ? caret - m_wordStart : 0);
    if (!std::all_of(typed.begin(), typed.end(), isWordByte)) {
        shut();
        return;
    }
    const QString prefix = QString::fromUtf8(typed);
    const auto it = std::lower_bound(m_words.cbegin(), m_words.cend(), prefix);
    if (it == m_words.cend() || !it->startsWith(prefix)) {
        shut();
        return;
    }
    setCurrentRow(int(it - m_words.cbegin()));
    // The text may have scrolled under it.
    place();
}

void CompletionList::insert(const QString &word)
{
    const qint64 caret = send(m_editor, Sci::SCI_GETCURRENTPOS);
    const QByteArray bytes = word.toUtf8();
    shut();
    if (caret < m_wordStart)
        return;
    send(m_editor, Sci::SCI_BEGINUNDOACTION);
    send(m_editor, Sci::SCI_SETTARGETRANGE, m_wordStart, caret);
    m_editor->SendScintilla(Sci::SCI_REPLACETARGET, static_cast<unsigned long>(bytes.size()),
                            bytes.constData());
    send(m_editor, Sci::SCI_GOTOPOS, m_wordStart + bytes.size());
    send(m_editor, Sci::SCI_ENDUNDOACTION);
}

bool CompletionList::eventFilter(QObject *watched, QEvent *event)
{
    if (!isOpen())
        return QListWidget::eventFilter(watched, event);
    if (watched == m_editor->viewport()) {
        if (event->type() == QEvent::MouseButtonPress)
            shut();
        return QListWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::FocusOut:
    case QEvent::Resize:
        shut();
        break;
    case QEvent::KeyPress: {
        // Keys sent before the list followed the last one see it current.
        if (m_followPending)
            follow();
        if (!isOpen())
            break;
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->modifiers() & ~Qt::KeypadModifier) {
            followSoon();
            break;
        }
        const int page = std::max(1, VisibleRows - 1);
        const int last = count() - 1;
        switch (key->key()) {
        case Qt::Key_Up:
            setCurrentRow(std::max(0, currentRow() - 1));
            return true;
        case Qt::Key_Down:
            setCurrentRow(std::min(last, currentRow() + 1));
            return true;
        case Qt::Key_PageUp:
            setCurrentRow(std::max(0, currentRow() - page));
            return true;
        case Qt::Key_PageDown:
            setCurrentRow(std::min(last, currentRow() + page));
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
            if (QListWidgetItem *item = currentItem()) {
                insert(item->text());
                return true;
            }
            shut();
            break;
        case Qt::Key_Escape:
            shut();
            return true;
        default:
            followSoon();
            break;
        }
        break;
    }
    default:
        break;
    }
    return QListWidget::eventFilter(watched, event);
}

} // namespace koru::sedgui
