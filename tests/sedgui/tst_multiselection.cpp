#include "sedgui.h"
#include "tool/editoractions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

// Several carets and column selections in the editor tool: an edit at many
// carets is the edits at each, rectangles travel through the clipboard as
// rectangles, and occurrences are added as the user asks.
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
    void mouse();
};

namespace {

using Sci = QsciScintillaBase;

long send(QsciScintilla *editor, unsigned int message, long wParam = 0, long lParam = 0)
{
    return editor->SendScintilla(message, static_cast<unsigned long>(wParam), lParam);
}

void setText(QsciScintilla *editor, const QByteArray &text)
{
    editor->SendScintilla(Sci::SCI_SETTEXT, 0ul, text.constData());
    send(editor, Sci::SCI_EMPTYUNDOBUFFER);
}

QByteArray textOf(QsciScintilla *editor)
{
    return editor->text().toUtf8();
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
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QList<int>>("carets");
    QTest::addColumn<QString>("edit");

    const QByteArray lines = "one two\nthree four\nfive\n\nsix seven\n";
    const QList<int> columns{3, 11, 21, 24, 28}; // the fourth is on the empty line
    const QByteArray sameLine = "abcdefghijklmnop";
    const QList<int> onOneLine{1, 4, 7, 10, 16};
    for (const char *edit : {"type", "backspace", "paste"}) {
        QTest::addRow("%s at five lines", edit) << lines << columns << QString::fromLatin1(edit);
        QTest::addRow("%s at five places of one line", edit)
            << sameLine << onOneLine << QString::fromLatin1(edit);
    }
}

void TestMultiSelection::editAtEveryCaret()
{
    QFETCH(QByteArray, text);
    QFETCH(QList<int>, carets);
    QFETCH(QString, edit);

    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    setText(editor, text);
    send(editor, Sci::SCI_SETSELECTION, carets.first(), carets.first());
    for (qsizetype i = 1; i < carets.size(); ++i) {
        send(editor, Sci::SCI_ADDSELECTION, carets[i], carets[i]);
    }
    QCOMPARE(send(editor, Sci::SCI_GETSELECTIONS), long(carets.size()));

    // The same edit made at each caret alone, from the last one back.
    QByteArray expected = text;
    for (auto it = carets.crbegin(); it != carets.crend(); ++it) {
        if (edit == QLatin1String("type")) {
            expected.insert(*it, 'x');
        } else if (edit == QLatin1String("backspace")) {
            if (*it > 0) {
                expected.remove(*it - 1, 1);
            }
        } else {
            expected.insert(*it, "ab");
        }
    }
    if (edit == QLatin1String("type")) {
        QTest::keyClick(editor, Qt::Key_X);
    } else if (edit == QLatin1String("backspace")) {
        QTest::keyClick(editor, Qt::Key_Backspace);
    } else {
        QApplication::clipboard()->setText(QStringLiteral("ab"));
        tool.paste();
    }
    QCOMPARE(textOf(editor), expected);
    tool.undo();
    QCOMPARE(textOf(editor), text);
}

void TestMultiSelection::rectangleRoundTrip_data()
{
    QTest::addColumn<int>("pasteAt");
    QTest::addColumn<QByteArray>("expected");

    // The rectangle "bc", "fg", "jk" of "abcd\nefgh\nijkl\n".
    QTest::newRow("after the first line") << 4 << QByteArray("abcdbc\nefghfg\nijkljk\n");
    QTest::newRow("at the second line's start") << 5 << QByteArray("abcd\nbcefgh\nfgijkl\njk");
    QTest::newRow("inside the block itself") << 2 << QByteArray("abbccd\neffggh\nijjkkl\n");
}

void TestMultiSelection::rectangleRoundTrip()
{
    QFETCH(int, pasteAt);
    QFETCH(QByteArray, expected);

    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    setText(editor, "abcd\nefgh\nijkl\n");
    tool.show(); // lays the lines out: moving down keeps the caret's column
    QTest::keyClick(editor, Qt::Key_Right); // the caret's column is now the one chosen
    // The column keys the tool binds.
    for (Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right}) {
        QTest::keyClick(editor, key, Qt::AltModifier | Qt::ShiftModifier);
    }
    QCOMPARE(send(editor, Sci::SCI_GETSELECTIONMODE), long(Sci::SC_SEL_RECTANGLE));
    tool.copy();
    send(editor, Sci::SCI_GOTOPOS, pasteAt);
    tool.paste();
    QCOMPARE(textOf(editor), expected);
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
    QTest::newRow("the caret picks its word") << foo << 1 << 1 << next << QStringList{"0-3"};
    QTest::newRow("a picked word adds whole words only")
        << foo << 1 << 1 << next + next + next << QStringList{"0-3", "9-12", "18-21"};
    QTest::newRow("a selection adds any occurrence")
        << foo << 0 << 2 << next + next << QStringList{"0-2", "4-6", "9-11"};
    QTest::newRow("adding wraps around to the start")
        << QByteArray("ab x ab y ab") << 5 << 7 << next + next
        << QStringList{"0-2", "5-7", "10-12"};
    QTest::newRow("nothing more to add")
        << QByteArray("ab ab") << 0 << 2 << next + next + next << QStringList{"0-2", "3-5"};
    QTest::newRow("case counts") << QByteArray("Ab ab AB ab") << 3 << 5 << all
                                 << QStringList{"3-5", "9-11"};
    QTest::newRow("all whole words from the caret")
        << foo << 10 << 10 << all << QStringList{"0-3", "9-12", "18-21"};
    QTest::newRow("all of a selection")
        << foo << 0 << 2 << all << QStringList{"0-2", "4-6", "9-11", "14-16", "18-20"};
    QTest::newRow("no word at the caret")
        << QByteArray("a  b") << 2 << 2 << all + next << QStringList{"2-2"};
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
    setText(editor, text);
    send(editor, Sci::SCI_SETSEL, start, end);
    auto *actions = tool.findChild<EditorActions *>();
    for (const QString &command : std::as_const(commands)) {
        actions->action(command)->trigger();
    }
    QCOMPARE(selections(editor), expected);

    // Typing replaces every selection at once; Escape leaves one caret.
    QTest::keyClick(editor, Qt::Key_Z);
    QCOMPARE(textOf(editor).count('z'), qsizetype(expected.size()));
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(send(editor, Sci::SCI_GETSELECTIONS), 1l);
}

void TestMultiSelection::mouse()
{
    SedGUI tool;
    QsciScintilla *editor = tool.editor();
    setText(editor, "abcd\nefgh\nijkl\n");
    tool.show();
    QWidget *view = editor->viewport();
    const auto pointAt = [editor](long pos) {
        return QPoint(int(send(editor, Sci::SCI_POINTXFROMPOSITION, 0, pos)),
                      int(send(editor, Sci::SCI_POINTYFROMPOSITION, 0, pos)) + 2);
    };
    QTest::mouseClick(view, Qt::LeftButton, {}, pointAt(1));
    QTest::mouseClick(view, Qt::LeftButton, Qt::ControlModifier, pointAt(7));
    QTest::mouseClick(view, Qt::LeftButton, Qt::ControlModifier, pointAt(13));
    QCOMPARE(selections(editor), (QStringList{"1-1", "7-7", "13-13"}));

    // Alt+drag from b to k: the rectangle "bc", "fg", "jk".
    QTest::mousePress(view, Qt::LeftButton, Qt::AltModifier, pointAt(1));
    QMouseEvent move(QEvent::MouseMove, pointAt(13), view->mapToGlobal(pointAt(13)), Qt::NoButton,
                     Qt::LeftButton, Qt::AltModifier);
    QCoreApplication::sendEvent(view, &move);
    QTest::mouseRelease(view, Qt::LeftButton, Qt::AltModifier, pointAt(13));
    QCOMPARE(send(editor, Sci::SCI_GETSELECTIONMODE), long(Sci::SC_SEL_RECTANGLE));
    QCOMPARE(selections(editor), (QStringList{"1-3", "6-8", "11-13"}));
}

QTEST_MAIN(TestMultiSelection)
#include "tst_multiselection.moc"
