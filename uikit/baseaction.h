#pragma once

#include <QAction>

// A menu action made from its English name, shown translated. An action whose
// name is a standard command (New, Open, Save, Undo, Find, ...) gets the
// desktop theme's icon with a bundled fallback, and the desktop's standard
// keys unless its owner sets a shortcut of its own afterwards.
class BaseAction : public QAction
{
    Q_OBJECT

public:
    BaseAction(const char *text, QObject *parent);
};
