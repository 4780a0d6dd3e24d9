#pragma once

#include <QString>
#include <QStringView>

// Writes the lines of the result pane. A hit is "file(line):text"; the pane reads
// it back with the greedy pattern ^(.+)\(([^:]+)\):(.+)$, which ends the file name
// at the last "(...):" followed by text. So the text written after a hit's
// "(line):" never holds "):", is never empty, and is one line: every hit line
// reads back to its own file and line, whatever the file name or the text hold.
// A file name is written as FileNameEscape writes it; in the text, line breaks
// and controls are blanked and format characters written out the same way.
class HitFormatter
{
public:
    // Longest hit text shown; longer lines are cut around the match.
    static constexpr qsizetype MaxTextLength = 300;

    // file as FileNameEscape writes it (done once per file, not per hit).
    static QString hitLine(const QString &file, qint64 line, QStringView text, qsizetype column);
    // The same, appended to out: a line of printable ASCII, most of them, is
    // written straight into it.
    static void appendHitLine(QString &out, QStringView file, qint64 line, QStringView text,
                              qsizetype column);

    // The text part of a hit line: control characters blanked, trimmed, cut to
    // MaxTextLength around column, made safe for the pane's pattern.
    static QString displayText(QStringView text, qsizetype column);

    // A line that is not a hit (a heading, a summary): the pane never reads a
    // file name out of it.
    static QString noteLine(QStringView text);

private:
    static QString blankControls(QStringView text);
    static QString showFormatCharacters(const QString &text);
    static void breakParenColon(QString &text);
};
