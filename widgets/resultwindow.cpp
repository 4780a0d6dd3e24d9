#include "resultwindow.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>

ResultWindow::ResultWindow(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    // A caret the arrow keys move, so that Enter has a line to open.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void ResultWindow::openResultLine(const QString &text)
{
    // Greedy on the file part: the last "(number):" ends the path, so paths
    // may hold colons and parentheses of their own.
    static const QRegularExpression hitLine(QStringLiteral("^(.+)\\(([^:]+)\\):(.+)$"));
    QString fileName;
    int lineNumber = 0;
    const QRegularExpressionMatch match = hitLine.match(text);
    if (match.hasMatch()) {
        fileName = match.captured(1);
        lineNumber = match.captured(2).toInt(nullptr, 10);
    }
    emit sigOpenFile(fileName, lineNumber);
}

void ResultWindow::stopSearch()
{
    emit sigForceStopFindInFiles();
}

void ResultWindow::mouseDoubleClickEvent(QMouseEvent *event)
{
    // The whole line is the unit here, so the base class's word selection is not run.
    openLineAt(cursorForPosition(mapFromGlobal(event->globalPosition().toPoint())));
}

void ResultWindow::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        openLineAt(textCursor());
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void ResultWindow::openLineAt(QTextCursor cursor)
{
    cursor.clearSelection();
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
    openResultLine(cursor.block().text());
}

void ResultWindow::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    // Always enabled: clearing an empty pane or stopping no search is harmless.
    menu->addAction(tr("C&lear All"), this, &ResultWindow::clear);
    menu->addAction(tr("Stop Search"), this, &ResultWindow::stopSearch);
    menu->exec(event->globalPos());
    delete menu;
}
