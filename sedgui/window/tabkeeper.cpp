#include "window/tabkeeper.h"

#include "displayname.h"
#include "sedgui.h"
#include "session/closebatch.h"
#include "tablabeler.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QUrl>

namespace koru::sedgui {

TabKeeper::TabKeeper(QMainWindow *window, QTabWidget *tabs)
    : QObject(window)
    , m_window(window)
    , m_tabs(tabs)
{
    QTabBar *bar = tabs->tabBar();
    bar->setMovable(true);
    bar->setContextMenuPolicy(Qt::CustomContextMenu);
    bar->installEventFilter(this);
    connect(bar, &QWidget::customContextMenuRequested, this, &TabKeeper::showMenu);
    // After the shell's own handler, which sets the tab's text first.
    connect(tabs, &QTabWidget::currentChanged, this, &TabKeeper::onCurrentChanged);
    createActions();
    onCurrentChanged();
}

void TabKeeper::createActions()
{
    const struct
    {
        const char *name;
        QList<QKeySequence> keys;
        void (TabKeeper::*step)(int);
        int by;
    } commands[] = {
        {"TabKeeperPrevious", {QKeySequence(Qt::CTRL | Qt::Key_PageUp)}, &TabKeeper::stepBy, -1},
        {"TabKeeperNext", {QKeySequence(Qt::CTRL | Qt::Key_PageDown)}, &TabKeeper::stepBy, 1},
        {"TabKeeperRecent", {QKeySequence(Qt::CTRL | Qt::Key_Tab)}, &TabKeeper::stepRecent, 1},
        {"TabKeeperRecentBack",
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab),
          QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab)},
         &TabKeeper::stepRecent,
         -1},
    };
    for (const auto &command : commands) {
        auto *action = new QAction(m_window);
        action->setObjectName(QLatin1String(command.name));
        action->setShortcuts(command.keys);
        action->setShortcutContext(Qt::WindowShortcut);
        connect(action, &QAction::triggered, this,
                [this, step = command.step, by = command.by] { (this->*step)(by); });
        m_window->addAction(action);
    }
}

SedGUI *TabKeeper::documentAt(int index) const
{
    return m_tabs ? qobject_cast<SedGUI *>(m_tabs->widget(index)) : nullptr;
}

void TabKeeper::onCurrentChanged()
{
    if (!m_tabs)
        return;
    QWidget *current = m_tabs->currentWidget();
    if (current && m_stepAt < 0) {
        m_recent.removeAll(current);
        m_recent.prepend(current);
    }
    relabelSoon();
}

void TabKeeper::relabelSoon()
{
    if (m_relabelPosted)
        return;
    m_relabelPosted = true;
    QMetaObject::invokeMethod(this, &TabKeeper::relabel, Qt::QueuedConnection);
}

void TabKeeper::relabel()
{
    m_relabelPosted = false;
    if (!m_tabs)
        return;
    QStringList paths;
    for (int i = 0; i < m_tabs->count(); ++i) {
        SedGUI *document = documentAt(i);
        paths.append(document ? document->getFileName() : QString());
    }
    const QStringList labels = TabLabeler::labels(paths);
    for (int i = 0; i < m_tabs->count(); ++i) {
        SedGUI *document = documentAt(i);
        if (!document)
            continue;
        // Seen once per document: its title changes and its end relabel the tabs.
        connect(document, &HubGUITool::sigTitleChange, this, &TabKeeper::relabelSoon,
                Qt::UniqueConnection);
        connect(document, &QObject::destroyed, this, &TabKeeper::relabelSoon, Qt::UniqueConnection);
        QString text;
        QString tip;
        if (paths.at(i).isEmpty()) {
            text = DisplayName::forMnemonicText(document->getTabText());
        } else {
            text = DisplayName::forMnemonicText(labels.at(i));
            if (document->isModified())
                text += QLatin1Char('*');
            // Rich text, so that a name looking like markup shows as it is.
            tip = QStringLiteral("<p style='white-space:pre'>%1</p>")
                      .arg(DisplayName::visible(QDir::toNativeSeparators(paths.at(i)))
                               .toHtmlEscaped());
        }
        if (m_tabs->tabText(i) != text)
            m_tabs->setTabText(i, text);
        m_tabs->setTabToolTip(i, tip);
    }
}

void TabKeeper::stepBy(int step)
{
    if (!m_tabs || m_tabs->count() < 2)
        return;
    const int count = m_tabs->count();
    m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + count) % count);
}

void TabKeeper::stepRecent(int step)
{
    if (!m_tabs)
        return;
    if (m_stepAt < 0) {
        m_recent.removeAll(nullptr);
        m_stepOrder.clear();
        for (const QPointer<QWidget> &page : std::as_const(m_recent)) {
            if (m_tabs->indexOf(page) >= 0)
                m_stepOrder.append(page);
        }
        if (m_stepOrder.size() < 2)
            return;
        m_stepAt = 0;
        // Ctrl's release ends the step and makes the page reached the most recent.
        qApp->installEventFilter(this);
    }
    const qsizetype count = m_stepOrder.size();
    m_stepAt = ((m_stepAt + step) % count + count) % count;
    if (QWidget *page = m_stepOrder.at(m_stepAt); page && m_tabs->indexOf(page) >= 0)
        m_tabs->setCurrentWidget(page);
}

void TabKeeper::endRecentStep()
{
    qApp->removeEventFilter(this);
    m_stepAt = -1;
    m_stepOrder.clear();
    onCurrentChanged();
}

bool TabKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (m_stepAt >= 0 && event->type() == QEvent::KeyRelease &&
        !(QGuiApplication::queryKeyboardModifiers() & Qt::ControlModifier))
        endRecentStep();
    if (m_tabs && watched == m_tabs->tabBar() && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::MiddleButton) {
            if (SedGUI *document = documentAt(m_tabs->tabBar()->tabAt(mouse->position().toPoint())))
                closeTabs({document});
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void TabKeeper::showMenu(const QPoint &pos)
{
    if (!m_tabs)
        return;
    const int index = m_tabs->tabBar()->tabAt(pos);
    SedGUI *document = documentAt(index);
    if (!document)
        return;
    QList<SedGUI *> others;
    QList<SedGUI *> toTheRight;
    for (int i = 0; i < m_tabs->count(); ++i) {
        SedGUI *other = documentAt(i);
        if (!other || i == index)
            continue;
        others.append(other);
        if (i > index)
            toTheRight.append(other);
    }
    const QString path = document->getFileName();
    QPointer<SedGUI> target = document;

    QMenu menu(m_tabs->tabBar());
    connect(menu.addAction(tr("&Close")), &QAction::triggered, this, [this, target] {
        if (target)
            closeTabs({target});
    });
    QAction *closeOthers = menu.addAction(tr("Close &Others"));
    closeOthers->setEnabled(!others.isEmpty());
    connect(closeOthers, &QAction::triggered, this, [this, others] { closeTabs(others); });
    QAction *closeRight = menu.addAction(tr("Close to the &Right"));
    closeRight->setEnabled(!toTheRight.isEmpty());
    connect(closeRight, &QAction::triggered, this, [this, toTheRight] { closeTabs(toTheRight); });
    menu.addSeparator();
    QAction *copyPath = menu.addAction(tr("Copy &Path"));
    copyPath->setEnabled(!path.isEmpty());
    connect(copyPath, &QAction::triggered, this,
            [path] { QApplication::clipboard()->setText(QDir::toNativeSeparators(path)); });
    QAction *openFolder = menu.addAction(tr("Open Containing &Folder"));
    openFolder->setEnabled(!path.isEmpty());
    connect(openFolder, &QAction::triggered, this, [path] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
    });
    menu.exec(m_tabs->tabBar()->mapToGlobal(pos));
}

void TabKeeper::closeTabs(const QList<SedGUI *> &documents)
{
    QList<QPointer<SedGUI>> closing(documents.begin(), documents.end());
    if (documents.size() == 1) {
        documents.first()->closeTool(false);
        return;
    }
    // One question for all the modified ones, then each closes as the shell's
    // Close would close it.
    CloseBatch batch(documents);
    if (!batch.settle(m_window))
        return;
    for (const QPointer<SedGUI> &document : std::as_const(closing)) {
        if (document)
            document->closeTool(false);
    }
}

} // namespace koru::sedgui
