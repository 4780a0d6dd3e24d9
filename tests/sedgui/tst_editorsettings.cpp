#include "baseusrsettings.h"
#include "editorsettings.h"

#include <QTest>

using namespace koru::sedgui;

class TstEditorSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void missingStoreGivesDefaults();
    void storedValuesLoadAgain();
    void malformedValueReadsAsDefault_data();
    void malformedValueReadsAsDefault();
};

namespace {

EditorSettings::Values nonDefaults()
{
    EditorSettings::Values values = EditorSettings::defaults();
    values.font.setFamily(QStringLiteral("DejaVu Sans"));
    values.font.setPointSize(17);
    values.tabWidth = 8;
    values.indentWithSpaces = false;
    values.autoIndent = false;
    values.lineNumbers = false;
    values.wordWrap = true;
    values.showWhitespace = true;
    values.highlightCurrentLine = false;
    values.braceMatching = false;
    values.defaultEncoding = "WINDOWS-1252";
    values.defaultLineEnding = LineEnding::CRLF;
    values.reloadUnmodifiedSilently = true;
    values.trimTrailingWhitespace = true;
    return values;
}

void compareValues(const EditorSettings::Values &actual, const EditorSettings::Values &expected)
{
    QCOMPARE(actual.font.family(), expected.font.family());
    QCOMPARE(actual.font.pointSize(), expected.font.pointSize());
    QCOMPARE(actual.tabWidth, expected.tabWidth);
    QCOMPARE(actual.indentWithSpaces, expected.indentWithSpaces);
    QCOMPARE(actual.autoIndent, expected.autoIndent);
    QCOMPARE(actual.lineNumbers, expected.lineNumbers);
    QCOMPARE(actual.wordWrap, expected.wordWrap);
    QCOMPARE(actual.showWhitespace, expected.showWhitespace);
    QCOMPARE(actual.highlightCurrentLine, expected.highlightCurrentLine);
    QCOMPARE(actual.braceMatching, expected.braceMatching);
    QCOMPARE(actual.defaultEncoding, expected.defaultEncoding);
    QCOMPARE(actual.defaultLineEnding, expected.defaultLineEnding);
    QCOMPARE(actual.reloadUnmodifiedSilently, expected.reloadUnmodifiedSilently);
    QCOMPARE(actual.trimTrailingWhitespace, expected.trimTrailingWhitespace);
}

} // namespace

void TstEditorSettings::init()
{
    BaseUsrSettings("SRC_EDITOR").clear();
}

void TstEditorSettings::missingStoreGivesDefaults()
{
    compareValues(EditorSettings::load(), EditorSettings::defaults());
    QVERIFY(!EditorSettings::defaults().trimTrailingWhitespace);
}

void TstEditorSettings::storedValuesLoadAgain()
{
    QVERIFY(EditorSettings::store(nonDefaults()));
    compareValues(EditorSettings::load(), nonDefaults());
}

void TstEditorSettings::malformedValueReadsAsDefault_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("tab width text") << "Editor/TabWidth" << QVariant(QStringLiteral("wide"));
    QTest::newRow("tab width zero") << "Editor/TabWidth" << QVariant(0);
    QTest::newRow("tab width huge") << "Editor/TabWidth" << QVariant(5000);
    QTest::newRow("font size negative") << "Editor/FontSize" << QVariant(-3);
    QTest::newRow("bool as word") << "Editor/LineNumbers" << QVariant(QStringLiteral("maybe"));
    QTest::newRow("bool as list") << "Editor/WordWrap" << QVariant(QStringList{"a", "b"});
    QTest::newRow("unknown encoding")
        << "Files/DefaultEncoding" << QVariant(QStringLiteral("NO-SUCH-CODE"));
    QTest::newRow("unknown line ending")
        << "Files/DefaultLineEnding" << QVariant(QStringLiteral("LFCR"));
    QTest::newRow("trim as number") << "Files/TrimTrailingWhitespace" << QVariant(7);
}

void TstEditorSettings::malformedValueReadsAsDefault()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);

    {
        BaseUsrSettings settings("SRC_EDITOR");
        settings.setValue(key, value);
    }
    compareValues(EditorSettings::load(), EditorSettings::defaults());
}

QTEST_MAIN(TstEditorSettings)
#include "tst_editorsettings.moc"
