#pragma once

#include <QStringList>

class OptWidget;

namespace koru::sedgui {

// The tool library's option pages, as the factory hands them to the options
// dialog.
class OptionPages
{
public:
    static QStringList names();
    // A new page for the name, or null; the caller owns it.
    static OptWidget *create(const QString &name);
};

} // namespace koru::sedgui
