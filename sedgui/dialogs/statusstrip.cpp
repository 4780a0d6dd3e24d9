#include "dialogs/statusstrip.h"

#include "editing/editoractions.h"
#include "editing/indentation.h"
#include "options/editorsettings.h"
#include "sedgui.h"
#include "textformat.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

#include <Qsci/qsciscintilla.h>

#include <algorithm>

namespace koru::sedgui {

namespace {

// Above this many bytes a selection's characters are not counted (that
// would walk through them at every caret move): only its lines are shown.
constexpr long CountedSelectionBytes = 1024 * 1024;
// Above this many bytes between line start and caret, the column is the
// byte offset instead of the tab-expanded column.
constexpr long MeasuredColumnBytes = 64 * 1024;

// Entry widths are rounded up to this many average characters.
constexpr int WidthStep = 4;

void setText(QToolButton *button, const QString &text)
{
    if (button->text() != text)
        button->setText(text);
}

// Sets text that changes with every key (the caret's column) on a button of
// fixed size, rounded up to a few characters. A button whose size may change
// has the whole window laid out again, and the tab widget above repaints all
// it holds; one of fixed size repaints just itself, and only a width that
// steps over the rounding lays out the strip again.
void setSteadyText(QToolButton *button, const QString &text)
{
    if (button->text() == text)
        return;
    button->setText(text);
    const QSize hint = button->sizeHint();
    const int step = WidthStep * std::max(1, button->fontMetrics().averageCharWidth());
    const QSize size((hint.width() + step - 1) / step * step, hint.height());
    if (button->minimumSize() != size || button->maximumSize() != size)
        button->setFixedSize(size);
}

} // namespace

StatusStrip::StatusStrip(SedGUI *tool, EditorActions *actions, Indentation *indentation)
    : QFrame(tool)
    , m_tool(tool)
    , m_indentation(indentation)
{
    setObjectName(QStringLiteral("StatusStrip"));
    setFrameShape(QFrame::NoFrame);
    // Painted whole by itself, so that an entry changed at a key repaints
    // the strip alone, not the widgets behind it as well.
    setAutoFillBackground(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(2);

    QToolButton *position = addEntry("position", tr("Line and column; click to go to a line"));
    layout->addStretch(1);
    const std::pair<QToolButton *, QMenu *> menus[] = {
        {addEntry("encoding", tr("Encoding")), actions->encodingMenu()},
        {addEntry("lineEnding", tr("Line ending")), actions->lineEndingMenu()},
        {addEntry("indentation", QString()), actions->indentationMenu()},
        {addEntry("syntax", tr("Syntax colouring")), actions->syntaxMenu()},
    };
    for (const auto &[button, menu] : menus) {
        button->setMenu(menu);
        button->setPopupMode(QToolButton::InstantPopup);
        // A choice may change what the entries show without moving the caret.
        connect(menu, &QMenu::triggered, this, &StatusStrip::refresh, Qt::QueuedConnection);
    }
    QToolButton *overwrite = addEntry("overwrite", tr("Insert or overwrite typed text"));

    QsciScintilla *editor = tool->editor();
    connect(position, &QToolButton::clicked, tool, &SedGUI::goTo);
    connect(overwrite, &QToolButton::clicked, this, [this, editor] {
        editor->setOverwriteMode(!editor->overwriteMode());
        refresh();
    });
    connect(editor, &QsciScintilla::cursorPositionChanged, this, &StatusStrip::refreshSoon);
    connect(editor, &QsciScintilla::selectionChanged, this, &StatusStrip::refreshSoon);
    connect(indentation, &Indentation::changed, this, &StatusStrip::refresh);
    // Every key may move the caret (the Insert key toggles overwrite,
    // unannounced): the strip follows before the key's repaint.
    editor->installEventFilter(this);
    refresh();
}

QToolButton *StatusStrip::addEntry(const char *name, const QString &toolTip)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setToolTip(toolTip);
    layout()->addWidget(button);
    return button;
}

QToolButton *StatusStrip::entry(const QString &name) const
{
    return findChild<QToolButton *>(name, Qt::FindDirectChildrenOnly);
}

bool StatusStrip::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress)
        refreshSoon();
    return QFrame::eventFilter(watched, event);
}

void StatusStrip::refreshSoon()
{
    if (m_refreshPending)
        return;
    m_refreshPending = true;
    // Posted events run before the window's repaint, which Qt posts at a
    // lower priority.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_refreshPending = false;
            refresh();
        },
        Qt::QueuedConnection);
}

QString StatusStrip::positionText() const
{
    QsciScintilla *editor = m_tool->editor();
    const auto send = [editor](unsigned int message, unsigned long wParam = 0) {
        return editor->SendScintilla(message, wParam);
    };
    const long caret = send(QsciScintillaBase::SCI_GETCURRENTPOS);
    const long line = send(QsciScintillaBase::SCI_LINEFROMPOSITION, caret);
    const long lineStart = send(QsciScintillaBase::SCI_POSITIONFROMLINE, line);
    const long column = caret - lineStart > MeasuredColumnBytes
                            ? caret - lineStart
                            : send(QsciScintillaBase::SCI_GETCOLUMN, caret);
    QString text = tr("Ln %1, Col %2").arg(line + 1).arg(column + 1);

    const long start = send(QsciScintillaBase::SCI_GETSELECTIONSTART);
    const long end = send(QsciScintillaBase::SCI_GETSELECTIONEND);
    if (start == end)
        return text;
    const long firstLine = send(QsciScintillaBase::SCI_LINEFROMPOSITION, start);
    long lastLine = send(QsciScintillaBase::SCI_LINEFROMPOSITION, end);
    // A selection of whole lines ends at the start of the next one.
    if (lastLine > firstLine && send(QsciScintillaBase::SCI_POSITIONFROMLINE, lastLine) == end)
        --lastLine;
    const long lines = lastLine - firstLine + 1;
    if (end - start > CountedSelectionBytes)
        return text + QLatin1Char(' ') + tr("(%n lines selected)", nullptr, int(lines));
    const long characters =
        editor->SendScintilla(QsciScintillaBase::SCI_COUNTCHARACTERS, start, end);
    QString selected = tr("%n chars", nullptr, int(characters));
    if (lines > 1)
        selected += QStringLiteral(", ") + tr("%n lines", nullptr, int(lines));
    return text + QStringLiteral(" (") + selected + QLatin1Char(')');
}

void StatusStrip::refresh()
{
    const TextFormat format = m_tool->textFormat();
    setSteadyText(entry(QStringLiteral("position")), positionText());
    setText(entry(QStringLiteral("encoding")),
            format.bom ? tr("%1 with BOM").arg(QString::fromLatin1(format.encoding))
                       : QString::fromLatin1(format.encoding));
    setText(entry(QStringLiteral("lineEnding")), EditorSettings::lineEndingName(format.lineEnding));
    QToolButton *indentation = entry(QStringLiteral("indentation"));
    setText(indentation, m_indentation->label());
    indentation->setToolTip(m_indentation->sourceText());
    const QString language = m_tool->languageName();
    setText(entry(QStringLiteral("syntax")), language.isEmpty() ? tr("Plain Text") : language);
    setText(entry(QStringLiteral("overwrite")),
            m_tool->editor()->overwriteMode() ? tr("OVR") : tr("INS"));
}

} // namespace koru::sedgui
