#include "textmatcher.h"

#include "linecounter.h"
#include "searchcore.h"
#include "searchoptions.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstring>

using koru::sedgui::LineCounter;
using koru::sedgui::SearchCore;

namespace {

// A large text is searched this many bytes at a time, rounded up to the next
// line break, with a check of the cancel flag between the windows.
constexpr qsizetype WindowBytes = 4 * 1024 * 1024;

SearchCore::Options coreOptions(const SearchOptions &options)
{
    SearchCore::Options result;
    result.setFlag(SearchCore::RegularExpression, options.regularExpression);
    result.setFlag(SearchCore::CaseSensitive, options.caseSensitive);
    result.setFlag(SearchCore::WholeWord, options.wholeWord);
    return result;
}

// The first line break (LF, CR) at or after from, or end.
const char *lineBreakFrom(const char *from, const char *end)
{
    const auto *lf = static_cast<const char *>(std::memchr(from, '\n', size_t(end - from)));
    const char *stop = lf ? lf : end;
    const auto *cr = static_cast<const char *>(std::memchr(from, '\r', size_t(stop - from)));
    return cr ? cr : stop;
}

// Where the line after the break at lineBreak starts; a CRLF is one break.
const char *afterLineBreak(const char *lineBreak, const char *end)
{
    if (lineBreak == end)
        return end;
    return lineBreak[0] == '\r' && lineBreak + 1 < end && lineBreak[1] == '\n' ? lineBreak + 2
                                                                               : lineBreak + 1;
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

} // namespace

TextMatcher::TextMatcher(const SearchOptions &options)
    : m_core(std::make_unique<const SearchCore>(options.text, coreOptions(options)))
{
    if (options.text.isEmpty()) {
        m_error = QCoreApplication::translate("TextMatcher", "Enter the text to search for.");
    } else if (options.text.contains(QLatin1Char('\n')) ||
               options.text.contains(QLatin1Char('\r'))) {
        m_error =
            QCoreApplication::translate("TextMatcher", "The search text must be a single line.");
    } else if (!m_core->isValid()) {
        m_error = m_core->errorString();
    }
    // An ASCII plain text matches only ASCII bytes, which mean the same in every
    // such encoding; bytes that are not UTF-8 count as non-word characters, so
    // the raw bytes can only give more whole-word hits than the decoded text.
    const QByteArray utf8 = options.text.toUtf8();
    m_encodingNeutral =
        !options.regularExpression &&
        std::all_of(utf8.begin(), utf8.end(), [](char c) { return uchar(c) < 0x80; });
}

TextMatcher::~TextMatcher() = default;

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
                            const std::atomic<bool> *cancel, qsizetype from, qint64 firstLine) const
{
    if (!isValid())
        return true;
    const char *begin = utf8.data();
    const char *end = begin + utf8.size();
    LineCounter lines(utf8);
    while (from < utf8.size()) {
        if (cancel && cancel->load(std::memory_order_relaxed))
            return false;
        // The window ends at a line break, so that ^, $ and whole words see the
        // same text as in the whole file; only a match that spans the break
        // between two windows is not found.
        const char *windowEnd = end;
        if (utf8.size() - from > WindowBytes)
            windowEnd = afterLineBreak(lineBreakFrom(begin + from + WindowBytes, end), end);
        const QByteArrayView window(begin, windowEnd - begin);
        SearchCore::Match match = m_core->find(window, from);
        // An empty match at the end of a window belongs to the next one, unless
        // it is the end of the text.
        while (match.found() && (begin + match.begin < windowEnd || windowEnd == end)) {
            LineHit hit;
            hit.line = lines.lineAt(match.begin) + firstLine - 1;
            const char *lineStart = begin + lines.lineStart();
            const char *lineBreak = lineBreakFrom(lineStart, end);
            hit.text = QString::fromUtf8(lineStart, lineBreak - lineStart);
            hit.column = utf16Length(lineStart, begin + match.begin);
            hit.length = utf16Length(begin + match.begin, std::min(begin + match.end, lineBreak));
            if (!sink(hit))
                return false;
            // The rest of the line needs no search; a match that reaches into
            // the next line is stepped over as a whole.
            const qsizetype nextLine = afterLineBreak(lineBreak, end) - begin;
            if (nextLine >= window.size())
                break;
            match = m_core->find(window, std::max(nextLine, match.end));
        }
        from = windowEnd - begin;
    }
    return true;
}
