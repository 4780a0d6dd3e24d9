#include "recoverydialog.h"

#include "filenameescape.h"
#include "filereader.h"
#include "linediff.h"
#include "textfilecodec.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace koru::sedgui {

namespace {

QString documentName(const JournalEntry &entry)
{
    return entry.path.isEmpty() ? RecoveryDialog::tr("Untitled %1").arg(entry.untitledNumber)
                                : QFileInfo(entry.path).fileName();
}

} // namespace

RecoveryDialog::RecoveryDialog(const QList<JournalStore::Found> &journals, QWidget *parent)
    : QDialog(parent)
    , m_journals(journals)
    , m_list(new QTreeWidget(this))
{
    setWindowTitle(tr("Recover Unsaved Work"));
    auto *text = new QLabel(tr("The editor did not close normally. These documents have changes "
                               "that were not saved. Restore opens them with the recovered text; "
                               "the files on disk stay as they are until you save."),
                            this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);

    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({tr("Document"), tr("Folder"), tr("Last Change"), tr("Note")});
    for (const JournalStore::Found &journal : journals) {
        const JournalEntry &entry = journal.entry;
        auto *item = new QTreeWidgetItem(m_list);
        item->setText(0, documentName(entry));
        item->setText(1, entry.path.isEmpty()
                             ? QString()
                             : QDir::toNativeSeparators(QFileInfo(entry.path).absolutePath()));
        item->setText(2, QLocale().toString(QDateTime::fromMSecsSinceEpoch(entry.writtenMs),
                                            QLocale::ShortFormat));
        item->setText(3, diskNote(entry));
    }
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *restore = buttons->addButton(tr("&Restore"), QDialogButtonBox::AcceptRole);
    QPushButton *differences =
        buttons->addButton(tr("Show &Differences"), QDialogButtonBox::ActionRole);
    QPushButton *discard = buttons->addButton(tr("D&iscard"), QDialogButtonBox::DestructiveRole);
    QPushButton *later = buttons->addButton(tr("Decide &Later"), QDialogButtonBox::RejectRole);
    restore->setDefault(true);
    connect(restore, &QPushButton::clicked, this, [this] { finish(Restore); });
    connect(discard, &QPushButton::clicked, this, [this] { finish(Discard); });
    connect(later, &QPushButton::clicked, this, [this] { finish(Later); });
    connect(differences, &QPushButton::clicked, this, &RecoveryDialog::showDifferences);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(m_list, 1);
    layout->addWidget(buttons);
    resize(720, 320);
}

QString RecoveryDialog::diskNote(const JournalEntry &entry)
{
    if (entry.path.isEmpty())
        return {};
    const FileIdentity now = FileIdentity::of(entry.path);
    if (now == entry.identity)
        return {};
    if (!now.exists)
        return tr("deleted from disk since");
    return entry.identity.exists ? tr("changed on disk since") : tr("created on disk since");
}

QString RecoveryDialog::differences(const JournalStore::Found &journal)
{
    const JournalEntry &entry = journal.entry;
    QByteArray disk;
    QString error;
    if (!entry.path.isEmpty() && FileIdentity::of(entry.path).exists &&
        FileReader::read(entry.path, &disk, &error))
        disk = TextFileCodec::decode(disk).utf8;
    const QByteArray name =
        entry.path.isEmpty() ? documentName(entry).toUtf8() : FileNameEscape::toNative(entry.path);
    const QByteArray diff = LineDiff::unified(disk, journal.text, name + tr(" (on disk)").toUtf8(),
                                              name + tr(" (recovered)").toUtf8());
    if (diff.isEmpty())
        return tr("%1: the recovered text is the same as the file on disk.\n")
            .arg(QString::fromUtf8(name));
    return QString::fromUtf8(diff);
}

void RecoveryDialog::showDifferences()
{
    QStringList parts;
    const QList<QTreeWidgetItem *> selected = m_list->selectedItems();
    for (int i = 0; i < m_journals.size(); ++i) {
        if (selected.isEmpty() || selected.contains(m_list->topLevelItem(i)))
            parts.append(differences(m_journals.at(i)));
    }
    QDialog viewer(this);
    viewer.setWindowTitle(tr("Differences"));
    auto *view = new QPlainTextEdit(&viewer);
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view->setPlainText(parts.join(QLatin1Char('\n')));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, &viewer);
    connect(buttons, &QDialogButtonBox::rejected, &viewer, &QDialog::reject);
    auto *layout = new QVBoxLayout(&viewer);
    layout->addWidget(view, 1);
    layout->addWidget(buttons);
    viewer.resize(800, 500);
    viewer.exec();
}

void RecoveryDialog::finish(Choice choice)
{
    m_choice = choice;
    if (choice == Later)
        reject();
    else
        accept();
}

} // namespace koru::sedgui
