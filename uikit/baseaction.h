#pragma once

#include <QAction>

// A menu action made from its text. Actions whose text names a standard
// command get the desktop theme's icon for it, with a built-in fallback.
class BaseAction : public QAction
{
    Q_OBJECT

public:
    BaseAction(const char *text, QObject *parent);
};
