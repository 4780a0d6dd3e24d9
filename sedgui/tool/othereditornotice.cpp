#include "tool/othereditornotice.h"

#include "journalstore.h"
#include "tool/journalwriter.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace koru::sedgui {

QString OtherEditorNotice::forFile(const QString &path)
{
    JournalStore *store = JournalWriter::instance()->store();
    // Journals name the file as their editor opened it: the path as given,
    // and its real name when it goes through links.
    QList<JournalEntry> found = store->othersEditing(path);
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (!canonical.isEmpty() && canonical != path)
        found += store->othersEditing(canonical);
    if (found.isEmpty())
        return {};
    // The earliest journal tells since when the file has been edited elsewhere.
    const auto earliest = std::min_element(
        found.cbegin(), found.cend(),
        [](const JournalEntry &a, const JournalEntry &b) { return a.writtenMs < b.writtenMs; });
    const QString since = QLocale().toString(QDateTime::fromMSecsSinceEpoch(earliest->writtenMs),
                                             QLocale::ShortFormat);
    return tr("Another editor (process %1) has unsaved changes to %2 since %3: saving here "
              "may overwrite them, or they may overwrite yours.")
        .arg(earliest->owner.pid)
        .arg(QDir::toNativeSeparators(path), since);
}

} // namespace koru::sedgui
