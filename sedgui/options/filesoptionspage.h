#pragma once

#include "options/editorsettings.h"
#include "optwidget.h"

class QCheckBox;
class QComboBox;

namespace koru::sedgui {

// The "Files" option page: the format of new documents and how files changed
// outside and saved files are treated.
class SEDGUI_EXPORT FilesOptionsPage : public OptWidget
{
    Q_OBJECT

public:
    explicit FilesOptionsPage(QWidget *parent = nullptr);

    void refreshPage() override;
    void applyPage() override;
    void restoreDefaults() override;

    void showValues(const EditorSettings::Values &values);
    void readValues(EditorSettings::Values *values) const;

private:
    void ensureControls();

    QComboBox *m_encoding = nullptr;
    QComboBox *m_lineEnding = nullptr;
    QCheckBox *m_reloadUnmodified = nullptr;
    QCheckBox *m_trimTrailing = nullptr;
    QCheckBox *m_restoreSession = nullptr;
    QCheckBox *m_keepWorkOnQuit = nullptr;
};

} // namespace koru::sedgui
