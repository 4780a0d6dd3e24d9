#include "dialogs/externalchangesdialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace koru::sedgui {

namespace {

ExternalChangesDialog::Answerer &answererSlot()
{
    static ExternalChangesDialog::Answerer answerer;
    return answerer;
}

} // namespace

bool ExternalChangesDialog::ask(QWidget *parent, const QStringList &names,
                                const QList<bool> &modified, const QList<bool> &deleted,
                                QList<bool> *reload)
{
    if (const Answerer &answerer = answererSlot())
        return answerer(names, modified, deleted, reload);
    ExternalChangesDialog dialog(names, modified, deleted, parent);
    const bool apply = dialog.exec() == QDialog::Accepted;
    *reload = dialog.reloadFlags();
    return apply;
}

void ExternalChangesDialog::setAnswerer(Answerer answerer)
{
    answererSlot() = std::move(answerer);
}

ExternalChangesDialog::ExternalChangesDialog(const QStringList &names, const QList<bool> &modified,
                                             const QList<bool> &deleted, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Files Changed on Disk"));
    auto *label = new QLabel(tr("These files have changed or were deleted on disk. Reload the "
                                "checked ones, and close the checked ones that were deleted? "
                                "A file with unsaved changes keeps your text unless you check "
                                "it (Undo brings your text back)."),
                             this);
    label->setWordWrap(true);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("changedFiles"));
    for (qsizetype i = 0; i < names.size(); ++i) {
        const bool mine = modified.value(i);
        const bool gone = deleted.value(i);
        QString text =
            gone ? tr("%1 (deleted from disk; checked: close it)").arg(names.at(i)) : names.at(i);
        if (mine)
            text = tr("%1 (you have unsaved changes)").arg(text);
        auto *item = new QListWidgetItem(text, m_list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(mine || gone ? Qt::Unchecked : Qt::Checked);
    }

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *reload = buttons->addButton(tr("&Apply to Checked"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("&Keep All"), QDialogButtonBox::RejectRole);
    reload->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    // Wide enough for full paths in most cases.
    resize(std::max(sizeHint().width(), 600), sizeHint().height());
}

QList<bool> ExternalChangesDialog::reloadFlags() const
{
    QList<bool> flags;
    for (int i = 0; i < m_list->count(); ++i)
        flags.append(m_list->item(i)->checkState() == Qt::Checked);
    return flags;
}

} // namespace koru::sedgui
