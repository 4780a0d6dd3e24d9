#include "opttreemodel.h"

#include "hubappinterface.h"
#include "optwidget.h"

#include <QDebug>
#include <QStackedWidget>

OptTreeModel::OptTreeModel(QList<hubAppInterface *> *tools, QObject *parent)
    : QAbstractItemModel(parent)
    , appInterfaces(tools)
{}

OptTreeModel::~OptTreeModel() = default;

QModelIndex OptTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    // A page node carries its tool; a tool node carries nothing and is found by its row.
    hubAppInterface *tool = parent.isValid() ? appInterfaces->at(parent.row()) : nullptr;
    return createIndex(row, column, tool);
}

QModelIndex OptTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || !child.internalPointer())
        return QModelIndex();
    const qsizetype position =
        appInterfaces->indexOf(static_cast<hubAppInterface *>(child.internalPointer()));
    if (position < 0)
        return QModelIndex();
    return createIndex(int(position), 0, nullptr);
}

int OptTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(appInterfaces->size());
    if (parent.internalPointer())
        return 0;
    const hubAppInterface *tool = appInterfaces->value(parent.row());
    return tool ? int(tool->getOptionPageNames().size()) : 0;
}

int OptTreeModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 1;
}

QVariant OptTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return QVariant();
    if (const auto *tool = static_cast<const hubAppInterface *>(index.internalPointer())) {
        // The names may have changed since the view asked for the row count.
        const QStringList names = tool->getOptionPageNames();
        if (index.row() >= names.size())
            return QVariant();
        return names.at(index.row());
    }
    const hubAppInterface *tool = appInterfaces->value(index.row());
    if (!tool)
        return QVariant();
    return tool->getOptionTitle();
}

Qt::ItemFlags OptTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

void OptTreeModel::applyAll()
{
    qDebug("go to apply all");
    // The size is read on every pass: a page may load another tool while applying.
    for (qsizetype i = 0; i < appInterfaces->size(); ++i) {
        hubAppInterface *tool = appInterfaces->at(i);
        if (!tool)
            continue;
        const QStringList names = tool->getOptionPageNames();
        for (const QString &name : names) {
            if (OptWidget *page = tool->getOptionPage(name))
                page->applyPage();
        }
    }
}

void OptTreeModel::setDefaultAll()
{
    qDebug("go to apply all");
    for (qsizetype i = 0; i < appInterfaces->size(); ++i) {
        hubAppInterface *tool = appInterfaces->at(i);
        if (!tool)
            continue;
        const QStringList names = tool->getOptionPageNames();
        for (const QString &name : names) {
            if (OptWidget *page = tool->getOptionPage(name))
                page->restoreDefaults();
        }
    }
}

QWidget *OptTreeModel::pageForIndex(const QModelIndex &index)
{
    hubAppInterface *tool = static_cast<hubAppInterface *>(index.internalPointer());
    int pageRow = index.row();
    if (!tool) {
        tool = appInterfaces->value(index.row());
        pageRow = 0;
    }
    if (!tool)
        return nullptr;
    const QStringList names = tool->getOptionPageNames();
    if (pageRow < 0 || pageRow >= names.size())
        return nullptr;
    return tool->getOptionPage(names.at(pageRow));
}

void OptTreeModel::addPagesTo(QStackedWidget *stack)
{
    const QList<hubAppInterface *> tools = *appInterfaces;
    for (hubAppInterface *tool : tools) {
        if (!tool)
            continue;
        const QStringList names = tool->getOptionPageNames();
        for (const QString &name : names) {
            if (OptWidget *page = tool->getOptionPage(name))
                stack->addWidget(page);
        }
    }
}
