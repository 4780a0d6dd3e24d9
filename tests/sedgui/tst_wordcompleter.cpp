#include "sedgui.h"
#include "tool/wordcompleter.h"

#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

// Completion offers the words near the caret, the words of every open
// document from their indexes and the language's keywords, whole.
class TestWordCompleter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void offers_data();
    void offers();

private:
    std::unique_ptr<SedGUI> m_tool;
    std::unique_ptr<SedGUI> m_other;
};

namespace {

void setText(SedGUI &tool, const QByteArray &text)
{
    tool.editor()->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
    tool.editor()->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 0ul);
}

} // namespace

void TestWordCompleter::initTestCase()
{
    m_tool = std::make_unique<SedGUI>();
    m_other = std::make_unique<SedGUI>();
    // The caret's document: near words, and one beyond the window around the caret.
    setText(*m_tool, "counter countdown cou 12abc qz\n" +
                         QByteArray(WordCompleter::Window * 2, ' ') + " coupling\n");
    m_tool->setLanguage(QStringLiteral("C"));
    // Another document, with a word across the end of the index's first slice.
    QByteArray other(WordCompleter::IndexSlice * 2, '.');
    other.replace(WordCompleter::IndexSlice - 5, 12, "boundaryword");
    other.replace(100, 9, "countless");
    setText(*m_other, other);
    auto *completer = m_tool->findChild<WordCompleter *>();
    completer->candidates("x"); // starts the indexes
    QTRY_VERIFY(completer->isIndexed() && m_other->findChild<WordCompleter *>()->isIndexed());
}

void TestWordCompleter::offers_data()
{
    QTest::addColumn<QByteArray>("prefix");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("near, far and other documents' words, not the prefix itself")
        << QByteArray("cou") << QStringList{"countdown", "counter", "countless", "coupling"};
    QTest::newRow("a word across index slices whole")
        << QByteArray("bou") << QStringList{"boundaryword"};
    QTest::newRow("the language's keywords") << QByteArray("whi") << QStringList{"while"};
    QTest::newRow("words starting with a digit are not offered")
        << QByteArray("12a") << QStringList();
    QTest::newRow("words too short to complete are not offered")
        << QByteArray("q") << QStringList();
}

void TestWordCompleter::offers()
{
    QFETCH(QByteArray, prefix);
    QFETCH(QStringList, expected);
    QCOMPARE(m_tool->findChild<WordCompleter *>()->candidates(prefix), expected);
}

QTEST_MAIN(TestWordCompleter)
#include "tst_wordcompleter.moc"
