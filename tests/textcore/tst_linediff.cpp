#include "linediff.h"

#include <QTest>

using namespace koru::sedgui;

// The diff shown before recovering a document: hunks, ranges and context.
class TstLineDiff : public QObject
{
    Q_OBJECT

private slots:
    void unifiedDiff_data();
    void unifiedDiff();
};

void TstLineDiff::unifiedDiff_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("maxEdits");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray ten = "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n";
    QTest::newRow("same lines") << ten << ten << 100 << QByteArray();
    QTest::newRow("one line changed, context around")
        << ten << QByteArray(ten).replace("5\n", "five\n") << 100
        << QByteArray("@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
    QTest::newRow("into an empty file")
        << QByteArray() << QByteArray("a\r\nb") << 100 << QByteArray("@@ -0,0 +1,2 @@\n+a\n+b\n");
    QTest::newRow("last line removed") << ten << QByteArray(ten).replace("10\n", "") << 100
                                       << QByteArray("@@ -7,4 +7,3 @@\n 7\n 8\n 9\n-10\n");
    QTest::newRow("two changes far apart, two hunks")
        << ten << QByteArray(ten).replace("1\n", "one\n").replace("10\n", "ten\n") << 100
        << QByteArray("@@ -1,4 +1,4 @@\n-1\n+one\n 2\n 3\n 4\n"
                      "@@ -7,4 +7,4 @@\n 7\n 8\n 9\n-10\n+ten\n");
    QTest::newRow("interleaved edits")
        << QByteArray("a\nb\nc\nd\n") << QByteArray("a\nx\nc\nd\ny\n") << 100
        << QByteArray("@@ -1,4 +1,5 @@\n a\n-b\n+x\n c\n d\n+y\n");
    QTest::newRow("too many edits: the middle replaced whole")
        << QByteArray("k\na\nb\nk\n") << QByteArray("k\nb\na\nk\n") << 1
        << QByteArray("@@ -1,4 +1,4 @@\n k\n-a\n-b\n+b\n+a\n k\n");
}

void TstLineDiff::unifiedDiff()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(int, maxEdits);
    QFETCH(QByteArray, expected);
    const QByteArray diff = LineDiff::unified(before, after, "old", "new", 3, maxEdits);
    QCOMPARE(diff, expected.isEmpty() ? QByteArray() : "--- old\n+++ new\n" + expected);
}

QTEST_GUILESS_MAIN(TstLineDiff)
#include "tst_linediff.moc"
