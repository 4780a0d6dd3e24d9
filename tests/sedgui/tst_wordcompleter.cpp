#include "editing/completionlist.h"
#include "editing/wordcompleter.h"
#include "sedgui.h"

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
    void listKeys_data();
    void listKeys();
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
    // Edits of another document, "N,M,text": the bytes [N, N+M) selected and
    // text typed over them (Backspace for none); "undo" is the tool's Undo.
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("edits");
    QTest::addColumn<QStringList>("expected"); // for "zeb"
    QTest::newRow("a typed word") << "alpha\n"_qba
                                  << "6,0,zebrafish" << QStringList{"zebrafish"};
    QTest::newRow("one of two deleted") << "zebra zebu zebra\n"_qba
                                        << "0,6," << QStringList{"zebra", "zebu"};
    QTest::newRow("deleted everywhere") << "zebra zebu zebra\n"_qba
                                        << "0,6, 4,6," << QStringList{"zebu"};
    QTest::newRow("a word split") << "zebrafish\n"_qba
                                  << "5,1,-f" << QStringList{"zebra"};
    QTest::newRow("two words joined") << "zeb ra\n"_qba
                                      << "3,1," << QStringList{"zebra"};
    QTest::newRow("a word only added") << "zebra zebra\n"_qba
                                       << "11,0,f" << QStringList{"zebra", "zebraf"};
    QTest::newRow("a word only taken away") << "zebra  zebu  x\n"_qba
                                            << "7,4," << QStringList{"zebra"};
    QTest::newRow("undone without a place") << "alpha\n"_qba
                                            << "6,0,zebrafish undo" << QStringList();
}

void TestWordCompleter::followsEdits()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, edits);
    SedGUI tool;
    SedGUI other;
    QsciScintilla *editor = other.editor();
    editor->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
    auto *completer = tool.findChild<WordCompleter *>();
    completer->candidates("zeb"); // starts the indexes
    for (const QString &edit : edits.split(u' ')) {
        QTRY_VERIFY(other.findChild<WordCompleter *>()->isIndexed());
        completer->candidates("zeb"); // the other's words kept sorted until this edit
        const QStringList part = edit.split(u',');
        if (edit == u"undo") {
            other.undo();
            continue;
        }
        editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, part[0].toULong(),
                              part[0].toLong() + part[1].toLong());
        part[2].isEmpty() ? QTest::keyClick(editor, Qt::Key_Backspace)
                          : QTest::keyClicks(editor, part[2]);
    }
    QTRY_VERIFY(other.findChild<WordCompleter *>()->isIndexed());
    QTEST(completer->candidates("zeb"), "expected");
}

// Keys typed after the words of the first line: the list opens at the third
// letter of a word; "complete" asks for it (Ctrl+Space).
void TestWordCompleter::listKeys_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("typed"); // the line typed, at the end
    QTest::addColumn<bool>("open");
    QTest::newRow("opens at the third letter") << QStringList{"c", "o", "u"} << "cou" << true;
    QTest::newRow("Return takes the first word")
        << QStringList{"c", "o", "u", "Return"} << "countdown" << false;
    QTest::newRow("Down, then Tab takes the next")
        << QStringList{"c", "o", "u", "Down", "Tab"} << "counter" << false;
    QTest::newRow("typing narrows, Backspace widens")
        << QStringList{"c", "o", "u", "n", "t", "e", "Backspace", "Return"} << "countdown" << false;
    QTest::newRow("typing narrows to the last word")
        << QStringList{"c", "o", "u", "p", "Return"} << "coupling" << false;
    QTest::newRow("a letter no word has closes it")
        << QStringList{"c", "o", "u", "n", "x", "Return"} << "counx\n"
        << false;
    QTest::newRow("the word's end closes it")
        << QStringList{"c", "o", "u", " ", "Return"} << "cou \n"
        << false;
    QTest::newRow("Escape closes it, the text kept")
        << QStringList{"c", "o", "u", "Escape", "Return"} << "cou\n"
        << false;
    QTest::newRow("asked for, a single word is put in at once")
        << QStringList{"z", "complete"} << "zebrafish" << false;
    QTest::newRow("opened again at the next word")
        << QStringList{"c", "o", "u", "Return", " ", "z", "e", "b", "Return"}
        << "countdown zebrafish" << false;
}

void TestWordCompleter::listKeys()
{
    QFETCH(QStringList, keys);
    QFETCH(QString, typed);
    QFETCH(bool, open);
    const QString words = QStringLiteral("counter countdown coupling zebrafish\n");
    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    editor->setText(words);
    editor->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    const QHash<QString, Qt::Key> named = {{"Return", Qt::Key_Return},
                                           {"Tab", Qt::Key_Tab},
                                           {"Down", Qt::Key_Down},
                                           {"Escape", Qt::Key_Escape},
                                           {"Backspace", Qt::Key_Backspace}};
    for (const QString &key : keys) {
        if (key == u"complete")
            tool.findChild<WordCompleter *>()->complete(true);
        else if (named.contains(key))
            QTest::keyClick(editor, named.value(key));
        else
            QTest::keyClicks(editor, key);
    }
    auto *list = editor->findChild<CompletionList *>();
    QTRY_COMPARE(list->isOpen(), open);
    QCOMPARE(editor->text().mid(words.size()), typed);
    QCOMPARE(editor->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS), editor->length());
}

QTEST_MAIN(TestWordCompleter)
#include "tst_wordcompleter.moc"
