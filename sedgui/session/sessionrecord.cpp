#include "session/sessionrecord.h"

#include "baseusrsettings.h"

namespace koru::sedgui {

namespace {

const char *const s_store = "SRC_EDITOR";
const QString s_group = QStringLiteral("Session");
const QString s_files = QStringLiteral("Files");
const QString s_path = QStringLiteral("Path");
const QString s_journal = QStringLiteral("Journal");
const QString s_line = QStringLiteral("Line");
const QString s_column = QStringLiteral("Column");
const QString s_firstVisibleLine = QStringLiteral("FirstVisibleLine");
const QString s_current = QStringLiteral("Current");
const QString s_geometry = QStringLiteral("Geometry");
const QString s_windowState = QStringLiteral("WindowState");

// A position read back as text: anything but a non-negative number is 0.
int readPosition(const QSettings &settings, const QString &key)
{
    bool ok = false;
    const int value = settings.value(key).toString().trimmed().toInt(&ok);
    return ok && value > 0 ? value : 0;
}

} // namespace

SessionRecord SessionRecord::load()
{
    SessionRecord record;
    BaseUsrSettings settings(s_store);
    settings.beginGroup(s_group);
    const int count = settings.beginReadArray(s_files);
    for (int i = 0; i < count; ++i) {
        settings.setArrayIndex(i);
        File file;
        file.path = settings.value(s_path).toString();
        file.journal = settings.value(s_journal).toByteArray();
        if (file.path.isEmpty() == file.journal.isEmpty())
            continue;
        file.line = readPosition(settings, s_line);
        file.column = readPosition(settings, s_column);
        file.firstVisibleLine = readPosition(settings, s_firstVisibleLine);
        record.files.append(file);
    }
    settings.endArray();
    bool ok = false;
    const int current = settings.value(s_current).toString().toInt(&ok);
    record.current = ok && current >= 0 && current < record.files.size() ? current : -1;
    record.geometry = settings.value(s_geometry).toByteArray();
    record.windowState = settings.value(s_windowState).toByteArray();
    settings.endGroup();
    return record;
}

bool SessionRecord::store() const
{
    BaseUsrSettings settings(s_store);
    // A store that could not be read is not overwritten.
    if (settings.status() != QSettings::NoError)
        return false;
    settings.remove(s_group);
    settings.beginGroup(s_group);
    settings.beginWriteArray(s_files, int(files.size()));
    for (int i = 0; i < files.size(); ++i) {
        settings.setArrayIndex(i);
        if (files.at(i).path.isEmpty())
            settings.setValue(s_journal, files.at(i).journal);
        else
            settings.setValue(s_path, files.at(i).path);
        settings.setValue(s_line, files.at(i).line);
        settings.setValue(s_column, files.at(i).column);
        settings.setValue(s_firstVisibleLine, files.at(i).firstVisibleLine);
    }
    settings.endArray();
    settings.setValue(s_current, current);
    settings.setValue(s_geometry, geometry);
    settings.setValue(s_windowState, windowState);
    settings.endGroup();
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace koru::sedgui
