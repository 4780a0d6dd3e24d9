#include "tool/editorcommands.h"
#include "tool/textsearcher.h"

#include <QSignalSpy>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

struct FindCase
{
    QString text, pattern, options;
    int from = 0, start = -1, end = -1; // start -1: no match
    bool wrapped = false, invalid = false;
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
    void replaceSelectionReplacesOnlyAMatch();
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

} // namespace

void TstTextSearcher::find_data()
{
    QTest::addColumn<FindCase>("c");

    QTest::newRow("part of a word") << FindCase{"one twofold", "two", "", 0, 4, 7};
    QTest::newRow("ignoring case, anchored mid-pattern")
        << FindCase{"zzz Needle NEEDLE", "neeDLE", "", 5, 11, 17};
    QTest::newRow("match case") << FindCase{"One ONE one", "one", "c", 0, 8, 11};
    QTest::newRow("whole word skips parts") << FindCase{"cat concat cat", "cat", "w", 1, 11, 14};
    QTest::newRow("whole word punctuation") << FindCase{"a->b a-b", "-", "w", 0, 6, 7};
    QTest::newRow("regex") << FindCase{"a1 b22 c333", "[0-9][0-9]+", "r", 0, 4, 6};
    QTest::newRow("regex whole word") << FindCase{"ab abc abd", "ab[a-z]", "rw", 0, 3, 6};
    QTest::newRow("regex case") << FindCase{"Abc abc", "A[a-z]+", "rcn", 1, -1};
    QTest::newRow("wrap") << FindCase{"x here x", "here", "", 5, 2, 6, true};
    QTest::newRow("no wrap") << FindCase{"x here x", "here", "n", 5, -1};
    QTest::newRow("backwards") << FindCase{"ab ab ab", "ab", "b", 5, 3, 5};
    QTest::newRow("backwards wraps to the end") << FindCase{"ab xx ab", "ab", "b", 0, 6, 8, true};
    QTest::newRow("match case backwards") << FindCase{"ONE one ONE one", "ONE", "cb", 14, 8, 11};
    QTest::newRow("match case backwards wraps") << FindCase{"one ONE", "ONE", "cb", 3, 4, 7, true};
    QTest::newRow("whole word backwards") << FindCase{"cat concat cat", "cat", "wb", 11, 0, 3};
    QTest::newRow("match at the very end") << FindCase{"abc end", "end", "n", 2, 4, 7};
    QTest::newRow("empty pattern") << FindCase{"abc", "", "", 0, -1};
    QTest::newRow("multi-byte, in bytes") << FindCase{"日本語のテキスト", "テキ", "", 0, 12, 18};
    QTest::newRow("invalid regex") << FindCase{"abc", "(a", "r", 0, -1, -1, false, true};
}

void TstTextSearcher::find()
{
    QFETCH(FindCase, c);
    QsciScintilla editor;
    editor.setText(c.text);
    // Leaves the buffer's gap inside the expected match: the search must see across it.
    const auto split = editor.SendScintilla(QsciScintillaBase::SCI_POSITIONAFTER, qMax(c.start, 0));
    editor.SendScintilla(QsciScintillaBase::SCI_INSERTTEXT, split, "x");
    editor.SendScintilla(QsciScintillaBase::SCI_DELETERANGE, split, 1L);
    const SearchMatch match = TextSearcher::find(&editor, query(c.pattern, c.options), c.from);
    QCOMPARE(match.start, c.start);
    QCOMPARE(match.invalidPattern, c.invalid);
    if (c.start >= 0) {
        QCOMPARE(match.end, c.end);
        QCOMPARE(match.wrapped, c.wrapped);
    }
}

void TstTextSearcher::findNextMovesOn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QList<int>>("starts");
    const auto row = [](const char *name, const char *text, const char *pattern,
                        const char *options, const QList<int> &starts) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(pattern)
                            << QString::fromUtf8(options) << starts;
    };
    row("forwards, wrapping", "foo foo foo", "foo", "", {4, 8, 0, 4});
    row("backwards, wrapping", "foo foo foo", "foo", "b", {8, 4, 0, 8});
    // An empty match must not be found again and again at the same spot.
    row("empty matches", "ab\n\ncd", "$", "r", {3, 6, 2, 3});
}

void TstTextSearcher::findNextMovesOn()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(QString, options);
    QFETCH(QList<int>, starts);
    QsciScintilla editor;
    editor.setText(text);
    editor.SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 2UL);
    for (int expected : starts) {
        QCOMPARE(TextSearcher::findNext(&editor, query(pattern, options)).start, expected);
        QCOMPARE(editor.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART), expected);
        if (!options.contains(u'r'))
            QCOMPARE(editor.selectedText(), pattern);
    }
}

void TstTextSearcher::replaceAll_data()
{
    QTest::addColumn<ReplaceCase>("c");

    QTest::newRow("replacement contains pattern") << ReplaceCase{"aa", "a", "", "aa", "aaaa", 2};
    QTest::newRow("regex captures") << ReplaceCase{
        "key=value\nname=joe", "([a-z]+)=([a-z]+)", "r", "\\2:\\1", "value:key\njoe:name", 2};
    QTest::newRow("regex line start") << ReplaceCase{"a\nb\n", "^", "r", "> ", "> a\n> b\n> ", 3};
    QTest::newRow("empty pattern") << ReplaceCase{"abc", "", "", "y", "abc", 0};
    QTest::newRow("multi-byte") << ReplaceCase{"Grüße, Grüße", "ü", "", "ue", "Grueße, Grueße", 2};
    QTest::newRow("invalid regex") << ReplaceCase{"abc", "(a", "r", "x", "abc", -1};
}

void TstTextSearcher::replaceAll()
{
    QFETCH(ReplaceCase, c);
    QsciScintilla editor;
    editor.setText(c.text);
    editor.SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
    QSignalSpy changed(&editor, &QsciScintilla::textChanged);
    QCOMPARE(TextSearcher::replaceAll(&editor, query(c.pattern, c.options), c.replacement),
             c.count);
    QCOMPARE(editor.text(), c.result);
    // One change notice and one undo step, however many replacements.
    QCOMPARE(changed.size(), c.count > 0 ? 1 : 0);
    EditorCommands::undo(&editor);
    QCOMPARE(editor.text(), c.text);
    QVERIFY(!editor.isUndoAvailable());
    QCOMPARE(changed.size() > 1, c.count > 0); // the tool's Undo/Redo states hear of the undo
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

QTEST_MAIN(TstTextSearcher)
#include "tst_textsearcher.moc"
