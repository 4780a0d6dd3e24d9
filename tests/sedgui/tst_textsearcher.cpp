#include "editorcommands.h"
#include "textsearcher.h"

#include <QSignalSpy>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

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
    void searchesMultiByteText();
};

namespace {

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

// Options: r regex, c match case, w whole word, n no wrap, b backwards.
void TstTextSearcher::find_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("start"); // -1: no match
    QTest::addColumn<int>("end");
    QTest::addColumn<bool>("wrapped");

    QTest::newRow("plain") << "one two three"
                           << "two"
                           << "" << 0 << 4 << 7 << false;
    QTest::newRow("plain ignores case") << "One ONE one"
                                        << "one"
                                        << "" << 1 << 4 << 7 << false;
    QTest::newRow("match case") << "One ONE one"
                                << "one"
                                << "c" << 0 << 8 << 11 << false;
    QTest::newRow("whole word skips parts") << "cat concat cat"
                                            << "cat"
                                            << "w" << 1 << 11 << 14 << false;
    QTest::newRow("not whole word finds parts") << "cat concat cat"
                                                << "cat"
                                                << "" << 1 << 7 << 10 << false;
    QTest::newRow("regex") << "a1 b22 c333"
                           << "[0-9][0-9]+"
                           << "r" << 0 << 4 << 6 << false;
    QTest::newRow("regex whole word") << "ab abc abd"
                                      << "ab[a-z]"
                                      << "rw" << 0 << 3 << 6 << false;
    QTest::newRow("regex case") << "Abc abc"
                                << "A[a-z]+"
                                << "rcn" << 1 << -1 << -1 << false;
    QTest::newRow("wrap") << "x here x"
                          << "here"
                          << "" << 5 << 2 << 6 << true;
    QTest::newRow("no wrap") << "x here x"
                             << "here"
                             << "n" << 5 << -1 << -1 << false;
    QTest::newRow("backwards") << "ab ab ab"
                               << "ab"
                               << "b" << 5 << 3 << 5 << false;
    QTest::newRow("backwards wraps to the end") << "ab xx ab"
                                                << "ab"
                                                << "b" << 0 << 6 << 8 << true;
    QTest::newRow("backwards regex") << "k1 k2 k3"
                                     << "k[0-9]"
                                     << "rb" << 6 << 3 << 5 << false;
    QTest::newRow("match case backwards") << "ONE one ONE one"
                                          << "ONE"
                                          << "cb" << 14 << 8 << 11 << false;
    QTest::newRow("match case backwards wraps") << "one ONE"
                                                << "ONE"
                                                << "cb" << 3 << 4 << 7 << true;
    QTest::newRow("ignoring case, anchored mid-pattern") << "zzz Needle NEEDLE"
                                                         << "neeDLE"
                                                         << "" << 5 << 11 << 17 << false;
    QTest::newRow("whole word backwards") << "cat concat cat"
                                          << "cat"
                                          << "wb" << 11 << 0 << 3 << false;
    QTest::newRow("whole word punctuation") << "a->b a-b"
                                            << "-"
                                            << "w" << 0 << 6 << 7 << false;
    QTest::newRow("no match") << "nothing here"
                              << "zebra"
                              << "" << 0 << -1 << -1 << false;
    QTest::newRow("match at the very end") << "abc end"
                                           << "end"
                                           << "n" << 2 << 4 << 7 << false;
    QTest::newRow("empty pattern") << "abc"
                                   << ""
                                   << "" << 0 << -1 << -1 << false;
    QTest::newRow("across lines") << "one\ntwo\nthree"
                                  << "three"
                                  << "" << 0 << 8 << 13 << false;
    QTest::newRow("regex line start") << "xa\nab"
                                      << "^a"
                                      << "r" << 0 << 3 << 4 << false;
}

void TstTextSearcher::find()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(QString, options);
    QFETCH(int, from);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(bool, wrapped);

    QsciScintilla editor;
    editor.setText(text);
    const SearchMatch match = TextSearcher::find(&editor, query(pattern, options), from);
    QCOMPARE(match.start, start);
    if (start >= 0) {
        QCOMPARE(match.end, end);
        QCOMPARE(match.wrapped, wrapped);
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
    const SearchQuery q = query(QStringLiteral("foo"), options);
    for (int expected : starts) {
        const SearchMatch match = TextSearcher::findNext(&editor, q);
        QCOMPARE(match.start, expected);
        if (expected >= 0) {
            QCOMPARE(editor.selectedText(), QStringLiteral("foo"));
            QCOMPARE(editor.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART), expected);
        }
    }
}

void TstTextSearcher::replaceAll_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("count");

    QTest::newRow("plain") << "a-b-c"
                           << "-"
                           << ""
                           << "+"
                           << "a+b+c" << 2;
    QTest::newRow("longer replacement") << "xx"
                                        << "x"
                                        << ""
                                        << "yyy"
                                        << "yyyyyy" << 2;
    QTest::newRow("replacement contains pattern") << "aa"
                                                  << "a"
                                                  << ""
                                                  << "aa"
                                                  << "aaaa" << 2;
    QTest::newRow("case") << "Cat cat"
                          << "cat"
                          << "c"
                          << "dog"
                          << "Cat dog" << 1;
    QTest::newRow("whole word") << "in inside in"
                                << "in"
                                << "w"
                                << "out"
                                << "out inside out" << 2;
    QTest::newRow("regex captures") << "key=value\nname=joe"
                                    << "([a-z]+)=([a-z]+)"
                                    << "r"
                                    << "\\2:\\1"
                                    << "value:key\njoe:name" << 2;
    QTest::newRow("regex posix groups") << "f(1) f(22)"
                                        << "f[(]([0-9]+)[)]"
                                        << "r"
                                        << "g[\\1]"
                                        << "g[1] g[22]" << 2;
    QTest::newRow("regex whole match") << "ab"
                                       << "[ab]"
                                       << "r"
                                       << "<\\0>"
                                       << "<a><b>" << 2;
    QTest::newRow("regex line start") << "a\nb\n"
                                      << "^"
                                      << "r"
                                      << "> "
                                      << "> a\n> b\n> " << 3;
    QTest::newRow("trailing blanks") << "a  \nb\t\nc"
                                     << "[ \t]+$"
                                     << "r"
                                     << ""
                                     << "a\nb\nc" << 2;
    QTest::newRow("no match") << "abc"
                              << "z"
                              << ""
                              << "y"
                              << "abc" << 0;
    QTest::newRow("match at the very end") << "abcd"
                                           << "cd"
                                           << ""
                                           << "X"
                                           << "abX" << 1;
    QTest::newRow("empty pattern") << "abc"
                                   << ""
                                   << ""
                                   << "y"
                                   << "abc" << 0;
    QTest::newRow("multi-byte") << "Grüße, Grüße"
                                << "ü"
                                << ""
                                << "ue"
                                << "Grueße, Grueße" << 2;
}

void TstTextSearcher::replaceAll()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(QString, options);
    QFETCH(QString, replacement);
    QFETCH(QString, result);
    QFETCH(int, count);

    QsciScintilla editor;
    editor.setText(text);
    QCOMPARE(TextSearcher::replaceAll(&editor, query(pattern, options), replacement), count);
    QCOMPARE(editor.text(), result);
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
    QSignalSpy replaced(&editor, &QsciScintilla::textChanged);

    QCOMPARE(TextSearcher::replaceAll(&editor, query(QStringLiteral("o"), QString()),
                                      QStringLiteral("0O")),
             4000);
    QCOMPARE(replaced.size(), 1);
    QVERIFY(editor.text() != text);
    QVERIFY(editor.isModified());
    QSignalSpy changed(&editor, &QsciScintilla::textChanged);
    EditorCommands::undo(&editor);
    QCOMPARE(editor.text(), text);
    QVERIFY(!editor.isUndoAvailable());
    QVERIFY(!editor.isModified());
    // Listeners (the tool's Undo/Redo states) hear of the change.
    QVERIFY(!changed.isEmpty());
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
    for (const QString &options : {QString(), QStringLiteral("c"), QStringLiteral("b")}) {
        SearchQuery q = query(QStringLiteral("NEEDLE"), options);
        if (options == QLatin1String("c")) {
            q.pattern = QStringLiteral("needle");
        }
        const SearchMatch match = TextSearcher::find(&editor, q, q.backwards ? 1006 : 0);
        QCOMPARE(match.start, 500);
        QCOMPARE(match.end, 506);
    }
}

void TstTextSearcher::searchesMultiByteText()
{
    QsciScintilla editor;
    editor.setText(QStringLiteral("日本語のテキスト"));
    const SearchMatch match = TextSearcher::find(&editor, query(QStringLiteral("テキ"), {}), 0);
    QVERIFY(match.found());
    editor.SendScintilla(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(match.start),
                         static_cast<long>(match.end));
    QCOMPARE(editor.selectedText(), QStringLiteral("テキ"));
}

QTEST_MAIN(TstTextSearcher)
#include "tst_textsearcher.moc"
