#include "appsetup.h"
#include "baseaction.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

class TestAppSetup : public QObject
{
    Q_OBJECT

private slots:
    void germanLocaleTranslatesEveryLayer();
    void translationIsComplete_data();
    void translationIsComplete();
};

void TestAppSetup::germanLocaleTranslatesEveryLayer()
{
    QCOMPARE(AppSetup::installTranslations(*qApp, QLocale(QLocale::German, QLocale::Germany)), 3);

    // Ours, through the action class every menu uses.
    QCOMPARE(BaseAction("Open", nullptr).text(), QString::fromUtf8("Öffnen"));
    // Qt's own dialogs and buttons.
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Abbrechen"));
    // The editing component's lexer names.
    QCOMPARE(QCoreApplication::translate("QsciLexerCPP", "Inactive default"),
             QStringLiteral("Inaktiver Standard"));
}

void TestAppSetup::translationIsComplete_data()
{
    QTest::addColumn<QString>("path");
    const QDir dir(qEnvironmentVariable("SE_SOURCE_DIR") + QStringLiteral("/translations"));
    const QStringList files = dir.entryList({QStringLiteral("*.ts")}, QDir::Files);
    QVERIFY2(!files.isEmpty(), qPrintable(dir.path()));
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << dir.filePath(file);
}

// Every message translated, with the same place markers and, where the
// source has a mnemonic, a mnemonic in the translation too.
void TestAppSetup::translationIsComplete()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));

    static const QRegularExpression marker(QStringLiteral("%L?\\d"));
    auto markers = [](const QString &text) {
        QStringList found;
        for (auto it = marker.globalMatch(text); it.hasNext();)
            found << it.next().captured();
        found.sort();
        return found;
    };

    QStringList problems;
    int messages = 0;
    QXmlStreamReader xml(&file);
    QString context;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            ++messages;
            const bool unfinished =
                xml.attributes().value(QLatin1String("type")) == QLatin1String("unfinished");
            // Plural forms come as child elements; their texts run together.
            const QString translation =
                xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            const QString where = context + QStringLiteral(": ") + source;
            if (unfinished || translation.isEmpty())
                problems << QStringLiteral("untranslated ") + where;
            else if (markers(source) != markers(translation))
                problems << QStringLiteral("place markers differ in ") + where;
            else if (source.contains(QRegularExpression(QStringLiteral("&[^& ]"))) !=
                     translation.contains(QRegularExpression(QStringLiteral("&[^& ]"))))
                problems << QStringLiteral("mnemonic differs in ") + where;
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QVERIFY(messages > 0);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.mid(0, 20).join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestAppSetup)
#include "tst_appsetup.moc"
