#include "baseaction.h"

#include "standardactions.h"

#include <QCoreApplication>

BaseAction::BaseAction(const char *text, QObject *parent)
    : QAction(QCoreApplication::translate("BaseAction", text), parent)
{
    const QString name = QString::fromLatin1(text);
    setIcon(StandardActions::icon(name));
    setShortcuts(StandardActions::shortcuts(name));
}
