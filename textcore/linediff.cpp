#include "linediff.h"

#include <QByteArrayView>
#include <QList>

#include <algorithm>
#include <vector>

namespace koru::sedgui {

namespace {

using Lines = QList<QByteArrayView>;

Lines splitLines(const QByteArray &text)
{
    Lines lines;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = text.indexOf('\n', start);
        if (end < 0)
            end = text.size();
        lines.append(QByteArrayView(text.constData() + start, end - start));
        start = end + 1;
    }
    return lines;
}

enum class Kind { Same, Removed, Added };

struct Edit
{
    Kind kind;
    qsizetype oldLine; // 0-based; for Added, the old line it comes before
    qsizetype newLine; // 0-based; for Removed, the new line it comes before
};

// The shortest edit script between a[aFrom, aFrom+n) and b[bFrom, bFrom+m)
// (Myers' O(ND) algorithm); false when it needs more than maxEdits edits.
bool shortestEdits(const Lines &a, qsizetype aFrom, qsizetype n, const Lines &b, qsizetype bFrom,
                   qsizetype m, int maxEdits, QList<Edit> *edits)
{
    // trace[d][k + d]: the furthest x reached on diagonal k with d edits.
    std::vector<std::vector<qsizetype>> trace;
    const auto previous = [&trace](int d, qsizetype k) { return trace[d][size_t(k + d)]; };
    int found = -1;
    for (int d = 0; d <= maxEdits && found < 0; ++d) {
        std::vector<qsizetype> current(size_t(2 * d + 1));
        for (qsizetype k = -d; k <= d; k += 2) {
            qsizetype x = 0;
            if (d > 0) {
                const bool down =
                    k == -d || (k != d && previous(d - 1, k - 1) < previous(d - 1, k + 1));
                x = down ? previous(d - 1, k + 1) : previous(d - 1, k - 1) + 1;
            }
            qsizetype y = x - k;
            while (x < n && y < m && a.at(aFrom + x) == b.at(bFrom + y)) {
                ++x;
                ++y;
            }
            current[size_t(k + d)] = x;
            if (x >= n && y >= m) {
                found = d;
                break;
            }
        }
        trace.push_back(std::move(current));
    }
    if (found < 0)
        return false;

    QList<Edit> reversed;
    qsizetype x = n;
    qsizetype y = m;
    for (int d = found; d > 0; --d) {
        const qsizetype k = x - y;
        const bool down = k == -d || (k != d && previous(d - 1, k - 1) < previous(d - 1, k + 1));
        const qsizetype previousK = down ? k + 1 : k - 1;
        const qsizetype previousX = previous(d - 1, previousK);
        const qsizetype previousY = previousX - previousK;
        while (x > previousX && y > previousY) {
            --x;
            --y;
            reversed.append({Kind::Same, aFrom + x, bFrom + y});
        }
        if (down)
            reversed.append({Kind::Added, aFrom + x, bFrom + --y});
        else
            reversed.append({Kind::Removed, aFrom + --x, bFrom + y});
    }
    while (x > 0 && y > 0) {
        --x;
        --y;
        reversed.append({Kind::Same, aFrom + x, bFrom + y});
    }
    std::reverse(reversed.begin(), reversed.end());
    edits->append(reversed);
    return true;
}

QByteArray range(qsizetype start, qsizetype count)
{
    // An empty range names the line before it, as patch expects.
    return QByteArray::number(count == 0 ? start : start + 1) + ',' + QByteArray::number(count);
}

} // namespace

QByteArray LineDiff::unified(const QByteArray &before, const QByteArray &after,
                             const QByteArray &beforeName, const QByteArray &afterName, int context,
                             int maxEdits)
{
    const Lines a = splitLines(before);
    const Lines b = splitLines(after);
    qsizetype prefix = 0;
    while (prefix < a.size() && prefix < b.size() && a.at(prefix) == b.at(prefix))
        ++prefix;
    qsizetype suffix = 0;
    while (suffix < a.size() - prefix && suffix < b.size() - prefix &&
           a.at(a.size() - 1 - suffix) == b.at(b.size() - 1 - suffix))
        ++suffix;
    const qsizetype n = a.size() - prefix - suffix;
    const qsizetype m = b.size() - prefix - suffix;
    if (n == 0 && m == 0)
        return {};

    // Only the changed middle and the context around it become edits: a
    // large file with a few changes stays cheap.
    QList<Edit> edits;
    for (qsizetype i = std::max<qsizetype>(0, prefix - context); i < prefix; ++i)
        edits.append({Kind::Same, i, i});
    if (!shortestEdits(a, prefix, n, b, prefix, m, maxEdits, &edits)) {
        for (qsizetype i = 0; i < n; ++i)
            edits.append({Kind::Removed, prefix + i, prefix});
        for (qsizetype i = 0; i < m; ++i)
            edits.append({Kind::Added, prefix + n, prefix + i});
    }
    for (qsizetype i = 0; i < std::min<qsizetype>(suffix, context); ++i)
        edits.append({Kind::Same, prefix + n + i, prefix + m + i});

    QByteArray out = "--- " + beforeName + "\n+++ " + afterName + '\n';
    qsizetype at = 0;
    while (at < edits.size()) {
        // A hunk starts `context` lines before the next change and ends where
        // more than 2 * context unchanged lines follow a change.
        qsizetype change = at;
        while (change < edits.size() && edits.at(change).kind == Kind::Same)
            ++change;
        if (change == edits.size())
            break;
        const qsizetype first = std::max(at, change - context);
        qsizetype last = change;
        qsizetype same = 0;
        for (qsizetype i = change; i < edits.size(); ++i) {
            if (edits.at(i).kind == Kind::Same) {
                if (++same > 2 * context)
                    break;
            } else {
                same = 0;
                last = i;
            }
        }
        const qsizetype end = std::min(edits.size(), last + 1 + context);
        qsizetype oldCount = 0;
        qsizetype newCount = 0;
        QByteArray body;
        for (qsizetype i = first; i < end; ++i) {
            const Edit &edit = edits.at(i);
            const QByteArrayView line =
                edit.kind == Kind::Added ? b.at(edit.newLine) : a.at(edit.oldLine);
            body += edit.kind == Kind::Same ? ' ' : edit.kind == Kind::Removed ? '-' : '+';
            body += line.endsWith('\r') ? line.chopped(1) : line;
            body += '\n';
            oldCount += edit.kind != Kind::Added ? 1 : 0;
            newCount += edit.kind != Kind::Removed ? 1 : 0;
        }
        out += "@@ -" + range(edits.at(first).oldLine, oldCount) + " +" +
               range(edits.at(first).newLine, newCount) + " @@\n" + body;
        at = end;
    }
    return out;
}

} // namespace koru::sedgui
