#include <krcore/property/krpropertyset.h>

#include <krcore/diagnostics/krexception_guard.h>
#include <krcore/property/krvisitor.h>

namespace
{

CString const s_defaultCategory(OLESTR("_KRPROPDEFCAT_"));

std::unique_ptr<CKrProperty> MakeCategory(CString const & name, CString const & description, bool visible)
{
    return std::make_unique<CKrProperty>(name, description, CKrProperty::ePropNone, CKrVariant(), true, visible);
}

} // namespace

CKrPropertySet::CKrPropertySet() = default;

CKrPropertySet::CKrPropertySet(CKrPropertySet const & other) : CKrObject(other), m_root(other.m_root) {}

CKrPropertySet & CKrPropertySet::operator=(CKrPropertySet const & other)
{
    m_root.DeepCopy(other.m_root);
    return *this;
}

void CKrPropertySet::TakeOver(CKrPropertySet && made) noexcept { m_root.TakeOver(std::move(made.m_root)); }

CKrPropertySet::~CKrPropertySet() = default;

CString const & CKrPropertySet::ConvertCategoryName(CString const & name)
{
    return name.IsEmpty() ? s_defaultCategory : name;
}

CKrProperty * CKrPropertySet::CreatePropCategory(CString const & name, CString const & description, bool visible)
{
    CString const & effectiveName = ConvertCategoryName(name);
    CKrProperty * category = m_root.GetSubProperty(effectiveName);
    if (!category)
    {
        std::unique_ptr<CKrProperty> made = MakeCategory(effectiveName, description, visible);
        category = made.get();
        m_root.AddSubProperty(made.release());
    }
    return category;
}

CKrProperty * CKrPropertySet::CreateCategory(CString const & name, CString const & description, bool visible)
{
    return CreatePropCategory(name, description, visible);
}

CKrProperty * CKrPropertySet::CreateCategory(CString const & name) { return CreatePropCategory(name, name, true); }

bool CKrPropertySet::HasCategory(CString const & name) const { return GetCategory(name) != nullptr; }

CKrProperty * CKrPropertySet::GetCategory(CString const & name) const
{
    return m_root.GetSubProperty(ConvertCategoryName(name));
}

CKrProperty * CKrPropertySet::GetCategoryAt(unsigned int index) const { return m_root.GetSubPropertyAt(index); }

int CKrPropertySet::FindCategoryIndex(CString const & name) const
{
    return m_root.FindSubPropertyIndex(ConvertCategoryName(name));
}

unsigned int CKrPropertySet::GetCountCategories() const { return m_root.GetSubPropertyCount(); }

CString CKrPropertySet::GetCategoryName(unsigned int index) const
{
    CKrProperty const * const category = GetCategoryAt(index);
    return category ? category->GetName() : CString();
}

CString CKrPropertySet::GetCategoryDescription(CString const & name) const
{
    CKrProperty const * const category = GetCategory(name);
    return category ? category->GetDescription() : CString();
}

void CKrPropertySet::SetCategoryDescription(CString const & name, CString const & description)
{
    if (CKrProperty * const category = GetCategory(name))
        category->SetDescription(description);
}

bool CKrPropertySet::IsCategoryVisible(CString const & name) const
{
    CKrProperty const * const category = GetCategory(name);
    return category && category->IsVisible();
}

void CKrPropertySet::SetCategoryVisisble(CString const & name, bool visible)
{
    if (CKrProperty * const category = GetCategory(name))
        category->SetVisible(visible);
}

void CKrPropertySet::DeleteCategory(CString const & name) { m_root.DeleteSubProperty(ConvertCategoryName(name)); }

bool CKrPropertySet::MoveCategory(CString const & name, unsigned int index)
{
    CKrProperty * const category = m_root.RemoveSubProperty(name);
    if (!category)
        return false;
    m_root.InsertSubProperty(index, category);
    return true;
}

bool CKrPropertySet::AlphabeticSortCategories()
{
    try
    {
        return m_root.SortByDescription(false);
    }
    KR_CATCH_ALL("krpropertyset", 567)
}

CKrProperty * CKrPropertySet::CreateProperty(CString const & category)
{
    CKrProperty * const property = new CKrProperty;
    AddProperty(property, category);
    return property;
}

CKrProperty * CKrPropertySet::CreateProperty(CString const & name, CString const & category)
{
    return CreateProperty(name, CKrProperty::ePropString, category);
}

CKrProperty * CKrPropertySet::CreateProperty(CString const & name, CKrProperty::EPropType type,
                                             CString const & category)
{
    CKrProperty * const property = new CKrProperty(name, name, type, true, true);
    AddProperty(property, category);
    return property;
}

bool CKrPropertySet::AddProperty(CKrProperty * property, CString const & category)
{
    return InsertProperty(~0u, property, category);
}

bool CKrPropertySet::InsertProperty(unsigned int index, CKrProperty * property, CString const & category)
{
    if (!property)
        return false;
    std::unique_ptr<CKrProperty> owner(property); // until a category takes it
    CString const & name = ConvertCategoryName(category);
    if (CKrProperty * const holder = m_root.GetSubProperty(name))
    {
        holder->InsertSubProperty(index, owner.release());
        return true;
    }
    std::unique_ptr<CKrProperty> made = MakeCategory(name, category, true);
    made->AddSubProperty(owner.release()); // before the set has the category, so that a failure leaves no empty one
    m_root.AddSubProperty(made.release());
    return true;
}

CKrProperty * CKrPropertySet::GetProperty(CString const & name, CString const & category) const
{
    CKrProperty const * const holder = GetCategory(category);
    return holder ? holder->GetSubProperty(name) : nullptr;
}

CKrProperty * CKrPropertySet::GetPropertyAt(unsigned int index, CString const & category) const
{
    CKrProperty const * const holder = GetCategory(category);
    return holder ? holder->GetSubPropertyAt(index) : nullptr;
}

CKrProperty * CKrPropertySet::GetPropertyByPropName(CString const & name) const
{
    for (unsigned int index = 0; index < GetCountCategories(); ++index)
    {
        if (CKrProperty * const property = GetCategoryAt(index)->GetSubProperty(name))
            return property;
    }
    return nullptr;
}

int CKrPropertySet::FindPropertyIndex(CString const & name, CString const & category) const
{
    CKrProperty const * const holder = GetCategory(category);
    return holder ? holder->FindSubPropertyIndex(name) : -1;
}

unsigned int CKrPropertySet::GetCountProperties(CString const & category) const
{
    CKrProperty const * const holder = GetCategory(category);
    return holder ? holder->GetSubPropertyCount() : 0;
}

bool CKrPropertySet::DeleteProperty(CString const & name, CString const & category)
{
    CKrProperty * const holder = GetCategory(category);
    if (!holder)
        return false;
    holder->DeleteSubProperty(name);
    return true;
}

bool CKrPropertySet::DeleteProperties()
{
    m_root.DeleteSubProperties();
    return true;
}

bool CKrPropertySet::AlphabeticSortProperties(CString const & category)
{
    try
    {
        if (category.IsEmpty())
        {
            for (unsigned int index = 0; index < GetCountCategories(); ++index)
                GetCategoryAt(index)->SortByDescription(false);
            return true;
        }
        CKrProperty * const holder = m_root.GetSubProperty(category);
        return holder && holder->SortByDescription(false);
    }
    KR_CATCH_ALL("krpropertyset", 594)
}

bool CKrPropertySet::IsEqual(CKrPropertySet const & other) const
{
    return this == &other || m_root.IsDeepEqual(other.m_root);
}

bool CKrPropertySet::ChangeValues(CKrPropertySet const & other)
{
    return this == &other || m_root.ChangeValue(other.m_root);
}

bool CKrPropertySet::Visit(kr::visitor<CKrProperty> & visitor)
{
    try
    {
        return m_root.Visit(visitor);
    }
    KR_CATCH_ALL("krpropertyset", 553)
}
