#pragma once

#include <QAbstractItemModel>
#include <QList>

class QStackedWidget;
class hubAppInterface;

// The two-level tree of the options dialog: one top-level node per tool
// interface, one child per option page of that tool. It holds no data of its
// own and reads the interface list afresh on every call, so entries appended
// to the list later show up without any signal. A null entry is a top-level
// row with no text and no children.
class OptTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    // tools is owned by the caller and must outlive the model.
    OptTreeModel(QList<hubAppInterface *> *tools, QObject *parent);
    ~OptTreeModel() override;

    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Calls applyPage() on every page of every tool, in tree order.
    void applyAll();
    // Calls restoreDefaults() on every page of every tool, in tree order.
    void setDefaultAll();
    // The page of a page node, or the first page of a tool node; null when the
    // tool is null or has no such page.
    QWidget *pageForIndex(const QModelIndex &index);
    // Appends every page of every tool to stack, in tree order; the stack
    // becomes the pages' parent.
    void addPagesTo(QStackedWidget *stack);

private:
    QList<hubAppInterface *> *appInterfaces;
};
