#include "mainwindow.h"
#include "messagelog.h"
#include "modalwatcher.h"

#include <QAction>
#include <QFileDialog>
#include <QMenu>
#include <QTabWidget>
#include <QTemporaryFile>
#include <QTest>

// Start-up without a usable tool factory, built three times, each in a folder
// of its own: no toolapps/ ("missing"), a library that is no plug-in
// ("notaplugin"), a plug-in without the tool interface ("nointerface").
class TestPluginLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void failureIsReportedAndCommandsDoNothing();
};

void TestPluginLoading::failureIsReportedAndCommandsDoNothing()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const QString path = file.fileName();
    MessageLog log;
    ModalWatcher watcher;
    MainWindow window({path});

    QCOMPARE(window.toolFactory(), nullptr);
    QStringList titles;
    for (const ModalWatcher::Seen &seen : std::as_const(watcher.seen))
        titles.append(seen.title);
    const bool loaded = QLatin1String(SE_PLUGIN_SITUATION) == QLatin1String("nointerface");
    QCOMPARE(titles,
             loaded ? QStringList{"Source Editor"} : QStringList({"Error", "Source Editor"}));
    QVERIFY(loaded || !watcher.seen.first().text.isEmpty());
    QVERIFY(log.messages.contains("libsedapp.so is not Koru app tool"));

    const qsizetype startUpBoxes = watcher.seen.size();
    bool chosen = false;
    watcher.handler = [&](QWidget *modal) {
        auto *files = qobject_cast<QFileDialog *>(modal);
        if (files && ModalWatcher::chooseFiles(files, path))
            chosen = true;
        else if (auto *dialog = qobject_cast<QDialog *>(modal))
            dialog->reject();
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
    QCOMPARE(watcher.seen.size(), startUpBoxes + 1); // only the Open dialog
    QCOMPARE(window.recentFileList(), QStringList{path});
}

QTEST_MAIN(TestPluginLoading)
#include "tst_pluginloading.moc"
