#pragma once

#include <QStringList>
#include <QtGlobal>

// Records every message written through Qt's message handler while it
// exists, and still passes each on to the handler it replaced.
class MessageLog
{
public:
    MessageLog();
    ~MessageLog();

    MessageLog(const MessageLog &) = delete;
    MessageLog &operator=(const MessageLog &) = delete;

    static MessageLog *current();

    int count(const QString &message) const { return int(messages.count(message)); }
    void clear() { messages.clear(); }

    QStringList messages;

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message);

    QtMessageHandler m_previous = nullptr;
};
