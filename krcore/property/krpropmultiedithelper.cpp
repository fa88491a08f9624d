#include <krcore/property/krpropmultiedithelper.h>

#include <krcore/diagnostics/krexception_guard.h>
#include <krcore/diagnostics/krtrace.h>

#include <utility>

namespace
{

CString const s_variedMode(OLESTR("Kr.VariedMode"));
constexpr WCHAR const * traceSource = OLESTR("krpropertyutils");

bool IsMarked(CKrProperty const & property)
{
    return property.HasAttribute(s_variedMode) && property.GetAttribute(s_variedMode).IsValid();
}

} // namespace

/// The flagged nodes below a node of the main set, and those that lead to them. Most nodes are not flagged: the main set is looked
/// through once, whatever the number of sets.
class CKrPropMultiEditHelperBase::EditedNodes
{
public:
    EditedNodes(CKrPropMultiEditHelperBase const & helper, CKrProperty const & main) : m_helper(helper)
    {
        Collect(main, 0);
    }

    void CarryTo(CKrProperty & target) const
    {
        if (!m_steps.empty())
            Carry(0, target);
    }

private:
    /// In the order of a walk, a node before those below it.
    struct Step
    {
        CKrProperty const * node;
        unsigned int index; ///< in its parent
        std::size_t end;    ///< of the steps of its subtree
    };

    /// Whether there is a flagged node in the subtree.
    bool Collect(CKrProperty const & node, unsigned int index)
    {
        std::size_t const step = m_steps.size();
        bool isEdited = node.IsModified();
        m_steps.push_back({&node, index, 0});
        for (unsigned int childIndex = 0; childIndex < node.GetSubPropertyCount(); ++childIndex)
        {
            CKrProperty const & child = *node.GetSubPropertyAt(childIndex);
            if (child.IsNode() || child.IsModified())
                isEdited = Collect(child, childIndex) || isEdited;
        }
        if (isEdited)
            m_steps[step].end = m_steps.size();
        else
            m_steps.pop_back(); // none of those below has stayed
        return isEdited;
    }

    void Carry(std::size_t step, CKrProperty & target) const
    {
        CKrProperty const & main = *m_steps[step].node;
        if (!main.IsRoot() && main.IsModified() && !main.HasEqualValue(target))
        {
            target.SetValue(main.GetValue());
            target.SetModified(true);
        }
        for (std::size_t below = step + 1; below < m_steps[step].end; below = m_steps[below].end)
        {
            CKrProperty const & child = *m_steps[below].node;
            if (CKrProperty * const counterpart = m_helper.FindCounterpart(child, m_steps[below].index, target))
                Carry(below, *counterpart);
        }
    }

    CKrPropMultiEditHelperBase const & m_helper;
    std::vector<Step> m_steps;
};

CKrPropMultiEditHelperBase::CKrPropMultiEditHelperBase() = default;

CKrPropMultiEditHelperBase::CKrPropMultiEditHelperBase(CKrPropMultiEditHelperBase const & other) = default;

CKrPropMultiEditHelperBase & CKrPropMultiEditHelperBase::operator=(CKrPropMultiEditHelperBase const & other)
{
    CKrPropMultiEditHelperBase copy(other); // all that can fail
    TakeSets(std::move(copy.m_mainSet), std::move(copy.m_referenceSet));
    m_spareSets.swap(copy.m_spareSets);
    m_commonStruct = copy.m_commonStruct;
    m_changed = copy.m_changed;
    m_mainSetFromFirst = copy.m_mainSetFromFirst;
    return *this;
}

CKrPropMultiEditHelperBase::~CKrPropMultiEditHelperBase() = default;

void CKrPropMultiEditHelperBase::TakeSets(CKrPropertySet && mainSet, CKrPropertySet && referenceSet) noexcept
{
    m_mainSet.TakeOver(std::move(mainSet));
    m_referenceSet.TakeOver(std::move(referenceSet));
}

void CKrPropMultiEditHelperBase::SetMainPropertySet(CKrPropertySet const & set)
{
    m_mainSet = set;
    m_mainSetFromFirst = false;
}

bool CKrPropMultiEditHelperBase::PreparePropSet(CKrPropertySet const & set)
{
    try
    {
        return PrepareProperty(m_mainSet.GetRootProperty(), set.GetRootProperty());
    }
    KR_CATCH_ALL("krpropertyutils", 157)
}

bool CKrPropMultiEditHelperBase::UpdatePropSet(CKrPropertySet & set)
{
    CKrPropertySet * const one = &set;
    return UpdatePropSets({&one, 1});
}

bool CKrPropMultiEditHelperBase::UpdatePropSets(std::span<CKrPropertySet * const> sets)
{
    try
    {
        EditedNodes const edited(*this, m_mainSet.GetRootProperty());
        for (CKrPropertySet * const set : sets)
            edited.CarryTo(set->GetRootProperty());
        return true;
    }
    KR_CATCH_ALL("krpropertyutils", 196)
}

CKrProperty * CKrPropMultiEditHelperBase::FindCounterpart(CKrProperty const & child, unsigned int index,
                                                          CKrProperty const & other) const
{
    return m_commonStruct ? other.GetSubPropertyAt(index) : other.GetSubProperty(child.GetName(), index);
}

bool CKrPropMultiEditHelperBase::PrepareProperty(CKrProperty & main, CKrProperty const & source)
{
    if (!main.IsRoot() && !IsMarked(main) && !main.HasEqualValue(source))
        main.SetAttribute(s_variedMode, CKrVariant(true));
    for (unsigned int index = 0; index < main.GetSubPropertyCount(); ++index)
    {
        CKrProperty & child = *main.GetSubPropertyAt(index);
        if (CKrProperty const * const counterpart = FindCounterpart(child, index, source))
            PrepareProperty(child, *counterpart);
    }
    return true;
}

bool CKrPropMultiEditHelperBase::UpdateProperty(CKrProperty const & main, CKrProperty & target)
{
    EditedNodes(*this, main).CarryTo(target);
    return true;
}

CKrPropMultiEditHelper::CKrPropMultiEditHelper() = default;

CKrPropMultiEditHelper::CKrPropMultiEditHelper(std::vector<CKrPropertySet *> const & sets) : m_sets(sets) {}

CKrPropMultiEditHelper::CKrPropMultiEditHelper(CKrPropMultiEditHelper const & other) = default;

CKrPropMultiEditHelper & CKrPropMultiEditHelper::operator=(CKrPropMultiEditHelper const & other)
{
    std::vector<CKrPropertySet *> sets(other.m_sets);
    CKrPropMultiEditHelperBase::operator=(other);
    m_sets.swap(sets);
    return *this;
}

CKrPropMultiEditHelper::~CKrPropMultiEditHelper() = default;

void CKrPropMultiEditHelper::AddPropertySet(CKrPropertySet * set)
{
    if (set)
        m_sets.push_back(set);
}

void CKrPropMultiEditHelper::AddPropertySet(std::vector<CKrPropertySet *> const & sets)
{
    m_sets.insert(m_sets.end(), sets.begin(), sets.end());
}

bool CKrPropMultiEditHelper::PrepareEdit()
{
    CKrTrace::GetObjectW(true)->Trace(OLESTR("CKrPropMultiEditHelper::PrepareEdit() called"), traceSource, 305);
    if (m_sets.empty())
        return false;
    if (m_mainSetFromFirst)
    {
        CKrPropertySet mainSet(*m_sets.front());
        CKrPropertySet referenceSet(mainSet);
        TakeSets(std::move(mainSet), std::move(referenceSet));
    }
    else
        m_referenceSet = m_mainSet;
    for (CKrPropertySet const * const set : m_sets)
        PreparePropSet(*set);
    return true;
}

bool CKrPropMultiEditHelper::Update()
{
    CKrTrace::GetObjectW(true)->Trace(OLESTR("CKrPropMultiEditHelper::Update() called"), traceSource, 327);
    return UpdatePropSets(m_sets);
}
