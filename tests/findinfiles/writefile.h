#pragma once

#include <QDir>
#include <QFile>
#include <QTest>

// Writes a test file, making its folders.
inline void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}
