#include "editorsettings.h"
#include "infobar.h"
#include "promptrecorder.h"
#include "sedgui.h"
#include "templatetree.h"

#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

// In place, keeping the inode, as "echo > file" does.
void writeInPlace(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

// A new file renamed over path, as most editors and tools save.
void renameOver(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    QVERIFY(file.commit());
}

SedGUI *changed()
{
    return qobject_cast<SedGUI *>(TemplateTree::Instance()->checkFileChanged());
}

} // namespace

class TestExternalChange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void changedOnDisk_data();
    void changedOnDisk();
    void watchFollowsEveryReplacement();
    void savingOverChangedFileAsks_data();
    void savingOverChangedFileAsks();

private:
    SedGUI *open(const QByteArray &bytes)
    {
        writeInPlace(m_path, bytes);
        m_tool = new SedGUI;
        QString error;
        if (!m_tool->openFile(m_path, &error))
            qWarning("%s", qPrintable(error));
        return m_tool;
    }

    QTemporaryDir m_dir;
    QString m_path;
    SedGUI *m_tool = nullptr;
};

void TestExternalChange::init()
{
    QVERIFY(m_dir.isValid());
    m_path = m_dir.filePath(QStringLiteral("watched.txt"));
    // The runner gives every test its own empty settings folder.
    EditorSettings::store(EditorSettings::defaults());
}

void TestExternalChange::cleanup()
{
    delete m_tool;
    m_tool = nullptr;
    QFile::remove(m_path);
    QVERIFY(TemplateTree::Instance()->documents().isEmpty());
}

void TestExternalChange::changedOnDisk_data()
{
    QTest::addColumn<bool>("modified"); // "mine\n" typed before the change
    QTest::addColumn<bool>("silently"); // the reload-unmodified-silently option
    QTest::addColumn<int>("answer");    // -1: Escape, -2: the file is deleted, nothing asked
    QTest::addColumn<QString>("text");  // in the editor after the answer
    QTest::newRow("unmodified, reload") << false << false << int(UserPrompt::Reload) << "theirs\n";
    QTest::newRow("unmodified, keep") << false << false << int(UserPrompt::Keep) << "original\n";
    QTest::newRow("unmodified, reload silently by option") << false << true << -1 << "theirs\n";
    QTest::newRow("modified, option still asks, escape keeps")
        << true << true << -1 << "mine\noriginal\n";
    QTest::newRow("modified, reload") << true << false << int(UserPrompt::Reload) << "theirs\n";
    QTest::newRow("deleted, text kept as unsaved") << false << true << -2 << "original\n";
}

void TestExternalChange::changedOnDisk()
{
    QFETCH(bool, modified);
    QFETCH(bool, silently);
    QFETCH(int, answer);
    QFETCH(QString, text);
    EditorSettings::Values settings = EditorSettings::load();
    settings.reloadUnmodifiedSilently = silently;
    EditorSettings::store(settings);
    PromptRecorder prompts;
    if (answer >= 0)
        prompts.answers = {UserPrompt::Button(answer)};
    SedGUI *tool = open("original\n");
    if (modified)
        tool->editor()->insertAt(QStringLiteral("mine\n"), 0, 0);
    if (answer == -2)
        QVERIFY(QFile::remove(m_path));
    else
        (modified ? renameOver : writeInPlace)(m_path, "theirs\n");

    QCOMPARE(changed(), tool);
    const qsizetype asks = (modified || !silently) && answer != -2 ? 1 : 0;
    QCOMPARE(prompts.asked.size(), asks);
    if (asks) {
        QVERIFY(prompts.asked.first().text.contains(m_path));
        QCOMPARE(prompts.asked.first().escapeButton, UserPrompt::Keep);
        if (modified)
            QCOMPARE(prompts.asked.first().defaultButton, UserPrompt::Keep);
    }
    QCOMPARE(tool->editor()->text(), text);
    const bool reloaded = text == QStringLiteral("theirs\n");
    QCOMPARE(tool->isModified(), !reloaded); // modified exactly when it differs from the file
    // The same on-disk state is never asked about again.
    QCOMPARE(changed(), nullptr);
    if (modified && reloaded) {
        tool->editor()->undo(); // the reload is one undo step
        QCOMPARE(tool->editor()->text(), QStringLiteral("mine\noriginal\n"));
    } else if (!reloaded) {
        QVERIFY(!tool->infoBar()->message().isEmpty());
        QVERIFY(tool->save()); // without asking again about the change kept
        QCOMPARE(readAll(m_path), text.toUtf8());
    }
    QCOMPARE(prompts.asked.size(), asks);
}

void TestExternalChange::watchFollowsEveryReplacement()
{
    PromptRecorder prompts;
    prompts.answers = {UserPrompt::Reload, UserPrompt::Reload};
    SedGUI *tool = open("watched\n");
    // Our own save replaces the inode; the watch must follow it and every later replacement.
    tool->editor()->insertAt(QStringLiteral("a"), 0, 0);
    QVERIFY(tool->save());
    QVERIFY(tool->infoBar()->message().isEmpty());
    for (const QByteArray version : {"first outside\n", "second outside, longer\n"}) {
        renameOver(m_path, version);
        QTRY_VERIFY(!tool->infoBar()->message().isEmpty());
        QCOMPARE(changed(), tool);
        QCOMPARE(tool->editor()->text(), QString::fromLatin1(version));
        tool->infoBar()->clearMessage();
    }
    QCOMPARE(prompts.asked.size(), 2);
}

void TestExternalChange::savingOverChangedFileAsks_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::newRow("cancel") << int(UserPrompt::Cancel) << QByteArray("outside\n");
    QTest::newRow("overwrite") << int(UserPrompt::Overwrite) << QByteArray("mine original\n");
}

void TestExternalChange::savingOverChangedFileAsks()
{
    QFETCH(int, answer);
    QFETCH(QByteArray, onDisk);
    PromptRecorder prompts;
    prompts.answers = {UserPrompt::Button(answer)};
    SedGUI *tool = open("original\n");
    tool->editor()->insertAt(QStringLiteral("mine "), 0, 0);
    renameOver(m_path, "outside\n");
    QCOMPARE(tool->save(), answer == UserPrompt::Overwrite);
    QCOMPARE(prompts.asked.size(), 1);
    QCOMPARE(prompts.asked.first().defaultButton, UserPrompt::Cancel);
    QCOMPARE(readAll(m_path), onDisk);
    QCOMPARE(tool->isModified(), answer != UserPrompt::Overwrite);
}

QTEST_MAIN(TestExternalChange)
#include "tst_externalchange.moc"
