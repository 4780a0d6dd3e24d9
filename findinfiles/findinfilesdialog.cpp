#include "findinfilesdialog.h"

#include "baseusrsettings.h"
#include "findinfilessettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace Keys = FindInFilesSettings;

namespace {

QString globText(const QStringList &globs)
{
    return globs.join(QStringLiteral("; "));
}

} // namespace

FindInFilesDialog::FindInFilesDialog(QWidget *parent)
    : QDialog(parent)
{
    m_settingsWriter.setMaxThreadCount(1);
    setWindowTitle(tr("Find in Files"));
    setObjectName(QStringLiteral("FindInFilesDialog"));

    m_text = new QComboBox(this);
    m_text->setEditable(true);
    m_text->setInsertPolicy(QComboBox::NoInsert);
    m_text->setMaxCount(Keys::MaxHistory);
    m_text->setMinimumContentsLength(40);
    m_text->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // Made in the order of the rows: Tab follows the order the widgets were made in.
    m_replaceWith = new QLineEdit(this);
    m_replaceWith->setPlaceholderText(tr("With a regular expression, \\1 to \\9 name its groups"));

    m_folder = new QLineEdit(this);
    m_browse = new QPushButton(tr("&Browse..."), this);
    m_browse->setAutoDefault(false);
    auto *folderRow = new QHBoxLayout;
    folderRow->addWidget(m_folder, 1);
    folderRow->addWidget(m_browse);

    m_include = new QLineEdit(this);
    m_include->setPlaceholderText(tr("All files, or globs such as *.cpp; *.h"));
    m_exclude = new QLineEdit(this);

    auto *form = new QFormLayout;
    form->addRow(tr("Fi&nd what:"), m_text);
    form->addRow(tr("Re&place with:"), m_replaceWith);
    // A row holding a layout gets no buddy of its own: give the mnemonic one.
    auto *folderLabel = new QLabel(tr("In &folder:"), this);
    folderLabel->setBuddy(m_folder);
    form->addRow(folderLabel, folderRow);
    form->addRow(tr("&Include files:"), m_include);
    form->addRow(tr("E&xclude:"), m_exclude);

    m_caseSensitive = new QCheckBox(tr("Match &case"), this);
    m_wholeWord = new QCheckBox(tr("&Whole words"), this);
    m_regex = new QCheckBox(tr("Regular e&xpression"), this);
    m_hidden = new QCheckBox(tr("Search &hidden files"), this);
    m_gitIgnore = new QCheckBox(tr("Respect .&gitignore"), this);
    m_gitIgnore->setToolTip(
        tr("In a git working tree, skip the files and folders that git ignores"));
    auto *optionsRow = new QHBoxLayout;
    for (QCheckBox *box : {m_caseSensitive, m_wholeWord, m_regex, m_hidden, m_gitIgnore})
        optionsRow->addWidget(box);
    optionsRow->addStretch(1);
    m_openDocuments = new QCheckBox(tr("Only &open documents"), this);
    m_openDocuments->setToolTip(
        tr("Search the documents open in the editor as they are now, unsaved changes included, "
           "instead of the folder's files"));

    m_status = new QLabel(this);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setWordWrap(true);

    auto *buttons = new QDialogButtonBox(this);
    m_find = buttons->addButton(tr("&Find"), QDialogButtonBox::AcceptRole);
    m_find->setDefault(true);
    m_replace = buttons->addButton(tr("R&eplace..."), QDialogButtonBox::ActionRole);
    m_replace->setAutoDefault(false);
    m_stop = buttons->addButton(tr("&Stop"), QDialogButtonBox::ActionRole);
    QPushButton *close = buttons->addButton(QDialogButtonBox::Close);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(optionsRow);
    layout->addWidget(m_openDocuments);
    layout->addWidget(m_status);
    layout->addWidget(buttons);

    connect(m_browse, &QPushButton::clicked, this, &FindInFilesDialog::browse);
    connect(m_find, &QPushButton::clicked, this, &FindInFilesDialog::find);
    connect(m_stop, &QPushButton::clicked, this, &FindInFilesDialog::stopRequested);
    connect(m_replace, &QPushButton::clicked, this, &FindInFilesDialog::replace);
    connect(m_openDocuments, &QCheckBox::toggled, this, &FindInFilesDialog::updateButtons);
    // Close leaves a running search going into the pane; Escape stops it (reject).
    connect(close, &QPushButton::clicked, this, [this] { done(QDialog::Rejected); });
    connect(m_text, &QComboBox::editTextChanged, this, &FindInFilesDialog::updateButtons);

    loadSettings();
    updateButtons();
}

SearchOptions FindInFilesDialog::options() const
{
    SearchOptions options;
    options.text = m_text->currentText();
    options.regularExpression = m_regex->isChecked();
    options.caseSensitive = m_caseSensitive->isChecked();
    options.wholeWord = m_wholeWord->isChecked();
    options.includeHidden = m_hidden->isChecked();
    options.respectGitIgnore = m_gitIgnore->isChecked();
    options.folder = folder();
    options.includeGlobs = SearchOptions::splitGlobs(m_include->text());
    options.excludeGlobs = SearchOptions::splitGlobs(m_exclude->text());
    options.openDocumentsOnly = m_openDocuments->isChecked();
    return options;
}

void FindInFilesDialog::setSearchText(const QString &text)
{
    m_text->setEditText(text);
    m_text->lineEdit()->selectAll();
}

void FindInFilesDialog::focusSearchText()
{
    m_text->setFocus(Qt::OtherFocusReason);
    m_text->lineEdit()->selectAll();
}

void FindInFilesDialog::setFolder(const QString &folder)
{
    m_folder->setText(QDir::toNativeSeparators(folder));
}

QString FindInFilesDialog::folder() const
{
    const QString text = m_folder->text().trimmed();
    if (text == QLatin1String("~") || text.startsWith(QLatin1String("~/")))
        return QDir::homePath() + text.mid(1);
    return QDir::fromNativeSeparators(text);
}

void FindInFilesDialog::setSearching(bool searching)
{
    m_searching = searching;
    updateButtons();
}

void FindInFilesDialog::setStatus(const QString &text)
{
    m_status->setText(text);
}

void FindInFilesDialog::reject()
{
    // Escape stops a running search first; pressed again it closes.
    if (m_searching) {
        emit stopRequested();
        return;
    }
    QDialog::reject();
}

void FindInFilesDialog::updateButtons()
{
    m_find->setEnabled(!m_text->currentText().isEmpty());
    m_replace->setEnabled(!m_text->currentText().isEmpty() && !m_searching);
    m_stop->setEnabled(m_searching);
    // The folder and its filters do not apply to the open documents.
    const bool inFolder = !m_openDocuments->isChecked();
    for (QWidget *widget : std::initializer_list<QWidget *>{m_folder, m_browse, m_include,
                                                            m_exclude, m_hidden, m_gitIgnore})
        widget->setEnabled(inFolder);
}

void FindInFilesDialog::browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Find in Folder"), folder());
    if (!chosen.isEmpty())
        setFolder(chosen);
}

void FindInFilesDialog::find()
{
    const SearchOptions search = options();
    if (search.text.isEmpty() || !checkWhere(search))
        return;
    saveSettings();
    emit findRequested(search);
}

bool FindInFilesDialog::checkWhere(const SearchOptions &search)
{
    if (!search.openDocumentsOnly && !QFileInfo(search.folder).isDir()) {
        setStatus(tr("The folder %1 does not exist.").arg(search.folder));
        return false;
    }
    return true;
}

void FindInFilesDialog::replace()
{
    const SearchOptions search = options();
    if (search.text.isEmpty() || m_searching || !checkWhere(search))
        return;
    saveSettings();
    emit replaceRequested(search, m_replaceWith->text());
}

void FindInFilesDialog::loadSettings()
{
    BaseUsrSettings settings(Keys::StoreName);
    settings.beginGroup(QLatin1String(Keys::Group));
    // A value of the wrong type reads as empty.
    const QStringList history = settings.value(QLatin1String(Keys::History)).toStringList();
    m_text->addItems(history.mid(0, Keys::MaxHistory));
    m_text->setEditText(QString());
    m_regex->setChecked(settings.value(QLatin1String(Keys::Regex), false).toBool());
    m_caseSensitive->setChecked(settings.value(QLatin1String(Keys::CaseSensitive), false).toBool());
    m_wholeWord->setChecked(settings.value(QLatin1String(Keys::WholeWord), false).toBool());
    m_hidden->setChecked(settings.value(QLatin1String(Keys::IncludeHidden), false).toBool());
    m_gitIgnore->setChecked(settings.value(QLatin1String(Keys::RespectGitIgnore), true).toBool());
    m_include->setText(settings.value(QLatin1String(Keys::IncludeGlobs)).toString());
    m_openDocuments->setChecked(
        settings.value(QLatin1String(Keys::OpenDocumentsOnly), false).toBool());
    m_replaceWith->setText(settings.value(QLatin1String(Keys::ReplaceWith)).toString());
    const QVariant exclude = settings.value(QLatin1String(Keys::ExcludeGlobs));
    m_exclude->setText(exclude.isValid() ? exclude.toString()
                                         : globText(SearchOptions::defaultExcludeGlobs()));
}

void FindInFilesDialog::saveSettings()
{
    const QString text = m_text->currentText();
    QStringList history;
    if (!text.isEmpty())
        history.append(text);
    for (int i = 0; i < m_text->count() && history.size() < Keys::MaxHistory; ++i) {
        if (m_text->itemText(i) != text)
            history.append(m_text->itemText(i));
    }
    m_text->blockSignals(true);
    m_text->clear();
    m_text->addItems(history);
    m_text->setEditText(text);
    m_text->blockSignals(false);

    const QList<std::pair<const char *, QVariant>> values = {
        {Keys::History, history},
        {Keys::Regex, m_regex->isChecked()},
        {Keys::CaseSensitive, m_caseSensitive->isChecked()},
        {Keys::WholeWord, m_wholeWord->isChecked()},
        {Keys::IncludeHidden, m_hidden->isChecked()},
        {Keys::RespectGitIgnore, m_gitIgnore->isChecked()},
        {Keys::IncludeGlobs, m_include->text()},
        {Keys::ExcludeGlobs, m_exclude->text()},
        {Keys::OpenDocumentsOnly, m_openDocuments->isChecked()},
        {Keys::ReplaceWith, m_replaceWith->text()},
    };
    // Writing the store ends in a flush to disk that can hold the window for
    // tens of milliseconds as the search starts: the writer's single thread
    // does it, one save after the other, and the destructor waits for it.
    m_settingsWriter.start([values] {
        BaseUsrSettings settings(Keys::StoreName);
        settings.beginGroup(QLatin1String(Keys::Group));
        for (const auto &[key, value] : values)
            settings.setValue(QLatin1String(key), value);
    });
}
