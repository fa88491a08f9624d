// Compiled without the assumption that `this` is not null.
#include <krcore/property/krproperty.h>

int CKrProperty::GetLevel() const
{
    int level = -1;
    for (CKrProperty const * node = this; node; node = node->m_parent)
        ++level;
    return level;
}
