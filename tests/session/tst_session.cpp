#include "../sedgui/promptrecorder.h"
#include "baseusrsettings.h"
#include "dialogs/infobar.h"
#include "journalstore.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "options/editorsettings.h"
#include "sedgui.h"
#include "session/savechangesdialog.h"
#include "session/sessionkeeper.h"
#include "session/workkeeper.h"
#include "tool/documentjournal.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <memory>

using namespace koru::sedgui;
using Answer = SaveChangesDialog::Answer;

namespace {

SessionKeeper *attach(MainWindow &window)
{
    return new SessionKeeper(&window, window.tabWidget(),
                             MenuActionMan::instance()->findShellAction("FILE > CLOSE ALL"));
}

QString write(const QTemporaryDir &dir, const QString &name, const QByteArray &bytes)
{
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

SedGUI *document(MainWindow &window, int tab)
{
    return qobject_cast<SedGUI *>(window.tabWidget()->widget(tab));
}

// This process's journals of files under `under` (and untitled ones) handed
// to an editor that has ended, as the next start finds them, and so named in
// the kept session: path -> text.
QMap<QString, QByteArray> passToEndedEditor(const QString &under, bool *allKept)
{
    const QDir folder(JournalStore::defaultFolder());
    JournalOwner ended = JournalOwner::current();
    ended.pid = 999990;
    JournalStore store(folder.path(), ended);
    SessionRecord session = SessionRecord::load();
    QMap<QString, QByteArray> texts;
    *allKept = true;
    for (const QString &name : folder.entryList({QStringLiteral("*.journal")}, QDir::Files)) {
        QFile file(folder.filePath(name));
        JournalEntry entry;
        QByteArray text;
        QString problem;
        if (!file.open(QIODevice::ReadOnly) ||
            !JournalStore::decode(file.readAll(), &entry, &text, &problem) ||
            (!entry.path.isEmpty() && !entry.path.startsWith(under)))
            continue;
        *allKept = *allKept && entry.keptOnQuit;
        texts.insert(entry.path, text);
        const QByteArray id = store.newDocumentId();
        for (SessionRecord::File &kept : session.files)
            kept.journal = kept.journal == entry.documentId ? id : kept.journal;
        entry.documentId = id;
        *allKept = *allKept && store.write(entry, text) && file.remove();
    }
    *allKept = *allKept && session.store();
    return texts;
}

} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void batchCloseFollowsTheOneAnswer_data();
    void batchCloseFollowsTheOneAnswer();
    void sessionComesBackWithoutVanishedFiles_data();
    void sessionComesBackWithoutVanishedFiles();
    void windowFitsTheScreen_data();
    void windowFitsTheScreen();
    void logoutKeepsWorkUntilTheSessionEnds();
};

void TestSession::batchCloseFollowsTheOneAnswer_data()
{
    QTest::addColumn<bool>("closeAll");
    QTest::addColumn<Answer>("answer");
    // Of the two modified documents: which are checked, which end up on disk.
    QTest::addColumn<QList<bool>>("checks");
    QTest::addColumn<QList<bool>>("saved");
    QTest::addColumn<bool>("closes");
    // The option to keep unsaved changes on quit without asking.
    QTest::addColumn<bool>("keepOnQuit");

    QTest::newRow("quit, cancel") << false << Answer::Cancel << QList{true, true}
                                  << QList{false, false} << false << false;
    QTest::newRow("quit, save all")
        << false << Answer::Save << QList{true, true} << QList{true, true} << true << false;
    QTest::newRow("quit, save the checked one")
        << false << Answer::Save << QList{false, true} << QList{false, true} << true << false;
    QTest::newRow("quit, discard all")
        << false << Answer::DiscardAll << QList{true, true} << QList{false, false} << true << false;
    QTest::newRow("close all, cancel")
        << true << Answer::Cancel << QList{true, true} << QList{false, false} << false << false;
    QTest::newRow("close all, save the checked one")
        << true << Answer::Save << QList{true, false} << QList{true, false} << true << false;
    // Nothing asked, nothing saved, the window closes; the next start has it all back.
    QTest::newRow("quit, kept without asking")
        << false << Answer::Save << QList{true, true} << QList{false, false} << false << true;
}

// Three documents, two modified: one question, and nothing closes or is saved on Cancel.
void TestSession::batchCloseFollowsTheOneAnswer()
{
    QFETCH(bool, closeAll);
    QFETCH(Answer, answer);
    QFETCH(QList<bool>, checks);
    QFETCH(QList<bool>, saved);
    QFETCH(bool, closes);
    QFETCH(bool, keepOnQuit);
    BaseUsrSettings("SRC_EDITOR").clear();
    EditorSettings::Values options = EditorSettings::load();
    options.keepWorkOnQuit = keepOnQuit;
    QVERIFY(EditorSettings::store(options));

    QTemporaryDir dir;
    auto window = std::make_unique<MainWindow>(QStringList());
    attach(*window);
    const QStringList paths{write(dir, "a.txt", "a\n"), write(dir, "b.txt", "b\n"),
                            write(dir, "c.txt", "c\n")};
    for (const QString &path : paths)
        window->onOpenFile(path, 1);
    for (int tab : {0, 2})
        document(*window, tab)->editor()->insertAt(QStringLiteral("new "), 0, 0);
    if (keepOnQuit) {
        window->onNewFile();
        document(*window, 3)->editor()->setText(QStringLiteral("untitled text"));
        window->tabWidget()->tabBar()->moveTab(3, 1);
    }

    PromptRecorder oneDocumentPrompts;
    QStringList listed;
    SaveChangesDialog::setAnswerer([&](const QStringList &names, QList<bool> *checked) {
        listed = names;
        *checked = checks;
        return answer;
    });
    const auto restore = qScopeGuard([] { SaveChangesDialog::setAnswerer({}); });

    if (closeAll)
        MenuActionMan::instance()->findShellAction("FILE > CLOSE ALL")->trigger();
    else
        QCOMPARE(window->close(), closes || keepOnQuit);

    QCOMPARE(listed, keepOnQuit ? QStringList() : (QStringList{paths[0], paths[2]}));
    QVERIFY(oneDocumentPrompts.asked.isEmpty());
    QCOMPARE(window->tabWidget()->count(), closes ? 0 : keepOnQuit ? 4 : 3);
    QCOMPARE(read(paths[0]), saved[0] ? QByteArray("new a\n") : QByteArray("a\n"));
    QCOMPARE(read(paths[1]), QByteArray("b\n"));
    QCOMPARE(read(paths[2]), saved[1] ? QByteArray("new c\n") : QByteArray("c\n"));
    if (!keepOnQuit)
        return;

    // The documents go with the window, their journals stay.
    window.reset();
    bool allKept = false;
    const QMap<QString, QByteArray> journals = passToEndedEditor(dir.path(), &allKept);
    QVERIFY(allKept);
    QCOMPARE(journals,
             (QMap<QString, QByteArray>{
                 {QString(), "untitled text"}, {paths[0], "new a\n"}, {paths[2], "new c\n"}}));
    // What the user opened before; a restore does not add to it.
    BaseUsrSettings("SRC_EDITOR").setValue("Recent_Files/RecentFileList", QStringList{"x.txt"});
    MainWindow next({});
    SessionKeeper *keeper = attach(next);
    keeper->start(true);
    auto *work = new WorkKeeper(&next);
    connect(work, &WorkKeeper::restored, keeper, &SessionKeeper::place);
    // Would block on the recovery question if it asked.
    work->offerRecovery();
    QCOMPARE(next.tabWidget()->count(), 4);
    // The untitled document at its place, in front as it was.
    const QStringList names{paths[0], QString(), paths[1], paths[2]};
    const QStringList texts{"new a\n", "untitled text", "b\n", "new c\n"};
    for (int tab = 0; tab < 4; ++tab) {
        QCOMPARE(document(next, tab)->getFileName(), names[tab]);
        QCOMPARE(document(next, tab)->editor()->text(), texts[tab]);
        QCOMPARE(document(next, tab)->isModified(), tab != 2);
    }
    QCOMPARE(next.tabWidget()->currentIndex(), 1);
    QCOMPARE(next.recentFileList(), QStringList{"x.txt"});
    QCOMPARE(QDir(JournalStore::defaultFolder())
                 .entryList({QStringLiteral("*999990*.journal")}, QDir::Files),
             QStringList());
}

void TestSession::sessionComesBackWithoutVanishedFiles_data()
{
    QTest::addColumn<bool>("restoreOn");
    QTest::newRow("restored") << true;
    QTest::newRow("turned off") << false;
}

// Three files, the second in front, each with its own caret and scroll
// position; the first vanishes before the next start.
void TestSession::sessionComesBackWithoutVanishedFiles()
{
    QFETCH(bool, restoreOn);
    BaseUsrSettings("SRC_EDITOR").clear();
    EditorSettings::Values options = EditorSettings::load();
    options.restoreSession = restoreOn;
    QVERIFY(EditorSettings::store(options));

    QTemporaryDir dir;
    QByteArray lines;
    for (int i = 0; i < 300; ++i)
        lines += "line " + QByteArray::number(i) + "\n";
    const QStringList paths{write(dir, "one.txt", lines), write(dir, "two.txt", lines),
                            write(dir, "three.txt", lines)};
    const QList<SessionRecord::File> kept{{paths[1], 120, 2, 110, {}}, {paths[2], 250, 3, 240, {}}};
    {
        MainWindow window({});
        attach(window);
        window.resize(800, 600);
        window.show();
        for (const QString &path : paths)
            window.onOpenFile(path, 1);
        for (int tab : {1, 2}) {
            const SessionRecord::File &file = kept[tab - 1];
            document(window, tab)->editor()->setCursorPosition(file.line, file.column);
            document(window, tab)->editor()->setFirstVisibleLine(file.firstVisibleLine);
        }
        window.tabWidget()->setCurrentIndex(1);
        QVERIFY(window.close());
    }
    QVERIFY(QFile::remove(paths[0]));

    MainWindow window({});
    SessionKeeper *keeper = attach(window);
    window.resize(800, 600);
    keeper->start(true);
    window.show();
    const SessionRecord now = keeper->capture();
    if (!restoreOn) {
        QVERIFY(now.files.isEmpty());
        return;
    }
    QCOMPARE(now.files, kept);
    QCOMPARE(now.current, 0);
    const QString note = document(window, 0)->infoBar()->message();
    QVERIFY2(note.contains(paths[0]), qPrintable(note));
    QVERIFY(document(window, 1)->infoBar()->message().isEmpty());
}

void TestSession::windowFitsTheScreen_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QRect>("fitted");

    const QRect screen(0, 0, 1280, 900);
    QTest::newRow("fits") << QRect(10, 20, 800, 600) << screen << QRect(10, 20, 800, 600);
    QTest::newRow("larger than the screen") << QRect(-5, 0, 2000, 1500) << screen << screen;
    QTest::newRow("past the right and bottom")
        << QRect(1000, 700, 800, 600) << screen << QRect(480, 300, 800, 600);
    QTest::newRow("second screen, left of it")
        << QRect(-50, -20, 800, 600) << QRect(1280, 0, 1024, 768) << QRect(1280, 0, 800, 600);
}

void TestSession::windowFitsTheScreen()
{
    QFETCH(QRect, frame);
    QFETCH(QRect, available);
    QFETCH(QRect, fitted);
    QCOMPARE(SessionKeeper::fitted(frame, available), fitted);
}

// A logout asks for the data first and may still be cancelled: the journal
// and the session are written and everything stays open. The session's end,
// a request to quit with the window open, then asks nothing.
void TestSession::logoutKeepsWorkUntilTheSessionEnds()
{
    BaseUsrSettings("SRC_EDITOR").clear();
    QTemporaryDir dir;
    MainWindow window({});
    SessionKeeper *keeper = attach(window);
    auto *work = new WorkKeeper(&window);
    connect(work, &WorkKeeper::workKept, keeper, &SessionKeeper::keep);
    window.show();
    window.onOpenFile(write(dir, "a.txt", "a\n"), 1);
    document(window, 0)->editor()->insertAt(QStringLiteral("new "), 0, 0);
    const QString journal = JournalStore::defaultFolder() + '/' +
                            document(window, 0)->findChild<DocumentJournal *>()->documentId() +
                            ".journal";
    PromptRecorder prompts;
    QSignalSpy kept(work, &WorkKeeper::workKept);

    work->commitData();
    QCoreApplication::processEvents();
    QCOMPARE(kept.count(), 1);
    QVERIFY(QFile::exists(journal));
    QCOMPARE(SessionRecord::load().files.size(), 1);
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    QCOMPARE(kept.count(), 2);
    QVERIFY(prompts.asked.isEmpty());
    QCOMPARE(window.tabWidget()->count(), 1);
}

QTEST_MAIN(TestSession)
#include "tst_session.moc"
