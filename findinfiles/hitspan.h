#pragma once

#include <QList>

// Where a hit's first match lies in its line, in UTF-16 code units of the
// decoded line (the pane shows that line trimmed and cut, so the pane's text
// cannot tell). A line of the pane that is not a hit has no span.
struct HitSpan
{
    int column = -1;
    int length = 0;

    bool isValid() const { return column >= 0; }
};

using HitSpans = QList<HitSpan>;
