#pragma once

#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>

// The look and the keys of the commands every desktop application shares
// (New, Open, Save, Undo, Find, Zoom In, ...), looked up by the command's
// English name as the menus use it.
//
// Icons come from the desktop's icon theme under their freedesktop names and
// fall back to drawings bundled with the program, so that a bare X session
// with no theme still shows every tool bar button. Key sequences are the
// desktop's standard keys for the command, with a fixed fallback where some
// desktops report none, and never a key that another command here claims.
class StandardActions
{
public:
    // The command names this class knows, in menu order.
    static QStringList names();

    // The freedesktop icon name for a command, or an empty string.
    static QString iconName(const QString &name);
    // The theme's icon for the command, or the bundled drawing; a null icon
    // for a name this class does not know.
    static QIcon icon(const QString &name);
    // The theme's icon of that freedesktop name, or the bundled drawing of it.
    static QIcon themedIcon(const QString &iconName);
    // The resource path of the bundled drawing for a freedesktop icon name.
    static QString bundledIconPath(const QString &iconName);

    // The key sequences for a command, the preferred one first; empty for a
    // command with no standard key.
    static QList<QKeySequence> shortcuts(const QString &name);
};
