#include "languagedetector.h"

#include "languages.h"

#include <QList>
#include <QRegularExpression>

namespace koru::sedgui {

namespace {

// The first (or last) count lines of text, without their line ends.
QList<QByteArrayView> lines(QByteArrayView text, int count, bool fromEnd)
{
    QList<QByteArrayView> found;
    if (fromEnd) {
        qsizetype end = text.size();
        if (text.endsWith('\n'))
            --end;
        while (found.size() < count && end > 0) {
            const qsizetype start = text.first(end).lastIndexOf('\n') + 1;
            found.append(text.sliced(start, end - start));
            end = start - 1;
        }
    } else {
        qsizetype start = 0;
        while (found.size() < count && start < text.size()) {
            qsizetype end = text.indexOf('\n', start);
            if (end < 0)
                end = text.size();
            found.append(text.sliced(start, end - start));
            start = end + 1;
        }
    }
    for (QByteArrayView &line : found) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    return found;
}

// "-*- mode: ruby; coding: utf-8 -*-" or "-*- ruby -*-".
QString emacsMode(const QString &line)
{
    static const QRegularExpression markers(QStringLiteral("-\\*-\\s*(.*?)\\s*-\\*-"));
    const QRegularExpressionMatch match = markers.match(line);
    if (!match.hasMatch())
        return {};
    const QString content = match.captured(1);
    if (!content.contains(QLatin1Char(':')))
        return content;
    for (const QString &variable : content.split(QLatin1Char(';'))) {
        const qsizetype colon = variable.indexOf(QLatin1Char(':'));
        if (colon > 0 && variable.first(colon).trimmed().compare(QLatin1String("mode"),
                                                                 Qt::CaseInsensitive) == 0)
            return variable.mid(colon + 1).trimmed();
    }
    return {};
}

// "vim: set ft=ruby:", "# vi: filetype=ruby ts=4", "ex: syntax=ruby".
QString vimFileType(const QString &line)
{
    static const QRegularExpression modeline(
        QStringLiteral("(?:^|\\s)(?:vi|vim|Vim|ex)(?:[<=>]?\\d+)?:(.*)$"));
    static const QRegularExpression fileType(
        QStringLiteral("(?:^|[\\s:])(?:ft|filetype|syn|syntax)=([\\w+-]+)"));
    const QRegularExpressionMatch match = modeline.match(line);
    if (!match.hasMatch())
        return {};
    return fileType.match(match.captured(1)).captured(1);
}

QString modelineLanguage(const QList<QByteArrayView> &candidates)
{
    for (const QByteArrayView line : candidates) {
        const bool emacs = line.contains("-*-");
        const bool vim = line.contains("vi") || line.contains("Vim") || line.contains("ex:");
        if (!emacs && !vim)
            continue;
        const QString text = QString::fromUtf8(line);
        const QString mode = emacs ? emacsMode(text) : vimFileType(text);
        if (const QString language = Languages::forModeName(mode); !language.isEmpty())
            return language;
        if (emacs && vim) {
            if (const QString language = Languages::forModeName(vimFileType(text));
                !language.isEmpty())
                return language;
        }
    }
    return {};
}

// "#!/usr/bin/env -S python3 -u" -> "python"; "#!/bin/bash" -> "bash".
QString interpreterOf(QByteArrayView firstLine)
{
    if (!firstLine.startsWith("#!"))
        return {};
    const QList<QByteArray> words = firstLine.sliced(2).toByteArray().simplified().split(' ');
    QByteArray program;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QByteArray base = words.at(i).mid(words.at(i).lastIndexOf('/') + 1);
        if (base.isEmpty() || (i > 0 && base.startsWith('-')))
            continue;
        if (i == 0 && base == "env")
            continue;
        // env's "NAME=value" assignments come before the program.
        if (base.contains('='))
            continue;
        program = base;
        break;
    }
    // Versions: python3.11, perl5, lua5.4.
    while (!program.isEmpty() &&
           (std::isdigit(static_cast<unsigned char>(program.back())) || program.back() == '.'))
        program.chop(1);
    return QString::fromLatin1(program);
}

QString contentLanguage(QByteArrayView firstLine)
{
    const QByteArrayView line = firstLine.trimmed();
    if (line.startsWith("#!"))
        return Languages::forInterpreter(interpreterOf(line));
    if (line.startsWith("<?xml"))
        return QStringLiteral("XML");
    const QByteArray start =
        line.first(std::min<qsizetype>(line.size(), 14)).toByteArray().toLower();
    if (start.startsWith("<!doctype html") || start.startsWith("<html"))
        return QStringLiteral("HTML");
    return {};
}

} // namespace

QString LanguageDetector::detect(const QString &fileName, QByteArrayView text)
{
    QByteArrayView head = text.first(std::min(text.size(), EndBytes));
    if (head.startsWith("\xEF\xBB\xBF"))
        head = head.sliced(3);
    // A short text is all head; its last lines are read from there.
    const QByteArrayView tail = text.size() > EndBytes ? text.last(EndBytes) : head;
    const QList<QByteArrayView> firstLines = lines(head, ModelineLines, false);

    if (QString language = modelineLanguage(firstLines); !language.isEmpty())
        return language;
    if (QString language = modelineLanguage(lines(tail, ModelineLines, true)); !language.isEmpty())
        return language;

    const QByteArrayView firstLine = firstLines.isEmpty() ? QByteArrayView() : firstLines.first();
    const QString content = contentLanguage(firstLine);
    const QString byName = Languages::forFileName(fileName);
    // Qt's translation sources share the ".ts" suffix with TypeScript.
    if (byName == QLatin1String("TypeScript") && content == QLatin1String("XML"))
        return content;
    return byName.isEmpty() ? content : byName;
}

} // namespace koru::sedgui
