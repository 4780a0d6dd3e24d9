#include "menuname.h"

MenuName::MenuName(const QString &name, int kind)
    : m_kind(kind)
    , m_name(name)
{}

MenuName::~MenuName() = default;

int MenuName::kind() const
{
    return m_kind;
}

QString MenuName::name() const
{
    return m_name;
}
