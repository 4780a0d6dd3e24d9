#include "appsetup.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
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
    QApplication::setWindowIcon(QIcon::fromTheme(
        applicationId(),
        QIcon(QStringLiteral(":/sourceeditor/icons/") + applicationId() + QStringLiteral(".svg"))));
    installTranslations(app);
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
