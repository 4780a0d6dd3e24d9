#include "../textcore/fileopsrunner.h"
#include "dialogs/externalchangesdialog.h"
#include "dialogs/infobar.h"
#include "journalstore.h"
#include "options/editorsettings.h"
#include "promptrecorder.h"
#include "sedgui.h"
#include "templatetree.h"

#include <QListWidget>
#include <QPointer>
#include <QSaveFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <memory>
#include <vector>

using namespace koru::sedgui;

namespace {

// A new file renamed over path, as most editors and tools save; writeFile keeps the inode.
bool renameOver(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

class TestExternalChange : public QObject
{
    Q_OBJECT

    bool open(const QByteArray &bytes)
    {
        m_tool = new SedGUI;
        return FileOpsRunner::writeFile(m_path, bytes) && m_tool->openFile(m_path, nullptr);
    }
    QWidget *changed() { return TemplateTree::Instance()->checkFileChanged(); }

    QTemporaryDir m_dir;
    QString m_path = m_dir.filePath(QStringLiteral("watched.txt"));
    QPointer<SedGUI> m_tool; // a document closed by the user deletes itself

private Q_SLOTS:
    void cleanup()
    {
        // The runner gives this test its own settings folder, empty at the start.
        EditorSettings::store(EditorSettings::defaults());
        delete std::exchange(m_tool, nullptr);
        QFile::remove(m_path);
        QVERIFY(TemplateTree::Instance()->documents().isEmpty());
    }
    void changedOnDisk_data()
    {
        QTest::addColumn<bool>("modified"); // "mine\n" typed before the change
        QTest::addColumn<bool>("silently"); // the reload-unmodified-silently option
        QTest::addColumn<bool>("deleted");  // the file is deleted, else replaced
        QTest::addColumn<int>("answer");    // -1: Escape
        QTest::addColumn<QString>("text");  // in the editor after the answer; empty: closed
        const int reload = UserPrompt::Reload, keep = UserPrompt::Keep, escape = -1;
        QTest::newRow("unmodified, reload") << false << false << false << reload << "theirs\n";
        QTest::newRow("unmodified, keep") << false << false << false << keep << "original\n";
        QTest::newRow("unmodified, silent by option")
            << false << true << false << escape << "theirs\n";
        QTest::newRow("modified, asked anyway")
            << true << true << false << escape << "mine\noriginal\n";
        QTest::newRow("modified, reload") << true << false << false << reload << "theirs\n";
        QTest::newRow("deleted, Escape keeps the text as unsaved")
            << false << true << true << escape << "original\n";
        QTest::newRow("deleted and modified, kept")
            << true << false << true << int(UserPrompt::KeepInEditor) << "mine\noriginal\n";
        QTest::newRow("deleted, closed")
            << false << false << true << int(UserPrompt::Close) << QString();
    }
    void changedOnDisk()
    {
        QFETCH(bool, modified);
        QFETCH(bool, silently);
        QFETCH(bool, deleted);
        QFETCH(int, answer);
        QFETCH(QString, text);
        EditorSettings::Values settings = EditorSettings::load();
        settings.reloadUnmodifiedSilently = silently;
        EditorSettings::store(settings);
        PromptRecorder prompts;
        if (answer >= 0)
            prompts.answers = {UserPrompt::Button(answer)};
        QVERIFY(open("original\n"));
        if (modified)
            m_tool->editor()->insertAt(QStringLiteral("mine\n"), 0, 0);
        if (deleted)
            QVERIFY(QFile::remove(m_path));
        else
            QVERIFY((modified ? renameOver : FileOpsRunner::writeFile)(m_path, "theirs\n"));

        QCOMPARE(changed(), text.isEmpty() ? nullptr : m_tool.data());
        const qsizetype asks = modified || !silently || deleted ? 1 : 0;
        QCOMPARE(prompts.asked.size(), asks);
        if (asks) {
            const UserPrompt::Button keeps = deleted ? UserPrompt::KeepInEditor : UserPrompt::Keep;
            QVERIFY(prompts.asked.first().text.contains(m_path));
            // A deleted file is named as deleted, not as changed.
            QCOMPARE(prompts.asked.first().text.contains(QLatin1String("deleted")), deleted);
            QCOMPARE(prompts.asked.first().escapeButton, keeps);
            if (modified)
                QCOMPARE(prompts.asked.first().defaultButton, keeps);
        }
        if (text.isEmpty()) {
            QTRY_VERIFY(!m_tool);
            return;
        }
        QCOMPARE(m_tool->editor()->text(), text);
        const bool reloaded = text == QStringLiteral("theirs\n");
        QCOMPARE(m_tool->isModified(), !reloaded); // modified exactly when it differs from the file
        // The same on-disk state is never asked about again.
        QCOMPARE(changed(), nullptr);
        if (modified && reloaded) {
            m_tool->editor()->undo(); // the reload is one undo step
            QCOMPARE(m_tool->editor()->text(), QStringLiteral("mine\noriginal\n"));
        } else if (!reloaded) {
            QVERIFY(!m_tool->infoBar()->message().isEmpty());
            QVERIFY(m_tool->save()); // without asking again about the change kept
            QCOMPARE(FileOpsRunner::readFile(m_path), text.toUtf8());
        }
        QCOMPARE(prompts.asked.size(), asks);
    }
    // Our own save replaces the inode; the watch must follow it to the next replacement.
    void watchFollowsTheReplacement()
    {
        PromptRecorder prompts;
        prompts.answers = {UserPrompt::Reload};
        QVERIFY(open("watched\n"));
        m_tool->editor()->insertAt(QStringLiteral("a"), 0, 0);
        QVERIFY(m_tool->save());
        QVERIFY(m_tool->infoBar()->message().isEmpty());
        QVERIFY(renameOver(m_path, "outside\n"));
        QTRY_VERIFY(!m_tool->infoBar()->message().isEmpty());
        QCOMPARE(changed(), m_tool);
        QCOMPARE(m_tool->editor()->text(), QStringLiteral("outside\n"));
        QCOMPARE(prompts.asked.size(), 1);
    }
    // Three files change at once, the middle one modified here: one list, no box.
    void manyChangesOneQuestion_data()
    {
        QTest::addColumn<bool>("apply");         // Apply to Checked; false: Keep All
        QTest::addColumn<QList<bool>>("reload"); // the checks as the user leaves them
        QTest::addColumn<QStringList>("texts");  // in the four editors afterwards; empty: closed
        QTest::newRow("as offered")
            << true << QList{true, false, true, false}
            << QStringList{"new 0\n", "mine\nold 1\n", "new 2\n", "old 3\n"};
        QTest::newRow("mine reloaded too, one kept, the deleted one closed")
            << true << QList{false, true, true, true}
            << QStringList{"old 0\n", "new 1\n", "new 2\n", ""};
        QTest::newRow("keep all") << false << QList{true, true, true, true}
                                  << QStringList{"old 0\n", "mine\nold 1\n", "old 2\n", "old 3\n"};
    }
    void manyChangesOneQuestion()
    {
        QFETCH(bool, apply);
        QFETCH(QList<bool>, reload);
        QFETCH(QStringList, texts);
        PromptRecorder prompts;
        std::vector<std::unique_ptr<SedGUI>> tools;
        QStringList paths;
        for (int i = 0; i < 4; ++i) {
            paths.append(m_dir.filePath(QStringLiteral("many%1.txt").arg(i)));
            tools.push_back(std::make_unique<SedGUI>());
            QVERIFY(FileOpsRunner::writeFile(paths[i], "old " + QByteArray::number(i) + "\n"));
            QVERIFY(tools[i]->openFile(paths[i], nullptr));
        }
        tools[1]->editor()->insertAt(QStringLiteral("mine\n"), 0, 0);
        for (int i = 0; i < 3; ++i)
            QVERIFY(renameOver(paths[i], "new " + QByteArray::number(i) + "\n"));
        QVERIFY(QFile::remove(paths[3]));
        QList<QStringList> lists;
        QList<bool> offered;
        QList<bool> gone;
        ExternalChangesDialog::setAnswerer([&](const QStringList &names, const QList<bool> &,
                                               const QList<bool> &deleted, QList<bool> *checks) {
            lists.append(names);
            gone = deleted;
            offered = std::exchange(*checks, reload);
            return apply;
        });
        const auto restore = qScopeGuard([] { ExternalChangesDialog::setAnswerer({}); });

        QCOMPARE(changed(), tools[0].get());
        QCOMPARE(lists, QList<QStringList>{paths});
        // The modified and the deleted ones unchecked; the deleted one named as deleted.
        QCOMPARE(offered, (QList<bool>{true, false, true, false}));
        QCOMPARE(gone, (QList<bool>{false, false, false, true}));
        const ExternalChangesDialog dialog(paths, {}, gone);
        QVERIFY(dialog.findChild<QListWidget *>()->item(3)->text().contains(u"deleted from disk"));
        QVERIFY(prompts.asked.isEmpty());
        const QPointer<SedGUI> deletedOne = tools[3].get();
        if (texts[3].isEmpty()) {
            (void)tools[3].release(); // the closed document deletes itself
            QTRY_VERIFY(!deletedOne);
            texts.removeLast();
        }
        for (qsizetype i = 0; i < texts.size(); ++i) {
            QCOMPARE(tools[i]->editor()->text(), texts[i]);
            QCOMPARE(tools[i]->isModified(), !texts[i].startsWith(QLatin1String("new")));
        }
        QCOMPARE(changed(), nullptr);
        QCOMPARE(lists.size(), 1);
    }
    // Another editor's journal for the file tells that it has unsaved changes there.
    void otherEditorsChangesAreFlagged_data()
    {
        QTest::addColumn<bool>("running"); // the other editor's store still exists
        QTest::addColumn<QString>("name"); // of the file it edits
        QTest::newRow("running, same file") << true << "watched.txt";
        QTest::newRow("running, another file") << true << "other.txt";
        QTest::newRow("ended") << false << "watched.txt";
    }
    void otherEditorsChangesAreFlagged()
    {
        QFETCH(bool, running);
        QFETCH(QString, name);
        const bool flagged = running && m_path.endsWith(name);
        JournalOwner owner = JournalOwner::current();
        owner.pid = 999993;
        auto other = std::make_unique<JournalStore>(JournalStore::defaultFolder(), owner);
        JournalEntry entry;
        entry.documentId = other->newDocumentId();
        entry.path = m_dir.filePath(name);
        QVERIFY(other->write(entry, "theirs"));
        if (!running)
            other.reset();
        QVERIFY(open("mine\n"));
        const QString note = m_tool->infoBar()->message();
        QCOMPARE(note.contains(QLatin1String("999993")), flagged);
        QCOMPARE(note.contains(m_path), flagged);
        if (other)
            other->remove(entry.documentId);
    }
    void savingOverChangedFileAsks_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QByteArray>("onDisk");
        QTest::newRow("cancel") << int(UserPrompt::Cancel) << QByteArray("outside\n");
        QTest::newRow("overwrite") << int(UserPrompt::Overwrite) << QByteArray("mine original\n");
    }
    void savingOverChangedFileAsks()
    {
        QFETCH(int, answer);
        QFETCH(QByteArray, onDisk);
        PromptRecorder prompts;
        prompts.answers = {UserPrompt::Button(answer)};
        QVERIFY(open("original\n"));
        m_tool->editor()->insertAt(QStringLiteral("mine "), 0, 0);
        QVERIFY(renameOver(m_path, "outside\n"));
        QCOMPARE(m_tool->save(), answer == UserPrompt::Overwrite);
        QCOMPARE(prompts.asked.size(), 1);
        QCOMPARE(prompts.asked.first().defaultButton, UserPrompt::Cancel);
        QCOMPARE(FileOpsRunner::readFile(m_path), onDisk);
        QCOMPARE(m_tool->isModified(), answer != UserPrompt::Overwrite);
    }
};

QTEST_MAIN(TestExternalChange)
#include "tst_externalchange.moc"
