#include "editing/editoractions.h"
#include "sedgui.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

// An edit at many carets is the edits at each, rectangles travel through the
// clipboard as rectangles, and occurrences are added as the user asks.
class TestMultiSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editAtEveryCaret_data();
    void editAtEveryCaret();
    void rectangleRoundTrip_data();
    void rectangleRoundTrip();
    void occurrences_data();
    void occurrences();
};

namespace {

using Sci = QsciScintillaBase;

long send(QsciScintilla *editor, unsigned int message, long wParam = 0, long lParam = 0)
{
    return editor->SendScintilla(message, static_cast<unsigned long>(wParam), lParam);
}

void setText(SedGUI &tool, const QByteArray &text)
{
    tool.editor()->SendScintilla(Sci::SCI_SETTEXT, 0ul, text.constData());
    send(tool.editor(), Sci::SCI_EMPTYUNDOBUFFER);
    tool.show(); // lays the lines out, for the mouse and for moving down a column
}

QPoint pointAt(QsciScintilla *editor, long pos)
{
    return {int(send(editor, Sci::SCI_POINTXFROMPOSITION, 0, pos)),
            int(send(editor, Sci::SCI_POINTYFROMPOSITION, 0, pos)) + 2};
}

// Every selection as "start-end", in document order.
QStringList selections(QsciScintilla *editor)
{
    QList<std::pair<long, long>> ranges;
    for (long i = 0; i < send(editor, Sci::SCI_GETSELECTIONS); ++i) {
        ranges.append({send(editor, Sci::SCI_GETSELECTIONNSTART, i),
                       send(editor, Sci::SCI_GETSELECTIONNEND, i)});
    }
    std::sort(ranges.begin(), ranges.end());
    QStringList list;
    for (const auto &[start, end] : ranges) {
        list << QStringLiteral("%1-%2").arg(start).arg(end);
    }
    return list;
}

} // namespace

void TestMultiSelection::editAtEveryCaret_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<bool>("byMouse");
    // The edit made at each caret alone.
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("type") << "type" << false << "onex two\nthrxee four\nfixve\nx\nsixx seven\n"_qba;
    QTest::newRow("backspace") << "backspace" << false << "on two\nthee four\nfve\nsi seven\n"_qba;
    QTest::newRow("paste") << "paste" << false
                           << "oneab two\nthrabee four\nfiabve\nab\nsixab seven\n"_qba;
    QTest::newRow("type at carets added with Ctrl+click")
        << "type" << true << "onex two\nthrxee four\nfixve\nx\nsixx seven\n"_qba;
}

void TestMultiSelection::editAtEveryCaret()
{
    QFETCH(QString, edit);
    QFETCH(bool, byMouse);
    QFETCH(QByteArray, expected);
    const QByteArray text = "one two\nthree four\nfive\n\nsix seven\n";
    const QList<int> carets{3, 11, 21, 24, 28}; // the fourth is on the empty line

    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    setText(tool, text);
    send(editor, Sci::SCI_SETSELECTION, carets.first(), carets.first());
    for (qsizetype i = 1; i < carets.size(); ++i) {
        if (byMouse) {
            QTest::mouseClick(editor->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              pointAt(editor, carets[i]));
        } else {
            send(editor, Sci::SCI_ADDSELECTION, carets[i], carets[i]);
        }
    }

    if (edit == QLatin1String("paste")) {
        QApplication::clipboard()->setText(QStringLiteral("ab"));
        tool.paste();
    } else {
        QTest::keyClick(editor, edit == QLatin1String("type") ? Qt::Key_X : Qt::Key_Backspace);
    }
    QCOMPARE(editor->text().toUtf8(), expected);
    tool.undo();
    QCOMPARE(editor->text().toUtf8(), text);
}

void TestMultiSelection::rectangleRoundTrip_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::addColumn<int>("pasteAt");
    QTest::addColumn<QByteArray>("expected");

    // The rectangle "bc", "fg", "jk" of "abcd\nefgh\nijkl\n", by Alt+Shift+arrows or Alt+drag.
    QTest::newRow("keys, after the first line") << false << 4 << "abcdbc\nefghfg\nijkljk\n"_qba;
    QTest::newRow("keys, at the second line's start")
        << false << 5 << "abcd\nbcefgh\nfgijkl\njk"_qba;
    QTest::newRow("mouse, inside the block itself") << true << 2 << "abbccd\neffggh\nijjkkl\n"_qba;
}

void TestMultiSelection::rectangleRoundTrip()
{
    QFETCH(bool, byMouse);
    QFETCH(int, pasteAt);
    QFETCH(QByteArray, expected);

    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    setText(tool, "abcd\nefgh\nijkl\n");
    if (byMouse) {
        QWidget *view = editor->viewport();
        QTest::mousePress(view, Qt::LeftButton, Qt::AltModifier, pointAt(editor, 1));
        QTest::mouseMove(view, pointAt(editor, 13));
        QTest::mouseRelease(view, Qt::LeftButton, Qt::AltModifier, pointAt(editor, 13));
    } else {
        QTest::keyClick(editor, Qt::Key_Right); // the column the caret keeps going down
        for (Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right}) {
            QTest::keyClick(editor, key, Qt::AltModifier | Qt::ShiftModifier);
        }
    }
    QCOMPARE(selections(editor), (QStringList{"1-3", "6-8", "11-13"}));
    tool.copy();
    send(editor, Sci::SCI_GOTOPOS, pasteAt);
    tool.paste();
    QCOMPARE(editor->text().toUtf8(), expected);
}

void TestMultiSelection::occurrences_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QStringList>("expected");

    const QByteArray foo = "foo food foo xfoo foo";
    const QStringList next{QStringLiteral("addNextOccurrence")};
    const QStringList all{QStringLiteral("selectAllOccurrences")};
    QTest::newRow("a word picked at the caret adds whole words")
        << foo << 1 << 1 << next + next + next << QStringList{"0-3", "9-12", "18-21"};
    QTest::newRow("a selection adds any occurrence")
        << foo << 0 << 2 << next + next << QStringList{"0-2", "4-6", "9-11"};
    QTest::newRow("adding wraps around to the start")
        << "ab x ab y ab"_qba << 5 << 7 << next + next << QStringList{"0-2", "5-7", "10-12"};
    QTest::newRow("case counts") << "Ab ab AB ab"_qba << 3 << 5 << all
                                 << QStringList{"3-5", "9-11"};
    QTest::newRow("all whole words from the caret")
        << foo << 10 << 10 << all << QStringList{"0-3", "9-12", "18-21"};
    QTest::newRow("all of a selection")
        << foo << 0 << 2 << all << QStringList{"0-2", "4-6", "9-11", "14-16", "18-20"};
}

void TestMultiSelection::occurrences()
{
    QFETCH(QByteArray, text);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QStringList, commands);
    QFETCH(QStringList, expected);

    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    setText(tool, text);
    send(editor, Sci::SCI_SETSEL, start, end);
    for (const QString &command : std::as_const(commands)) {
        tool.findChild<EditorActions *>()->action(command)->trigger();
    }
    QCOMPARE(selections(editor), expected);

    // Typing replaces every selection at once; Escape leaves one caret.
    QTest::keyClick(editor, Qt::Key_Z);
    QCOMPARE(editor->text().count('z'), qsizetype(expected.size()));
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(send(editor, Sci::SCI_GETSELECTIONS), 1l);
}

QTEST_MAIN(TestMultiSelection)
#include "tst_multiselection.moc"
