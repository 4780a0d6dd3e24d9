#pragma once

#include "fakeoptiontool.h"

#include <memory>
#include <vector>

// The interface list the dialog and its model are given: one FakeOptionTool
// per entry, an empty entry a null interface. All pages log to one journal.
struct ToolSet
{
    explicit ToolSet(const QStringList &description)
    {
        for (const QString &entry : description) {
            if (!entry.isEmpty())
                owned.push_back(std::make_unique<FakeOptionTool>(entry, &journal));
            list << (entry.isEmpty() ? nullptr : owned.back().get());
        }
    }

    QStringList journal;
    std::vector<std::unique_ptr<FakeOptionTool>> owned;
    QList<hubAppInterface *> list;
};
