#include "linecounter.h"
#include "searchcore.h"
#include "searchpatterns.h"

#include <QTest>

using namespace koru::sedgui;

class TstSearchCore : public QObject
{
    Q_OBJECT

private:
    static QString describe(QByteArrayView text, const SearchCore::Match &match, qint64 where)
    {
        return QString::number(where) + u':' +
               QString::fromUtf8(text.sliced(match.begin, match.length()));
    }

private Q_SLOTS:
    void matches_data() { searchpatterns::addMatchRows(); }
    void matches()
    {
        QFETCH(QString, pattern);
        QFETCH(searchpatterns::Options, options);
        QFETCH(QByteArray, text);
        QFETCH(QStringList, expected);
        const SearchCore core(pattern, options);
        QStringList found;
        if (!core.isValid())
            found << QStringLiteral("error at %1: %2")
                         .arg(core.errorOffset())
                         .arg(core.errorMessage());
        LineCounter lines(text);
        // Bounded, so that a search that never moves on fails instead of hanging.
        for (auto match = core.find(text, 0); match.found() && found.size() < 20;
             match = core.findAfter(text, match)) {
            found << describe(text, match, lines.lineAt(match.begin));
        }
        QCOMPARE(found, expected);
    }

    void findPrevious_data() { searchpatterns::addFindPreviousRows(); }
    void findPrevious()
    {
        QFETCH(QString, pattern);
        QFETCH(searchpatterns::Options, options);
        QFETCH(QByteArray, text);
        QFETCH(qsizetype, before);
        QFETCH(QString, expected);
        const auto match = SearchCore(pattern, options).findPrevious(text, before);
        QCOMPARE(match.found() ? describe(text, match, match.begin) : QString(), expected);
    }

    void replaceAll_data() { searchpatterns::addReplaceRows(); }
    void replaceAll()
    {
        QFETCH(QString, pattern);
        QFETCH(searchpatterns::Options, options);
        QFETCH(QByteArray, text);
        QFETCH(QString, replacement);
        QFETCH(QByteArray, expected);
        QCOMPARE(SearchCore(pattern, options).replaceAll(text, replacement), expected);
    }

    void groupOffsets()
    {
        const QByteArray text = "key = value";
        const SearchCore core(QStringLiteral("(\\w+) = (?:(x)|(\\w+))"),
                              SearchCore::RegularExpression);
        const auto match = core.find(text, 0);
        QCOMPARE(match.groupBegin(1), 0);
        QCOMPARE(match.groupEnd(1), 3);
        QCOMPARE(match.groupBegin(2), -1);
        QCOMPARE(match.groupBegin(3), 6);
        QCOMPARE(match.groupEnd(3), 11);
    }

    void lineCounterCountsOnAndBack()
    {
        const QByteArray text = "a\r\nb\rc\nd\r";
        LineCounter lines(text);
        // The LF of a CRLF asked for apart from its CR, then back to the start.
        const QList<std::array<qsizetype, 3>> steps = {
            {2, 1, 0}, {3, 2, 3}, {5, 3, 5}, {7, 4, 7}, {1, 1, 0}, {9, 5, 9},
        };
        for (const auto &[offset, line, start] : steps) {
            QCOMPARE(lines.lineAt(offset), line);
            QCOMPARE(lines.lineStart(), start);
        }
    }
};

QTEST_GUILESS_MAIN(TstSearchCore)
#include "tst_searchcore.moc"
