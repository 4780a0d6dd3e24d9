#include "optdlg.h"

#include "optsetwidget.h"
#include "opttreemodel.h"

#include <QDebug>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

OptDlg::OptDlg(QList<hubAppInterface *> *tools, QWidget *parent, Qt::WindowFlags f)
    : QDialog(parent, f)
    , tools(tools)
    , optionTree(nullptr)
    , buttonBox(nullptr)
    , pageStack(nullptr)
    , emptyPage(nullptr)
{}

void OptDlg::ensureBuilt()
{
    if (built)
        return;
    built = true;
    optionTree.setModel(new OptTreeModel(tools, nullptr));
    optionTree.header()->setVisible(false);
    optionTree.expandAll();
    // A Qt 6 tree view shrinks to a width that knows nothing of its items
    // when the page beside it needs the room: keep every node's name readable.
    // Measured without the stretch, which would give the view's own width.
    optionTree.header()->setStretchLastSection(false);
    optionTree.resizeColumnToContents(0);
    optionTree.setMinimumWidth(optionTree.columnWidth(0) + 2 * optionTree.frameWidth());
    optionTree.header()->setStretchLastSection(true);
    connect(optionTree.selectionModel(),
            "2currentChanged(const QModelIndex &, const QModelIndex &)", this,
            "1onItemSelChanged(const QModelIndex &, const QModelIndex &)");

    pageStack = new QStackedWidget(this);

    auto *emptyLabel = new QLabel(QStringLiteral("no setting for this tool"), this);
    auto *emptyLayout = new QHBoxLayout;
    emptyLayout->addWidget(emptyLabel, 0, Qt::AlignCenter);
    emptyPage = new OptSetWidget;
    emptyPage->setLayout(emptyLayout);
    // Position 0 of the stack: on show until a node is selected.
    pageStack->addWidget(emptyPage);

    static_cast<OptTreeModel *>(optionTree.model())->addPagesTo(pageStack);

    buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                         QDialogButtonBox::Apply,
                                     Qt::Horizontal, nullptr);
    connect(buttonBox, "2clicked(QAbstractButton *)", this, "1onButtonClicked(QAbstractButton *)");

    auto *defaultButton = new QPushButton(tr("&Default"), nullptr);
    buttonBox->addButton(defaultButton, QDialogButtonBox::ActionRole);
    connect(defaultButton, "2clicked()", this, "1onDefault()");

    auto *pageRow = new QHBoxLayout;
    pageRow->addWidget(&optionTree);
    pageRow->addWidget(pageStack);
    auto *dialogLayout = new QVBoxLayout;
    dialogLayout->addLayout(pageRow);
    dialogLayout->addWidget(buttonBox);
    setLayout(dialogLayout);
}

OptDlg::~OptDlg()
{
    delete emptyPage;
    // The tree view is a member and goes after this body; the model has no
    // parent. Before it is set the view holds a shared empty model of Qt's.
    if (built)
        delete optionTree.model();
}

void OptDlg::setVisible(bool visible)
{
    if (visible)
        ensureBuilt();
    QDialog::setVisible(visible);
}

void OptDlg::refreshCurrentPage()
{
    ensureBuilt();
    if (auto *page = qobject_cast<OptWidget *>(pageStack->currentWidget()))
        page->refreshPage();
}

void OptDlg::applyCurrentPage()
{
    ensureBuilt();
    if (auto *page = qobject_cast<OptWidget *>(pageStack->currentWidget()))
        page->applyPage();
}

void OptDlg::applyAll()
{
    ensureBuilt();
    static_cast<OptTreeModel *>(optionTree.model())->applyAll();
}

void OptDlg::onItemSelChanged(const QModelIndex &pre, const QModelIndex &cur)
{
    qDebug("(%d, %d) is changed to (%d, %d)", cur.row(), cur.column(), pre.row(), pre.column());
    OptWidget *page = qobject_cast<OptWidget *>(
        static_cast<OptTreeModel *>(optionTree.model())->pageForIndex(pre));
    if (!page)
        page = emptyPage;
    page->refreshPage();
    pageStack->setCurrentWidget(page);
}

void OptDlg::onButtonClicked(QAbstractButton *button)
{
    switch (buttonBox->buttonRole(button)) {
    case QDialogButtonBox::AcceptRole:
        // Every page, also those never shown: OK means "take all my changes".
        applyAll();
        accept();
        break;
    case QDialogButtonBox::RejectRole:
        reject();
        break;
    case QDialogButtonBox::ApplyRole:
        applyCurrentPage();
        break;
    default:
        break;
    }
}

void OptDlg::onDefault()
{
    if (auto *page = qobject_cast<OptWidget *>(pageStack->currentWidget()))
        page->restoreDefaults();
}
