#include "ccommon.h"

#include "languages.h"

namespace koru::sedgui {

CCommon *CCommon::Instance()
{
    static CCommon common;
    return &common;
}

QString CCommon::getSupportFileDesc() const
{
    return Languages::fileFilter();
}

} // namespace koru::sedgui
