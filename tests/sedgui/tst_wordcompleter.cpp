#include "editing/wordcompleter.h"
#include "sedgui.h"

#include <QRegularExpression>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

// Completion offers the words near the caret, the words of every open
// document from their indexes and the language's keywords, whole.
class TestWordCompleter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offers_data();
    void offers();
    void followsEdits_data();
    void followsEdits();
};

void TestWordCompleter::offers_data()
{
    QTest::addColumn<QByteArray>("prefix");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("near, far and other documents' words, not the prefix itself")
        << "cou"_qba << QStringList{"countdown", "counter", "countless", "coupling"};
    QTest::newRow("a word across index slices whole") << "bou"_qba << QStringList{"boundaryword"};
    QTest::newRow("the language's keywords") << "whi"_qba << QStringList{"while"};
    QTest::newRow("no words starting with a digit") << "12a"_qba << QStringList();
}

void TestWordCompleter::offers()
{
    QFETCH(QByteArray, prefix);
    QFETCH(QStringList, expected);
    // The caret's document, with a word beyond the window read around the caret.
    SedGUI tool;
    const QByteArray text = "counter countdown cou 12abc\n" +
                            QByteArray(WordCompleter::Window * 2, ' ') + " coupling\n";
    tool.editor()->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
    tool.setLanguage(QStringLiteral("C"));
    // Another document, with a word across the end of the index's first slice.
    SedGUI other;
    QByteArray otherText(WordCompleter::IndexSlice * 2, '.');
    otherText.replace(WordCompleter::IndexSlice - 5, 12, "boundaryword");
    otherText.replace(100, 9, "countless");
    other.editor()->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, otherText.constData());

    auto *completer = tool.findChild<WordCompleter *>();
    completer->candidates(prefix); // starts the indexes
    QTRY_VERIFY(completer->isIndexed() && other.findChild<WordCompleter *>()->isIndexed());
    QCOMPARE(completer->candidates(prefix), expected);
}

void TestWordCompleter::followsEdits_data()
{
    // Edits of another document: "N+text" types text at N ("@" pastes a text
    // larger than an index slice), "N-M" deletes M bytes at N, "undo" is the tool's.
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("edits");
    QTest::addColumn<QStringList>("expected"); // for "zeb"
    const auto row = [](const char *tag, const char *text, const char *edits,
                        const QStringList &expected) {
        QTest::newRow(tag) << QByteArray(text) << QString(edits).split(u' ') << expected;
    };
    row("a typed word", "alpha\n", "6+zebrafish", {"zebrafish"});
    row("one of two deleted", "zebra zebu zebra\n", "0-6", {"zebra", "zebu"});
    row("deleted everywhere", "zebra zebu zebra\n", "0-6 4-6", {"zebu"});
    row("a word split", "zebrafish\n", "5+_", {"zebra"});
    row("two words joined", "zeb ra\n", "3-1", {"zebra"});
    row("undone without a place", "alpha\n", "6+zebrafish undo", {});
    row("a large paste", "zebra\n", "0+@", {"zebra", "zebrafish"});
}

void TestWordCompleter::followsEdits()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, edits);
    SedGUI tool;
    SedGUI other;
    QsciScintilla *editor = other.editor();
    editor->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
    auto *completer = tool.findChild<WordCompleter *>();
    completer->candidates("zeb"); // starts the indexes
    QTRY_VERIFY(other.findChild<WordCompleter *>()->isIndexed());
    for (const QString &edit : std::as_const(edits)) {
        const qsizetype sign = edit.indexOf(QRegularExpression(QStringLiteral("[+-]")));
        const ulong at = edit.left(sign).toULong();
        const QString rest = edit.mid(sign + 1);
        if (edit == u"undo") {
            other.undo();
        } else if (rest == u"@") {
            const QByteArray big = QByteArray(WordCompleter::IndexSlice, ' ') + "zebrafish ";
            editor->SendScintilla(QsciScintillaBase::SCI_INSERTTEXT, at, big.constData());
        } else if (edit[sign] == u'+') {
            editor->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, at);
            QTest::keyClicks(editor, QString(rest).replace(u'_', u' '));
        } else {
            editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, at, long(at + rest.toULong()));
            QTest::keyClick(editor, Qt::Key_Backspace);
        }
    }
    QTRY_VERIFY(other.findChild<WordCompleter *>()->isIndexed());
    QTEST(completer->candidates("zeb"), "expected");
}

QTEST_MAIN(TestWordCompleter)
#include "tst_wordcompleter.moc"
