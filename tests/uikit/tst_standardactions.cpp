#include "baseaction.h"
#include "standardactions.h"

#include <QDir>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

class TestStandardActions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void bareSessionGetsBundledDrawing_data();
    void bareSessionGetsBundledDrawing();
    void themeIconWinsOverDrawing_data();
    void themeIconWinsOverDrawing();
    void preferredKeyComesFirst_data();
    void preferredKeyComesFirst();
    void noTwoCommandsShareAKey();
    void unknownNameStaysPlain();

private:
    QTemporaryDir m_themes;
};

namespace {

int paintedPixels(const QIcon &icon, int size)
{
    const QImage image = icon.pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 0;
    }
    return painted;
}

void writeThemeIcon(const QString &themeDir, const QString &iconName)
{
    QDir().mkpath(themeDir + QStringLiteral("/24x24/actions"));
    QImage image(24, 24, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(themeDir + QStringLiteral("/24x24/actions/") + iconName +
                       QStringLiteral(".png")));
}

} // namespace

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
    QVERIFY2(!action.icon().isNull(), qPrintable(name));
    QVERIFY2(paintedPixels(action.icon(), 24) > 40,
             qPrintable(StandardActions::bundledIconPath(StandardActions::iconName(name))));
}

void TestStandardActions::themeIconWinsOverDrawing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("themeHas");
    QTest::addColumn<QString>("expectedThemeIcon");

    QTest::newRow("open from the theme")
        << "Open" << QStringList{"document-open"} << "document-open";
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

    const QString themeName = QStringLiteral("t%1").arg(QTest::currentDataTag()).remove(' ');
    const QString themeDir = m_themes.filePath(themeName);
    QDir().mkpath(themeDir);
    QFile index(themeDir + QStringLiteral("/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=T\nDirectories=24x24/actions\n\n"
                "[24x24/actions]\nSize=24\nContext=Actions\nType=Fixed\n");
    index.close();
    for (const QString &icon : themeHas)
        writeThemeIcon(themeDir, icon);
    QIcon::setThemeName(themeName);

    const QIcon icon = StandardActions::icon(name);
    QCOMPARE(icon.name(), expectedThemeIcon);
    QVERIFY(paintedPixels(icon, 24) > 40);
}

void TestStandardActions::preferredKeyComesFirst_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("first");

    // Qt reports no standard key for some of these on some desktops.
    for (const auto &[name, key] : {std::pair{"Save As", "Ctrl+Shift+S"},
                                    {"Exit", "Ctrl+Q"},
                                    {"Replace", "Ctrl+H"},
                                    {"Full Screen", "F11"},
                                    {"Go To", "Ctrl+G"},
                                    {"Clear", "Del"},
                                    {"Close All", ""}})
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(key);
}

void TestStandardActions::preferredKeyComesFirst()
{
    QFETCH(QString, name);
    QFETCH(QString, first);

    const BaseAction action(name.toLatin1().constData(), nullptr);
    QCOMPARE(action.shortcut().toString(QKeySequence::PortableText), first);
}

void TestStandardActions::noTwoCommandsShareAKey()
{
    QHash<QKeySequence, QString> owner;
    for (const QString &name : StandardActions::names()) {
        for (const QKeySequence &key : StandardActions::shortcuts(name)) {
            const QString previous = owner.value(key);
            QVERIFY2(
                previous.isEmpty(),
                qPrintable(
                    QStringLiteral("%1 is both %2 and %3").arg(key.toString(), previous, name)));
            owner.insert(key, name);
        }
    }
    QVERIFY(owner.size() > 20);
}

void TestStandardActions::unknownNameStaysPlain()
{
    const BaseAction action("Line Numbers", nullptr);
    QCOMPARE(action.text(), QStringLiteral("Line Numbers"));
    QVERIFY(action.icon().isNull());
    QVERIFY(action.shortcuts().isEmpty());
}

QTEST_MAIN(TestStandardActions)
#include "tst_standardactions.moc"
