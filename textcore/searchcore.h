#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFlags>
#include <QString>
#include <QStringView>

#include <array>
#include <memory>

namespace koru::sedgui {

// One compiled search: a regular expression or a plain text, matched against
// UTF-8 bytes in place. The text is never copied or decoded, so a 50 MB buffer
// is searched where it lies; bytes that are not valid UTF-8 match nothing but
// never stop the search.
//
// Lines end at LF, CRLF or a lone CR alike: ^ and $ work at each, and a CRLF
// is one character when the search steps over it. A line end at the very end
// of the text ends the last line and starts none, so ^ does not match there.
// Letters, digits and classes such as \w, \d and [[:alpha:]] follow Unicode,
// and case folding reaches beyond ASCII (É matches é). A whole-word search
// accepts a match only when no word character (letter, digit or '_') lies
// just before or just after it.
//
// Copies share the compiled pattern, which is read-only once built: several
// threads may search with one core (or its copies) at the same time.
class SearchCore
{
public:
    enum Option {
        RegularExpression = 0x1,
        CaseSensitive = 0x2,
        WholeWord = 0x4,
    };
    Q_DECLARE_FLAGS(Options, Option)

    // Byte offsets into the searched text; begin < 0 when nothing was found.
    struct Match
    {
        // Groups 0 (the whole match) to 9, the ones a replacement can name.
        static constexpr int MaxGroups = 10;

        qsizetype begin = -1;
        qsizetype end = -1;

        bool found() const { return begin >= 0; }
        qsizetype length() const { return end - begin; }
        // -1 for a group beyond the pattern's or one that took no part in the match.
        qsizetype groupBegin(int group) const;
        qsizetype groupEnd(int group) const;

    private:
        friend class SearchCore;
        std::array<qsizetype, 2 * MaxGroups> m_groups{};
    };

    // An empty pattern is valid and matches nothing.
    explicit SearchCore(const QString &pattern, Options options = {});

    QString pattern() const { return m_pattern; }
    Options options() const { return m_options; }

    bool isValid() const { return m_errorMessage.isEmpty(); }
    // Why the pattern is not a valid regular expression, and where: the offset is
    // the index in pattern() of the character at which the fault was seen.
    QString errorMessage() const { return m_errorMessage; }
    qsizetype errorOffset() const { return m_errorOffset; }
    // Both in one sentence for the user.
    QString errorString() const;

    // The first match that starts at or after from.
    Match find(QByteArrayView text, qsizetype from) const;
    // The match after previous, as when stepping through all matches: an empty
    // match is never found twice at the same place, but a longer one that starts
    // there is; after a non-empty match, an empty one may follow at its end.
    Match findAfter(QByteArrayView text, const Match &previous) const;
    // The match that starts nearest before before: the last one of the matches
    // stepped through from a little earlier in the text. It may reach past before.
    Match findPrevious(QByteArrayView text, qsizetype before) const;

    // The UTF-8 text that replaces match. A regular expression's replacement
    // refers to groups as \0 to \9 or $0 to $9 and writes \\ for a backslash and
    // $$ for a dollar; any other character stands for itself. A plain-text
    // search's replacement is taken literally.
    QByteArray replacement(QByteArrayView text, const Match &match,
                           QStringView replacementTemplate) const;
    // The text with every match replaced; count receives how many there were.
    QByteArray replaceAll(QByteArrayView text, QStringView replacementTemplate,
                          qsizetype *count = nullptr) const;

private:
    struct Compiled;

    Match matchAt(QByteArrayView text, qsizetype from, quint32 matchOptions) const;
    void compile();

    QString m_pattern;
    Options m_options;
    QString m_errorMessage;
    qsizetype m_errorOffset = -1;
    std::shared_ptr<const Compiled> m_compiled;
};

} // namespace koru::sedgui

Q_DECLARE_OPERATORS_FOR_FLAGS(koru::sedgui::SearchCore::Options)
