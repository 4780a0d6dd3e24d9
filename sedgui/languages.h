#pragma once

#include "sedguiexport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QObject;
class QsciLexer;

namespace koru::sedgui {

// The languages the editor colours: one per syntax lexer the editing widget
// offers, with the file names and "#!" interpreters that select it. Needs no
// widget; the table is built once and never changes.
class SEDGUI_EXPORT Languages
{
public:
    // Every language name, sorted ("Bash", "C", "C++", ...). Plain text is not
    // a language: its name is the empty string.
    static QStringList names();

    // The language for a file: by its name (exact names such as
    // "CMakeLists.txt" or "Makefile" first, then patterns such as "*.py"),
    // else by its first line ("#!/usr/bin/env python3", "<?xml"). Empty when
    // nothing matches.
    static QString detect(const QString &fileName, const QByteArray &firstLine);

    // A new lexer for a name of names(), owned by parent; null for an unknown
    // or empty name.
    static QsciLexer *createLexer(const QString &name, QObject *parent);

    // The file name patterns of a language, e.g. {"*.py", "*.pyw"}.
    static QStringList patterns(const QString &name);

    // Filter for file dialogs: "All Files (*)" first, then one
    // "Name (*.x *.y)" entry per language, joined by ";;".
    static QString fileFilter();
};

} // namespace koru::sedgui
