#include "ccommon.h"

namespace koru::sedgui {

CCommon *CCommon::Instance()
{
    static CCommon common;
    return &common;
}

QString CCommon::getSupportFileDesc() const
{
    return QStringLiteral("All Files (*)");
}

} // namespace koru::sedgui
