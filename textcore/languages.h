#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace koru::sedgui {

// The languages the editor colours, as data: their names and the file names
// and "#!" interpreters that select them. Needs no widget: the editor maps a
// name to its lexer. The table is built once and never changes.
class Languages
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

    // The file name patterns of a language, e.g. {"*.py", "*.pyw"}.
    static QStringList patterns(const QString &name);

    // Filter for file dialogs: "All Files (*)" first, then one
    // "Name (*.x *.y)" entry per language, joined by ";;".
    static QString fileFilter();
};

} // namespace koru::sedgui
