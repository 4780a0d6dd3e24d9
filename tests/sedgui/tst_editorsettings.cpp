#include "baseusrsettings.h"
#include "editorsettings.h"

#include <QTest>

using namespace koru::sedgui;

namespace {

QVariantList fields(const EditorSettings::Values &v)
{
    return QVariantList() << v.font.family() << v.font.pointSize() << v.tabWidth
                          << v.indentWithSpaces << v.autoIndent << v.lineNumbers << v.wordWrap
                          << v.showWhitespace << v.highlightCurrentLine << v.braceMatching
                          << v.defaultEncoding << int(v.defaultLineEnding)
                          << v.reloadUnmodifiedSilently << v.trimTrailingWhitespace;
}

} // namespace

class TstEditorSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    void storedValuesLoadAgain()
    {
        EditorSettings::Values v = EditorSettings::defaults();
        v.font.setFamily(QStringLiteral("DejaVu Sans"));
        v.font.setPointSize(17);
        v.tabWidth = 8;
        v.defaultEncoding = "WINDOWS-1252";
        v.defaultLineEnding = LineEnding::CRLF;
        for (bool *flag : {&v.indentWithSpaces, &v.autoIndent, &v.lineNumbers, &v.wordWrap,
                           &v.showWhitespace, &v.highlightCurrentLine, &v.braceMatching,
                           &v.reloadUnmodifiedSilently, &v.trimTrailingWhitespace})
            *flag = !*flag;
        QVERIFY(EditorSettings::store(v));
        QCOMPARE(fields(EditorSettings::load()), fields(v));
    }

    // Each malformed value must read as its own default, so one row can hold many.
    void malformedValuesReadAsDefaults_data()
    {
        QTest::addColumn<QVariantMap>("stored");
        QTest::newRow("nothing stored") << QVariantMap();
        QTest::newRow("wrong kinds, too large")
            << QVariantMap{{"Editor/TabWidth", "wide"},
                           {"Editor/FontSize", 500},
                           {"Editor/LineNumbers", "maybe"},
                           {"Editor/WordWrap", QStringList{"a", "b"}},
                           {"Files/DefaultEncoding", "NO-SUCH-CODE"},
                           {"Files/DefaultLineEnding", "LFCR"},
                           {"Files/TrimTrailingWhitespace", 7}};
        QTest::newRow("too small") << QVariantMap{{"Editor/TabWidth", 0}, {"Editor/FontSize", -3}};
    }
    void malformedValuesReadAsDefaults()
    {
        QFETCH(QVariantMap, stored);
        BaseUsrSettings settings("SRC_EDITOR");
        for (auto it = stored.cbegin(); it != stored.cend(); ++it)
            settings.setValue(it.key(), it.value());
        settings.sync();
        QCOMPARE(fields(EditorSettings::load()), fields(EditorSettings::defaults()));
    }
};

QTEST_MAIN(TstEditorSettings)
#include "tst_editorsettings.moc"
