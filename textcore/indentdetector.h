#pragma once

#include <QByteArray>

namespace koru::sedgui {

// Guesses how a document is indented from its own lines: tabs or spaces, and
// for spaces how many make one level. Looks at the first SampleBytes only, so
// the cost does not grow with the file.
class IndentDetector
{
public:
    enum class Style { Unknown, Tabs, Spaces };

    struct Result
    {
        // Unknown when the sample has no indented lines to go by, or as many
        // indented with tabs as with spaces.
        Style style = Style::Unknown;
        // Spaces per level (2, 3, 4 or 8) for Style::Spaces; 0 when the lines
        // do not show it, and always 0 for tabs (one tab per level).
        int width = 0;

        friend bool operator==(const Result &, const Result &) = default;
    };

    static constexpr qsizetype SampleBytes = 64 * 1024;

    // utf8: the document's text; only its first SampleBytes are read.
    static Result detect(const QByteArray &utf8);
};

} // namespace koru::sedgui
