#pragma once

#include <QByteArray>

namespace koru::sedgui {

// How a language writes comments (Languages::commentSyntax()). Languages with
// line comments are toggled line by line; the others wrap the lines in a
// block comment.
class CommentSyntax
{
public:
    CommentSyntax() = default;
    CommentSyntax(QByteArray linePrefix, QByteArray blockStart, QByteArray blockEnd)
        : m_linePrefix(std::move(linePrefix))
        , m_blockStart(std::move(blockStart))
        , m_blockEnd(std::move(blockEnd))
    {}

    QByteArray linePrefix() const { return m_linePrefix; }
    QByteArray blockStart() const { return m_blockStart; }
    QByteArray blockEnd() const { return m_blockEnd; }
    bool isEmpty() const { return m_linePrefix.isEmpty() && m_blockStart.isEmpty(); }

private:
    QByteArray m_linePrefix;
    QByteArray m_blockStart;
    QByteArray m_blockEnd;
};

} // namespace koru::sedgui
