#include "session/savechangesdialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace koru::sedgui {

namespace {

SaveChangesDialog::Answerer &answererSlot()
{
    static SaveChangesDialog::Answerer answerer;
    return answerer;
}

} // namespace

SaveChangesDialog::Answer SaveChangesDialog::ask(QWidget *parent, const QStringList &names,
                                                 QList<bool> *checked)
{
    if (const Answerer &answerer = answererSlot())
        return answerer(names, checked);
    SaveChangesDialog dialog(names, *checked, parent);
    dialog.exec();
    *checked = dialog.checkedFlags();
    return dialog.answer();
}

void SaveChangesDialog::setAnswerer(Answerer answerer)
{
    answererSlot() = std::move(answerer);
}

SaveChangesDialog::SaveChangesDialog(const QStringList &names, const QList<bool> &checked,
                                     QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Save Changes"));
    auto *label = new QLabel(
        tr("These documents have unsaved changes. Save the checked ones before closing?"), this);
    label->setWordWrap(true);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("modifiedDocuments"));
    for (qsizetype i = 0; i < names.size(); ++i) {
        auto *item = new QListWidgetItem(names.at(i), m_list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(checked.value(i, true) ? Qt::Checked : Qt::Unchecked);
    }

    auto *buttons = new QDialogButtonBox(this);
    m_save = buttons->addButton(tr("&Save All"), QDialogButtonBox::AcceptRole);
    QPushButton *discard =
        buttons->addButton(tr("&Discard All"), QDialogButtonBox::DestructiveRole);
    QPushButton *cancel = buttons->addButton(QDialogButtonBox::Cancel);
    m_save->setDefault(true);
    connect(m_save, &QPushButton::clicked, this, [this] { finish(Answer::Save); });
    connect(discard, &QPushButton::clicked, this, [this] { finish(Answer::DiscardAll); });
    connect(cancel, &QPushButton::clicked, this, [this] { finish(Answer::Cancel); });
    connect(m_list, &QListWidget::itemChanged, this, &SaveChangesDialog::updateSaveButton);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    updateSaveButton();
    // Wide enough for the title bar to name the dialog and for full paths,
    // which the list's own size hint does not count.
    const int wanted = std::max(fontMetrics().averageCharWidth() * 64,
                                m_list->sizeHintForColumn(0) + 4 * m_list->frameWidth() + 48);
    resize(std::max(sizeHint().width(), std::min(wanted, fontMetrics().averageCharWidth() * 120)),
           sizeHint().height());
}

QList<bool> SaveChangesDialog::checkedFlags() const
{
    QList<bool> flags;
    for (int i = 0; i < m_list->count(); ++i)
        flags.append(m_list->item(i)->checkState() == Qt::Checked);
    return flags;
}

void SaveChangesDialog::finish(Answer answer)
{
    m_answer = answer;
    if (answer == Answer::Cancel)
        reject();
    else
        accept();
}

// The button says what it does: everything, or only what is checked.
void SaveChangesDialog::updateSaveButton()
{
    const QList<bool> flags = checkedFlags();
    m_save->setText(flags.contains(false) ? tr("&Save Checked") : tr("&Save All"));
}

} // namespace koru::sedgui
