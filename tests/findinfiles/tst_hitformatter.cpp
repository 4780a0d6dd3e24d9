#include "hitformatter.h"
#include "resultwindow.h"

#include <QSignalSpy>
#include <QTest>

namespace {

// What the result pane opens for a line: the emitted file and line.
std::pair<QString, int> openedByThePane(const QString &line)
{
    ResultWindow pane(nullptr);
    QSignalSpy opened(&pane, &ResultWindow::sigOpenFile);
    pane.openResultLine(line);
    if (opened.size() != 1)
        return {QStringLiteral("<no signal>"), -1};
    return {opened.first().at(0).toString(), opened.first().at(1).toInt()};
}

} // namespace

class TestHitFormatter : public QObject
{
    Q_OBJECT

private slots:
    void hitLineReadsBackToItsFileAndLine_data();
    void hitLineReadsBackToItsFileAndLine();
    void longLineKeepsTheMatchInView();
    void noteLineNeverOpensAFile_data();
    void noteLineNeverOpensAFile();
};

void TestHitFormatter::hitLineReadsBackToItsFileAndLine_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("text");

    QTest::newRow("parentheses in the path") << "/d/par(1)/g (2).c" << 7 << "x";
    QTest::newRow("a hit line inside the path") << "/d/x(12):y/f(3).c" << 3 << "x";
    QTest::newRow("several paren-colons in the text") << "/d/f.c" << 5 << "(a):b(c):d (e):";
    QTest::newRow("text ending in paren-colon") << "/d/f.c" << 5 << "case f(x):";
    QTest::newRow("empty text") << "/d/f.c" << 2 << "";
    QTest::newRow("blank text") << "/d/f.c" << 2 << " \t ";
    QTest::newRow("carriage return and line separators")
        << "/d/f.c" << 3 << QStringLiteral("a\rb") + QChar(0x2028) + "c" + QChar(0x2029) + "(1):d";
    QTest::newRow("NUL in the text") << "/d/f.c" << 4 << QStringLiteral("a") + QChar(0) + "(9):b";
    QTest::newRow("large line number") << "/d/f.c" << 2000000000 << "x";
}

void TestHitFormatter::hitLineReadsBackToItsFileAndLine()
{
    QFETCH(QString, file);
    QFETCH(int, line);
    QFETCH(QString, text);

    const QString hit = HitFormatter::hitLine(file, line, text, 0);
    QVERIFY2(!hit.contains(QLatin1Char('\n')) && !hit.contains(QLatin1Char('\r')), qPrintable(hit));
    QCOMPARE(openedByThePane(hit), std::make_pair(file, line));
}

void TestHitFormatter::longLineKeepsTheMatchInView()
{
    const QString text = QString(5000, QLatin1Char('y')) + QStringLiteral(" needle ") +
                         QString(5000, QLatin1Char('z'));
    const QString shown = HitFormatter::displayText(text, 5001);
    QVERIFY(shown.size() <= HitFormatter::MaxTextLength + 2);
    QVERIFY(shown.contains(QLatin1String("needle")));
    QVERIFY(shown.startsWith(QChar(0x2026)) && shown.endsWith(QChar(0x2026)));
    // A match near the start keeps the start.
    QVERIFY(HitFormatter::displayText(QString(QStringLiteral("needle ") + text), 0)
                .startsWith(QLatin1String("needle")));
}

void TestHitFormatter::noteLineNeverOpensAFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("search heading with a hit-like pattern")
        << "Searching for \"f(x):y\" in /d/x(12):y (case-sensitive)";
    QTest::newRow("summary") << "3 hits in 2 files (10 files searched)";
    QTest::newRow("hit-like folder") << "/d/a.c(3):b";
}

void TestHitFormatter::noteLineNeverOpensAFile()
{
    QFETCH(QString, text);
    QCOMPARE(openedByThePane(HitFormatter::noteLine(text)).first, QString());
}

QTEST_MAIN(TestHitFormatter)
#include "tst_hitformatter.moc"
