#include "replacepreviewmodel.h"

#include "hitformatter.h"

#include <QDir>
#include <QFont>

#include <algorithm>
#include <limits>

QString ReplacePreviewModel::changesText(qsizetype count)
{
    return count == 1 ? tr("1 change") : tr("%1 changes").arg(count);
}

ReplacePreviewModel::ReplacePreviewModel(const QList<ReplaceFile> &plan, QObject *parent)
    : QAbstractTableModel(parent)
    , m_plan(plan)
{
    const size_t files = size_t(m_plan.size());
    m_fileRow.reserve(files);
    m_firstChange.reserve(files);
    m_checkedCount.reserve(files);
    qsizetype total = 0;
    for (const ReplaceFile &file : std::as_const(m_plan))
        total += file.changes.size();
    m_checked.reserve(size_t(total));
    total = 0;
    for (const ReplaceFile &file : std::as_const(m_plan)) {
        m_fileRow.push_back(qsizetype(m_fileRow.size()) + total);
        m_firstChange.push_back(total);
        qsizetype checked = 0;
        for (const ReplaceChange &change : file.changes) {
            m_checked.push_back(change.checked);
            checked += change.checked;
        }
        m_checkedCount.push_back(checked);
        total += file.changes.size();
    }
}

QList<ReplaceFile> ReplacePreviewModel::plan() const
{
    QList<ReplaceFile> result = m_plan;
    for (qsizetype i = 0; i < result.size(); ++i) {
        const size_t first = size_t(m_firstChange[size_t(i)]);
        const QList<ReplaceChange> &changes = std::as_const(result)[i].changes;
        // A file's changes are copied only when a check differs from the plan's.
        qsizetype j = 0;
        while (j < changes.size() && changes[j].checked == m_checked[first + size_t(j)])
            ++j;
        if (j == changes.size())
            continue;
        QList<ReplaceChange> &edited = result[i].changes;
        for (; j < edited.size(); ++j)
            edited[j].checked = m_checked[first + size_t(j)];
    }
    return result;
}

int ReplacePreviewModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    // A view counts rows in an int: a larger plan shows its first rows.
    return int(std::min<qsizetype>(qsizetype(m_fileRow.size() + m_checked.size()),
                                   std::numeric_limits<int>::max()));
}

int ReplacePreviewModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

qsizetype ReplacePreviewModel::fileAt(int row) const
{
    return qsizetype(std::upper_bound(m_fileRow.cbegin(), m_fileRow.cend(), qsizetype(row)) -
                     m_fileRow.cbegin()) -
           1;
}

Qt::CheckState ReplacePreviewModel::fileState(qsizetype file) const
{
    const qsizetype checked = m_checkedCount[size_t(file)];
    if (checked == 0)
        return Qt::Unchecked;
    return checked == m_plan.at(file).changes.size() ? Qt::Checked : Qt::PartiallyChecked;
}

QVariant ReplacePreviewModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const qsizetype file = fileAt(index.row());
    const qsizetype change = index.row() - m_fileRow[size_t(file)] - 1;
    if (change < 0) {
        if (index.column() != LineColumn)
            return {};
        const ReplaceFile &plan = m_plan.at(file);
        if (role == Qt::CheckStateRole)
            return fileState(file);
        if (role == Qt::FontRole) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        if (role != Qt::DisplayRole)
            return {};
        QString name = QDir::toNativeSeparators(plan.shownName);
        if (plan.document)
            name = tr("%1 (open: changed in the editor, not saved)").arg(name);
        return QString(name + QStringLiteral(" - ") + changesText(plan.changes.size()));
    }
    if (role == Qt::CheckStateRole && index.column() == LineColumn)
        return m_checked[size_t(m_firstChange[size_t(file)] + change)] ? Qt::Checked
                                                                       : Qt::Unchecked;
    if (role == Qt::TextAlignmentRole && index.column() == LineColumn)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    const ReplaceChange &shown = m_plan.at(file).changes.at(change);
    switch (index.column()) {
    case LineColumn:
        return QString::number(shown.line);
    case BeforeColumn:
        return HitFormatter::displayText(shown.before, shown.column);
    default:
        return HitFormatter::displayText(shown.after, shown.column);
    }
}

void ReplacePreviewModel::setChange(qsizetype file, qsizetype change, bool checked)
{
    const size_t bit = size_t(m_firstChange[size_t(file)] + change);
    if (m_checked[bit] == checked)
        return;
    m_checked[bit] = checked;
    m_checkedCount[size_t(file)] += checked ? 1 : -1;
}

bool ReplacePreviewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != LineColumn)
        return false;
    // A partly checked file becomes checked, as a click on it shows.
    const bool checked = value.value<Qt::CheckState>() != Qt::Unchecked;
    const qsizetype file = fileAt(index.row());
    const int fileRow = int(m_fileRow[size_t(file)]);
    const qsizetype change = index.row() - fileRow - 1;
    const qsizetype count = m_plan.at(file).changes.size();
    if (change < 0) {
        for (qsizetype i = 0; i < count; ++i)
            setChange(file, i, checked);
        emit dataChanged(index, this->index(int(fileRow + count), LineColumn),
                         {Qt::CheckStateRole});
        return true;
    }
    setChange(file, change, checked);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    const QModelIndex fileIndex = this->index(fileRow, LineColumn);
    emit dataChanged(fileIndex, fileIndex, {Qt::CheckStateRole});
    return true;
}

Qt::ItemFlags ReplacePreviewModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == LineColumn)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant ReplacePreviewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case LineColumn:
        return tr("Line");
    case BeforeColumn:
        return tr("Now");
    case AfterColumn:
        return tr("After the replace");
    default:
        return {};
    }
}
