#include "replacepreview.h"

#include "replacepreviewmodel.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

ReplacePreview::ReplacePreview(const QList<ReplaceFile> &plan, const QString &heading,
                               QWidget *parent)
    : QDialog(parent)
    , m_model(new ReplacePreviewModel(plan, this))
{
    setWindowTitle(tr("Replace in Files"));
    setObjectName(QStringLiteral("ReplacePreview"));
    auto *label = new QLabel(heading, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);

    m_table = new QTableView(this);
    // Rows of one height, set before the rows come: the view places them
    // without measuring each, and makes only those it shows.
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    m_table->setModel(m_model);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    // The file's name over the whole row: the columns are the changes'.
    for (qsizetype file = 0; file < m_model->fileCount(); ++file)
        m_table->setSpan(m_model->fileRow(file), 0, 1, ReplacePreviewModel::ColumnCount);
    m_table->setColumnWidth(ReplacePreviewModel::LineColumn, 120);
    m_table->horizontalHeader()->setStretchLastSection(false);
    m_table->horizontalHeader()->setSectionResizeMode(ReplacePreviewModel::BeforeColumn,
                                                      QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(ReplacePreviewModel::AfterColumn,
                                                      QHeaderView::Stretch);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton *replace = buttons->addButton(tr("&Replace"), QDialogButtonBox::AcceptRole);
    replace->setDefault(true);
    const qsizetype files = m_model->fileCount();
    const QString where = files == 1 ? tr("in 1 file") : tr("in %1 files").arg(files);
    auto *count =
        new QLabel(tr("%1 %2; uncheck what must stay as it is.")
                       .arg(ReplacePreviewModel::changesText(m_model->changeCount()), where),
                   this);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_table, 1);
    layout->addWidget(count);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(900, 500);
}

QList<ReplaceFile> ReplacePreview::plan() const
{
    return m_model->plan();
}
