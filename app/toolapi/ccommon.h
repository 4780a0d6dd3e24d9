#pragma once

#include "sedguiexport.h"

#include <QString>

namespace koru::sedgui {

// Facts of the tool library that the shell asks for.
class SEDGUI_EXPORT CCommon
{
public:
    static CCommon *Instance();

    // The Open dialog's file-type filter: "All Files (*)" first, then one
    // entry per language the library knows, separated by ";;".
    QString getSupportFileDesc() const;

private:
    CCommon() = default;
};

} // namespace koru::sedgui
