#include "hubguitool.h"
#include "mainwindow.h"
#include "menuactionman.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>

// No key may serve two commands of the window at once: neither two actions
// (the shell's, the front tool's own, the window's), nor an action and a key
// that the editing widget keeps for a different command of its own.
namespace {

QList<QKeySequence> keysOf(QObject *object)
{
    if (auto *action = qobject_cast<QAction *>(object))
        return action->shortcuts();
    if (auto *shortcut = qobject_cast<QShortcut *>(object))
        return {shortcut->key()};
    return {};
}

QString describe(QObject *object)
{
    QString text;
    if (auto *action = qobject_cast<QAction *>(object))
        text = action->text().remove(QLatin1Char('&'));
    return QStringLiteral("%1 \"%2\" (%3)")
        .arg(QLatin1String(object->metaObject()->className()), text, object->objectName());
}

// A tool other than the front one is hidden; its keys are asleep.
bool belongsToHiddenTool(QObject *object, QWidget *front)
{
    for (QObject *o = object; o; o = o->parent()) {
        if (auto *tool = qobject_cast<HubGUITool *>(o))
            return tool != front;
    }
    return false;
}

} // namespace

// No key may serve two commands of the window at once: neither two actions
// (the shell's, the front tool's own, the window's), nor an action and a key
// that the editing widget keeps for a different command of its own.
class TestShortcutClash : public QObject
{
    Q_OBJECT

private slots:
    void noKeyServesTwoCommands_data();
    void noKeyServesTwoCommands();
};

void TestShortcutClash::noKeyServesTwoCommands_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("plain text in front") << "notes.txt";
    QTest::newRow("C source in front") << "main.c";
}

// The editing widget takes the keys bound to its own commands before any
// action sees them, so an action's key bound there to a different command
// would never reach the action while the user types.
void TestShortcutClash::noKeyServesTwoCommands()
{
    QFETCH(QString, fileName);
    QTemporaryDir dir;
    QFile file(dir.filePath(fileName));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("int x;\n") > 0);
    file.close();
    // Started with the file on its command line, as the user starts it.
    MainWindow window(QStringList{file.fileName()});
    window.show();
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    QVERIFY2(window.currentTool(), "the real tool plug-in opened no tool");
    // Menus are rebuilt as they open; let each merge the front tool's items.
    for (QAction *menuAction : window.menuBar()->actions()) {
        if (QMenu *menu = menuAction->menu())
            emit menu->aboutToShow();
    }
    auto *editor = window.currentTool()->findChild<QsciScintilla *>();
    QVERIFY(editor);

    QList<QObject *> keyed;
    for (QObject *root : QList<QObject *>{&window, MenuActionMan::instance()}) {
        for (QObject *object : root->findChildren<QObject *>()) {
            if (!keysOf(object).isEmpty() && !belongsToHiddenTool(object, window.currentTool()) &&
                !keyed.contains(object))
                keyed << object;
        }
    }
    auto *tool = qobject_cast<HubGUITool *>(window.currentTool());
    for (int kind : {int(HubGUITool::EditMenu), int(HubGUITool::ViewMenu)}) {
        if (QList<QAction *> *actions = tool ? tool->getMenuActions(kind) : nullptr) {
            for (QAction *action : *actions) {
                if (!action->shortcuts().isEmpty() && !keyed.contains(action))
                    keyed << action;
            }
        }
    }

    // The editing widget's command that does what the action of that name does.
    const QHash<QString, QsciCommand::Command> sameCommand{
        {"Undo", QsciCommand::Undo},
        {"Redo", QsciCommand::Redo},
        {"Cut", QsciCommand::SelectionCut},
        {"Copy", QsciCommand::SelectionCopy},
        {"Paste", QsciCommand::Paste},
        {"Select All", QsciCommand::SelectAll},
        {"Clear", QsciCommand::Delete},
        {"Upper Case", QsciCommand::SelectionUpperCase},
        {"Lower Case", QsciCommand::SelectionLowerCase},
        {"Zoom In", QsciCommand::ZoomIn},
        {"Zoom Out", QsciCommand::ZoomOut}};

    QHash<QKeySequence, QObject *> owner;
    QStringList clashes;
    for (QObject *object : std::as_const(keyed)) {
        auto *action = qobject_cast<QAction *>(object);
        const QString name = action ? action->text().remove(QLatin1Char('&')) : QString();
        for (const QKeySequence &key : keysOf(object)) {
            if (QObject *other = owner.value(key); other && other != object)
                clashes << QStringLiteral("%1: %2 and %3")
                               .arg(key.toString(), describe(other), describe(object));
            else
                owner.insert(key, object);
            QsciCommand *command = action && key.count() == 1
                                       ? editor->standardCommands()->boundTo(key[0].toCombined())
                                       : nullptr;
            if (command && sameCommand.value(name, QsciCommand::Command(-1)) != command->command())
                clashes << QStringLiteral("%1: %2 and the editor's \"%3\"")
                               .arg(key.toString(), describe(action), command->description());
        }
    }
    QVERIFY2(owner.size() > 20, "too few keys found: the walk missed the window's actions");
    QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestShortcutClash)
#include "tst_shortcutclash.moc"
