#include "standardactions.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>

#include <algorithm>
#include <array>

namespace {

struct Command
{
    const char *name;
    const char *iconName;
    QKeySequence::StandardKey standardKey;
    // Always given, first: the key users of this command expect on every
    // desktop, also where the platform theme reports no standard key.
    const char *preferredKey;
};

// The names are marked for translation because BaseAction shows them.
constexpr std::array commands{
    Command{QT_TRANSLATE_NOOP("BaseAction", "New"), "document-new", QKeySequence::New, "Ctrl+N"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Open"), "document-open", QKeySequence::Open, "Ctrl+O"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Close"), "window-close", QKeySequence::Close,
            "Ctrl+W"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Close All"), "", QKeySequence::UnknownKey, ""},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Save"), "document-save", QKeySequence::Save, "Ctrl+S"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Save As"), "document-save-as", QKeySequence::SaveAs,
            "Ctrl+Shift+S"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Save All"), "document-save-all",
            QKeySequence::UnknownKey, ""},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Page Setup"), "document-page-setup",
            QKeySequence::UnknownKey, ""},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Print Preview"), "document-print-preview",
            QKeySequence::UnknownKey, ""},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Print"), "document-print", QKeySequence::Print,
            "Ctrl+P"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Exit"), "application-exit", QKeySequence::Quit,
            "Ctrl+Q"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Undo"), "edit-undo", QKeySequence::Undo, "Ctrl+Z"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Redo"), "edit-redo", QKeySequence::Redo, "Ctrl+Y"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Cut"), "edit-cut", QKeySequence::Cut, "Ctrl+X"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Copy"), "edit-copy", QKeySequence::Copy, "Ctrl+C"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Paste"), "edit-paste", QKeySequence::Paste, "Ctrl+V"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Find"), "edit-find", QKeySequence::Find, "Ctrl+F"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Find Next"), "go-down", QKeySequence::FindNext, "F3"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Find Previous"), "go-up", QKeySequence::FindPrevious,
            "Shift+F3"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Replace"), "edit-find-replace", QKeySequence::Replace,
            "Ctrl+H"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Find in Files..."), "system-search",
            QKeySequence::UnknownKey, "Ctrl+Shift+F"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Go To"), "go-jump", QKeySequence::UnknownKey,
            "Ctrl+G"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Clear"), "edit-delete", QKeySequence::Delete, "Del"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Select All"), "edit-select-all",
            QKeySequence::SelectAll, "Ctrl+A"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Zoom In"), "zoom-in", QKeySequence::ZoomIn, "Ctrl++"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Zoom Out"), "zoom-out", QKeySequence::ZoomOut,
            "Ctrl+-"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Reset Zoom"), "zoom-original",
            QKeySequence::UnknownKey, "Ctrl+0"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Full Screen"), "view-fullscreen",
            QKeySequence::FullScreen, "F11"},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Stop Search"), "process-stop",
            QKeySequence::UnknownKey, ""},
    Command{QT_TRANSLATE_NOOP("BaseAction", "Option"), "preferences-system",
            QKeySequence::UnknownKey, ""},
};

// Keys the editing widget keeps for itself (Ctrl+D duplicates a line) even
// where a desktop lists them as a second standard key of a command here.
constexpr std::array reservedKeys{"Ctrl+D"};

const Command *find(const QString &name)
{
    for (const Command &c : commands) {
        if (name == QLatin1String(c.name))
            return &c;
    }
    return nullptr;
}

// A desktop's standard keys may name a key that another command here has as
// its preferred one (some list Ctrl+G for Find Next, which is Go To here).
bool claimedElsewhere(const QKeySequence &key, const Command &self)
{
    // Parsed once: every action made asks this for each of its keys.
    static const std::array<QKeySequence, reservedKeys.size()> reserved = [] {
        std::array<QKeySequence, reservedKeys.size()> keys;
        for (std::size_t i = 0; i < reservedKeys.size(); ++i)
            keys[i] = QKeySequence(QLatin1String(reservedKeys[i]));
        return keys;
    }();
    static const std::array<QKeySequence, commands.size()> preferred = [] {
        std::array<QKeySequence, commands.size()> keys;
        for (std::size_t i = 0; i < commands.size(); ++i)
            keys[i] = QKeySequence(QLatin1String(commands[i].preferredKey));
        return keys;
    }();
    if (std::find(reserved.cbegin(), reserved.cend(), key) != reserved.cend())
        return true;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (&commands[i] != &self && *commands[i].preferredKey && key == preferred[i])
            return true;
    }
    return false;
}

} // namespace

QStringList StandardActions::names()
{
    QStringList result;
    for (const Command &c : commands)
        result << QLatin1String(c.name);
    return result;
}

QString StandardActions::iconName(const QString &name)
{
    const Command *c = find(name);
    return c ? QLatin1String(c->iconName) : QString();
}

QIcon StandardActions::icon(const QString &name)
{
    const QString themeName = iconName(name);
    return themeName.isEmpty() ? QIcon() : themedIcon(themeName);
}

QIcon StandardActions::themedIcon(const QString &iconName)
{
    // Made once per theme and name, and shared: every document's own actions
    // ask for the same icons, and looking one up and reading its drawing is
    // costly. Under another theme the lookup is made again.
    static QHash<QString, QIcon> made;
    const QString key = QIcon::themeName() + u'/' + iconName;
    if (const auto found = made.constFind(key); found != made.constEnd())
        return *found;
    const QIcon bundled(bundledIconPath(iconName));
    // Themes seldom draw "save all"; a theme's own save icon fits its look
    // better than our drawing.
    const QIcon icon =
        iconName == QLatin1String("document-save-all")
            ? QIcon::fromTheme(iconName, QIcon::fromTheme(QStringLiteral("document-save"), bundled))
            : QIcon::fromTheme(iconName, bundled);
    made.insert(key, icon);
    return icon;
}

QString StandardActions::bundledIconPath(const QString &iconName)
{
    return QStringLiteral(":/sourceeditor/icons/") + iconName + QStringLiteral(".svg");
}

QList<QKeySequence> StandardActions::shortcuts(const QString &name)
{
    const Command *c = find(name);
    if (!c)
        return {};
    QList<QKeySequence> keys;
    if (*c->preferredKey)
        keys << QKeySequence(QLatin1String(c->preferredKey));
    if (c->standardKey != QKeySequence::UnknownKey) {
        const QList<QKeySequence> standard = QKeySequence::keyBindings(c->standardKey);
        for (const QKeySequence &key : standard) {
            if (!keys.contains(key) && !claimedElsewhere(key, *c))
                keys << key;
        }
    }
    return keys;
}
