#include "appsetup.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QTranslator>

namespace {

bool installOne(QCoreApplication &app, const QLocale &locale, const QString &base,
                const QString &directory)
{
    auto *translator = new QTranslator(&app);
    if (translator->load(locale, base, QStringLiteral("_"), directory) &&
        QCoreApplication::installTranslator(translator)) {
        return true;
    }
    delete translator;
    return false;
}

} // namespace

QString AppSetup::applicationId()
{
    return QStringLiteral("org.sourceeditor.SourceEditor");
}

void AppSetup::apply(QApplication &app)
{
    QGuiApplication::setDesktopFileName(applicationId());
    // Windows without a title of their own (the options dialog) are titled
    // for the program, not after the executable's name.
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Source Editor"));
    QApplication::setWindowIcon(QIcon::fromTheme(
        applicationId(),
        QIcon(QStringLiteral(":/sourceeditor/icons/") + applicationId() + QStringLiteral(".svg"))));
    installTranslations(app);
    // The traces of menu commands and window checks are for developers: off
    // unless QT_LOGGING_RULES turns them on ("default.debug=true"), which
    // Qt applies after the rules set here.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
}

int AppSetup::installTranslations(QCoreApplication &app, const QLocale &locale)
{
    const QString qtDirectory = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    int installed = 0;
    installed += installOne(app, locale, QStringLiteral("sourceeditor"),
                            QStringLiteral(":/sourceeditor/i18n"));
    installed += installOne(app, locale, QStringLiteral("qt"), qtDirectory);
    installed += installOne(app, locale, QStringLiteral("qscintilla"), qtDirectory);
    return installed;
}
