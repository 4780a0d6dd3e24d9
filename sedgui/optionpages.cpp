#include "optionpages.h"

namespace koru::sedgui {

QStringList OptionPages::names()
{
    return {};
}

OptWidget *OptionPages::create(const QString &)
{
    return nullptr;
}

} // namespace koru::sedgui
