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

QTEST_MAIN(TestWordCompleter)
#include "tst_wordcompleter.moc"
