#include "baseaction.h"
#include "standardactions.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class TestStandardActions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QIcon::setThemeSearchPaths({m_themes.path()}); }
    void everyCommandDrawnWithKeysOfItsOwn();
    void action_data();
    void action();

private:
    QTemporaryDir m_themes;
};

// With no icon theme at all, every command with an icon shows the bundled drawing.
void TestStandardActions::everyCommandDrawnWithKeysOfItsOwn()
{
    QHash<QKeySequence, QString> owner;
    for (const QString &name : StandardActions::names()) {
        const BaseAction action(name.toLatin1().constData(), nullptr);
        if (!StandardActions::iconName(name).isEmpty())
            QVERIFY2(!action.icon().pixmap(24, 24).isNull(), qPrintable(name));
        for (const QKeySequence &key : action.shortcuts()) {
            QVERIFY2(!owner.contains(key), qPrintable(key.toString() + u' ' + owner.value(key)));
            owner.insert(key, name);
        }
    }
    QVERIFY(owner.size() > 20);
}

// The row's tag is the command's name, after '#' only what tells the row apart.
void TestStandardActions::action_data()
{
    QTest::addColumn<QStringList>("themeHas");
    QTest::addColumn<QString>("expected"); // icon (theme's name, bundled or none)/preferred key

    QTest::newRow("Open") << QStringList{"document-open"} << "document-open/Ctrl+O";
    QTest::newRow("Save All#borrows") << QStringList{"document-save"} << "document-save/";
    QTest::newRow("Save All#own") << QStringList{"document-save", "document-save-all"}
                                  << "document-save-all/";
    QTest::newRow("Go To") << QStringList{"document-open"} << "bundled/Ctrl+G"; // no standard key
    QTest::newRow("Save As") << QStringList{} << "bundled/Ctrl+Shift+S";
    QTest::newRow("Close All") << QStringList{} << "none/";
    QTest::newRow("Line Numbers") << QStringList{} << "none/"; // not a command here
}

void TestStandardActions::action()
{
    QFETCH(QStringList, themeHas);
    QFETCH(QString, expected);

    // A theme of its own per row, as Qt caches what it found in a theme.
    const QString theme = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(QDir(m_themes.path()).mkpath(theme + QStringLiteral("/a")));
    QFile index(m_themes.filePath(theme + QStringLiteral("/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly) &&
            index.write("[Icon Theme]\nDirectories=a\n[a]\nSize=24\n") > 0);
    index.close();
    for (const QString &file : themeHas)
        QVERIFY(QFile::copy(StandardActions::bundledIconPath("edit-cut"),
                            m_themes.filePath(theme + "/a/" + file + ".svg")));
    QIcon::setThemeName(theme);

    const BaseAction action(QByteArray(QTest::currentDataTag()).split('#').first(), nullptr);
    const QIcon icon = action.icon();
    const QString name = icon.isNull() ? "none" : icon.name().isEmpty() ? "bundled" : icon.name();
    QCOMPARE(name + u'/' + action.shortcut().toString(QKeySequence::PortableText), expected);
}

QTEST_MAIN(TestStandardActions)
#include "tst_standardactions.moc"
