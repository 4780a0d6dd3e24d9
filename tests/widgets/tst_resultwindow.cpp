#include "resultwindow.h"

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>

#include <optional>

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

    void init()
    {
        m_pane.emplace(nullptr);
        m_pane->resize(400, 200);
        m_pane->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_pane));
    }

private:
    std::optional<ResultWindow> m_pane;
};

void TestResultWindow::doubleClickOpensHit_data()
{
    QTest::addColumn<QString>("paragraph");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("line");

    auto row = [](const char *tag, const char *paragraph, const char *file, int line) {
        QTest::newRow(tag) << QString::fromLatin1(paragraph) << QString::fromLatin1(file) << line;
    };
    row("plain hit", "src/main.c(42):  int x;", "src/main.c", 42);
    row("colon in the file part", "C:\\dir\\f.c(12):x", "C:\\dir\\f.c", 12);
    row("parentheses in the file part", "a(b)(7):x", "a(b)", 7);
    row("last (number): ends the path", "a.c(3):b(4):c", "a.c(3):b", 4);
    row("line not a number", "f.c(abc):x", "f.c", 0);
    row("one blank after the colon", "f.c(12): ", "f.c", 12);
    row("nothing after the colon", "f.c(12):", "", 0);
    row("colon in the number part", "f.c(1:2):x", "", 0);
    row("empty file part", "(12):x", "", 0);
    row("heading line", "Searching for \"foo\" in /home/me", "", 0);
    row("CRLF remnant after the colon", "dos.c(6):\r", "dos.c", 6);
}

void TestResultWindow::doubleClickOpensHit()
{
    QFETCH(QString, paragraph);
    QFETCH(QString, file);
    QFETCH(int, line);

    ResultWindow &pane = *m_pane;
    QSignalSpy spy(&pane, &ResultWindow::sigOpenFile);
    // The document makes "\r" a paragraph break: a CRLF remnant reaches the parser directly.
    pane.setPlainText(QStringLiteral("first line\n") + paragraph + QStringLiteral("\nlast line"));
    if (pane.document()->findBlockByNumber(1).text() == paragraph) {
        const QRect lineRect = pane.cursorRect(QTextCursor(pane.document()->findBlockByNumber(1)));
        QTest::mouseDClick(pane.viewport(), Qt::LeftButton, {}, QPoint(4, lineRect.center().y()));
        QCOMPARE(pane.textCursor().selectedText(), paragraph);
    } else {
        pane.openResultLine(paragraph);
    }

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), file);
    QCOMPARE(spy.at(0).at(1).toInt(), line);
}

void TestResultWindow::contextMenu_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("trigger");
    QTest::addColumn<QString>("contentAfter");
    QTest::addColumn<int>("stops");

    const QString clear = QStringLiteral("C&lear All"), stop = QStringLiteral("Stop Search");
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

    ResultWindow &pane = *m_pane;
    pane.setPlainText(content);
    QSignalSpy stopSpy(&pane, &ResultWindow::sigForceStopFindInFiles);
    MenuWatcher watcher;
    watcher.toTrigger = trigger;
    qApp->installEventFilter(&watcher);
    const QPoint pos(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, pane.viewport()->mapToGlobal(pos));
    QApplication::sendEvent(pane.viewport(), &event);
    qApp->removeEventFilter(&watcher);
    const QStringList &texts = watcher.texts;
    const QList<bool> &enabled = watcher.enabled;

    // The two entries close the menu, enabled, with no separator before them.
    QVERIFY2(texts.size() > 2, qPrintable(texts.join(u'|')));
    QCOMPARE(texts.mid(texts.size() - 2),
             (QStringList{QStringLiteral("C&lear All"), QStringLiteral("Stop Search")}));
    QVERIFY(!texts.at(texts.size() - 3).isEmpty());
    QCOMPARE(enabled.mid(enabled.size() - 2), (QList<bool>{true, true}));
    QCOMPARE(pane.toPlainText(), contentAfter);
    QCOMPARE(stopSpy.count(), stops);
}

QTEST_MAIN(TestResultWindow)
#include "tst_resultwindow.moc"
