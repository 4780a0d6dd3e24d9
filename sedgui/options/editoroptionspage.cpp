#include "options/editoroptionspage.h"

#include "lexers/colourscheme.h"
#include "options/optionpages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace koru::sedgui {

EditorOptionsPage::EditorOptionsPage(QWidget *parent)
    : OptWidget(parent)
{
    setObjectName(QStringLiteral("EditorOptionsPage"));
}

// The options dialog makes every page at start-up, and the font list alone
// is costly: the controls are made when the page is first refreshed.
void EditorOptionsPage::ensureControls()
{
    if (m_font)
        return;
    m_font = new QFontComboBox(this);
    m_fontSize = new QSpinBox(this);
    m_tabWidth = new QSpinBox(this);
    m_indentWidth = new QSpinBox(this);
    m_indentWithSpaces = new QCheckBox(tr("Indent with &spaces"), this);
    m_autoIndent = new QCheckBox(tr("&Automatic indentation"), this);
    m_lineNumbers = new QCheckBox(tr("Show line &numbers"), this);
    m_wordWrap = new QCheckBox(tr("&Wrap long lines"), this);
    m_showWhitespace = new QCheckBox(tr("Show &whitespace"), this);
    m_highlightCurrentLine = new QCheckBox(tr("&Highlight the current line"), this);
    m_braceMatching = new QCheckBox(tr("Highlight matching &braces"), this);
    m_autoCloseBrackets = new QCheckBox(tr("&Close brackets and quotes as they are typed"), this);
    m_colourScheme = new QComboBox(this);
    m_colourScheme->addItem(ColourScheme::displayName(ColourScheme::automaticId()),
                            ColourScheme::automaticId());
    for (const QString &id : ColourScheme::ids())
        m_colourScheme->addItem(ColourScheme::displayName(id), id);
    const std::pair<QWidget *, const char *> names[] = {
        {m_font, "font"},
        {m_fontSize, "fontSize"},
        {m_tabWidth, "tabWidth"},
        {m_indentWidth, "indentWidth"},
        {m_indentWithSpaces, "indentWithSpaces"},
        {m_autoIndent, "autoIndent"},
        {m_lineNumbers, "lineNumbers"},
        {m_wordWrap, "wordWrap"},
        {m_showWhitespace, "showWhitespace"},
        {m_highlightCurrentLine, "highlightCurrentLine"},
        {m_braceMatching, "braceMatching"},
        {m_autoCloseBrackets, "autoCloseBrackets"},
        {m_colourScheme, "colourScheme"},
    };
    for (const auto &[widget, name] : names) {
        widget->setObjectName(QLatin1String(name));
    }
    m_fontSize->setRange(EditorSettings::MinFontSize, EditorSettings::MaxFontSize);
    m_fontSize->setSuffix(tr(" pt"));
    m_tabWidth->setRange(EditorSettings::MinTabWidth, EditorSettings::MaxTabWidth);
    m_indentWidth->setRange(EditorSettings::MinTabWidth, EditorSettings::MaxTabWidth);
    m_indentWidth->setToolTip(tr("Columns per indentation level. A file's .editorconfig and "
                                 "the indentation found in an opened file come first."));

    auto *form = new QFormLayout;
    form->addRow(tr("&Font:"), m_font);
    form->addRow(tr("Font si&ze:"), m_fontSize);
    form->addRow(tr("&Tab width:"), m_tabWidth);
    form->addRow(tr("In&dent width:"), m_indentWidth);
    form->addRow(tr("Colour sche&me:"), m_colourScheme);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    for (QCheckBox *box :
         {m_indentWithSpaces, m_autoIndent, m_lineNumbers, m_wordWrap, m_showWhitespace,
          m_highlightCurrentLine, m_braceMatching, m_autoCloseBrackets}) {
        layout->addWidget(box);
    }
    layout->addStretch(1);
}

void EditorOptionsPage::showValues(const EditorSettings::Values &values)
{
    ensureControls();
    m_font->setCurrentFont(values.font);
    m_fontSize->setValue(values.font.pointSize());
    m_tabWidth->setValue(values.tabWidth);
    m_indentWidth->setValue(values.indentWidth);
    m_indentWithSpaces->setChecked(values.indentWithSpaces);
    m_autoIndent->setChecked(values.autoIndent);
    m_lineNumbers->setChecked(values.lineNumbers);
    m_wordWrap->setChecked(values.wordWrap);
    m_showWhitespace->setChecked(values.showWhitespace);
    m_highlightCurrentLine->setChecked(values.highlightCurrentLine);
    m_braceMatching->setChecked(values.braceMatching);
    m_autoCloseBrackets->setChecked(values.autoCloseBrackets);
    m_colourScheme->setCurrentIndex(std::max(0, m_colourScheme->findData(values.colourScheme)));
}

void EditorOptionsPage::readValues(EditorSettings::Values *values) const
{
    // A page that was never shown has no choices of the user's to add.
    if (!m_font)
        return;
    QFont font = values->font;
    font.setFamily(m_font->currentFont().family());
    font.setPointSize(m_fontSize->value());
    values->font = font;
    values->tabWidth = m_tabWidth->value();
    values->indentWidth = m_indentWidth->value();
    values->indentWithSpaces = m_indentWithSpaces->isChecked();
    values->autoIndent = m_autoIndent->isChecked();
    values->lineNumbers = m_lineNumbers->isChecked();
    values->wordWrap = m_wordWrap->isChecked();
    values->showWhitespace = m_showWhitespace->isChecked();
    values->highlightCurrentLine = m_highlightCurrentLine->isChecked();
    values->braceMatching = m_braceMatching->isChecked();
    values->autoCloseBrackets = m_autoCloseBrackets->isChecked();
    values->colourScheme = m_colourScheme->currentData().toString();
}

void EditorOptionsPage::refreshPage()
{
    showValues(EditorSettings::load());
}

void EditorOptionsPage::applyPage()
{
    if (!m_font)
        return;
    EditorSettings::Values values = EditorSettings::load();
    readValues(&values);
    OptionPages::storeAndApply(values, this);
}

void EditorOptionsPage::restoreDefaults()
{
    showValues(EditorSettings::defaults());
}

} // namespace koru::sedgui
