#pragma once

#include "searchoptions.h"

#include <QDialog>
#include <QThreadPool>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// Asks what to search for and where. It stays open while the search runs, shows
// its progress, and Escape then stops the search instead of closing. The last
// searches and the options are kept in the user's settings.
class FindInFilesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FindInFilesDialog(QWidget *parent = nullptr);

    SearchOptions options() const;
    void setSearchText(const QString &text);
    // Each opening starts in the search text, selected, wherever the user left off.
    void focusSearchText();
    void setFolder(const QString &folder);
    QString folder() const;

    void setSearching(bool searching);
    void setStatus(const QString &text);

    // Keeps the current text at the head of the remembered searches, and the
    // options; the store is written on a thread of the dialog's own.
    void saveSettings();

public slots:
    void reject() override;

signals:
    void findRequested(const SearchOptions &options);
    void replaceRequested(const SearchOptions &options, const QString &replacement);
    void stopRequested();

private:
    void loadSettings();
    void browse();
    void find();
    bool checkWhere(const SearchOptions &search);
    void replace();
    void updateButtons();

    QComboBox *m_text = nullptr;
    QCheckBox *m_regex = nullptr;
    QCheckBox *m_caseSensitive = nullptr;
    QCheckBox *m_wholeWord = nullptr;
    QCheckBox *m_hidden = nullptr;
    QCheckBox *m_gitIgnore = nullptr;
    QCheckBox *m_openDocuments = nullptr;
    QLineEdit *m_replaceWith = nullptr;
    QPushButton *m_replace = nullptr;
    QLineEdit *m_folder = nullptr;
    QPushButton *m_browse = nullptr;
    QLineEdit *m_include = nullptr;
    QLineEdit *m_exclude = nullptr;
    QLabel *m_status = nullptr;
    QPushButton *m_find = nullptr;
    QPushButton *m_stop = nullptr;
    bool m_searching = false;
    // Writes the settings off the GUI thread (see saveSettings()).
    QThreadPool m_settingsWriter;
};
