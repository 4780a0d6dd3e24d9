#include "mainwindow.h"
#include "messagelog.h"
#include "modalwatcher.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileDialog>
#include <QMenu>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

// Start-up without a usable tool factory. The same test is built three times,
// each in a folder of its own: with no toolapps/ at all ("missing"), with a
// library that is no plug-in ("notaplugin") and with a plug-in that does not
// offer the tool interface ("nointerface").
class TestPluginLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void failureIsReportedAndStartUpGoesOn();
    void commandsNeedingTheFactoryDoNothing();
};

void TestPluginLoading::failureIsReportedAndStartUpGoesOn()
{
    const QString situation = QStringLiteral(SE_PLUGIN_SITUATION);
    MessageLog log;
    ModalWatcher watcher;
    MainWindow window({"/tmp/given.c"});

    QCOMPARE(window.toolFactory(), nullptr);
    QCOMPARE(window.tabWidget()->count(), 0);
    QStringList titles;
    for (const ModalWatcher::Seen &seen : std::as_const(watcher.seen))
        titles.append(seen.title);
    if (situation == QLatin1String("nointerface")) {
        QCOMPARE(titles, QStringList{"Source Editor"});
    } else {
        QCOMPARE(titles, QStringList({"Error", "Source Editor"}));
        QVERIFY(!watcher.seen.first().text.isEmpty());
    }
    QCOMPARE(watcher.seen.last().text, QStringLiteral("Can't find %s, application exit."));
    QVERIFY(log.messages.contains("libsedapp.so is not Koru app tool"));
    QVERIFY(window.menu(0));
}

void TestPluginLoading::commandsNeedingTheFactoryDoNothing()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("some.txt");
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    ModalWatcher watcher;
    MainWindow window({});
    const qsizetype startUpBoxes = watcher.seen.size();
    bool chosen = false;
    watcher.handler = [&](QWidget *modal) {
        if (auto *dialog = qobject_cast<QFileDialog *>(modal)) {
            chosen = ModalWatcher::chooseFiles(dialog, path);
            if (!chosen)
                dialog->reject();
        } else if (auto *other = qobject_cast<QDialog *>(modal)) {
            other->reject();
        }
    };

    window.onNewFile();
    window.onOpenFile();
    window.onOpenFile(path, 3);
    window.onFileSaved(path);
    window.updateMenu();
    QMenu *recent = window.menu(0)->findChildren<QMenu *>().value(0);
    QVERIFY(recent && recent->title() == QLatin1String("Recent Files"));
    recent->actions().first()->trigger();

    QVERIFY(chosen);
    QCOMPARE(window.tabWidget()->count(), 0);
    // Only the Open dialog was shown.
    QCOMPARE(watcher.seen.size(), startUpBoxes + 1);
    QCOMPARE(window.recentFileList(), QStringList{path});
}

QTEST_MAIN(TestPluginLoading)
#include "tst_pluginloading.moc"
