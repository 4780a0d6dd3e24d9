#pragma once

#include <QLocale>
#include <QString>

class QApplication;
class QCoreApplication;

// What makes the running program one desktop application: its application
// ID (the desktop entry's and the icon's name), its window icon and the
// translations for the user's language.
class AppSetup
{
public:
    // The reverse-DNS application ID, also the desktop entry's base name.
    static QString applicationId();

    // Sets the desktop file name and the window icon, then installs the
    // translations for the system locale. Call once, right after the
    // application object is made and before any window or action exists.
    static void apply(QApplication &app);

    // Installs, for the locale's languages, the program's own translation and
    // those of Qt and of the editing component, whichever exist. Returns how
    // many were installed; none is an error (English needs none).
    static int installTranslations(QCoreApplication &app, const QLocale &locale = QLocale());
};
