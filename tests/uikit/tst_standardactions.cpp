#include "baseaction.h"
#include "standardactions.h"

#include <QDir>
#include <QIcon>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

// How many pixels of the icon drawn at 24 by 24 are not transparent.
qsizetype paintedPixels(const QIcon &icon)
{
    const QImage image = icon.pixmap(24, 24).toImage().convertToFormat(QImage::Format_Alpha8);
    const uchar *alpha = image.constBits();
    return std::count_if(alpha, alpha + image.sizeInBytes(), [](uchar a) { return a > 0; });
}

} // namespace

class TestStandardActions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void bareSessionGetsBundledDrawing_data();
    void bareSessionGetsBundledDrawing();
    void themeIconWinsOverDrawing_data();
    void themeIconWinsOverDrawing();
    void actionGetsKeyAndIcon_data();
    void actionGetsKeyAndIcon();
    void noTwoCommandsShareAKey();

private:
    QTemporaryDir m_themes;
};

// Every test starts on a bare session: no theme, no theme folders.
void TestStandardActions::init()
{
    QIcon::setThemeSearchPaths({m_themes.path()});
    QIcon::setThemeName(QString());
}

void TestStandardActions::bareSessionGetsBundledDrawing_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : StandardActions::names()) {
        if (!StandardActions::iconName(name).isEmpty())
            QTest::newRow(qPrintable(name)) << name;
    }
}

void TestStandardActions::bareSessionGetsBundledDrawing()
{
    QFETCH(QString, name);
    const BaseAction action(name.toLatin1().constData(), nullptr);
    QVERIFY2(paintedPixels(action.icon()) > 40,
             qPrintable(StandardActions::bundledIconPath(StandardActions::iconName(name))));
}

void TestStandardActions::themeIconWinsOverDrawing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("themeHas");
    QTest::addColumn<QString>("expectedThemeIcon"); // empty for the bundled drawing

    QTest::newRow("open") << "Open" << QStringList{"document-open"} << "document-open";
    QTest::newRow("save all borrows save")
        << "Save All" << QStringList{"document-save"} << "document-save";
    QTest::newRow("save all of its own")
        << "Save All" << QStringList{"document-save", "document-save-all"} << "document-save-all";
    QTest::newRow("theme lacks go-jump") << "Go To" << QStringList{"document-open"} << "";
}

void TestStandardActions::themeIconWinsOverDrawing()
{
    QFETCH(QString, name);
    QFETCH(QStringList, themeHas);
    QFETCH(QString, expectedThemeIcon);

    // A theme of its own per row: Qt caches what it found in a theme.
    const QString theme = QString::fromLatin1(QTest::currentDataTag()).remove(u' ');
    const QString icons = m_themes.filePath(theme) + QStringLiteral("/24x24/actions/");
    QVERIFY(QDir().mkpath(icons));
    QFile index(m_themes.filePath(theme) + QStringLiteral("/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=T\nDirectories=24x24/actions\n\n"
                "[24x24/actions]\nSize=24\nContext=Actions\nType=Fixed\n");
    index.close();
    QImage image(24, 24, QImage::Format_ARGB32);
    image.fill(Qt::red);
    for (const QString &icon : themeHas)
        QVERIFY(image.save(icons + icon + QStringLiteral(".png")));
    QIcon::setThemeName(theme);

    const QIcon icon = StandardActions::icon(name);
    QCOMPARE(icon.name(), expectedThemeIcon);
    QVERIFY(paintedPixels(icon) > 40);
}

// The row's tag is the action's name.
void TestStandardActions::actionGetsKeyAndIcon_data()
{
    QTest::addColumn<QString>("firstKey"); // the preferred one
    QTest::addColumn<bool>("icon");

    QTest::newRow("Save As") << "Ctrl+Shift+S" << true;
    QTest::newRow("Go To") << "Ctrl+G" << true; // no standard key
    QTest::newRow("Close All") << "" << false;
    QTest::newRow("Line Numbers") << "" << false; // not a standard command
}

void TestStandardActions::actionGetsKeyAndIcon()
{
    QFETCH(QString, firstKey);
    QFETCH(bool, icon);

    const BaseAction action(QTest::currentDataTag(), nullptr);
    QCOMPARE(action.text(), QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(action.shortcut().toString(QKeySequence::PortableText), firstKey);
    QCOMPARE(!action.icon().isNull(), icon);
}

void TestStandardActions::noTwoCommandsShareAKey()
{
    QHash<QKeySequence, QString> owner;
    for (const QString &name : StandardActions::names()) {
        for (const QKeySequence &key : StandardActions::shortcuts(name)) {
            QVERIFY2(!owner.contains(key),
                     qPrintable(QStringLiteral("%1 is both %2 and %3")
                                    .arg(key.toString(), owner.value(key), name)));
            owner.insert(key, name);
        }
    }
    QVERIFY(owner.size() > 20);
}

QTEST_MAIN(TestStandardActions)
#include "tst_standardactions.moc"
