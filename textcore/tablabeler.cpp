#include "tablabeler.h"

#include <QHash>

#include <algorithm>

namespace koru::sedgui {

namespace {

struct Split
{
    QString name;
    QStringList folders; // outermost first
};

Split split(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    Split result;
    result.name = path.mid(slash + 1);
    if (slash > 0)
        result.folders = path.left(slash).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return result;
}

// The last count folders, or all there are.
QString lastFolders(const QStringList &folders, qsizetype count)
{
    return folders.sliced(std::max<qsizetype>(0, folders.size() - count)).join(QLatin1Char('/'));
}

// lastFolders() as shown: all of them are written from the root.
QString shownFolders(const QStringList &folders, qsizetype count)
{
    const QString last = lastFolders(folders, count);
    return count >= folders.size() ? QLatin1Char('/') + last : last;
}

} // namespace

QStringList TabLabeler::labels(const QStringList &paths)
{
    QList<Split> parts;
    parts.reserve(paths.size());
    QHash<QString, QList<qsizetype>> byName;
    for (qsizetype i = 0; i < paths.size(); ++i) {
        parts.append(split(paths.at(i)));
        if (!paths.at(i).isEmpty())
            byName[parts.last().name].append(i);
    }

    QStringList result;
    result.reserve(paths.size());
    for (qsizetype i = 0; i < paths.size(); ++i) {
        if (paths.at(i).isEmpty()) {
            result.append(QString());
            continue;
        }
        const Split &own = parts.at(i);
        QList<qsizetype> others = byName.value(own.name);
        others.removeAll(i);
        // The same file twice has nothing to tell it apart.
        others.erase(std::remove_if(others.begin(), others.end(),
                                    [&](qsizetype j) { return paths.at(j) == paths.at(i); }),
                     others.end());
        if (others.isEmpty()) {
            result.append(own.name);
            continue;
        }
        qsizetype count = 1;
        for (; count < own.folders.size(); ++count) {
            const QString mine = lastFolders(own.folders, count);
            const bool clash = std::any_of(others.begin(), others.end(), [&](qsizetype j) {
                return lastFolders(parts.at(j).folders, count) == mine;
            });
            if (!clash)
                break;
        }
        result.append(own.name + QStringLiteral(" \u2014 ") + shownFolders(own.folders, count));
    }
    return result;
}

} // namespace koru::sedgui
