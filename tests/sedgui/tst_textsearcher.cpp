#include "editorcommands.h"
#include "textsearcher.h"

#include <QSignalSpy>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

struct FindCase
{
    QString text, pattern, options;
    int from = 0, start = -1, end = -1; // start -1: no match
    bool wrapped = false;
};
Q_DECLARE_METATYPE(FindCase)

struct ReplaceCase
{
    QString text, pattern, options, replacement, result;
    int count;
};
Q_DECLARE_METATYPE(ReplaceCase)

class TstTextSearcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void find_data();
    void find();
    void findNextMovesOn_data();
    void findNextMovesOn();
    void replaceAll_data();
    void replaceAll();
    void replaceAllIsOneUndoStep();
    void replaceSelectionReplacesOnlyAMatch();
    void invalidRegexIsReported();
    void emptyMatchesDoNotLoopForever();
    void findsAcrossAnEditedSpot();
};

namespace {

// Options: r regex, c match case, w whole word, n no wrap, b backwards.
SearchQuery query(const QString &pattern, const QString &options)
{
    SearchQuery q;
    q.pattern = pattern;
    q.regex = options.contains(QLatin1Char('r'));
    q.matchCase = options.contains(QLatin1Char('c'));
    q.wholeWord = options.contains(QLatin1Char('w'));
    q.wrap = !options.contains(QLatin1Char('n'));
    q.backwards = options.contains(QLatin1Char('b'));
    return q;
}

void findRow(const char *name, const FindCase &c)
{
    QTest::newRow(name) << c;
}

void replaceRow(const char *name, const ReplaceCase &c)
{
    QTest::newRow(name) << c;
}

} // namespace

void TstTextSearcher::find_data()
{
    QTest::addColumn<FindCase>("c");

    findRow("plain", {"one two three", "two", "", 0, 4, 7});
    findRow("ignoring case, anchored mid-pattern", {"zzz Needle NEEDLE", "neeDLE", "", 5, 11, 17});
    findRow("match case", {"One ONE one", "one", "c", 0, 8, 11});
    findRow("whole word skips parts", {"cat concat cat", "cat", "w", 1, 11, 14});
    findRow("not whole word finds parts", {"cat concat cat", "cat", "", 1, 7, 10});
    findRow("whole word punctuation", {"a->b a-b", "-", "w", 0, 6, 7});
    findRow("regex", {"a1 b22 c333", "[0-9][0-9]+", "r", 0, 4, 6});
    findRow("regex whole word", {"ab abc abd", "ab[a-z]", "rw", 0, 3, 6});
    findRow("regex case", {"Abc abc", "A[a-z]+", "rcn", 1, -1});
    findRow("regex line start", {"xa\nab", "^a", "r", 0, 3, 4});
    findRow("wrap", {"x here x", "here", "", 5, 2, 6, true});
    findRow("no wrap", {"x here x", "here", "n", 5, -1});
    findRow("backwards", {"ab ab ab", "ab", "b", 5, 3, 5});
    findRow("backwards wraps to the end", {"ab xx ab", "ab", "b", 0, 6, 8, true});
    findRow("backwards regex", {"k1 k2 k3", "k[0-9]", "rb", 6, 3, 5});
    findRow("match case backwards", {"ONE one ONE one", "ONE", "cb", 14, 8, 11});
    findRow("match case backwards wraps", {"one ONE", "ONE", "cb", 3, 4, 7, true});
    findRow("whole word backwards", {"cat concat cat", "cat", "wb", 11, 0, 3});
    findRow("no match", {"nothing here", "zebra", "", 0, -1});
    findRow("match at the very end", {"abc end", "end", "n", 2, 4, 7});
    findRow("empty pattern", {"abc", "", "", 0, -1});
    findRow("across lines", {"one\ntwo\nthree", "three", "", 0, 8, 13});
    findRow("multi-byte, in bytes", {"日本語のテキスト", "テキ", "", 0, 12, 18});
}

void TstTextSearcher::find()
{
    QFETCH(FindCase, c);
    QsciScintilla editor;
    editor.setText(c.text);
    const SearchMatch match = TextSearcher::find(&editor, query(c.pattern, c.options), c.from);
    QCOMPARE(match.start, c.start);
    if (c.start >= 0) {
        QCOMPARE(match.end, c.end);
        QCOMPARE(match.wrapped, c.wrapped);
    }
}

void TstTextSearcher::findNextMovesOn_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QList<int>>("starts");

    QTest::newRow("forwards, wrapping") << "" << QList<int>{4, 8, 0, 4};
    QTest::newRow("backwards, wrapping") << "b" << QList<int>{8, 4, 0, 8};
    QTest::newRow("forwards, stopping") << "n" << QList<int>{4, 8, -1, -1};
}

void TstTextSearcher::findNextMovesOn()
{
    QFETCH(QString, options);
    QFETCH(QList<int>, starts);

    QsciScintilla editor;
    editor.setText(QStringLiteral("foo foo foo"));
    editor.SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 2UL);
    for (int expected : starts) {
        QCOMPARE(TextSearcher::findNext(&editor, query(QStringLiteral("foo"), options)).start,
                 expected);
        if (expected >= 0) {
            QCOMPARE(editor.selectedText(), QStringLiteral("foo"));
            QCOMPARE(editor.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART), expected);
        }
    }
}

void TstTextSearcher::replaceAll_data()
{
    QTest::addColumn<ReplaceCase>("c");

    replaceRow("plain", {"a-b-c", "-", "", "+", "a+b+c", 2});
    replaceRow("replacement contains pattern", {"aa", "a", "", "aa", "aaaa", 2});
    replaceRow("case", {"Cat cat", "cat", "c", "dog", "Cat dog", 1});
    replaceRow("whole word", {"in inside in", "in", "w", "out", "out inside out", 2});
    replaceRow("regex captures", {"key=value\nname=joe", "([a-z]+)=([a-z]+)", "r", "\\2:\\1",
                                  "value:key\njoe:name", 2});
    replaceRow("regex whole match", {"ab", "[ab]", "r", "<\\0>", "<a><b>", 2});
    replaceRow("regex line start", {"a\nb\n", "^", "r", "> ", "> a\n> b\n> ", 3});
    replaceRow("trailing blanks", {"a  \nb\t\nc", "[ \t]+$", "r", "", "a\nb\nc", 2});
    replaceRow("no match", {"abc", "z", "", "y", "abc", 0});
    replaceRow("match at the very end", {"abcd", "cd", "", "X", "abX", 1});
    replaceRow("empty pattern", {"abc", "", "", "y", "abc", 0});
    replaceRow("multi-byte", {"Grüße, Grüße", "ü", "", "ue", "Grueße, Grueße", 2});
}

void TstTextSearcher::replaceAll()
{
    QFETCH(ReplaceCase, c);
    QsciScintilla editor;
    editor.setText(c.text);
    QCOMPARE(TextSearcher::replaceAll(&editor, query(c.pattern, c.options), c.replacement),
             c.count);
    QCOMPARE(editor.text(), c.result);
}

void TstTextSearcher::replaceAllIsOneUndoStep()
{
    QsciScintilla editor;
    QString text;
    for (int i = 0; i < 2000; ++i) {
        text += QStringLiteral("line %1 with some words\r\n").arg(i);
    }
    editor.setText(text);
    editor.SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
    editor.setModified(false);
    QSignalSpy changed(&editor, &QsciScintilla::textChanged);

    QCOMPARE(TextSearcher::replaceAll(&editor, query(QStringLiteral("o"), {}), "0O"), 4000);
    QCOMPARE(changed.size(), 1);
    QVERIFY(editor.isModified());
    EditorCommands::undo(&editor);
    QCOMPARE(editor.text(), text);
    QVERIFY(!editor.isUndoAvailable());
    QVERIFY(!editor.isModified());
    QVERIFY(changed.size() > 1); // the tool's Undo/Redo states hear of the undo
}

void TstTextSearcher::replaceSelectionReplacesOnlyAMatch()
{
    QsciScintilla editor;
    editor.setText(QStringLiteral("v1 v2 v3"));
    const SearchQuery q = query(QStringLiteral("v([0-9])"), QStringLiteral("r"));

    // Nothing selected: the first Replace only finds.
    SearchMatch next;
    QVERIFY(!TextSearcher::replaceSelection(&editor, q, QStringLiteral("w\\1"), &next));
    QCOMPARE(next.start, 0);
    QVERIFY(TextSearcher::replaceSelection(&editor, q, QStringLiteral("w\\1"), &next));
    QCOMPARE(editor.text(), QStringLiteral("w1 v2 v3"));
    QCOMPARE(editor.selectedText(), QStringLiteral("v2"));
}

void TstTextSearcher::invalidRegexIsReported()
{
    QsciScintilla editor;
    editor.setText(QStringLiteral("abc"));
    const SearchQuery q = query(QStringLiteral("(a"), QStringLiteral("r"));
    const SearchMatch match = TextSearcher::find(&editor, q, 0);
    QVERIFY(!match.found());
    QVERIFY(match.invalidPattern);
    QCOMPARE(TextSearcher::replaceAll(&editor, q, QStringLiteral("x")), -1);
    QCOMPARE(editor.text(), QStringLiteral("abc"));
}

void TstTextSearcher::emptyMatchesDoNotLoopForever()
{
    QsciScintilla editor;
    editor.setText(QStringLiteral("ab\n\ncd"));
    const SearchQuery q = query(QStringLiteral("$"), QStringLiteral("r"));
    QList<qint64> starts;
    for (int i = 0; i < 4; ++i) {
        starts << TextSearcher::findNext(&editor, q).start;
    }
    QCOMPARE(starts, (QList<qint64>{2, 3, 6, 2}));
}

void TstTextSearcher::findsAcrossAnEditedSpot()
{
    // An edit leaves the buffer in two parts; a match may span the seam.
    QsciScintilla editor;
    editor.setText(QString(1000, QLatin1Char('x')) + QStringLiteral("tail"));
    editor.SendScintilla(QsciScintillaBase::SCI_INSERTTEXT, 500UL, "ne");
    editor.SendScintilla(QsciScintillaBase::SCI_INSERTTEXT, 502UL, "edle");
    for (const char *options : {"", "c", "b"}) {
        const SearchQuery q = query(options[0] == 'c' ? "needle" : "NEEDLE", options);
        const SearchMatch match = TextSearcher::find(&editor, q, q.backwards ? 1006 : 0);
        QCOMPARE(match.start, 500);
        QCOMPARE(match.end, 506);
    }
}

QTEST_MAIN(TstTextSearcher)
#include "tst_textsearcher.moc"
