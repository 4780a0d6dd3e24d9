#pragma once

#include "replaceplan.h"
#include "textmatcher.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <QString>

struct SearchOptions;

// Finds what a replace in files would change, with the editor's search core
// (plain or regular expression, case, whole words; a regular expression's
// replacement names groups as \1 or $1), and writes the confirmed changes of a
// file on disk. A file is decoded as the editor decodes it and written back
// through the editor's safe save in its own encoding, byte order mark and line
// endings: only the replaced bytes differ.
class ReplacePlanner
{
public:
    ReplacePlanner(const SearchOptions &options, const QString &replacement);

    bool isValid() const { return m_matcher.isValid(); }
    QString errorString() const { return m_matcher.errorString(); }

    // Every match of a UTF-8 text, in order.
    QList<ReplaceChange> changesIn(QByteArrayView utf8) const;
    // The matches of a UTF-8 text in order, from after the last one in
    // *changes (from the start when it is empty), up to the first one that
    // starts past until; true once the text's end is reached. Lets a large
    // text be gone through a slice at a time.
    bool appendChanges(QByteArrayView utf8, qsizetype until, QList<ReplaceChange> *changes) const;
    // Reads the file at path (local 8-bit bytes) and fills *file with its
    // changes; false for a file that cannot be read, a binary file and one
    // without a match.
    bool planFile(const QByteArray &path, ReplaceFile *file) const;

    static constexpr QCryptographicHash::Algorithm FingerprintAlgorithm =
        QCryptographicHash::Sha256;
    static QByteArray fingerprint(QByteArrayView bytes);
    // utf8 with the checked changes made.
    static QByteArray applied(QByteArrayView utf8, const QList<ReplaceChange> &changes);

    enum class Outcome { Written, Changed, Failed };
    // Makes the checked changes of a file on disk, unless its bytes are no
    // longer those the changes were found in (Changed). On Failed, *error says
    // why and the file is as it was.
    static Outcome write(const ReplaceFile &file, QString *error);

private:
    const TextMatcher m_matcher;
    const QString m_replacement;
};
