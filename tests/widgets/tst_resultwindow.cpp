#include "resultwindow.h"

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>

namespace {

// Reads the context menu when it shows, optionally triggers one entry, and closes it.
class MenuWatcher : public QObject
{
public:
    QStringList texts;
    QList<bool> enabled;
    QString toTrigger;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *menu = qobject_cast<QMenu *>(watched);
        if (menu && event->type() == QEvent::Show) {
            for (QAction *action : menu->actions()) {
                texts << action->text();
                enabled << action->isEnabled();
                if (action->text() == toTrigger)
                    action->trigger();
            }
            QMetaObject::invokeMethod(menu, &QMenu::close, Qt::QueuedConnection);
        }
        return false;
    }
};

} // namespace

class TestResultWindow : public QObject
{
    Q_OBJECT

private slots:
    void doubleClickOpensHit_data();
    void doubleClickOpensHit();
    void contextMenu_data();
    void contextMenu();

private:
    static void doubleClickLine(ResultWindow *pane, int line);
    static QStringList runContextMenu(ResultWindow *pane, const QString &toTrigger,
                                      QList<bool> *enabled);
};

void TestResultWindow::doubleClickLine(ResultWindow *pane, int line)
{
    const QTextBlock block = pane->document()->findBlockByNumber(line);
    const QRect lineRect = pane->cursorRect(QTextCursor(block));
    QTest::mouseDClick(pane->viewport(), Qt::LeftButton, {}, QPoint(4, lineRect.center().y()));
}

void TestResultWindow::doubleClickOpensHit_data()
{
    QTest::addColumn<QString>("paragraph");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("line");

    struct Row
    {
        const char *tag, *paragraph, *file;
        int line;
    };
    // line -1: the emitted line is not checked.
    for (const Row &row : {
             Row{"plain hit", "src/main.c(42):  int x;", "src/main.c", 42},
             Row{"colon in the file part", "C:\\dir\\f.c(12):x", "C:\\dir\\f.c", 12},
             Row{"parentheses in the file part", "a(b)(7):x", "a(b)", 7},
             Row{"last (number): ends the path", "a.c(3):b(4):c", "a.c(3):b", 4},
             Row{"line not a number", "f.c(abc):x", "f.c", 0},
             Row{"one blank after the colon", "f.c(12): ", "f.c", 12},
             Row{"nothing after the colon", "f.c(12):", "", -1},
             Row{"colon in the number part", "f.c(1:2):x", "", -1},
             Row{"empty file part", "(12):x", "", -1},
             Row{"empty line", "", "", -1},
             Row{"heading line", "Searching for \"foo\" in /home/me", "", -1},
             Row{"non-ASCII path", "/home/jürgen/naïve 文件.c(17):é", "/home/jürgen/naïve 文件.c",
                 17},
             Row{"CRLF remnant", "dos.c(5):text\r", "dos.c", 5},
             Row{"CRLF remnant after the colon", "dos.c(6):\r", "dos.c", 6},
         })
        QTest::newRow(row.tag) << QString::fromUtf8(row.paragraph) << QString::fromUtf8(row.file)
                               << row.line;
    const QString longText(20000, QLatin1Char('x'));
    QTest::newRow("very long hit text") << "big.c(9):" + longText << "big.c" << 9;
    QTest::newRow("very long path") << longText + ".c(3):y" << longText + ".c" << 3;
}

void TestResultWindow::doubleClickOpensHit()
{
    QFETCH(QString, paragraph);
    QFETCH(QString, file);
    QFETCH(int, line);

    ResultWindow pane(nullptr);
    pane.resize(400, 200);
    pane.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane));
    QSignalSpy spy(&pane, &ResultWindow::sigOpenFile);

    // The document turns "\r" into a paragraph break, so a CRLF remnant can only
    // reach the parser directly; every other paragraph goes through a double-click.
    pane.setPlainText(QStringLiteral("first line\n") + paragraph + QStringLiteral("\nlast line"));
    if (pane.document()->findBlockByNumber(1).text() == paragraph) {
        doubleClickLine(&pane, 1);
        QCOMPARE(pane.textCursor().selectedText(), paragraph);
    } else {
        pane.openResultLine(paragraph);
    }

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), file);
    if (line >= 0)
        QCOMPARE(spy.at(0).at(1).toInt(), line);
}

QStringList TestResultWindow::runContextMenu(ResultWindow *pane, const QString &toTrigger,
                                             QList<bool> *enabled)
{
    MenuWatcher watcher;
    watcher.toTrigger = toTrigger;
    qApp->installEventFilter(&watcher);
    const QPoint pos(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, pane->viewport()->mapToGlobal(pos));
    QApplication::sendEvent(pane->viewport(), &event);
    qApp->removeEventFilter(&watcher);
    *enabled = watcher.enabled;
    return watcher.texts;
}

void TestResultWindow::contextMenu_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("trigger");
    QTest::addColumn<QString>("contentAfter");
    QTest::addColumn<int>("stops");

    const QString clear = QStringLiteral("C&lear All"), stop = QStringLiteral("Stop Search");
    QTest::newRow("empty pane, nothing chosen") << ""
                                                << ""
                                                << "" << 0;
    QTest::newRow("clear all") << "a.c(1):x\nb.c(2):y" << clear << "" << 0;
    QTest::newRow("stop search keeps the hits") << "a.c(1):x" << stop << "a.c(1):x" << 1;
    QTest::newRow("stop search on an empty pane") << "" << stop << "" << 1;
}

void TestResultWindow::contextMenu()
{
    QFETCH(QString, content);
    QFETCH(QString, trigger);
    QFETCH(QString, contentAfter);
    QFETCH(int, stops);

    ResultWindow pane(nullptr);
    pane.resize(400, 200);
    pane.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane));
    pane.setPlainText(content);
    QSignalSpy stopSpy(&pane, &ResultWindow::sigForceStopFindInFiles);

    QList<bool> enabled;
    const QStringList texts = runContextMenu(&pane, trigger, &enabled);

    QVERIFY2(texts.size() > 2, qPrintable(texts.join(u'|')));
    QCOMPARE(texts.mid(texts.size() - 2),
             (QStringList{QStringLiteral("C&lear All"), QStringLiteral("Stop Search")}));
    QVERIFY(enabled.at(enabled.size() - 1) && enabled.at(enabled.size() - 2));
    QVERIFY(!texts.at(texts.size() - 3).isEmpty()); // no separator before the two entries
    QCOMPARE(pane.toPlainText(), contentAfter);
    QCOMPARE(stopSpy.count(), stops);
}

QTEST_MAIN(TestResultWindow)
#include "tst_resultwindow.moc"
