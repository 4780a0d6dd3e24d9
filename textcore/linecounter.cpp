#include "linecounter.h"

#include <algorithm>
#include <cstring>

namespace koru::sedgui {

qint64 LineCounter::lineAt(qsizetype offset)
{
    offset = std::clamp<qsizetype>(offset, 0, m_text.size());
    if (offset < m_offset) {
        m_offset = 0;
        m_line = 1;
        m_lineStart = 0;
    }
    const char *data = m_text.data();
    const qsizetype size = m_text.size();
    // Most text has no CR: its LFs are counted at the pace of memchr.
    if (!std::memchr(data + m_offset, '\r', size_t(offset - m_offset))) {
        const auto breaks = std::count(data + m_offset, data + offset, '\n');
        if (breaks > 0) {
            m_line += breaks;
            const void *last = memrchr(data + m_offset, '\n', size_t(offset - m_offset));
            m_lineStart = static_cast<const char *>(last) - data + 1;
        }
        m_offset = offset;
        return m_line;
    }
    for (qsizetype i = m_offset; i < offset; ++i) {
        const char c = data[i];
        // A CR followed by LF is counted at the LF, so an offset between the two
        // still lies on the line they end.
        if (c == '\n' || (c == '\r' && (i + 1 == size || data[i + 1] != '\n'))) {
            ++m_line;
            m_lineStart = i + 1;
        }
    }
    m_offset = offset;
    return m_line;
}

} // namespace koru::sedgui
