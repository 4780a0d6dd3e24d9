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

#include <memory>

// No key may serve two commands of the window at once: neither two actions
// (the shell's, the front tool's own, the window's), nor an action and a key
// that the editing widget keeps for a different command of its own.
class TestShortcutClash : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void noKeyServesTwoCommands_data();
    void noKeyServesTwoCommands();

private:
    void openWindowWith(const QString &fileName);
    QList<QObject *> keyedObjectsInFront() const;

    QTemporaryDir m_dir;
    std::unique_ptr<MainWindow> m_window;
};

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

void settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace

void TestShortcutClash::initTestCase()
{
    QVERIFY(m_dir.isValid());
    for (const char *name : {"notes.txt", "main.c"}) {
        QFile file(m_dir.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("int x;\n");
    }
}

void TestShortcutClash::cleanup()
{
    m_window.reset();
}

// A window started with the file on its command line, as the user starts it.
void TestShortcutClash::openWindowWith(const QString &fileName)
{
    m_window = std::make_unique<MainWindow>(QStringList{m_dir.filePath(fileName)});
    m_window->show();
    settle();
    QVERIFY2(m_window->currentTool(), "the real tool plug-in opened no tool");
    // Menus are rebuilt as they open; let each merge the front tool's items.
    for (QAction *menuAction : m_window->menuBar()->actions()) {
        if (QMenu *menu = menuAction->menu())
            emit menu->aboutToShow();
    }
}

QList<QObject *> TestShortcutClash::keyedObjectsInFront() const
{
    QList<QObject *> objects;
    auto collect = [&](QObject *root) {
        for (QObject *object : root->findChildren<QObject *>()) {
            if (!keysOf(object).isEmpty() &&
                !belongsToHiddenTool(object, m_window->currentTool()) && !objects.contains(object))
                objects << object;
        }
    };
    collect(m_window.get());
    collect(MenuActionMan::instance());
    if (auto *tool = qobject_cast<HubGUITool *>(m_window->currentTool())) {
        for (int kind : {int(HubGUITool::EditMenu), int(HubGUITool::ViewMenu)}) {
            if (QList<QAction *> *actions = tool->getMenuActions(kind)) {
                for (QAction *action : *actions) {
                    if (!action->shortcuts().isEmpty() && !objects.contains(action))
                        objects << action;
                }
            }
        }
    }
    return objects;
}

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
    openWindowWith(fileName);
    auto *editor = m_window->currentTool()->findChild<QsciScintilla *>();
    QVERIFY(editor);

    // The editing widget's command that does what the action of that name does.
    const QHash<QString, QsciCommand::Command> sameCommand{
        {QStringLiteral("Undo"), QsciCommand::Undo},
        {QStringLiteral("Redo"), QsciCommand::Redo},
        {QStringLiteral("Cut"), QsciCommand::SelectionCut},
        {QStringLiteral("Copy"), QsciCommand::SelectionCopy},
        {QStringLiteral("Paste"), QsciCommand::Paste},
        {QStringLiteral("Select All"), QsciCommand::SelectAll},
        {QStringLiteral("Clear"), QsciCommand::Delete},
        {QStringLiteral("Upper Case"), QsciCommand::SelectionUpperCase},
        {QStringLiteral("Lower Case"), QsciCommand::SelectionLowerCase},
        {QStringLiteral("Zoom In"), QsciCommand::ZoomIn},
        {QStringLiteral("Zoom Out"), QsciCommand::ZoomOut},
    };

    QHash<QKeySequence, QObject *> owner;
    QStringList clashes;
    for (QObject *object : keyedObjectsInFront()) {
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
