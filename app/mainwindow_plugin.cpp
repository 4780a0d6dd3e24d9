#include "hubappinterface.h"
#include "mainwindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QPluginLoader>

void MainWindow::loadToolPlugin()
{
    // Always by absolute path under the program's own folder: the working
    // directory follows the current document.
    const QDir dir(QCoreApplication::applicationDirPath() + QStringLiteral("/toolapps/"));
    const QString fileName = QStringLiteral("libsedapp.so");
    const QString path = dir.absoluteFilePath(fileName);
    qDebug("we get dll/so file %s", path.toLatin1().constData());

    QPluginLoader loader(path);
    QString errorText;
    if (!loader.load()) {
        errorText = loader.errorString();
        QMessageBox::information(nullptr, QStringLiteral("Error"), errorText, QMessageBox::Ok);
    }

    QObject *root = loader.instance();
    auto *factory = root ? qobject_cast<hubAppInterface *>(root) : nullptr;
    if (factory) {
        qDebug("%s is Koru app tool %s", fileName.toLatin1().constData(),
               factory->getAppName().toLatin1().constData());
        appInterface = factory;
        m_factoryObject = root;
    } else {
        qDebug("%s is not Koru app tool", fileName.toLatin1().constData());
        // The text has no place marker, so it reads "%s" as written.
        QMessageBox::warning(nullptr, tr("Source Editor"),
                             tr("Can't find %s, application exit.").arg(fileName), QMessageBox::Ok);
    }

    if (!arguments.isEmpty() && appInterface) {
        QWidget *tool = appInterface->createTool(this, 0, arguments, &errorText, 0);
        if (tool)
            addTool(tool);
    }
}
