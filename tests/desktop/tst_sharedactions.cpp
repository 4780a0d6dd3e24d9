#include "mainwindow.h"
#include "menuactionman.h"
#include "sedgui.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using koru::sedgui::SedGUI;

namespace {

QAction *shared(const QString &name)
{
    return MenuActionMan::instance()->findActionByName(name.toLatin1().constData());
}

// Fails unless the shared actions in on are enabled and those in off are not.
void expect(const QStringList &on, const QStringList &off)
{
    for (const QString &name : on)
        QVERIFY2(shared(name)->isEnabled(), qPrintable(name + " disabled"));
    for (const QString &name : off)
        QVERIFY2(!shared(name)->isEnabled(), qPrintable(name + " enabled"));
}

} // namespace

// The window's shared Edit and File actions wired to the real editor tool in
// front, through the window's own hand-over between tabs.
class TestSharedActions : public QObject
{
    Q_OBJECT

private slots:
    void actionsFollowTheFrontTool();

private:
    SedGUI *open(MainWindow &window, const char *name, const QString &text);

    QTemporaryDir m_dir;
};

SedGUI *TestSharedActions::open(MainWindow &window, const char *name, const QString &text)
{
    const QString path = m_dir.filePath(QString::fromLatin1(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot create %s", qPrintable(path));
    file.close();
    window.onOpenFile(path, 1);
    auto *tool = qobject_cast<SedGUI *>(window.currentTool());
    if (tool && !text.isEmpty())
        tool->editor()->insertAt(text, 0, 0);
    return tool;
}

void TestSharedActions::actionsFollowTheFrontTool()
{
    QApplication::clipboard()->clear();
    MainWindow window({});
    SedGUI *edited = open(window, "edited.txt", QStringLiteral("some text"));
    QVERIFY(edited);
    expect({"UNDO", "SAVE", "FIND"}, {"REDO", "COPY"});
    SedGUI *fresh = open(window, "fresh.txt", QString());
    QVERIFY(fresh && fresh != edited);
    expect({"SAVE AS"}, {"UNDO", "SAVE", "CUT", "PASTE"});

    // The front tool's own changes drive the actions.
    fresh->editor()->insertAt(QStringLiteral("abc"), 0, 0);
    expect({"UNDO", "SAVE"}, {});
    fresh->editor()->setSelection(0, 0, 0, 2);
    expect({"COPY", "CUT", "CLEAR"}, {});
    fresh->editor()->setSelection(0, 1, 0, 1);
    expect({}, {"COPY", "CUT"});
    QApplication::clipboard()->setText(QStringLiteral("clip"));
    expect({"PASTE"}, {});
    fresh->editor()->undo();
    expect({"REDO"}, {"UNDO", "SAVE"});

    // A tool in the back no longer drives them, until it comes to the front.
    edited->editor()->setSelection(0, 0, 0, 4);
    expect({}, {"COPY"});
    window.tabWidget()->setCurrentWidget(edited);
    expect({"COPY", "UNDO"}, {"REDO"});

    // Triggers reach the front tool only.
    fresh->editor()->redo();
    shared("COPY")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("some"));
    shared("CLEAR")->trigger();
    QCOMPARE(edited->editor()->text(), QStringLiteral(" text"));
    shared("UNDO")->trigger();
    QCOMPARE(edited->editor()->text(), QStringLiteral("some text"));
    shared("SELECT ALL")->trigger();
    QCOMPARE(edited->selectedText(), QStringLiteral("some text"));
    QVERIFY(fresh->selectedText().isEmpty());
    QCOMPARE(fresh->editor()->text(), QStringLiteral("abc"));
}

QTEST_MAIN(TestSharedActions)
#include "tst_sharedactions.moc"
