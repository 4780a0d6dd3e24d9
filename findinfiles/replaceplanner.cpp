#include "replaceplanner.h"

#include "linecounter.h"
#include "safesaver.h"
#include "searchcore.h"
#include "searchoptions.h"
#include "textfilecodec.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cstring>

using koru::sedgui::LineCounter;
using koru::sedgui::SafeSaver;
using koru::sedgui::SearchCore;
using koru::sedgui::TextFileCodec;

namespace {

// Larger files are left out of a replace: each is held whole while it is planned.
constexpr qint64 MaxFileBytes = 256 * 1024 * 1024;
// A NUL this early in the decoded text marks a binary file.
constexpr qsizetype BinaryCheckBytes = 64 * 1024;

qsizetype lineEndFrom(QByteArrayView text, qsizetype from)
{
    for (qsizetype i = from; i < text.size(); ++i) {
        if (text[i] == '\n' || text[i] == '\r')
            return i;
    }
    return text.size();
}

QString fromUtf8(QByteArrayView text, qsizetype from, qsizetype to)
{
    return QString::fromUtf8(text.sliced(from, to - from));
}

QString readError(const QFile &file)
{
    return QCoreApplication::translate("ReplacePlanner", "Cannot read %1: %2")
        .arg(file.fileName(), file.errorString());
}

} // namespace

ReplacePlanner::ReplacePlanner(const SearchOptions &options, const QString &replacement)
    : m_matcher(options)
    , m_replacement(replacement)
{}

QList<ReplaceChange> ReplacePlanner::changesIn(QByteArrayView utf8) const
{
    QList<ReplaceChange> changes;
    appendChanges(utf8, utf8.size(), &changes);
    return changes;
}

bool ReplacePlanner::appendChanges(QByteArrayView utf8, qsizetype until,
                                   QList<ReplaceChange> *changes) const
{
    if (!isValid())
        return true;
    const SearchCore &core = m_matcher.core();
    // Go on from the last change: its line's start is where counting lines resumes.
    SearchCore::Match previous;
    qsizetype base = 0;
    qint64 baseLine = 1;
    if (!changes->isEmpty()) {
        const ReplaceChange &last = changes->constLast();
        previous.begin = last.begin;
        previous.end = last.end;
        base = last.lineStart;
        baseLine = last.line;
    }
    LineCounter lines(utf8.sliced(base));
    for (SearchCore::Match match = core.findAfter(utf8, previous); match.found();
         match = core.findAfter(utf8, match)) {
        if (match.begin > until)
            return false;
        ReplaceChange change;
        change.begin = match.begin;
        change.end = match.end;
        change.text = core.replacement(utf8, match, m_replacement);
        change.line = baseLine - 1 + lines.lineAt(match.begin - base);
        change.lineStart = base + lines.lineStart();
        const qsizetype lineStart = change.lineStart;
        // A match may reach over a line break: the preview shows up to its end.
        const qsizetype lineEnd = lineEndFrom(utf8, std::max(match.begin, match.end));
        const QString head = fromUtf8(utf8, lineStart, match.begin);
        const QString tail = fromUtf8(utf8, match.end, lineEnd);
        change.before = head + fromUtf8(utf8, match.begin, match.end) + tail;
        change.after = head + QString::fromUtf8(change.text) + tail;
        change.column = head.size();
        changes->append(change);
    }
    return true;
}

bool ReplacePlanner::planFile(const QByteArray &path, ReplaceFile *file) const
{
    QFile input(QFile::decodeName(path));
    if (input.size() > MaxFileBytes || !input.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = input.readAll();
    if (input.error() != QFile::NoError)
        return false;
    const koru::sedgui::DecodedText decoded = TextFileCodec::decode(bytes);
    if (std::memchr(decoded.utf8.constData(), 0,
                    size_t(std::min(decoded.utf8.size(), BinaryCheckBytes))))
        return false;
    file->changes = changesIn(decoded.utf8);
    file->path = input.fileName();
    file->fingerprint = fingerprint(bytes);
    return !file->changes.isEmpty();
}

QByteArray ReplacePlanner::fingerprint(QByteArrayView bytes)
{
    return QCryptographicHash::hash(bytes, FingerprintAlgorithm);
}

QByteArray ReplacePlanner::applied(QByteArrayView utf8, const QList<ReplaceChange> &changes)
{
    QByteArray result;
    result.reserve(utf8.size());
    qsizetype copied = 0;
    for (const ReplaceChange &change : changes) {
        if (!change.checked || change.begin < copied || change.end > utf8.size())
            continue;
        result += utf8.sliced(copied, change.begin - copied);
        result += change.text;
        copied = change.end;
    }
    result += utf8.sliced(copied);
    return result;
}

ReplacePlanner::Outcome ReplacePlanner::write(const ReplaceFile &file, QString *error)
{
    QFile input(file.path);
    if (!input.open(QIODevice::ReadOnly)) {
        *error = readError(input);
        return Outcome::Failed;
    }
    const QByteArray bytes = input.readAll();
    if (input.error() != QFile::NoError) {
        *error = readError(input);
        return Outcome::Failed;
    }
    input.close();
    if (fingerprint(bytes) != file.fingerprint)
        return Outcome::Changed;
    // The same bytes decode the same way, so the changes' offsets still hold.
    const koru::sedgui::DecodedText decoded = TextFileCodec::decode(bytes);
    const QByteArray utf8 = applied(decoded.utf8, file.changes);
    QByteArray output;
    if (!TextFileCodec::encode(utf8, decoded.format, &output, error) ||
        !SafeSaver::save(file.path, output, error))
        return Outcome::Failed;
    return Outcome::Written;
}
