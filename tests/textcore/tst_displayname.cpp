#include "displayname.h"

#include <QTest>

using namespace koru::sedgui;

class TstDisplayName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void visible_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("inTab");
        const auto row = [](const char *tag, const QString &name, const char *shown,
                            const char *inTab) {
            QTest::newRow(tag) << name << QString::fromUtf8(shown) << QString::fromUtf8(inTab);
        };
        row("plain, accents and CJK kept", QStringLiteral("caf\u00e9 \u6587.c"), "café 文.c",
            "café 文.c");
        row("ampersands", QStringLiteral("a&b&&c.txt"), "a&b&&c.txt", "a&&b&&&&c.txt");
        row("right-to-left override", QStringLiteral("a\u202Etxt.exe"), "a<U+202E>txt.exe",
            "a<U+202E>txt.exe");
        row("isolates and Arabic letter mark", QStringLiteral("\u2066x\u2069\u061C"),
            "<U+2066>x<U+2069><U+061C>", "<U+2066>x<U+2069><U+061C>");
        row("zero-width space and joiner", QStringLiteral("a\u200Bb\u200Dc"), "a<U+200B>b<U+200D>c",
            "a<U+200B>b<U+200D>c");
        row("controls and separators", QStringLiteral("a\nb\tc\u2028d"),
            "a<U+000A>b<U+0009>c<U+2028>d", "a<U+000A>b<U+0009>c<U+2028>d");
        row("format character outside the BMP (tag)", QStringLiteral("x\U000E0041y"), "x<U+E0041>y",
            "x<U+E0041>y");
        row("emoji outside the BMP kept", QStringLiteral("\U0001F600.md"), "😀.md", "😀.md");
        row("a literal escape cannot pass for a real one", QStringLiteral("<U+202E>&<b>"),
            "<U+003C>U+202E>&<b>", "<U+003C>U+202E>&&<b>");
    }
    void visible()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        QFETCH(QString, inTab);
        QCOMPARE(DisplayName::visible(name), shown);
        QCOMPARE(DisplayName::forMnemonicText(name), inTab);
    }
};

QTEST_APPLESS_MAIN(TstDisplayName)
#include "tst_displayname.moc"
