#include "messagelog.h"

namespace {

MessageLog *activeLog = nullptr;

} // namespace

MessageLog::MessageLog()
{
    activeLog = this;
    m_previous = qInstallMessageHandler(&MessageLog::handle);
}

MessageLog::~MessageLog()
{
    qInstallMessageHandler(m_previous);
    activeLog = nullptr;
}

MessageLog *MessageLog::current()
{
    return activeLog;
}

void MessageLog::handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!activeLog)
        return;
    activeLog->messages.append(message);
    if (activeLog->m_previous)
        activeLog->m_previous(type, context, message);
}
