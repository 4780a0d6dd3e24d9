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

// Every message translated, with the same place markers and as many mnemonics.
void TestAppSetup::translationIsComplete()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto kept = [](const QString &text) {
        static const QRegularExpression markerOrMnemonic(QStringLiteral("%L?\\d|&[^& ]"));
        QStringList found;
        for (auto it = markerOrMnemonic.globalMatch(text); it.hasNext();) {
            const QString match = it.next().captured();
            found << (match.startsWith(u'&') ? QStringLiteral("&") : match);
        }
        found.sort();
        return found;
    };

    QStringList problems;
    QString where;
    int messages = 0;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source")) {
            where = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            ++messages;
            const bool unfinished =
                xml.attributes().value(QLatin1String("type")) == QLatin1String("unfinished");
            // Plural forms come as child elements; their texts run together.
            const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            if (unfinished || text.trimmed().isEmpty())
                problems << QStringLiteral("untranslated: ") + where;
            else if (kept(where) != kept(text))
                problems << QStringLiteral("markers or mnemonic differ: ") + where;
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QVERIFY(messages > 0);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.mid(0, 20).join(u'\n')));
}

QTEST_MAIN(TestAppSetup)
#include "tst_appsetup.moc"
