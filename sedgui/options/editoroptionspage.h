#pragma once

#include "options/editorsettings.h"
#include "optwidget.h"

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QSpinBox;

namespace koru::sedgui {

// The "Editor" option page: font, tabs and indentation, and what the text
// view shows.
class SEDGUI_EXPORT EditorOptionsPage : public OptWidget
{
    Q_OBJECT

public:
    explicit EditorOptionsPage(QWidget *parent = nullptr);

    void refreshPage() override;
    void applyPage() override;
    void restoreDefaults() override;

    // Shows this page's part of values in the controls.
    void showValues(const EditorSettings::Values &values);
    // Writes the controls into this page's part of values.
    void readValues(EditorSettings::Values *values) const;

private:
    void ensureControls();

    QFontComboBox *m_font = nullptr;
    QSpinBox *m_fontSize = nullptr;
    QSpinBox *m_tabWidth = nullptr;
    QSpinBox *m_indentWidth = nullptr;
    QCheckBox *m_indentWithSpaces = nullptr;
    QCheckBox *m_autoIndent = nullptr;
    QCheckBox *m_lineNumbers = nullptr;
    QCheckBox *m_wordWrap = nullptr;
    QCheckBox *m_showWhitespace = nullptr;
    QCheckBox *m_highlightCurrentLine = nullptr;
    QCheckBox *m_braceMatching = nullptr;
    QCheckBox *m_autoCloseBrackets = nullptr;
    QComboBox *m_colourScheme = nullptr;
};

} // namespace koru::sedgui
