#include "baseusrsettings.h"
#include "displayname.h"
#include "mainwindow.h"
#include "menuname.h"

#include <QAction>
#include <QMenu>

namespace {

const char *const settingsName = "SRC_EDITOR";
const QString recentGroup = QStringLiteral("Recent_Files");
const QString recentKey = QStringLiteral("RecentFileList");

} // namespace

void MainWindow::createRecentFileActions()
{
    loadRecentFiles();
    for (QAction *&action : recentFileActions) {
        action = new QAction(this);
        action->setVisible(false);
        connect(action, SIGNAL(triggered()), this, SLOT(openRecentFile()));
    }
    updateRecentFileActions();
}

void MainWindow::loadRecentFiles()
{
    BaseUsrSettings settings(settingsName);
    settings.beginGroup(recentGroup);
    recentFiles = settings.value(recentKey).toStringList();
    recentFiles.removeAll(QString());
    settings.endGroup();
}

void MainWindow::addRecentFile(const QString &path)
{
    BaseUsrSettings settings(settingsName);
    settings.beginGroup(recentGroup);
    // The stored list, not the one in memory, is the base: another window
    // sharing the settings may have added entries meanwhile.
    recentFiles = settings.value(recentKey).toStringList();
    recentFiles.removeAll(QString());
    recentFiles.removeAll(path);
    recentFiles.prepend(path);
    while (recentFiles.size() > MaxRecentFiles)
        recentFiles.removeLast();
    settings.setValue(recentKey, recentFiles);
    updateRecentFileActions();
}

void MainWindow::updateRecentFileActions()
{
    const qsizetype count = qMin<qsizetype>(recentFiles.size(), MaxRecentFiles);
    for (qsizetype i = 0; i < count; ++i) {
        QAction *action = recentFileActions[i];
        // The path as it is: its own "&" is no mnemonic, nothing in it hidden.
        action->setText(tr("&%1 %2").arg(
            QString::number(i + 1), koru::sedgui::DisplayName::forMnemonicText(recentFiles.at(i))));
        action->setData(recentFiles.at(i));
        action->setVisible(true);
    }
    for (qsizetype i = count; i < MaxRecentFiles; ++i)
        recentFileActions[i]->setVisible(false);
}

void MainWindow::addRecentFilesMenu(QMenu *menu, MenuName *item)
{
    if (item->kind() != DynamicSubMenu ||
        item->name().compare(QLatin1String("Recent Files"), Qt::CaseInsensitive) != 0 ||
        recentFiles.isEmpty()) {
        return;
    }
    QMenu *subMenu = menu->addMenu(item->name());
    for (QAction *action : recentFileActions)
        subMenu->addAction(action);
}

void MainWindow::onFileSaved(const QString &fileName)
{
    addRecentFile(fileName);
}
