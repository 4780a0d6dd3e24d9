#pragma once

#include <QStringList>
#include <QtGlobal>

// Records every message written through Qt's message handler while it
// exists, and still passes each on to the handler it replaced.
class MessageLog
{
public:
    MessageLog()
        : m_previous(qInstallMessageHandler(&MessageLog::handle))
    {
        s_active = this;
    }
    ~MessageLog()
    {
        qInstallMessageHandler(m_previous);
        s_active = nullptr;
    }

    int count(const QString &message) const { return int(messages.count(message)); }

    QStringList messages;

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        if (!s_active)
            return;
        s_active->messages.append(message);
        if (s_active->m_previous)
            s_active->m_previous(type, context, message);
    }

    inline static MessageLog *s_active = nullptr;
    QtMessageHandler m_previous;
};
