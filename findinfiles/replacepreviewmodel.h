#pragma once

#include "replaceplan.h"

#include <QAbstractTableModel>

#include <vector>

// The changes of a replace plan as rows for the preview: a row per file,
// followed by a row per change in it (line, the line as it is, as it would
// be). Rows are made by the view as it shows them, from the plan; the model
// itself holds a bit per change for its check box and a count of checked
// changes per file, so that a plan of a hundred thousand changes opens at
// once. A file's check box is checked, unchecked or partly checked after its
// changes, and checking it checks them all.
class ReplacePreviewModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { LineColumn, BeforeColumn, AfterColumn, ColumnCount };

    explicit ReplacePreviewModel(const QList<ReplaceFile> &plan, QObject *parent = nullptr);

    // The plan with the checks as they are now.
    QList<ReplaceFile> plan() const;
    qsizetype fileCount() const { return m_plan.size(); }
    qsizetype changeCount() const { return qsizetype(m_checked.size()); }
    // The row that names a file; its changes are the rows after it.
    int fileRow(qsizetype file) const { return int(m_fileRow[size_t(file)]); }
    // "1 change", "12 changes".
    static QString changesText(qsizetype count);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    // The file a row belongs to, as its name or as one of its changes.
    qsizetype fileAt(int row) const;
    Qt::CheckState fileState(qsizetype file) const;
    void setChange(qsizetype file, qsizetype change, bool checked);

    QList<ReplaceFile> m_plan;
    // Per file: the row naming it, and where its changes start in m_checked.
    std::vector<qsizetype> m_fileRow;
    std::vector<qsizetype> m_firstChange;
    std::vector<qsizetype> m_checkedCount;
    std::vector<bool> m_checked;
};
