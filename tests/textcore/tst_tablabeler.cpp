#include "tablabeler.h"

#include <QTest>

using namespace koru::sedgui;

class TstTabLabeler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // paths and labels are "|"-separated lists, in the same order.
    void labels_data()
    {
        QTest::addColumn<QString>("paths");
        QTest::addColumn<QString>("labels");
        const auto row = [](const char *tag, const char *paths, const char *labels) {
            QTest::newRow(tag) << QString::fromUtf8(paths) << QString::fromUtf8(labels);
        };
        row("different names keep their names", "/a/x.c|/b/y.c", "x.c|y.c");
        row("same name, different folders", "/usr/include/stdio.h|/usr/include/x86/bits/stdio.h",
            "stdio.h — include|stdio.h — bits");
        row("only the same names get folders", "/h/p/a/m.c|/h/q/a/m.c|/h/p/a/n.c",
            "m.c — p/a|m.c — q/a|n.c");
        row("nested folders", "/src/util.c|/src/net/util.c|/src/net/tls/util.c",
            "util.c — /src|util.c — net|util.c — tls");
        row("identical folders at different depths", "/a/include/s.h|/include/s.h|/b/c/include/s.h",
            "s.h — /a/include|s.h — /include|s.h — c/include");
        row("one folder path ends in the other", "/a/b/x.h|/c/a/b/x.h", "x.h — /a/b|x.h — /c/a/b");
        row("three alike, told apart at different depths",
            "/w/one/lib/k.rs|/w/two/lib/k.rs|/w/two/src/k.rs",
            "k.rs — one/lib|k.rs — two/lib|k.rs — src");
        row("file in the root", "/x.h|/y/x.h", "x.h — /|x.h — /y");
        row("the same file twice is not told apart", "/a/x.c|/a/x.c", "x.c|x.c");
        row("documents without a file", "|/a/x.c|", "|x.c|");
        row("names differing in case are different", "/a/Make.inc|/b/make.inc",
            "Make.inc|make.inc");
    }
    void labels()
    {
        QFETCH(QString, paths);
        QFETCH(QString, labels);
        QCOMPARE(TabLabeler::labels(paths.split(QLatin1Char('|'))).join(QLatin1Char('|')), labels);
    }
};

QTEST_APPLESS_MAIN(TstTabLabeler)
#include "tst_tablabeler.moc"
