#pragma once

// One link between a tool and a shared menu action, in the encoded signature
// form that QObject::connect takes ("2triggered()", "1undo()").
// A null senderKey means the tool itself sends (tool -> action); a null
// receiverKey means the tool itself receives (action -> tool). The keys are
// bare action names ("COPY", "Save As"), looked up by name in the registry.
// Records are owned by the tool that publishes them; the shell only reads them.
struct Connection
{
    Connection(const char *senderKey, const char *signal, const char *receiverKey,
               const char *slot)
        : senderKey(senderKey)
        , signal(signal)
        , receiverKey(receiverKey)
        , slot(slot)
    {
    }

    const char *senderKey;
    const char *signal;
    const char *receiverKey;
    const char *slot;
};
