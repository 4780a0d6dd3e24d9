#include "baseusrsettings.h"
#include "editorsettings.h"

#include <QTest>

using namespace koru::sedgui;

class TstEditorSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }
    void storedValuesLoadAgain();
    void missingOrMalformedValueReadsAsDefault_data();
    void missingOrMalformedValueReadsAsDefault();
};

namespace {

QVariantList fields(const EditorSettings::Values &v)
{
    return {v.font.family(),
            v.font.pointSize(),
            v.tabWidth,
            v.indentWithSpaces,
            v.autoIndent,
            v.lineNumbers,
            v.wordWrap,
            v.showWhitespace,
            v.highlightCurrentLine,
            v.braceMatching,
            v.defaultEncoding,
            int(v.defaultLineEnding),
            v.reloadUnmodifiedSilently,
            v.trimTrailingWhitespace};
}

} // namespace

void TstEditorSettings::storedValuesLoadAgain()
{
    QVERIFY(!EditorSettings::defaults().trimTrailingWhitespace);
    EditorSettings::Values values = EditorSettings::defaults();
    values.font.setFamily(QStringLiteral("DejaVu Sans"));
    values.font.setPointSize(17);
    values.tabWidth = 8;
    values.indentWithSpaces = !values.indentWithSpaces;
    values.autoIndent = !values.autoIndent;
    values.lineNumbers = !values.lineNumbers;
    values.wordWrap = !values.wordWrap;
    values.showWhitespace = !values.showWhitespace;
    values.highlightCurrentLine = !values.highlightCurrentLine;
    values.braceMatching = !values.braceMatching;
    values.defaultEncoding = "WINDOWS-1252";
    values.defaultLineEnding = LineEnding::CRLF;
    values.reloadUnmodifiedSilently = !values.reloadUnmodifiedSilently;
    values.trimTrailingWhitespace = true;
    QVERIFY(EditorSettings::store(values));
    QCOMPARE(fields(EditorSettings::load()), fields(values));
}

void TstEditorSettings::missingOrMalformedValueReadsAsDefault_data()
{
    QTest::addColumn<QString>("key"); // empty: nothing stored
    QTest::addColumn<QVariant>("value");

    QTest::newRow("nothing stored") << "" << QVariant();
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

void TstEditorSettings::missingOrMalformedValueReadsAsDefault()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);

    if (!key.isEmpty()) {
        BaseUsrSettings("SRC_EDITOR").setValue(key, value);
    }
    QCOMPARE(fields(EditorSettings::load()), fields(EditorSettings::defaults()));
}

QTEST_MAIN(TstEditorSettings)
#include "tst_editorsettings.moc"
