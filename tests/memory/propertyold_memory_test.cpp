// The older generation of properties where memory runs out.
#include <krcore/property/krpropertysetold.h>

#include "tests/memory/failing_rows.h"

using namespace kr::test;

namespace
{

CString const none;
CString const a(OLESTR("a"));
CString const b(OLESTR("b"));
CString const general(OLESTR("General"));
CString const longText(OLESTR("a text that is not kept in place"));

constexpr unsigned either = throwsMemory | throwsBadAlloc;

CKrVariant const & Text()
{
    static CKrVariant const text(longText);
    return text;
}

CKrEvent const & Event()
{
    static CKrEvent const event = []
    {
        CKrEvent made;
        made.AddCmdArg(a, Text());
        return made;
    }();
    return event;
}

/// With events and a list to choose from, and a node below.
CKrPropertyOld const & Source()
{
    static CKrPropertyOld const & source = []() -> CKrPropertyOld const &
    {
        static CKrPropertyOld made(a, longText, true, true);
        made.SetValue(Text());
        made.GetItemCtrl()->AddEvent(CKrEvent::eEventNone, Event());
        made.GetItemCtrl()->SetSelectionList({Text(), CKrVariant(2)});
        made.AddSubProperty(new CKrPropertyOld(b, none, true, true));
        return made;
    }();
    return source;
}

/// Counted while it lives; the set takes it as any other.
class Counted : public CKrPropertyOld
{
public:
    Counted() : CKrPropertyOld(b, none, true, true) { ++s_living; }
    Counted(Counted const &) = delete;
    Counted & operator=(Counted const &) = delete;
    ~Counted() override { --s_living; }

    static int Living() { return s_living; }

private:
    static inline int s_living = 0;
};

std::string StateOf(CKrPropertyOld const & property)
{
    CKrAssCtrlOld const & control = *property.GetItemCtrl();
    std::string text =
        Described(property.GetName(), property.GetDescription(), property.GetType(), property.GetAsString(),
                  control.HasEvents(), control.GetSelectionList() != nullptr, Counted::Living());
    for (unsigned int index = 0; index < property.GetSubPropertyCount(); ++index)
        text += "(" + StateOf(*property.GetSubPropertyAt(index)) + ")";
    return text;
}

std::string StateOf(CKrPropertySetOld const & set)
{
    std::string text;
    for (unsigned int index = 0; index < set.GetCountCategories(); ++index)
    {
        CString const category = set.GetCategoryName(index);
        CKrPropertyOld const * const whole = set.GetCategoryProperty(category);
        text += Described(category, set.GetCategoryDescription(category), set.IsCategoryVisible(category)) +
                (whole ? StateOf(*whole) : "-");
        for (unsigned int place = 0; place < set.GetCountProperties(category); ++place)
            text += StateOf(*set.GetPropertyAt(place, category));
    }
    return text;
}

} // namespace

TEST(CKrAssCtrlOldMemory, KeepsTheControl)
{
    static CKrAssCtrlOld const & other = *Source().GetItemCtrl();
    static std::vector<CKrVariant> const values = {Text(), CKrVariant(3)};
    auto const stateOf = [](CKrAssCtrlOld const & control)
    {
        std::vector<CKrVariant> const * const list = control.GetSelectionList();
        return Described(control.GetType(), control.GetObjName(), control.HasEvents(), list ? list->size() : 99);
    };
    // clang-format off
    ExpectRows([] { return CKrAssCtrlOld(CKrAssCtrlOld::eObjInt, b); }, stateOf, std::vector<Row<CKrAssCtrlOld>>{
        { "=",                   either,         kept, [](CKrAssCtrlOld & control) { control = other; } },
        { "copy",                either,         kept, [](CKrAssCtrlOld &) { CKrAssCtrlOld const copy(other); } },
        { "CreateSelectionList", throwsBadAlloc, kept, [](CKrAssCtrlOld & control) { control.CreateSelectionList(); } },
        { "SetSelectionList",    either,         kept, [](CKrAssCtrlOld & control) { control.SetSelectionList(values); } },
        { "AddEvent",            either,         kept, [](CKrAssCtrlOld & control) { control.AddEvent(CKrEvent::eEventNone, Event()); } },
        { "CopyEvents",          either,         kept, [](CKrAssCtrlOld & control) { control.CopyEvents(other); } },
        { "CtrlTypeToString",    throwsMemory,   kept, [](CKrAssCtrlOld &) { CKrAssCtrlOld::CtrlTypeToString(CKrAssCtrlOld::eEditCtrl); } },
    });
    // clang-format on
}

TEST(CKrPropertyOldMemory, KeepsTheProperty)
{
    static CKrFileName const file(OLESTR("C:\\kr\\a.txt"), false);
    static CString const number(OLESTR("0,35"));
    auto const make = []
    {
        CKrPropertyOld property(b, none, true, true);
        property.SetValue(CKrVariant(2.5));
        return property;
    };
    static CKrPropertyOld const same = make();
    auto const stateOf = [](CKrPropertyOld const & property) { return StateOf(property); };
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrPropertyOld>>{
        { "=",                  either,         kept, [](CKrPropertyOld & property) { property = Source(); } },
        { "copy",               either,         kept, [](CKrPropertyOld &) { CKrPropertyOld const copy(Source()); } },
        { "Clone",              either,         kept, [](CKrPropertyOld &) { delete Source().Clone(); } },
        { "AddSubProperty",     throwsBadAlloc, kept, [](CKrPropertyOld & property) { property.AddSubProperty(new Counted); } },
        { "SetValue",           throwsMemory,   kept, [](CKrPropertyOld & property) { property.SetValue(Text()); } },
        { "SetString",          throwsMemory,   kept, [](CKrPropertyOld & property) { property.SetString(longText); } },
        { "SetFileName",        throwsMemory,   kept, [](CKrPropertyOld & property) { property.SetFileName(file); } },
        { "SetValueFromString", throwsMemory,   kept, [](CKrPropertyOld & property) { property.SetValueFromString(number); } },
        { "GetAsString",        throwsMemory,   kept, [](CKrPropertyOld & property) { property.GetAsString(); } },
        { "GetString",          throwsMemory,   kept, [](CKrPropertyOld &) { Source().GetString(); } },
        { "GetValue",           throwsMemory,   kept, [](CKrPropertyOld &) { Source().GetValue(); } },
        { "IsEqual",            throwsMemory,   kept, [](CKrPropertyOld & property) { static_cast<void>(property.IsEqual(same)); } },
    });
    ExpectRows({
        { "default",            throwsBadAlloc, kept, [](Nothing) { CKrPropertyOld const made; } },
        { "name",               throwsBadAlloc, kept, [](Nothing) { CKrPropertyOld const made(a, b, true, true); } },
        { "control",            throwsBadAlloc, kept, [](Nothing) { CKrPropertyOld const made(CKrAssCtrlOld::eMemoCtrl, a, true, true); } },
        { "word of type",       throwsMemory,   kept, [](Nothing) { CKrPropertyOld::PropertyTypeToString(CKrAssCtrlOld::eObjInt); } },
    });
    // clang-format on
}

TEST(CKrPropertySetOldMemory, KeepsTheSetAndFreesThePropertyThatWasGiven)
{
    static CKrPropertySetOld const & others = []() -> CKrPropertySetOld const &
    {
        static CKrPropertySetOld made;
        made.CreateProperty(b, general)->SetValue(Text());
        made.SetCategoryProperty(general, Source());
        return made;
    }();
    auto const make = []
    {
        CKrPropertySetOld set;
        set.AddProperty(new Counted, general);
        return set;
    };
    auto const stateOf = [](CKrPropertySetOld const & set) { return StateOf(set); };
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrPropertySetOld>>{
        { "=",                        either,         kept,   [](CKrPropertySetOld & set) { set = others; } },
        { "copy",                     either,         kept,   [](CKrPropertySetOld &) { CKrPropertySetOld const copy(others); } },
        { "CreateCategory",           throwsBadAlloc, kept,   [](CKrPropertySetOld & set) { set.CreateCategory(a, b, true); } },
        { "CreateCategory default",   either,         kept,   [](CKrPropertySetOld & set) { set.CreateCategory(none); } },
        { "SetCategoryProperty",      either,         kept,   [](CKrPropertySetOld & set) { set.SetCategoryProperty(general, Source()); } },
        { "CreateProperty",           throwsBadAlloc, kept,   [](CKrPropertySetOld & set) { set.CreateProperty(general); } },
        { "CreateProperty name",      throwsBadAlloc, kept,   [](CKrPropertySetOld & set) { set.CreateProperty(a, b); } },
        { "CreateProperty control",   either,         kept,   [](CKrPropertySetOld & set) { set.CreateProperty(a, CKrAssCtrlOld::eMemoCtrl, none); } },
        { "AddProperty",              throwsBadAlloc, kept,   [](CKrPropertySetOld & set) { set.AddProperty(new Counted, general); } },
        { "AddProperty new category", either,         kept,   [](CKrPropertySetOld & set) { set.AddProperty(new Counted, none); } },
        { "InsertProperty",           throwsBadAlloc, kept,   [](CKrPropertySetOld & set) { set.InsertProperty(0, new Counted, general); } },
        { "GetProperty default",      throwsMemory,   kept,   [](CKrPropertySetOld & set) { set.GetProperty(a, none); } },
        { "DeleteCategory default",   throwsGuarded,  kept,   [](CKrPropertySetOld & set) { set.DeleteCategory(none); } },
        { "ChangeValues",             throwsMemory,   partly, [](CKrPropertySetOld & set) { return set.ChangeValues(others); } },
        { "IsEqual",                  throwsMemory,   kept,   [](CKrPropertySetOld & set) { static_cast<void>(set.IsEqual(others)); } },
        { "in place",                 takesNone,      kept,   [](CKrPropertySetOld & set)
          {
              set.SetCategoryDescription(general, longText);
              set.MoveCategory(general, 0);
              set.DeleteProperty(b, general);
              set.DeleteProperties();
          } },
    });
    // clang-format on
}
