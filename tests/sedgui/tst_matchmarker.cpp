#include "../textcore/searchpatterns.h"
#include "dialogs/findbar.h"
#include "sedgui.h"
#include "tool/matchmarker.h"

#include <QLineEdit>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

// The find bar counts and marks every match as the pattern is typed, and the
// count agrees with the search core's matches, slice after slice.
class TestMatchMarker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countAsTyped_data();
    void countAsTyped();
    void countsLargeDocuments_data();
    void countsLargeDocuments();
};

namespace {

// Opens the find bar over text with the options ticked and types pattern.
FindBar *typePattern(SedGUI &tool, const QByteArray &text, const QString &pattern,
                     SearchCore::Options options)
{
    tool.editor()->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
    tool.editor()->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 0ul);
    tool.show();
    tool.find();
    auto *bar = tool.findChild<FindBar *>();
    SearchQuery query;
    query.regex = options.testFlag(SearchCore::RegularExpression);
    query.matchCase = options.testFlag(SearchCore::CaseSensitive);
    query.wholeWord = options.testFlag(SearchCore::WholeWord);
    bar->setQuery(query);
    // Typed one key at a time, as the user does; keys with any letter.
    for (const QChar ch : pattern) {
        QTest::sendKeyEvent(QTest::Click, bar->findChild<QLineEdit *>(), Qt::Key_unknown,
                            QString(ch), Qt::NoModifier);
    }
    return bar;
}

} // namespace

void TestMatchMarker::countAsTyped_data()
{
    searchpatterns::addMatchRows();
}

void TestMatchMarker::countAsTyped()
{
    QFETCH(QString, pattern);
    QFETCH(searchpatterns::Options, options);
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);

    SedGUI tool;
    FindBar *bar = typePattern(tool, text, pattern, options);
    QTRY_VERIFY(!bar->marker()->isCounting());
    if (!expected.isEmpty() && expected.first().startsWith(QLatin1String("error at"))) {
        QCOMPARE(bar->matchSummary(), QString());
    } else if (expected.isEmpty()) {
        QCOMPARE(bar->matchSummary(), pattern.isEmpty() ? QString() : QStringLiteral("No matches"));
    } else {
        // The first match is selected while typing, from where the search began.
        QCOMPARE(bar->matchSummary(), QStringLiteral("1 of %1").arg(expected.size()));
        QCOMPARE(tool.editor()->selectedText(), expected.first().section(u':', 1));
    }
}

void TestMatchMarker::countsLargeDocuments_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<searchpatterns::Options>("options");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");

    // Needles across the ends of counting slices, one in every slice's last bytes.
    QByteArray needles(3 * MatchMarker::CountSlice + 100, 'x');
    for (qint64 slice = 1; slice <= 3; ++slice) {
        needles.replace(slice * MatchMarker::CountSlice - 3, 6, "needle");
    }
    needles.replace(10, 6, "needle");
    QTest::newRow("plain matches across slice ends")
        << "needle" << searchpatterns::Options() << needles << "1 of 4";

    QByteArray lines;
    while (lines.size() < 2 * MatchMarker::CountSlice + 50) {
        lines += QByteArray(99, 'y') + '\n';
    }
    const qint64 lineCount = lines.count('\n');
    QTest::newRow("an empty match at every line start")
        << "^" << searchpatterns::Options(searchpatterns::R) << lines
        << QStringLiteral("1 of %1").arg(lineCount);
    QTest::newRow("line ends beside slice ends")
        << "y$" << searchpatterns::Options(searchpatterns::R) << lines
        << QStringLiteral("1 of %1").arg(lineCount);
    QTest::newRow("more than are counted")
        << "a" << searchpatterns::Options() << QByteArray(MatchMarker::MaxCounted + 5, 'a')
        << QStringLiteral("1 of %1+").arg(MatchMarker::MaxCounted);
}

void TestMatchMarker::countsLargeDocuments()
{
    QFETCH(QString, pattern);
    QFETCH(searchpatterns::Options, options);
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);

    SedGUI tool;
    FindBar *bar = typePattern(tool, text, pattern, options);
    QTRY_VERIFY_WITH_TIMEOUT(!bar->marker()->isCounting(), 30000);
    QCOMPARE(bar->matchSummary(), expected);
}

QTEST_MAIN(TestMatchMarker)
#include "tst_matchmarker.moc"
