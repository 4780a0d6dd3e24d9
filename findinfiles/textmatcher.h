#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

struct SearchOptions;
namespace koru::sedgui {
class SearchCore;
}

// Finds the lines of a UTF-8 text that hold a match of the search, with the
// editor's search core: the same regular expressions, case rule and whole-word
// rule as the find bar. One entry per line, however many matches the line
// holds; lines end at LF, CRLF or a lone CR.
class TextMatcher
{
public:
    struct LineHit
    {
        qint64 line = 0;      // 1-based
        QString text;         // the whole line, without its line break
        qsizetype column = 0; // where the first match starts in text
        qsizetype length = 0; // its length in text, up to the line's end
    };

    explicit TextMatcher(const SearchOptions &options);
    ~TextMatcher();
    TextMatcher(const TextMatcher &) = delete;
    TextMatcher &operator=(const TextMatcher &) = delete;

    bool isValid() const { return m_error.isEmpty(); }
    QString errorString() const { return m_error; }
    const koru::sedgui::SearchCore &core() const { return *m_core; }

    // True when the raw bytes of a file in any ASCII-compatible encoding give a
    // hit wherever its decoded text would, so a file needs decoding only once it
    // has a hit (the hit's text is shown decoded).
    bool isEncodingNeutral() const { return m_encodingNeutral; }

    // Called for each matching line in order; returning false stops the search.
    using HitSink = std::function<bool(const LineHit &hit)>;

    // Both return false when cancel was set part-way or the sink stopped them.
    // The search starts at byte from (the bytes before it are context only);
    // firstLine is the number of the line utf8 starts on.
    bool findLines(QByteArrayView utf8, const HitSink &sink,
                   const std::atomic<bool> *cancel = nullptr, qsizetype from = 0,
                   qint64 firstLine = 1) const;
    // Appends to hits.
    bool findLines(QByteArrayView utf8, QList<LineHit> &hits,
                   const std::atomic<bool> *cancel = nullptr) const;

private:
    std::unique_ptr<const koru::sedgui::SearchCore> m_core;
    bool m_encodingNeutral = false;
    QString m_error;
};
