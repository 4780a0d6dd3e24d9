#include "resultwindow.h"

#include <QContextMenuEvent>
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
    QTextCursor cursor = cursorForPosition(mapFromGlobal(event->globalPosition().toPoint()));
    cursor.select(QTextCursor::LineUnderCursor);
    setTextCursor(cursor);
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
