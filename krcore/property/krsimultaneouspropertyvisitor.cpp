#include <krcore/property/krsimultaneouspropertyvisitor.h>

#include <krcore/diagnostics/krexception_guard.h>

CKrSimultaneousPropertyVisitor::CKrSimultaneousPropertyVisitor(CKrPropertySet & other)
    : m_other(other), m_counterpart(&other.GetRootProperty())
{
}

CKrSimultaneousPropertyVisitor::CKrSimultaneousPropertyVisitor(CKrSimultaneousPropertyVisitor const & other) = default;

CKrSimultaneousPropertyVisitor::~CKrSimultaneousPropertyVisitor() = default;

bool CKrSimultaneousPropertyVisitor::Match(CKrProperty * node)
{
    try
    {
        if (!node || !m_counterpart)
            return false;
        CKrProperty * const found = m_counterpart->GetSubProperty(node->GetName());
        if (!found)
            return false;
        m_counterpart = found;
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 49) // GCOVR_EXCL_LINE: nothing above can fail
}

bool CKrSimultaneousPropertyVisitor::Action(CKrProperty *)
{
    try
    {
        if (m_counterpart)
            m_counterpart = m_counterpart->GetParentProperty();
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 66)
}
