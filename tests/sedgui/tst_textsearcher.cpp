#include "../textcore/searchpatterns.h"
#include "editing/editorcommands.h"
#include "editing/textsearcher.h"

#include <QSignalSpy>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;
using Sci = QsciScintillaBase;

class TstTextSearcher : public QObject
{
    Q_OBJECT

private:
    // The row's pattern and options, searching forwards without wrapping.
    static SearchQuery fetchQuery()
    {
        QFETCH(QString, pattern);
        QFETCH(searchpatterns::Options, options);
        SearchQuery query;
        query.pattern = pattern;
        query.regex = options.testFlag(searchpatterns::R);
        query.matchCase = options.testFlag(searchpatterns::C);
        query.wholeWord = options.testFlag(searchpatterns::W);
        query.wrap = false;
        return query;
    }

    // The bytes as they are (invalid UTF-8 too), with the buffer's gap left in
    // the middle: a search must see across it.
    static void load(QsciScintilla *editor, const QByteArray &text)
    {
        editor->SendScintilla(Sci::SCI_APPENDTEXT, uintptr_t(text.size()), text.constData());
        editor->SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
        const auto middle = editor->SendScintilla(Sci::SCI_POSITIONAFTER, ulong(text.size() / 2));
        editor->SendScintilla(Sci::SCI_INSERTTEXT, middle, "x");
        editor->SendScintilla(Sci::SCI_DELETERANGE, middle, 1L);
    }

    static QString describe(const QByteArray &text, const SearchMatch &match, qint64 where)
    {
        return QString::number(where) + u':' +
               QString::fromUtf8(text.sliced(match.start, match.end - match.start));
    }

private Q_SLOTS:
    void matches_data() { searchpatterns::addMatchRows(); }
    void matches()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, expected);
        QsciScintilla editor;
        load(&editor, text);
        const SearchQuery query = fetchQuery();
        SearchMatch match = TextSearcher::find(&editor, query, 0);
        const bool invalid = expected.value(0).startsWith(u"error at");
        QCOMPARE(match.invalidPattern, invalid);
        QStringList found;
        // The first match selected, Find Next steps through the rest, as the user would.
        while (match.found() && found.size() < 20) {
            const auto line =
                editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(match.start)) + 1;
            found << describe(text, match, line);
            editor.SendScintilla(Sci::SCI_SETSEL, ulong(match.start), long(match.end));
            match = TextSearcher::findNext(&editor, query);
        }
        QCOMPARE(found, invalid ? QStringList() : expected);
    }

    void findPrevious_data() { searchpatterns::addFindPreviousRows(); }
    void findPrevious()
    {
        QFETCH(QByteArray, text);
        QFETCH(qsizetype, before);
        QFETCH(QString, expected);
        QsciScintilla editor;
        load(&editor, text);
        SearchQuery query = fetchQuery();
        query.backwards = true;
        const SearchMatch match = TextSearcher::find(&editor, query, before);
        QCOMPARE(match.found() ? describe(text, match, match.start) : QString(), expected);
    }

    // Each in one undo step, with one change notice.
    void replaceAll_data() { searchpatterns::addReplaceRows(); }
    void replaceAll()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, replacement);
        QFETCH(QByteArray, expected);
        QsciScintilla editor;
        load(&editor, text);
        editor.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
        QSignalSpy changed(&editor, &QsciScintilla::textChanged);
        QVERIFY(TextSearcher::replaceAll(&editor, fetchQuery(), replacement) > 0);
        QCOMPARE(editor.text().toUtf8(), expected);
        QCOMPARE(changed.size(), 1);
        EditorCommands::undo(&editor);
        QCOMPARE(editor.text().toUtf8(), text);
        QVERIFY(!editor.isUndoAvailable());
        QCOMPARE(changed.size(), 2); // the tool's Undo/Redo states hear of the undo
    }

    void replaceAllCountsAndRejectsInvalid()
    {
        QsciScintilla editor;
        editor.setText(QStringLiteral("aa (a"));
        SearchQuery query;
        query.pattern = QStringLiteral("a");
        QCOMPARE(TextSearcher::replaceAll(&editor, query, QStringLiteral("aa")), 3);
        query.regex = true;
        query.pattern = QStringLiteral("(a");
        QCOMPARE(TextSearcher::replaceAll(&editor, query, QStringLiteral("x")), -1);
        QCOMPARE(editor.text(), QStringLiteral("aaaa (aa"));
    }

    void findNextMovesOn_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("backwards");
        QTest::addColumn<QList<int>>("starts");
        QTest::newRow("forwards, wrapping") << "o\\w" << false << QList<int>{6, 1, 6};
        QTest::newRow("backwards, wrapping") << "o\\w" << true << QList<int>{1, 6, 1};
        // An empty match at the caret must not be found again and again.
        QTest::newRow("empty matches") << "$" << false << QList<int>{3, 4, 8, 3};
    }
    void findNextMovesOn()
    {
        QFETCH(QString, pattern);
        QFETCH(bool, backwards);
        QFETCH(QList<int>, starts);
        QsciScintilla editor;
        editor.setText(QStringLiteral("foo\n\nfoo"));
        editor.SendScintilla(Sci::SCI_GOTOPOS, 2UL);
        SearchQuery query;
        query.pattern = pattern;
        query.regex = true;
        query.backwards = backwards;
        int last = 2;
        for (int expected : starts) {
            const SearchMatch match = TextSearcher::findNext(&editor, query);
            QCOMPARE(match.start, expected);
            QCOMPARE(match.wrapped, backwards ? expected >= last : expected <= last);
            QCOMPARE(editor.SendScintilla(Sci::SCI_GETSELECTIONSTART), expected);
            last = expected;
        }
    }

    void replaceSelectionReplacesOnlyAMatch()
    {
        QsciScintilla editor;
        editor.setText(QStringLiteral("v1 v2 v3"));
        SearchQuery query;
        query.pattern = QStringLiteral("v([0-9])");
        query.regex = true;
        // Nothing selected: the first Replace only finds.
        SearchMatch next;
        QVERIFY(!TextSearcher::replaceSelection(&editor, query, QStringLiteral("w\\1"), &next));
        QCOMPARE(next.start, 0);
        QVERIFY(TextSearcher::replaceSelection(&editor, query, QStringLiteral("w\\1"), &next));
        QCOMPARE(editor.text(), QStringLiteral("w1 v2 v3"));
        QCOMPARE(editor.selectedText(), QStringLiteral("v2"));
    }
};

QTEST_MAIN(TstTextSearcher)
#include "tst_textsearcher.moc"
