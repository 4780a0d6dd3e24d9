#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QRegularExpression>
#include <QString>

#include <array>
#include <atomic>
#include <functional>

struct SearchOptions;

// Finds the lines of a text that hold the search text. Fixed strings are searched
// in the raw UTF-8 bytes; regular expressions (and case-insensitive text beyond
// ASCII) run per line on decoded text. One entry per matching line, however many
// matches the line holds.
class TextMatcher
{
public:
    struct LineHit
    {
        qint64 line = 0;      // 1-based
        QString text;         // the whole line, without its line break
        qsizetype column = 0; // where the first match starts in text
    };

    explicit TextMatcher(const SearchOptions &options);

    bool isValid() const { return m_error.isEmpty(); }
    QString errorString() const { return m_error; }

    // True when the raw bytes of a file in any ASCII-compatible encoding give the
    // same matching lines as its decoded text, so a file needs decoding only once
    // it has a hit (the hit's text is shown decoded).
    bool isEncodingNeutral() const;
    bool needsDecodedText() const { return m_mode == Mode::Regex; }

    // Called for each matching line in order; returning false stops the search.
    using HitSink = std::function<bool(const LineHit &hit)>;

    // Both return false when cancel was set part-way or the sink stopped them.
    bool findLines(QByteArrayView utf8, const HitSink &sink,
                   const std::atomic<bool> *cancel = nullptr) const;
    bool findLines(QStringView text, const HitSink &sink,
                   const std::atomic<bool> *cancel = nullptr) const;
    // Appends to hits.
    bool findLines(QByteArrayView utf8, QList<LineHit> &hits,
                   const std::atomic<bool> *cancel = nullptr) const;

private:
    enum class Mode { Bytes, BytesFoldCase, Regex };

    const char *findCandidate(const char *from, const char *end) const;
    bool isWholeWordAt(const char *begin, const char *end, const char *match) const;

    Mode m_mode = Mode::Bytes;
    bool m_wholeWord = false;
    QByteArray m_needle;
    // Horspool shift per byte for the case-folded search.
    std::array<qsizetype, 256> m_foldShift{};
    QRegularExpression m_regex;
    QString m_error;
};
