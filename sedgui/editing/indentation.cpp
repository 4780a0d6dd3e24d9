#include "editing/indentation.h"

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

namespace {

// Languages whose files are broken by spaces where tabs belong.
bool languageNeedsTabs(const QString &language)
{
    return language == QLatin1String("Makefile");
}

} // namespace

Indentation::Indentation(QsciScintilla *editor, QObject *parent)
    : QObject(parent)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("Indentation"));
}

void Indentation::setFilePath(const QString &path)
{
    m_config = path.isEmpty() ? EditorConfig::Properties() : EditorConfig::forFile(path);
    update();
}

void Indentation::setLanguage(const QString &language)
{
    if (language == m_language)
        return;
    m_language = language;
    update();
}

void Indentation::detect(const QByteArray &utf8)
{
    m_detected = IndentDetector::detect(utf8);
    update();
}

void Indentation::setSettings(bool useTabs, int tabWidth, int indentWidth)
{
    m_settingsTabs = useTabs;
    m_settingsTabWidth = tabWidth;
    m_settingsIndentWidth = indentWidth;
    update();
}

void Indentation::choose(bool useTabs, int width)
{
    m_chosen = true;
    m_chosenTabs = useTabs;
    (useTabs ? m_chosenTabWidth : m_chosenIndentWidth) = width;
    update();
}

void Indentation::update()
{
    using IndentStyle = EditorConfig::IndentStyle;
    using Style = IndentDetector::Style;

    if (m_chosen) {
        m_source = Source::Chosen;
        m_useTabs = m_chosenTabs;
    } else if (m_config.indentStyle != IndentStyle::Unset) {
        m_source = Source::EditorConfig;
        m_useTabs = m_config.indentStyle == IndentStyle::Tabs;
    } else if (languageNeedsTabs(m_language)) {
        m_source = Source::Language;
        m_useTabs = true;
    } else if (m_detected.style != Style::Unknown) {
        m_source = Source::Detected;
        m_useTabs = m_detected.style == Style::Tabs;
    } else {
        m_source = Source::Settings;
        m_useTabs = m_settingsTabs;
    }

    m_tabWidth = m_chosenTabWidth > 0    ? m_chosenTabWidth
                 : m_config.tabWidth > 0 ? m_config.tabWidth
                                         : m_settingsTabWidth;

    if (m_chosen && m_chosenTabs)
        m_indentWidth = m_tabWidth;
    else if (m_chosen && m_chosenIndentWidth > 0)
        m_indentWidth = m_chosenIndentWidth;
    else if (m_config.indentSizeIsTab)
        m_indentWidth = m_tabWidth;
    else if (m_config.indentSize > 0)
        m_indentWidth = m_config.indentSize;
    else if (m_useTabs && m_source != Source::Settings)
        m_indentWidth = m_tabWidth;
    else if (m_detected.style == Style::Spaces && m_detected.width > 0)
        m_indentWidth = m_detected.width;
    else
        m_indentWidth = m_settingsIndentWidth;

    m_editor->setIndentationsUseTabs(m_useTabs);
    m_editor->setTabWidth(m_tabWidth);
    m_editor->setIndentationWidth(m_indentWidth);
    emit changed();
}

QString Indentation::label() const
{
    return m_useTabs ? tr("Tabs: %1").arg(m_tabWidth) : tr("Spaces: %1").arg(m_indentWidth);
}

QString Indentation::sourceText() const
{
    switch (m_source) {
    case Source::Chosen:
        return tr("Chosen for this document");
    case Source::EditorConfig:
        return tr("Set by .editorconfig");
    case Source::Language:
        return tr("%1 files are indented with tabs").arg(m_language);
    case Source::Detected:
        return tr("Found in the file's lines");
    case Source::Settings:
        break;
    }
    return tr("From the editor options");
}

TextFormat Indentation::formatForNewFile(TextFormat base) const
{
    if (m_config.lineEnding)
        base.lineEnding = *m_config.lineEnding;
    if (!m_config.encoding.isEmpty()) {
        base.encoding = m_config.encoding;
        base.bom = m_config.bom;
    }
    return base;
}

bool Indentation::trimsTrailingWhitespace(bool setting) const
{
    return m_config.trimTrailingWhitespace.value_or(setting);
}

bool Indentation::insertsFinalNewline() const
{
    return m_config.insertFinalNewline.value_or(false);
}

} // namespace koru::sedgui
