#include "textmatcher.h"

#include "searchoptions.h"

#include <QChar>

#include <algorithm>
#include <cstring>

namespace {

// Fixed-string searches look at this many bytes between checks of the cancel flag.
constexpr qsizetype CancelCheckBytes = 4 * 1024 * 1024;
constexpr qsizetype CancelCheckLines = 256;

inline uchar foldAscii(uchar c)
{
    return (c >= 'A' && c <= 'Z') ? uchar(c + ('a' - 'A')) : c;
}

inline bool isWordCodePoint(char32_t cp)
{
    return cp == U'_' || QChar::isLetterOrNumber(cp);
}

// Decodes the UTF-8 sequence at p; a byte that starts no valid sequence is taken
// as a letter of a legacy encoding, which is what such bytes usually are in source.
char32_t decodeAt(const uchar *p, const uchar *end, bool *valid)
{
    *valid = true;
    const uchar c = *p;
    if (c < 0x80)
        return c;
    int length = 0;
    char32_t cp = 0;
    if ((c & 0xE0) == 0xC0) {
        length = 2;
        cp = c & 0x1F;
    } else if ((c & 0xF0) == 0xE0) {
        length = 3;
        cp = c & 0x0F;
    } else if ((c & 0xF8) == 0xF0) {
        length = 4;
        cp = c & 0x07;
    }
    if (length == 0 || end - p < length) {
        *valid = false;
        return 0;
    }
    for (int i = 1; i < length; ++i) {
        if ((p[i] & 0xC0) != 0x80) {
            *valid = false;
            return 0;
        }
        cp = (cp << 6) | (p[i] & 0x3F);
    }
    return cp;
}

bool isWordAfter(const uchar *p, const uchar *end)
{
    if (p >= end)
        return false;
    bool valid = false;
    const char32_t cp = decodeAt(p, end, &valid);
    return !valid || isWordCodePoint(cp);
}

bool isWordBefore(const uchar *begin, const uchar *p)
{
    if (p <= begin)
        return false;
    const uchar *lead = p - 1;
    while (lead > begin && p - lead < 4 && (*lead & 0xC0) == 0x80)
        --lead;
    bool valid = false;
    const char32_t cp = decodeAt(lead, p, &valid);
    return !valid || isWordCodePoint(cp);
}

// The length in UTF-16 code units of valid UTF-8 text, without decoding it.
qsizetype utf16Length(const char *begin, const char *end)
{
    qsizetype length = 0;
    for (const char *p = begin; p < end; ++p) {
        const auto c = uchar(*p);
        length += (c & 0xC0) != 0x80;
        length += c >= 0xF0; // a surrogate pair
    }
    return length;
}

bool isAscii(const QByteArray &bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return uchar(c) < 0x80; });
}

} // namespace

TextMatcher::TextMatcher(const SearchOptions &options)
    : m_wholeWord(options.wholeWord)
{
    if (options.text.isEmpty()) {
        m_error = QStringLiteral("Enter the text to search for.");
        return;
    }
    if (options.text.contains(QLatin1Char('\n')) || options.text.contains(QLatin1Char('\r'))) {
        m_error = QStringLiteral("The search text must be a single line.");
        return;
    }

    m_needle = options.text.toUtf8();
    const bool asciiNeedle = isAscii(m_needle);
    if (!options.regularExpression && (options.caseSensitive || asciiNeedle)) {
        m_mode = options.caseSensitive ? Mode::Bytes : Mode::BytesFoldCase;
        if (m_mode == Mode::BytesFoldCase) {
            const qsizetype n = m_needle.size();
            m_foldShift.fill(n);
            for (qsizetype i = 0; i + 1 < n; ++i) {
                const uchar folded = foldAscii(uchar(m_needle[i]));
                m_foldShift[folded] = n - 1 - i;
                if (folded >= 'a' && folded <= 'z')
                    m_foldShift[folded - ('a' - 'A')] = n - 1 - i;
            }
            for (char &c : m_needle)
                c = char(foldAscii(uchar(c)));
        }
        return;
    }

    // Case-insensitive text beyond ASCII needs Unicode case folding: let the
    // regular expression engine do it on decoded text.
    m_mode = Mode::Regex;
    QString pattern =
        options.regularExpression ? options.text : QRegularExpression::escape(options.text);
    if (m_wholeWord)
        pattern = QStringLiteral("(?<!\\w)(?:") + pattern + QStringLiteral(")(?!\\w)");
    QRegularExpression::PatternOptions patternOptions =
        QRegularExpression::UseUnicodePropertiesOption;
    if (!options.caseSensitive)
        patternOptions |= QRegularExpression::CaseInsensitiveOption;
    m_regex = QRegularExpression(pattern, patternOptions);
    if (!m_regex.isValid()) {
        m_error = QStringLiteral("Invalid regular expression: %1 (at offset %2).")
                      .arg(m_regex.errorString())
                      .arg(m_regex.patternErrorOffset());
        return;
    }
    m_regex.optimize();
}

bool TextMatcher::isEncodingNeutral() const
{
    return m_mode != Mode::Regex && isAscii(m_needle);
}

const char *TextMatcher::findCandidate(const char *from, const char *end) const
{
    const qsizetype n = m_needle.size();
    if (end - from < n)
        return nullptr;
    if (m_mode == Mode::Bytes)
        return static_cast<const char *>(
            memmem(from, size_t(end - from), m_needle.constData(), size_t(n)));

    const auto *needle = reinterpret_cast<const uchar *>(m_needle.constData());
    const auto *p = reinterpret_cast<const uchar *>(from);
    const auto *last = reinterpret_cast<const uchar *>(end) - n;
    const uchar tail = needle[n - 1];
    while (p <= last) {
        const uchar c = p[n - 1];
        if (foldAscii(c) == tail) {
            qsizetype i = n - 2;
            while (i >= 0 && foldAscii(p[i]) == needle[i])
                --i;
            if (i < 0)
                return reinterpret_cast<const char *>(p);
        }
        p += m_foldShift[c];
    }
    return nullptr;
}

bool TextMatcher::isWholeWordAt(const char *begin, const char *end, const char *match) const
{
    const auto *b = reinterpret_cast<const uchar *>(begin);
    const auto *e = reinterpret_cast<const uchar *>(end);
    const auto *m = reinterpret_cast<const uchar *>(match);
    return !isWordBefore(b, m) && !isWordAfter(m + m_needle.size(), e);
}

bool TextMatcher::findLines(QByteArrayView utf8, QList<LineHit> &hits,
                            const std::atomic<bool> *cancel) const
{
    return findLines(
        utf8,
        [&hits](const LineHit &hit) {
            hits.append(hit);
            return true;
        },
        cancel);
}

bool TextMatcher::findLines(QByteArrayView utf8, const HitSink &sink,
                            const std::atomic<bool> *cancel) const
{
    if (!isValid())
        return true;
    if (m_mode == Mode::Regex)
        return findLines(QStringView(QString::fromUtf8(utf8)), sink, cancel);

    const char *begin = utf8.data();
    const char *end = begin + utf8.size();
    const char *counted = begin; // line breaks before this point are in line
    qint64 line = 1;
    const char *from = begin;
    while (from < end) {
        if (cancel && cancel->load(std::memory_order_relaxed))
            return false;
        // Search a window at a time so that a huge file still sees the cancel flag;
        // the window overlaps the next by the needle's length less one.
        const char *windowEnd = end - from > CancelCheckBytes ? from + CancelCheckBytes : end;
        const char *searchEnd = std::min(end, windowEnd + m_needle.size() - 1);
        const char *match = findCandidate(from, searchEnd);
        if (!match) {
            from = windowEnd;
            continue;
        }
        if (m_wholeWord && !isWholeWordAt(begin, end, match)) {
            // Overlapping occurrences: the next candidate may start one byte on.
            from = match + 1;
            continue;
        }
        // counted is always the start of a line, so the match's line starts after
        // the last line break between the two.
        const void *lastBreak = memrchr(counted, '\n', size_t(match - counted));
        const char *lineStart = lastBreak ? static_cast<const char *>(lastBreak) + 1 : counted;
        line += std::count(counted, lineStart, '\n');
        counted = lineStart;
        const void *breakAt = memchr(match, '\n', size_t(end - match));
        const char *lineEnd = breakAt ? static_cast<const char *>(breakAt) : end;
        const char *textEnd = lineEnd;
        if (textEnd > lineStart && textEnd[-1] == '\r')
            --textEnd;

        LineHit hit;
        hit.line = line;
        hit.text = QString::fromUtf8(lineStart, textEnd - lineStart);
        hit.column = utf16Length(lineStart, match);
        if (!sink(hit))
            return false;
        from = lineEnd < end ? lineEnd + 1 : end;
    }
    return true;
}

bool TextMatcher::findLines(QStringView text, const HitSink &sink,
                            const std::atomic<bool> *cancel) const
{
    if (!isValid() || m_mode != Mode::Regex)
        return true;
    qint64 line = 0;
    qsizetype start = 0;
    const qsizetype size = text.size();
    while (start < size) {
        ++line;
        if (cancel && line % CancelCheckLines == 0 && cancel->load(std::memory_order_relaxed))
            return false;
        qsizetype lineEnd = text.indexOf(QLatin1Char('\n'), start);
        if (lineEnd < 0)
            lineEnd = size;
        qsizetype textEnd = lineEnd;
        if (textEnd > start && text[textEnd - 1] == QLatin1Char('\r'))
            --textEnd;
        const QStringView lineText = text.sliced(start, textEnd - start);
        const QRegularExpressionMatch match = m_regex.match(lineText);
        if (match.hasMatch() && !sink({line, lineText.toString(), match.capturedStart()}))
            return false;
        start = lineEnd + 1;
    }
    return true;
}
