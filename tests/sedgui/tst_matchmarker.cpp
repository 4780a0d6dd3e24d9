#include "../textcore/searchpatterns.h"
#include "dialogs/findbar.h"
#include "editing/matchmarker.h"
#include "sedgui.h"

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
};

void TestMatchMarker::countAsTyped_data()
{
    searchpatterns::addMatchRows();
    // Needles across the ends of counting slices, one in every slice's last bytes.
    QByteArray needles(3 * MatchMarker::CountSlice + 100, 'x');
    for (qint64 slice = 1; slice <= 3; ++slice) {
        needles.replace(slice * MatchMarker::CountSlice - 3, 6, "needle");
    }
    QTest::newRow("plain matches across slice ends")
        << QStringLiteral("needle") << searchpatterns::Options() << needles
        << QStringList(3, QStringLiteral("1:needle"));
    QByteArray lines;
    while (lines.size() < 2 * MatchMarker::CountSlice + 50) {
        lines += QByteArray(99, 'y') + '\n';
    }
    QTest::newRow("an empty match at every line start of a large text")
        << QStringLiteral("^") << searchpatterns::Options(searchpatterns::R) << lines
        << QStringList(lines.count('\n'), QStringLiteral("1:"));
}

void TestMatchMarker::countAsTyped()
{
    QFETCH(QString, pattern);
    QFETCH(searchpatterns::Options, options);
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);

    SedGUI tool;
    tool.editor()->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
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
    QTRY_VERIFY_WITH_TIMEOUT(!bar->marker()->isCounting(), 30000);
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

QTEST_MAIN(TestMatchMarker)
#include "tst_matchmarker.moc"
