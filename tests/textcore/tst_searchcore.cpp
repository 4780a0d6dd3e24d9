#include "linecounter.h"
#include "searchcore.h"
#include "searchpatterns.h"

#include <QTest>

using namespace koru::sedgui;

class TstSearchCore : public QObject
{
    Q_OBJECT

private:
    static SearchCore fetchCore()
    {
        QFETCH(QString, pattern);
        QFETCH(searchpatterns::Options, options);
        return SearchCore(pattern, options);
    }

    static QString describe(QByteArrayView text, const SearchCore::Match &match, qint64 where)
    {
        return QString::number(where) + u':' +
               QString::fromUtf8(text.sliced(match.begin, match.length()));
    }

private Q_SLOTS:
    void matches_data() { searchpatterns::addMatchRows(); }
    void matches()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, expected);
        const SearchCore core = fetchCore();
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
        QFETCH(QByteArray, text);
        QFETCH(qsizetype, before);
        QFETCH(QString, expected);
        const auto match = fetchCore().findPrevious(text, before);
        QCOMPARE(match.found() ? describe(text, match, match.begin) : QString(), expected);
    }

    void replaceAll_data() { searchpatterns::addReplaceRows(); }
    void replaceAll()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, replacement);
        QFETCH(QByteArray, expected);
        QCOMPARE(fetchCore().replaceAll(text, replacement), expected);
    }
};

QTEST_GUILESS_MAIN(TstSearchCore)
#include "tst_searchcore.moc"
