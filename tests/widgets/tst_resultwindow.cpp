#include "resultwindow.h"

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include <optional>

namespace {

// Triggers the entry named `trigger` of the context menu as it shows, then closes the menu.
class MenuClicker : public QObject
{
public:
    explicit MenuClicker(const QString &trigger)
        : m_trigger(trigger)
    {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *menu = qobject_cast<QMenu *>(watched);
        if (menu && event->type() == QEvent::Show) {
            for (QAction *action : menu->actions())
                if (action->text() == m_trigger)
                    action->trigger();
            QMetaObject::invokeMethod(menu, &QMenu::close, Qt::QueuedConnection);
        }
        return false;
    }

private:
    QString m_trigger;
};

void triggerFromMenu(ResultWindow &pane, const QString &entry)
{
    MenuClicker clicker(entry);
    qApp->installEventFilter(&clicker);
    const QPoint pos(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, pane.viewport()->mapToGlobal(pos));
    QApplication::sendEvent(pane.viewport(), &event);
    qApp->removeEventFilter(&clicker);
}

} // namespace

class TestResultWindow : public QObject
{
    Q_OBJECT

private slots:
    void doubleClickOpensHit_data();
    void doubleClickOpensHit();
    void contextMenuStopsAndClears();

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
    row("last (number): ends the path", "C:\\a(b).c(3):b(4):c", "C:\\a(b).c(3):b", 4);
    row("line not a number", "f.c(abc):x", "f.c", 0);
    row("one blank after the colon", "f.c(12): ", "f.c", 12);
    row("nothing after the colon", "f.c(12):", "", 0);
    row("colon in the number part", "f.c(1:2):x", "", 0);
    row("empty file part", "(12):x", "", 0);
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
    QCOMPARE(spy.first(), (QVariantList{file, line}));
}

void TestResultWindow::contextMenuStopsAndClears()
{
    const QString hits = QStringLiteral("a.c(1):x\nb.c(2):y");
    m_pane->setPlainText(hits);
    QSignalSpy stops(&*m_pane, &ResultWindow::sigForceStopFindInFiles);
    triggerFromMenu(*m_pane, QStringLiteral("Stop Search"));
    QCOMPARE(stops.count(), 1);
    QCOMPARE(m_pane->toPlainText(), hits);
    triggerFromMenu(*m_pane, QStringLiteral("C&lear All"));
    QCOMPARE(m_pane->toPlainText(), QString());
    triggerFromMenu(*m_pane, QStringLiteral("Stop Search")); // still offered on an empty pane
    QCOMPARE(stops.count(), 2);
}

QTEST_MAIN(TestResultWindow)
#include "tst_resultwindow.moc"
