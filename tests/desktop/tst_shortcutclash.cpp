#include "hubguitool.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "window/tabkeeper.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>

// No key may serve two commands of the window at once: neither two actions (the shell's,
// the front tool's own, the window's), nor an action and a key that the editing widget,
// which sees keys before any action, keeps for a different command of its own.
class TestShortcutClash : public QObject
{
    Q_OBJECT

private slots:
    void noKeyServesTwoCommands();
};

void TestShortcutClash::noKeyServesTwoCommands()
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("main.c")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("int x;\n") > 0 && file.flush());
    MainWindow window(QStringList{file.fileName()}); // as the user starts it
    new koru::sedgui::TabKeeper(&window, window.tabWidget());
    window.show();
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents(); // delivers the posted events too
    auto *tool = qobject_cast<HubGUITool *>(window.currentTool());
    QVERIFY2(tool, "the real tool plug-in opened no tool");
    // Menus are rebuilt as they open; let each merge the front tool's items.
    for (QAction *menuAction : window.menuBar()->actions())
        if (QMenu *menu = menuAction->menu())
            emit menu->aboutToShow();
    auto *editor = tool->findChild<QsciScintilla *>();
    QVERIFY(editor);
    auto keysOf = [](QObject *object) {
        if (auto *shortcut = qobject_cast<QShortcut *>(object))
            return QList{shortcut->key()};
        auto *action = qobject_cast<QAction *>(object);
        return action ? action->shortcuts() : QList<QKeySequence>();
    };
    // Every keyed action and shortcut, but those of hidden tools, whose keys are asleep.
    QList<QObject *> keyed;
    for (QObject *root : QList<QObject *>{&window, MenuActionMan::instance()}) {
        for (QObject *object : root->findChildren<QObject *>()) {
            QObject *owner = object;
            while (owner && !qobject_cast<HubGUITool *>(owner))
                owner = owner->parent();
            if ((!owner || owner == tool) && !keysOf(object).isEmpty() && !keyed.contains(object))
                keyed << object;
        }
    }
    // The editing widget's command that does what the action of that name does.
    // clang-format off
    const QHash<QString, QsciCommand::Command> sameCommand{
        {"Undo", QsciCommand::Undo}, {"Redo", QsciCommand::Redo}, {"Cut", QsciCommand::SelectionCut},
        {"Copy", QsciCommand::SelectionCopy}, {"Paste", QsciCommand::Paste},
        {"Select All", QsciCommand::SelectAll}, {"Clear", QsciCommand::Delete},
        {"Upper Case", QsciCommand::SelectionUpperCase}, {"Lower Case", QsciCommand::SelectionLowerCase},
        {"Zoom In", QsciCommand::ZoomIn}, {"Zoom Out", QsciCommand::ZoomOut}};
    // clang-format on
    auto describe = [](QObject *object) {
        auto *action = qobject_cast<QAction *>(object);
        return QStringLiteral("%1 \"%2\" (%3)")
            .arg(QLatin1String(object->metaObject()->className()),
                 action ? action->text().remove(u'&') : QString(), object->objectName());
    };
    QHash<QKeySequence, QObject *> owner;
    QStringList clashes;
    for (QObject *object : std::as_const(keyed)) {
        auto *action = qobject_cast<QAction *>(object);
        for (const QKeySequence &key : keysOf(object)) {
            if (QObject *other = owner.value(key); other && other != object)
                clashes << key.toString() + ": " + describe(other) + " and " + describe(object);
            else
                owner.insert(key, object);
            QsciCommand *command = action && key.count() == 1
                                       ? editor->standardCommands()->boundTo(key[0].toCombined())
                                       : nullptr;
            const QString name = action ? action->text().remove(u'&') : QString();
            if (command && sameCommand.value(name, QsciCommand::Command(-1)) != command->command())
                clashes << key.toString() + ": " + describe(action) + " and the editor's " +
                               command->description();
        }
    }
    QVERIFY2(owner.size() > 20, "too few keys found: the walk missed the window's actions");
    QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestShortcutClash)
#include "tst_shortcutclash.moc"
