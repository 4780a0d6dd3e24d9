#pragma once

#include <QByteArrayView>

namespace koru::sedgui {

// Numbers the lines of a text held as bytes, where LF, CRLF and a lone CR each
// end one line. It counts on from the offset it was last asked about, so going
// through the matches of a large text in order counts the text once.
class LineCounter
{
public:
    // The text must outlive the counter; it is not copied.
    explicit LineCounter(QByteArrayView text)
        : m_text(text)
    {}

    // The 1-based line that holds the byte at offset (the line a line break
    // belongs to is the one it ends). An offset before the last one asked about
    // counts again from the start of the text.
    qint64 lineAt(qsizetype offset);
    // Where the line of the last lineAt() starts.
    qsizetype lineStart() const { return m_lineStart; }

private:
    // Counts the LFs from m_offset to to, which holds no CR, and moves there.
    void countLineFeedsTo(qsizetype to);

    QByteArrayView m_text;
    qsizetype m_offset = 0;
    qint64 m_line = 1;
    qsizetype m_lineStart = 0;
    // The offset of the first CR at or after m_offset (the text's size when
    // there is none), or less than m_offset when it must be looked up again.
    qsizetype m_nextCr = -1;
};

} // namespace koru::sedgui
