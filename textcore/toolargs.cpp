#include "toolargs.h"

#include "filenameescape.h"
#include "posixfile.h"
#include "textfilecodec.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUrl>

#include <sys/stat.h>

namespace koru::sedgui {

namespace {

// A line number as the user wrote it; 0 when it is not one.
int lineNumber(const QString &text)
{
    bool ok = false;
    const int line = text.toInt(&ok);
    return ok && line > 0 ? line : 0;
}

// The shell hands its command-line words over one character per byte, so a
// UTF-8 file name arrives as "cafÃ©.c". Such a name is read again as the
// bytes it was; a name with characters beyond Latin-1, or whose bytes are not
// UTF-8, is a real name and stays as it is.
QString fileNameFromBytes(const QString &name)
{
    bool beyondAscii = false;
    for (const QChar c : name) {
        if (c.unicode() > 0xff)
            return name;
        beyondAscii = beyondAscii || c.unicode() >= 0x80;
    }
    if (!beyondAscii)
        return name;
    const QByteArray bytes = name.toLatin1();
    return TextFileCodec::isValidUtf8(bytes.constData(), bytes.size()) ? QFile::decodeName(bytes)
                                                                       : name;
}

QString absolutePath(const QString &argument, const QDir &workingDir)
{
    QString path = argument;
    if (path.startsWith(QLatin1String("file://")))
        path = QUrl(path).toLocalFile();
    const QString asGiven = QDir::cleanPath(workingDir.absoluteFilePath(path));
    if (PosixFile::exists(asGiven))
        return asGiven;
    return QDir::cleanPath(workingDir.absoluteFilePath(fileNameFromBytes(path)));
}

QString tr(const char *text)
{
    return QCoreApplication::translate("koru::sedgui::ToolArgs", text);
}

// A name written with escapes (see FileNameEscape) names the file with those
// characters or bytes, unless a file is really called as written. The result
// is the name as the program holds it; empty, with *why set, when both exist.
QString unescapedName(const QString &argument, const QDir &workingDir, QString *why)
{
    if (!FileNameEscape::hasEscapes(argument))
        return argument;
    const QByteArray name = FileNameEscape::toNative(argument);
    const QByteArray asWritten = argument.toUtf8();
    if (name == asWritten)
        return argument;
    struct stat st;
    const QByteArray folder = FileNameEscape::toNative(workingDir.absolutePath()) + '/';
    const auto exists = [&](const QByteArray &path) {
        return ::lstat((path.startsWith('/') ? path : folder + path).constData(), &st) == 0;
    };
    if (!exists(asWritten))
        return FileNameEscape::fromNative(name);
    if (exists(name)) {
        *why = tr("\"%1\" is not opened: it could mean the file with the characters written "
                  "as \\u{..} or \\x{..}, or the file whose name spells them out, and both "
                  "exist.")
                   .arg(argument);
        return QString();
    }
    return FileNameEscape::fromNative(asWritten);
}

} // namespace

ToolArgs ToolArgs::parse(const QStringList &args, const QString &workingDir)
{
    static const QRegularExpression pathWithLine(QStringLiteral("^(.+?):(\\d+)(?::\\d+)?:?$"));
    const QDir dir(workingDir);
    ToolArgs result;
    int pendingLine = 0;
    bool onlyPaths = false;

    for (int i = 0; i < args.size(); ++i) {
        const QString &argument = args.at(i);
        if (argument.isEmpty())
            continue;
        if (!onlyPaths) {
            if (argument == QLatin1String("--")) {
                onlyPaths = true;
                continue;
            }
            if (argument == QLatin1String("-line")) {
                // Applies to the file before it, as the shell's open-at-line list puts it.
                bool isNumber = false;
                const int line = i + 1 < args.size() ? args.at(i + 1).toInt(&isNumber) : 0;
                if (isNumber)
                    ++i;
                if (line > 0 && !result.files.isEmpty())
                    result.files.last().line = line;
                else
                    result.ignored.append(argument);
                continue;
            }
            if (argument.startsWith(QLatin1Char('+')) && argument.size() > 1) {
                const int line = lineNumber(argument.mid(1));
                if (line > 0) {
                    pendingLine = line;
                    continue;
                }
            }
            if (argument.startsWith(QLatin1Char('-')) && argument.size() > 1) {
                result.ignored.append(argument);
                continue;
            }
        }

        QString why;
        const QString name = unescapedName(argument, dir, &why);
        if (name.isEmpty()) {
            result.refused.append(why);
            pendingLine = 0;
            continue;
        }
        File file;
        file.path = PosixFile::undoLossyDecoding(absolutePath(name, dir), &why);
        if (file.path.isEmpty()) {
            result.refused.append(why);
            pendingLine = 0;
            continue;
        }
        file.line = pendingLine;
        pendingLine = 0;
        // "path:N" from compiler output, unless a file really has that name.
        if (!PosixFile::exists(file.path)) {
            const QRegularExpressionMatch match = pathWithLine.match(argument);
            if (match.hasMatch()) {
                file.path = absolutePath(match.captured(1), dir);
                file.line = lineNumber(match.captured(2));
            }
        }
        result.files.append(file);
    }
    return result;
}

} // namespace koru::sedgui
