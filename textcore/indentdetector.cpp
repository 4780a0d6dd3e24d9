#include "indentdetector.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace koru::sedgui {

namespace {

// Columns a tab advances to when measuring the indentation of mixed lines.
constexpr int MeasureTabWidth = 8;

// "  * text", "  */", "  *": the middle of a block comment, aligned one
// column past its opener's indentation, so it says nothing about levels.
bool isCommentContinuation(const char *text, const char *end)
{
    if (text == end || *text != '*')
        return false;
    const char *next = text + 1;
    return next == end || *next == ' ' || *next == '\t' || *next == '/' || *next == '\r';
}

} // namespace

IndentDetector::Result IndentDetector::detect(const QByteArray &utf8)
{
    const char *data = utf8.constData();
    const char *end = data + std::min(utf8.size(), SampleBytes);
    const bool truncated = utf8.size() > SampleBytes;

    int tabLines = 0;
    int spaceLines = 0;
    // How often the indentation changes by n columns between consecutive
    // non-blank lines indented with spaces only (index n, 1 to 8).
    std::array<int, MeasureTabWidth + 1> changes{};
    int previous = -1; // columns of the last measured line, -1 after a tab-indented one

    for (const char *line = data; line < end;) {
        const auto *newline =
            static_cast<const char *>(std::memchr(line, '\n', static_cast<size_t>(end - line)));
        // A line cut by the end of the sample is not measured.
        if (!newline && truncated)
            break;
        const char *lineEnd = newline ? newline : end;
        const char *text = line;
        bool hasTab = false;
        while (text < lineEnd && (*text == ' ' || *text == '\t')) {
            hasTab = hasTab || *text == '\t';
            ++text;
        }
        const char *lineStart = line;
        line = lineEnd + 1;
        const auto columns = static_cast<int>(text - lineStart);
        if (text == lineEnd || *text == '\r')
            continue; // blank lines say nothing
        if (columns > 0 && isCommentContinuation(text, lineEnd))
            continue;

        if (*lineStart == '\t')
            ++tabLines;
        else if (columns > 1) // a single space is alignment more often than a level
            ++spaceLines;

        if (hasTab) {
            previous = -1;
            continue;
        }
        if (previous >= 0) {
            const int change = std::abs(columns - previous);
            if (change > 0 && change <= MeasureTabWidth)
                ++changes[static_cast<size_t>(change)];
        }
        previous = columns;
    }

    Result result;
    if (tabLines > spaceLines) {
        result.style = Style::Tabs;
    } else if (spaceLines > tabLines) {
        result.style = Style::Spaces;
        // The most frequent step; a tie goes to the smaller width, as two
        // levels of 4 give a step of 8 but never the other way round.
        int best = 0;
        for (int width : {2, 3, 4, 8}) {
            if (changes[static_cast<size_t>(width)] > best) {
                best = changes[static_cast<size_t>(width)];
                result.width = width;
            }
        }
    }
    return result;
}

} // namespace koru::sedgui
