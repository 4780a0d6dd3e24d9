#include "replacepreview.h"

#include "filenameescape.h"
#include "hitformatter.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString changesText(qsizetype count)
{
    return count == 1 ? ReplacePreview::tr("1 change")
                      : ReplacePreview::tr("%1 changes").arg(count);
}

} // namespace

ReplacePreview::ReplacePreview(const QList<ReplaceFile> &plan, const QString &heading,
                               QWidget *parent)
    : QDialog(parent)
    , m_plan(plan)
{
    setWindowTitle(tr("Replace in Files"));
    setObjectName(QStringLiteral("ReplacePreview"));
    auto *label = new QLabel(heading, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);

    m_tree = new QTreeWidget(this);
    m_tree->setHeaderLabels({tr("Line"), tr("Now"), tr("After the replace")});
    m_tree->setUniformRowHeights(true);
    m_tree->setRootIsDecorated(true);
    qsizetype total = 0;
    for (const ReplaceFile &file : m_plan) {
        auto *fileItem = new QTreeWidgetItem(m_tree);
        QString name = QDir::toNativeSeparators(file.shownName);
        if (file.document)
            name = tr("%1 (open: changed in the editor, not saved)").arg(name);
        fileItem->setText(0, name + QStringLiteral(" - ") + changesText(file.changes.size()));
        fileItem->setFlags(fileItem->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
        // The file's name over the whole row: the columns are the changes'.
        fileItem->setFirstColumnSpanned(true);
        for (const ReplaceChange &change : file.changes) {
            auto *item = new QTreeWidgetItem(fileItem);
            item->setText(0, QString::number(change.line));
            item->setText(1, HitFormatter::displayText(change.before, change.column));
            item->setText(2, HitFormatter::displayText(change.after, change.column));
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(0, change.checked ? Qt::Checked : Qt::Unchecked);
        }
        total += file.changes.size();
    }
    m_tree->expandAll();
    m_tree->setColumnWidth(0, 120);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(2, QHeaderView::Stretch);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton *replace = buttons->addButton(tr("&Replace"), QDialogButtonBox::AcceptRole);
    replace->setDefault(true);
    const QString files =
        m_plan.size() == 1 ? tr("in 1 file") : tr("in %1 files").arg(m_plan.size());
    auto *count = new QLabel(
        tr("%1 %2; uncheck what must stay as it is.").arg(changesText(total), files), this);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_tree, 1);
    layout->addWidget(count);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(900, 500);
}

QList<ReplaceFile> ReplacePreview::plan() const
{
    QList<ReplaceFile> result = m_plan;
    for (int i = 0; i < result.size(); ++i) {
        const QTreeWidgetItem *fileItem = m_tree->topLevelItem(i);
        QList<ReplaceChange> &changes = result[i].changes;
        for (int j = 0; j < changes.size(); ++j)
            changes[j].checked = fileItem->child(j)->checkState(0) == Qt::Checked;
    }
    return result;
}
