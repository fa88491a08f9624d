#include <krcore/property/krpropertysetold.h>

#include <krcore/diagnostics/krexception_guard.h>
#include <krcore/property/krpropertycategory.h>

#include <utility>

using kr::detail::CKrPropertyCategory;

namespace
{

CString EffectiveName(CString const & name) { return name.IsEmpty() ? CString(OLESTR("_KRPROPDEFCAT_")) : name; }

std::vector<std::unique_ptr<CKrPropertyCategory>>
CopiesOf(std::vector<std::unique_ptr<CKrPropertyCategory>> const & categories)
{
    std::vector<std::unique_ptr<CKrPropertyCategory>> copies;
    copies.reserve(categories.size());
    for (auto const & category : categories)
        copies.push_back(std::make_unique<CKrPropertyCategory>(*category));
    return copies;
}

} // namespace

CKrPropertySetOld::CKrPropertySetOld() = default;

CKrPropertySetOld::CKrPropertySetOld(CKrPropertySetOld const & other) : m_categories(CopiesOf(other.m_categories)) {}

CKrPropertySetOld & CKrPropertySetOld::operator=(CKrPropertySetOld const & other)
{
    if (this != &other)
        m_categories = CopiesOf(other.m_categories);
    return *this;
}

CKrPropertySetOld::~CKrPropertySetOld() = default;

CKrPropertyCategory * CKrPropertySetOld::GetPropCategory(CString const & name) const
{
    int const index = FindCategoryIndex(name);
    return index < 0 ? nullptr : m_categories[static_cast<std::size_t>(index)].get();
}

CKrPropertyCategory * CKrPropertySetOld::CreatePropCategory(CString const & name, CString const & description,
                                                            bool visible)
{
    CString const effectiveName = EffectiveName(name); // once: when the set has the category nothing may fail
    if (Category * const found = GetPropCategory(effectiveName))
        return found;
    auto made = std::make_unique<Category>(effectiveName, description, visible);
    Category * const category = made.get();
    AddPropCategory(std::move(made));
    return category;
}

bool CKrPropertySetOld::AddPropCategory(std::unique_ptr<Category> category)
{
    m_categories.push_back(std::move(category));
    return true;
}

bool CKrPropertySetOld::CreateCategory(CString const & name, CString const & description, bool visible)
{
    return CreatePropCategory(name, description, visible) != nullptr;
}

bool CKrPropertySetOld::CreateCategory(CString const & name) { return CreateCategory(name, name, true); }

bool CKrPropertySetOld::HasCategory(CString const & name) const { return FindCategoryIndex(name) >= 0; }

int CKrPropertySetOld::FindCategoryIndex(CString const & name) const
{
    CString const effectiveName = EffectiveName(name);
    for (std::size_t index = 0; index < m_categories.size(); ++index)
    {
        if (m_categories[index]->GetItemCtrl().GetObjName() == effectiveName)
            return static_cast<int>(index);
    }
    return -1;
}

CString CKrPropertySetOld::GetCategoryName(unsigned int index) const
{
    return index < m_categories.size() ? m_categories[index]->GetItemCtrl().GetObjName() : CString();
}

CString CKrPropertySetOld::GetCategoryDescription(CString const & name) const
{
    Category const * const category = GetPropCategory(name);
    return category ? category->GetItemCtrl().GetCtrlText() : CString();
}

void CKrPropertySetOld::SetCategoryDescription(CString const & name, CString const & description)
{
    if (Category * const category = GetPropCategory(name))
        category->GetItemCtrl().SetCtrlText(description);
}

bool CKrPropertySetOld::IsCategoryVisible(CString const & name) const
{
    Category const * const category = GetPropCategory(name);
    return category && category->GetItemCtrl().IsVisible();
}

void CKrPropertySetOld::SetCategoryVisisble(CString const & name, bool visible)
{
    if (Category * const category = GetPropCategory(name))
        category->GetItemCtrl().SetVisible(visible);
}

CKrPropertyOld * CKrPropertySetOld::GetCategoryProperty(CString const & name) const
{
    Category const * const category = GetPropCategory(name);
    return category ? category->GetCategoryProperty() : nullptr;
}

void CKrPropertySetOld::SetCategoryProperty(CString const & name, CKrPropertyOld const & property)
{
    if (Category * const category = GetPropCategory(name))
        category->SetCategoryProperty(property);
}

void CKrPropertySetOld::DeleteCategory(CString const & name)
{
    try
    {
        if (int const index = FindCategoryIndex(name); index >= 0)
            m_categories.erase(m_categories.begin() + index);
    }
    KR_CATCH_ALL_TEXT("krpropertysetold", 512, "RemoveCategory from CKrPropertySetOld")
}

bool CKrPropertySetOld::MoveCategory(CString const & name, unsigned int index)
{
    int const oldIndex = FindCategoryIndex(name);
    if (oldIndex < 0 || index >= m_categories.size())
        return false;
    auto category = std::move(m_categories[static_cast<std::size_t>(oldIndex)]);
    m_categories.erase(m_categories.begin() + oldIndex);
    m_categories.insert(m_categories.begin() + static_cast<std::ptrdiff_t>(index), std::move(category));
    return true;
}

CKrPropertyOld * CKrPropertySetOld::CreateProperty(CString const & category)
{
    if (!HasCategory(category))
        return nullptr;
    CKrPropertyOld * const property = new CKrPropertyOld;
    AddProperty(property, category);
    return property;
}

CKrPropertyOld * CKrPropertySetOld::CreateProperty(CString const & name, CString const & category)
{
    return CreateProperty(name, CKrAssCtrlOld::eEditCtrl, category);
}

CKrPropertyOld * CKrPropertySetOld::CreateProperty(CString const & name, CKrPropertyOld::ECtrlType ctrlType,
                                                   CString const & category)
{
    CKrPropertyOld * const property = new CKrPropertyOld(ctrlType, name, true, true);
    AddProperty(property, category);
    return property;
}

bool CKrPropertySetOld::AddProperty(CKrPropertyOld * property, CString const & category)
{
    std::unique_ptr<CKrPropertyOld> owner(property); // until the insertion takes it
    unsigned int const end = GetCountProperties(category);
    return InsertProperty(end, owner.release(), category);
}

bool CKrPropertySetOld::InsertProperty(unsigned int index, CKrPropertyOld * property, CString const & category)
{
    if (!property)
        return false;
    std::unique_ptr<CKrPropertyOld> owner(property); // until the category takes it
    std::unique_ptr<Category> made;
    Category * holder = GetPropCategory(category);
    if (!holder)
    {
        made = std::make_unique<Category>(EffectiveName(category), CString(), true);
        holder = made.get();
    }
    if (index <= holder->GetCount())
        holder->Insert(index, std::move(owner));
    if (made)
        AddPropCategory(std::move(made)); // last, so that a failure leaves no empty one
    // What is left is the caller's; null where the category took it.
    static_cast<void>(owner.release()); // NOLINT(clang-analyzer-cplusplus.Move)
    return true;
}

CKrPropertyOld * CKrPropertySetOld::GetProperty(CString const & name, CString const & category) const
{
    Category const * const holder = GetPropCategory(category);
    return holder ? holder->Find(name) : nullptr;
}

CKrPropertyOld * CKrPropertySetOld::GetPropertyAt(unsigned int index, CString const & category) const
{
    Category const * const holder = GetPropCategory(category);
    return holder ? holder->GetAt(index) : nullptr;
}

CKrPropertyOld * CKrPropertySetOld::GetPropertyByPropName(CString const & name) const
{
    for (auto const & category : m_categories)
    {
        if (CKrPropertyOld * const property = category->Find(name))
            return property;
    }
    return nullptr;
}

int CKrPropertySetOld::FindPropertyIndex(CString const & name, CString const & category) const
{
    Category const * const holder = GetPropCategory(category);
    return holder ? holder->FindIndex(name) : -1;
}

unsigned int CKrPropertySetOld::GetCountProperties(CString const & category) const
{
    Category const * const holder = GetPropCategory(category);
    return holder ? holder->GetCount() : 0;
}

bool CKrPropertySetOld::DeleteProperty(CString const & name, CString const & category)
{
    Category * const holder = GetPropCategory(category);
    if (!holder)
        return false;
    holder->Delete(name);
    return true;
}

bool CKrPropertySetOld::DeleteProperties()
{
    m_categories.clear();
    return true;
}

bool CKrPropertySetOld::IsEqual(CKrPropertySetOld const & other) const
{
    if (this == &other)
        return true;
    for (auto const & theirs : other.m_categories)
    {
        Category const * const ours = GetPropCategory(theirs->GetItemCtrl().GetObjName());
        if (!ours)
            return false;
        for (unsigned int index = 0; index < theirs->GetCount(); ++index)
        {
            CKrPropertyOld const & property = *theirs->GetAt(index);
            CKrPropertyOld const * const own = ours->Find(property.GetName());
            if (!own || !own->IsEqual(property))
                return false;
        }
    }
    return true;
}

bool CKrPropertySetOld::ChangeValues(CKrPropertySetOld const & other)
{
    if (this == &other)
        return true;
    auto const takeState = [](CKrAssCtrlOld & own, CKrAssCtrlOld const & theirs)
    {
        own.SetVisible(theirs.IsVisible());
        own.SetEnabled(theirs.IsEnabled());
    };
    for (auto const & theirs : other.m_categories)
    {
        Category * const ours = GetPropCategory(theirs->GetItemCtrl().GetObjName());
        if (!ours)
            continue;
        takeState(ours->GetItemCtrl(), theirs->GetItemCtrl());
        for (unsigned int index = 0; index < theirs->GetCount(); ++index)
        {
            CKrPropertyOld const & property = *theirs->GetAt(index);
            if (CKrPropertyOld * const own = ours->Find(property.GetName()))
            {
                own->SetValue(property.GetValue());
                takeState(*own->GetItemCtrl(), *property.GetItemCtrl());
            }
        }
    }
    return true;
}
