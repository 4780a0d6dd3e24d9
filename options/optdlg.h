#pragma once

#include <QDialog>
#include <QList>
#include <QTreeView>

class OptSetWidget;
class QAbstractButton;
class QDialogButtonBox;
class QStackedWidget;
class hubAppInterface;

// The options dialog: the tree of tools and their option pages on the left,
// the page of the selected node on the right, and OK, Cancel, Apply and
// "&Default" below. OK applies every page of every tool, Apply and "&Default"
// act on the page on show only.
class OptDlg : public QDialog
{
    Q_OBJECT

public:
    // tools is owned by the caller and must outlive the dialog.
    OptDlg(QList<hubAppInterface *> *tools, QWidget *parent, Qt::WindowFlags f);
    ~OptDlg() override;

    // Brings the page on show up to date with its stored values.
    void refreshCurrentPage();
    // Applies the page on show.
    void applyCurrentPage();
    // Applies every page of every tool.
    void applyAll();

    // Builds the dialog's contents the first time it is shown.
    void setVisible(bool visible) override;

public slots:
    // Connected to currentChanged(current, previous): pre is the new node.
    void onItemSelChanged(const QModelIndex &pre, const QModelIndex &cur);
    void onButtonClicked(QAbstractButton *button);
    void onDefault();

private:
    // The tree, the pages and the buttons are made when first needed, not
    // with the main window at start-up.
    void ensureBuilt();

    QList<hubAppInterface *> *tools;
    bool built = false;
    QTreeView optionTree;
    QDialogButtonBox *buttonBox;
    QStackedWidget *pageStack;
    OptSetWidget *emptyPage;
};
