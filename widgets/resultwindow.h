#pragma once

#include <QPlainTextEdit>
#include <QTextCursor>

// A read-only pane of find-in-files hits, one "file(line):text" per line.
// Double-clicking a hit, or Enter on it, selects its line and emits
// sigOpenFile; the arrow keys move through the lines. The context
// menu can clear the pane and ask the running search to stop. The pane
// neither searches nor opens files: whoever shows it fills and connects it.
class ResultWindow : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ResultWindow(QWidget *parent);

    // Parses one paragraph and emits sigOpenFile with its file and line; a
    // paragraph that is not a hit emits an empty file name and line 0.
    void openResultLine(const QString &text);
    // Selects the line of cursor, and opens it as above.
    void openLineAt(QTextCursor cursor);

signals:
    void sigOpenFile(QString file, int line);
    void sigForceStopFindInFiles();

public slots:
    // Emits sigForceStopFindInFiles() and does nothing else.
    void stopSearch();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
