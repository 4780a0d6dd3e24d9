#include "baseaction.h"

BaseAction::BaseAction(const char *text, QObject *parent)
    : QAction(QString::fromLatin1(text), parent)
{
}
