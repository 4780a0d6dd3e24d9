#include "appsetup.h"
#include "baseaction.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

// The place markers of a text and one '&' per mnemonic, sorted.
static QStringList markers(const QString &text)
{
    static const QRegularExpression markerOrMnemonic(QStringLiteral("%L?\\d|&(?=[^& ])"));
    QStringList found;
    for (auto it = markerOrMnemonic.globalMatch(text); it.hasNext();)
        found << it.next().captured();
    found.sort();
    return found;
}

class TestAppSetup : public QObject
{
    Q_OBJECT

private slots:
    void germanLocaleTranslatesEveryLayer();
    void translationIsComplete();
};

void TestAppSetup::germanLocaleTranslatesEveryLayer()
{
    QCOMPARE(AppSetup::installTranslations(*QCoreApplication::instance(), QLocale("de_DE")), 3);
    // Ours through the menus' action class, Qt's own, the editing component's.
    QCOMPARE(BaseAction("Open", nullptr).text(), QString::fromUtf8("Öffnen"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Abbrechen");
    QCOMPARE(QCoreApplication::translate("QsciLexerCPP", "Inactive default"), "Inaktiver Standard");
}

// Every message translated, with the same place markers and as many mnemonics.
void TestAppSetup::translationIsComplete()
{
    const QDir dir(qEnvironmentVariable("SE_SOURCE_DIR") + QStringLiteral("/translations"));
    const QStringList files = dir.entryList({QStringLiteral("*.ts")}, QDir::Files);
    QVERIFY2(!files.isEmpty(), qPrintable(dir.path()));
    for (const QString &name : files) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QStringList problems;
        QString source;
        int messages = 0;
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == u"source")
                source = xml.readElementText(); // leaves the reader on its end
            if (xml.name() != u"translation")
                continue;
            ++messages;
            const bool unfinished = xml.attributes().value(QLatin1String("type")) == u"unfinished";
            // Plural forms come as child elements; their texts run together.
            const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            if (unfinished || text.trimmed().isEmpty() || markers(source) != markers(text))
                problems << name + u": " + source;
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QVERIFY(messages > 0);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.mid(0, 20).join(u'\n')));
    }
}

QTEST_MAIN(TestAppSetup)
#include "tst_appsetup.moc"
