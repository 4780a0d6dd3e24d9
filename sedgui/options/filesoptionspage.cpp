#include "options/filesoptionspage.h"

#include "editing/encodingchoices.h"
#include "options/optionpages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QVBoxLayout>

namespace koru::sedgui {

FilesOptionsPage::FilesOptionsPage(QWidget *parent)
    : OptWidget(parent)
{
    setObjectName(QStringLiteral("FilesOptionsPage"));
}

// Made on the first refresh, not at start-up when the options dialog makes
// every page.
void FilesOptionsPage::ensureControls()
{
    if (m_encoding)
        return;
    m_encoding = new QComboBox(this);
    m_lineEnding = new QComboBox(this);
    m_reloadUnmodified =
        new QCheckBox(tr("&Reload files changed by other programs when they are not modified "
                         "here, without asking"),
                      this);
    m_trimTrailing = new QCheckBox(tr("&Trim trailing whitespace when saving"), this);
    m_restoreSession = new QCheckBox(tr("Restore the last &session on start"), this);
    m_keepWorkOnQuit = new QCheckBox(tr("&Keep unsaved changes on quit without asking"), this);
    m_encoding->setObjectName(QStringLiteral("defaultEncoding"));
    m_lineEnding->setObjectName(QStringLiteral("defaultLineEnding"));
    m_reloadUnmodified->setObjectName(QStringLiteral("reloadUnmodifiedSilently"));
    m_trimTrailing->setObjectName(QStringLiteral("trimTrailingWhitespace"));
    m_restoreSession->setObjectName(QStringLiteral("restoreSession"));
    m_keepWorkOnQuit->setObjectName(QStringLiteral("keepWorkOnQuit"));
    for (const EncodingChoices::Choice &choice : EncodingChoices::all()) {
        if (!choice.bom)
            m_encoding->addItem(choice.label, choice.encoding);
    }
    m_lineEnding->addItem(tr("Unix and macOS (LF)"), int(LineEnding::LF));
    m_lineEnding->addItem(tr("Windows (CRLF)"), int(LineEnding::CRLF));
    m_lineEnding->addItem(tr("Classic Mac OS (CR)"), int(LineEnding::CR));

    auto *form = new QFormLayout;
    form->addRow(tr("&Encoding of new documents:"), m_encoding);
    form->addRow(tr("&Line ending of new documents:"), m_lineEnding);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_reloadUnmodified);
    layout->addWidget(m_trimTrailing);
    layout->addWidget(m_restoreSession);
    layout->addWidget(m_keepWorkOnQuit);
    layout->addStretch(1);
}

void FilesOptionsPage::showValues(const EditorSettings::Values &values)
{
    ensureControls();
    int index = m_encoding->findData(values.defaultEncoding);
    if (index < 0) {
        m_encoding->addItem(QString::fromLatin1(values.defaultEncoding), values.defaultEncoding);
        index = m_encoding->count() - 1;
    }
    m_encoding->setCurrentIndex(index);
    m_lineEnding->setCurrentIndex(
        std::max(0, m_lineEnding->findData(int(values.defaultLineEnding))));
    m_reloadUnmodified->setChecked(values.reloadUnmodifiedSilently);
    m_trimTrailing->setChecked(values.trimTrailingWhitespace);
    m_restoreSession->setChecked(values.restoreSession);
    m_keepWorkOnQuit->setChecked(values.keepWorkOnQuit);
}

void FilesOptionsPage::readValues(EditorSettings::Values *values) const
{
    if (!m_encoding)
        return;
    values->defaultEncoding = m_encoding->currentData().toByteArray();
    values->defaultLineEnding = LineEnding(m_lineEnding->currentData().toInt());
    values->reloadUnmodifiedSilently = m_reloadUnmodified->isChecked();
    values->trimTrailingWhitespace = m_trimTrailing->isChecked();
    values->restoreSession = m_restoreSession->isChecked();
    values->keepWorkOnQuit = m_keepWorkOnQuit->isChecked();
}

void FilesOptionsPage::refreshPage()
{
    showValues(EditorSettings::load());
}

void FilesOptionsPage::applyPage()
{
    if (!m_encoding)
        return;
    EditorSettings::Values values = EditorSettings::load();
    readValues(&values);
    OptionPages::storeAndApply(values, this);
}

void FilesOptionsPage::restoreDefaults()
{
    showValues(EditorSettings::defaults());
}

} // namespace koru::sedgui
