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
    void countFollowsEdits_data();
    void countFollowsEdits();
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

void TestMatchMarker::countFollowsEdits_data()
{
    // Edits made at once, "N,M,text": the bytes [N, N+M) replaced by text.
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<searchpatterns::Options>("options");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("edits");
    QTest::addColumn<bool>("inPlace"); // taken in without counting again from the start
    const auto row = [](const char *tag, const char *pattern, searchpatterns::Options options,
                        const QByteArray &text, const char *edits, bool inPlace) {
        QTest::newRow(tag) << QString(pattern) << options << text << QString(edits) << inPlace;
    };
    row("a match inserted", "foo", {}, "foo bar foo", "4,0,foo-", true);
    row("a match deleted", "foo", {}, "foo bar foo", "0,4,", true);
    row("two halves joined", "foo", {}, "fo x o foo", "2,3,", true);
    row("a word made whole", "foo", searchpatterns::W, "foo foox foo", "7,1,", true);
    row("overlapping candidates shift far on", "aa", {}, QByteArray(199, 'a'), "0,0,a", true);
    row("far from the edit, moved", "foo", {}, QByteArray("foo ").repeated(10000),
        "20001,0,x 39000,5,", true);
    row("lines of a regular expression", "^\\w+", searchpatterns::R, "ab\ncd\nef", "3,3, 0,0,x-",
        true);
    row("empty matches at line starts", "^", searchpatterns::R, "a\nb\nc", "1,1,\n\n", true);
    row("a pattern across lines counts again", "b\\nc", searchpatterns::R, "a\nb\nc",
        "1,1, 0,0,b\n", false);
}

void TestMatchMarker::countFollowsEdits()
{
    QFETCH(QString, pattern);
    QFETCH(searchpatterns::Options, options);
    QFETCH(QByteArray, text);
    QFETCH(QString, edits);
    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    editor->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
    SearchQuery query;
    query.pattern = pattern;
    query.regex = options.testFlag(SearchCore::RegularExpression);
    query.wholeWord = options.testFlag(SearchCore::WholeWord);
    MatchMarker marker(editor, nullptr);
    marker.setQuery(query);
    QTRY_VERIFY(!marker.isCounting());
    QStringList summaries;
    connect(&marker, &MatchMarker::changed, this, [&] { summaries << marker.summary(); });
    for (const QString &edit : edits.split(u' ')) {
        const QStringList part = edit.split(u',');
        editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, part[0].toULong(),
                              part[0].toLong() + part[1].toLong());
        editor->SendScintilla(QsciScintillaBase::SCI_REPLACESEL, 0ul,
                              QString(part[2]).replace(u'-', u' ').toUtf8().constData());
    }
    // The last match selected, and "n of m" compared with a count from the start.
    query.backwards = true;
    const SearchMatch last =
        TextSearcher::find(editor, query, editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
    editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, ulong(last.start), long(last.end));
    QTRY_VERIFY(!marker.isCounting());
    MatchMarker full(editor, nullptr);
    full.setQuery(query);
    QTRY_VERIFY(!full.isCounting());
    QCOMPARE(marker.summary(), full.summary());
    QVERIFY(full.summary().contains(QStringLiteral(" of ")));
    QTEST(summaries.filter(QStringLiteral("Counting")).isEmpty(), "inPlace");
}

QTEST_MAIN(TestMatchMarker)
#include "tst_matchmarker.moc"
