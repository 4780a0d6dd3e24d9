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

using koru::sedgui::EditorSettings;
using koru::sedgui::SedGUI;
using koru::sedgui::TemplateTree;
using koru::sedgui::UserPrompt;

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

// Writes in place, keeping the inode, as "echo > file" does.
void writeInPlace(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

// Writes a new file and renames it over path, as most editors and tools save.
void renameOver(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    QVERIFY(file.commit());
}

} // namespace

class TestExternalChange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void unmodifiedDocument_data();
    void unmodifiedDocument();
    void modifiedDocument_data();
    void modifiedDocument();
    void deletedFileKeepsTextAsUnsaved();
    void renameOverTwiceAsksOncePerChange();
    void watchSurvivesReplacementAndOwnSave();
    void savingOverChangedFileAsks_data();
    void savingOverChangedFileAsks();

private:
    SedGUI *open(const QByteArray &bytes);

    QTemporaryDir m_dir;
    QString m_path;
    SedGUI *m_tool = nullptr;
};

void TestExternalChange::init()
{
    QVERIFY(m_dir.isValid());
    m_path = m_dir.filePath(QStringLiteral("watched.txt"));
    EditorSettings::store(EditorSettings::defaults());
}

void TestExternalChange::cleanup()
{
    delete m_tool;
    m_tool = nullptr;
    QFile::remove(m_path);
    QVERIFY(TemplateTree::Instance()->documents().isEmpty());
}

SedGUI *TestExternalChange::open(const QByteArray &bytes)
{
    writeInPlace(m_path, bytes);
    m_tool = new SedGUI;
    QString error;
    if (!m_tool->openFile(m_path, &error))
        qWarning("%s", qPrintable(error));
    return m_tool;
}

void TestExternalChange::unmodifiedDocument_data()
{
    QTest::addColumn<bool>("silently");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("modifiedAfter");

    QTest::newRow("reload") << false << int(UserPrompt::Reload) << "outside edit\n" << false;
    QTest::newRow("keep") << false << int(UserPrompt::Keep) << "original\n" << true;
    QTest::newRow("reload silently by option") << true << -1 << "outside edit\n" << false;
}

void TestExternalChange::unmodifiedDocument()
{
    QFETCH(bool, silently);
    QFETCH(int, answer);
    QFETCH(QString, text);
    QFETCH(bool, modifiedAfter);

    // The runner gives every test its own empty settings folder.
    EditorSettings::Values settings = EditorSettings::load();
    settings.reloadUnmodifiedSilently = silently;
    EditorSettings::store(settings);
    PromptRecorder prompts;
    if (answer >= 0)
        prompts.answers = {UserPrompt::Button(answer)};
    SedGUI *tool = open("original\n");
    writeInPlace(m_path, "outside edit\n");

    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), tool);
    QCOMPARE(prompts.asked.size(), silently ? 0 : 1);
    if (!silently) {
        QVERIFY(prompts.asked.first().text.contains(m_path));
        QCOMPARE(prompts.asked.first().escapeButton, UserPrompt::Keep);
    }
    QCOMPARE(tool->editor()->text(), text);
    QCOMPARE(tool->isModified(), modifiedAfter);
    QCOMPARE(readAll(m_path), QByteArray("outside edit\n"));

    // The same on-disk state is never asked about again.
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), nullptr);
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), nullptr);
    QCOMPARE(prompts.asked.size(), silently ? 0 : 1);
}

void TestExternalChange::modifiedDocument_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("text");

    QTest::newRow("escape keeps my text") << -1 << "mine\noriginal\n";
    QTest::newRow("keep") << int(UserPrompt::Keep) << "mine\noriginal\n";
    QTest::newRow("reload") << int(UserPrompt::Reload) << "theirs\n";
}

void TestExternalChange::modifiedDocument()
{
    QFETCH(int, answer);
    QFETCH(QString, text);

    PromptRecorder prompts;
    if (answer >= 0)
        prompts.answers = {UserPrompt::Button(answer)};
    SedGUI *tool = open("original\n");
    tool->editor()->insertAt(QStringLiteral("mine\n"), 0, 0);
    renameOver(m_path, "theirs\n");

    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), tool);
    QCOMPARE(prompts.asked.size(), 1);
    QCOMPARE(prompts.asked.first().defaultButton, UserPrompt::Keep);
    QCOMPARE(prompts.asked.first().escapeButton, UserPrompt::Keep);
    QCOMPARE(tool->editor()->text(), text);
    QCOMPARE(readAll(m_path), QByteArray("theirs\n"));
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), nullptr);
    QCOMPARE(prompts.asked.size(), 1);

    if (answer == UserPrompt::Reload) {
        // The reload is one undo step: the user's text is not lost.
        QVERIFY(!tool->isModified());
        tool->editor()->undo();
        QCOMPARE(tool->editor()->text(), QStringLiteral("mine\noriginal\n"));
    } else {
        QVERIFY(tool->isModified());
        // Saving after "keep" does not ask about the same change again.
        QVERIFY(tool->save());
        QCOMPARE(prompts.asked.size(), 1);
        QCOMPARE(readAll(m_path), QByteArray("mine\noriginal\n"));
    }
}

void TestExternalChange::deletedFileKeepsTextAsUnsaved()
{
    PromptRecorder prompts;
    SedGUI *tool = open("keep me\n");
    QVERIFY(!tool->isModified());
    QVERIFY(QFile::remove(m_path));

    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), tool);
    QCOMPARE(tool->editor()->text(), QStringLiteral("keep me\n"));
    QVERIFY(tool->isModified());
    QVERIFY(tool->getTabText().endsWith(QLatin1Char('*')));
    QVERIFY(!tool->infoBar()->message().isEmpty());
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), nullptr);

    QVERIFY(tool->save());
    QCOMPARE(readAll(m_path), QByteArray("keep me\n"));
    QVERIFY(!tool->isModified());
    QVERIFY(prompts.asked.isEmpty());
}

void TestExternalChange::renameOverTwiceAsksOncePerChange()
{
    PromptRecorder prompts;
    prompts.answers = {UserPrompt::Reload, UserPrompt::Reload};
    SedGUI *tool = open("v1\n");

    renameOver(m_path, "v2\n");
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), tool);
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), nullptr);
    QCOMPARE(prompts.asked.size(), 1);
    QCOMPARE(tool->editor()->text(), QStringLiteral("v2\n"));

    renameOver(m_path, "v3\n");
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), tool);
    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), nullptr);
    QCOMPARE(prompts.asked.size(), 2);
    QCOMPARE(tool->editor()->text(), QStringLiteral("v3\n"));
}

void TestExternalChange::watchSurvivesReplacementAndOwnSave()
{
    PromptRecorder prompts;
    SedGUI *tool = open("watched\n");
    QVERIFY(TemplateTree::Instance()->watchedFiles().contains(m_path));

    // Our own save replaces the inode; the watch must follow.
    tool->editor()->insertAt(QStringLiteral("a"), 0, 0);
    QVERIFY(tool->save());
    QVERIFY(tool->infoBar()->message().isEmpty());
    renameOver(m_path, "first outside\n");
    QTRY_VERIFY(!tool->infoBar()->message().isEmpty());
    QVERIFY(prompts.asked.isEmpty());

    QCOMPARE(TemplateTree::Instance()->checkFileChanged(), tool);
    tool->infoBar()->clearMessage();
    // The watch was re-armed on the new inode.
    renameOver(m_path, "second outside, longer\n");
    QTRY_VERIFY(!tool->infoBar()->message().isEmpty());
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
