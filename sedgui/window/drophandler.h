#pragma once

#include "sedguiexport.h"

#include <QObject>
#include <QStringList>

class QMimeData;
class QWidget;

namespace koru::sedgui {

// Watches an editor's viewport for drops: local files dropped on it are
// opened as documents of their own through the main window's
// onOpenFile(QString,int); anything else (text) is left to the editor, which
// inserts it where it was dropped.
class SEDGUI_EXPORT DropHandler : public QObject
{
    Q_OBJECT

public:
    // Installs itself on target; tool is the widget whose window opens files.
    DropHandler(QWidget *target, QWidget *tool);

    // The local files a drop carries; empty when it carries none.
    static QStringList localFiles(const QMimeData *data);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_tool;
};

} // namespace koru::sedgui
