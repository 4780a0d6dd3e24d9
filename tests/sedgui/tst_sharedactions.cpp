#include "connection.h"
#include "sedgui.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHash>
#include <QSet>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using koru::sedgui::SedGUI;

namespace {

const QStringList toolActionNames{
    "SAVE", "SAVE AS", "PAGE SETUP", "PRINT PREVIEW", "PRINT",   "UNDO",  "REDO",       "CUT",
    "COPY", "PASTE",   "FIND",       "FIND NEXT",     "REPLACE", "GO TO", "SELECT ALL", "CLEAR"};

// The shell's 16 shared tool actions, wired to one tool at a time the way the
// shell does it: by the encoded signatures of the tool's connection records.
class SharedActions
{
public:
    SharedActions()
    {
        for (const QString &name : toolActionNames)
            (*m_actions.insert(name, new QAction(name, &m_owner)))->setEnabled(false);
    }

    QAction *action(const char *name) const { return m_actions.value(QString::fromLatin1(name)); }

    // Breaks the old tool's links (disabling what it drove), makes the new one's, each
    // action linked both ways: the tool drives its state and handles its trigger.
    void switchTo(SedGUI *tool)
    {
        for (const Connection *record :
             m_front ? *m_front->getConnectionList() : QList<Connection *>()) {
            if (record->senderKey) {
                QObject::disconnect(action(record->senderKey), record->signal, m_front,
                                    record->slot);
            } else {
                QObject::disconnect(m_front, record->signal, action(record->receiverKey),
                                    record->slot);
                action(record->receiverKey)->setEnabled(false);
            }
        }
        m_front = tool;
        QSet<QString> linked[2]; // driven by the tool, driving the tool
        for (const Connection *record : *tool->getConnectionList()) {
            const char *key = record->senderKey ? record->senderKey : record->receiverKey;
            QVERIFY(key && !(record->senderKey && record->receiverKey));
            const bool made =
                record->senderKey
                    ? QObject::connect(action(key), record->signal, tool, record->slot)
                    : QObject::connect(tool, record->signal, action(key), record->slot);
            QVERIFY2(made, record->signal);
            linked[record->senderKey ? 1 : 0].insert(QString::fromLatin1(key));
        }
        const QSet<QString> all(toolActionNames.cbegin(), toolActionNames.cend());
        QCOMPARE(linked[0], all);
        QCOMPARE(linked[1], all);
        tool->activate();
    }

    // Fails unless the actions in on are enabled and those in off are not.
    void expect(const QStringList &on, const QStringList &off) const
    {
        for (const QString &name : on)
            QVERIFY2(m_actions.value(name)->isEnabled(), qPrintable(name + " disabled"));
        for (const QString &name : off)
            QVERIFY2(!m_actions.value(name)->isEnabled(), qPrintable(name + " enabled"));
    }

private:
    QObject m_owner;
    QHash<QString, QAction *> m_actions;
    SedGUI *m_front = nullptr;
};

} // namespace

class TestSharedActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void actionsFollowTheFrontTool();
    void triggersReachOnlyTheFrontTool();
};

void TestSharedActions::actionsFollowTheFrontTool()
{
    QApplication::clipboard()->clear();
    SharedActions shared;
    SedGUI edited;
    edited.editor()->insertAt(QStringLiteral("some text"), 0, 0);
    SedGUI fresh;

    shared.switchTo(&edited);
    shared.expect({"UNDO", "SAVE", "FIND"}, {"REDO", "COPY"});
    shared.switchTo(&fresh);
    shared.expect({"SAVE AS"}, {"UNDO", "SAVE", "CUT", "PASTE"});

    // The front tool's own changes drive the actions.
    fresh.editor()->insertAt(QStringLiteral("abc"), 0, 0);
    shared.expect({"UNDO", "SAVE"}, {});
    fresh.editor()->setSelection(0, 0, 0, 2);
    shared.expect({"COPY", "CUT", "CLEAR"}, {});
    fresh.editor()->setSelection(0, 1, 0, 1);
    shared.expect({}, {"COPY", "CUT"});
    QApplication::clipboard()->setText(QStringLiteral("clip"));
    shared.expect({"PASTE"}, {});
    fresh.editor()->undo();
    shared.expect({"REDO"}, {"UNDO", "SAVE"});

    // A tool in the back no longer drives them.
    edited.editor()->setSelection(0, 0, 0, 4);
    shared.expect({}, {"COPY"});
    shared.switchTo(&edited);
    shared.expect({"COPY"}, {"REDO"});
}

void TestSharedActions::triggersReachOnlyTheFrontTool()
{
    SharedActions shared;
    SedGUI back;
    back.editor()->setText(QStringLiteral("back"));
    SedGUI front;
    front.editor()->setText(QStringLiteral("front"));
    shared.switchTo(&back);
    shared.switchTo(&front);

    shared.action("SELECT ALL")->trigger();
    QCOMPARE(front.selectedText(), QStringLiteral("front"));
    QVERIFY(back.selectedText().isEmpty());
    shared.action("COPY")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("front"));
    shared.action("CLEAR")->trigger();
    QVERIFY(front.editor()->text().isEmpty());
    shared.action("UNDO")->trigger();
    QCOMPARE(front.editor()->text(), QStringLiteral("front"));
    QCOMPARE(back.editor()->text(), QStringLiteral("back"));
}

QTEST_MAIN(TestSharedActions)
#include "tst_sharedactions.moc"
