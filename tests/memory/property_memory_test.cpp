// Properties, their sets and controls where memory runs out.
#include <krcore/property/krassctrl.h>
#include <krcore/property/krevent.h>
#include <krcore/property/krpropertydatamapper.h>
#include <krcore/property/krpropertyset.h>
#include <krcore/property/krpropertyvalueformatter.h>
#include <krcore/property/krvisitor.h>

#include "tests/memory/failing_rows.h"
#include "tests/property/counted_property.h"

#include <memory>

using namespace kr::test;

namespace
{

CString const none;
CString const a(OLESTR("a"));
CString const b(OLESTR("b"));
CString const general(OLESTR("General"));
CString const longText(OLESTR("a text that is not kept in place"));
CString const word(OLESTR("TODAY"));

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
        made.SetGlobalName(longText);
        made.AddCmdArg(a, Text());
        return made;
    }();
    return event;
}

CKrAssCtrl const & Control()
{
    static CKrAssCtrl const control = []
    {
        CKrAssCtrl made(CKrAssCtrl::eComboCtrl);
        made.SetSelectionList({Text(), CKrVariant(2)});
        made.AddEvent(CKrEvent::eEventNone, Event());
        return made;
    }();
    return control;
}

/// With a control of its own, an attribute, and two nodes below, of which one has a third.
CKrProperty const & Source()
{
    static CKrProperty const & source = []() -> CKrProperty const &
    {
        static CKrProperty made(a, longText, CKrProperty::ePropString, Text(), true, true);
        *made.GetItemCtrl() = Control();
        made.SetAttribute(a, Text());
        made.AddSubProperty(new CKrProperty(b, none, CKrProperty::ePropString, Text(), true, true));
        made.AddSubProperty(new CKrProperty(a, none, CKrProperty::ePropInt, CKrVariant(7), true, true));
        made.GetSubPropertyAt(0)->AddSubProperty(new CKrProperty(a, none, true, true));
        return made;
    }();
    return source;
}

/// All of a tree that can be seen, that each node knows its parent, and how many counted nodes there are.
std::string StateOf(CKrProperty const & node)
{
    CKrAssCtrl const * const control = node.GetItemCtrl();
    std::string text = Described(node.GetName(), node.GetDescription(), node.GetType(), node.GetValue().GetType(),
                                 node.GetAsInvariantString(), node.IsModified(), node.HasAttribute(a),
                                 node.HasAttribute(OLESTR("Kr.DefValue")), control && control->HasEvents(),
                                 control && control->GetSelectionList(), node.GetCtrlType(), CountedProperty::Living());
    for (unsigned int index = 0; index < node.GetSubPropertyCount(); ++index)
    {
        CKrProperty const & child = *node.GetSubPropertyAt(index);
        text += (child.GetParentProperty() == &node ? "(" : "lost(") + StateOf(child) + ")";
    }
    return text;
}

struct Tree
{
    std::unique_ptr<CKrProperty> root =
        std::make_unique<CKrProperty>(general, none, CKrProperty::ePropDouble, CKrVariant(2.5), true, true);
    Tree()
    {
        root->AddSubProperty(new CountedProperty(b));
        root->AddSubProperty(new CountedProperty(a));
    }
};

} // namespace

TEST(CKrPropertyMemory, KeepsTheTreeAndFreesTheNodeThatWasGiven)
{
    static CKrFileName const file(OLESTR("C:\\kr\\a.txt"), false);
    static CKrProperty const given(general, none, CKrProperty::ePropString, Text(), true, true);
    // clang-format off
    ExpectRows([] { return Tree(); }, [](Tree const & tree) { return StateOf(*tree.root); }, std::vector<Row<Tree>>{
        { "AddSubProperty",    either,         kept, [](Tree & tree) { tree.root->AddSubProperty(new CountedProperty(general)); } },
        { "InsertSubProperty", either,         kept, [](Tree & tree) { tree.root->InsertSubProperty(0, new CountedProperty(general)); } },
        { "SortByDescription", throwsBadAlloc, kept, [](Tree & tree) { tree.root->SortByDescription(false); } },
        { "SetType",           throwsMemory,   kept, [](Tree & tree) { tree.root->SetType(CKrProperty::ePropString); } },
        { "SetValue",          throwsMemory,   kept, [](Tree & tree) { tree.root->SetValue(Text()); } },
        { "SetString",         throwsMemory,   kept, [](Tree & tree) { tree.root->SetString(longText); } },
        { "SetFileName",       throwsMemory,   kept, [](Tree & tree) { tree.root->SetFileName(file); } },
        { "SetAttribute",      either,         kept, [](Tree & tree) { tree.root->SetAttribute(a, Text()); } },
        { "SetCtrlType",       takesNone,      kept, [](Tree & tree) { tree.root->SetCtrlType(CKrAssCtrl::eComboCtrl); } },
        { "Copy",              either,         kept, [](Tree & tree) { tree.root->Copy(Source()); } },
        { "DeepCopy",          either,         kept, [](Tree & tree) { tree.root->DeepCopy(Source()); } },
        { "DeepCopy of a child", throwsMemory, kept, [](Tree & tree) { tree.root->DeepCopy(*tree.root->GetSubPropertyAt(1)); } },
        { "=",                 either,         kept, [](Tree & tree) { *tree.root = Source(); } },
        { "ChangeValue",       throwsMemory,   kept, [](Tree & tree) { return tree.root->ChangeValue(given); } },
        { "copy",              either,         kept, [](Tree & tree) { CKrProperty const copy(*tree.root); } },
        { "Clone",             either,         kept, [](Tree & tree) { delete tree.root->Clone(); } },
        { "in place",          takesNone,      kept, [](Tree & tree)
          {
              tree.root->ShiftSubProperty(0, 1);
              tree.root->SetName(b);
              tree.root->SetDescription(a);
              tree.root->SetInt(5);
              tree.root->DeleteSubProperty(a);
              tree.root->DeleteSubProperties();
          } },
    });
    // clang-format on
}

TEST(CKrPropertyMemory, LeavesNothingOfANode)
{
    // clang-format off
    ExpectRows({
        { "default",       takesNone,      kept, [](Nothing) { CKrProperty const made; } },
        { "name",          throwsMemory,   kept, [](Nothing) { CKrProperty const made(a, b, true, true); } },
        { "type",          throwsMemory,   kept, [](Nothing) { CKrProperty const made(a, b, CKrProperty::ePropString, true, true); } },
        { "value",         throwsMemory,   kept, [](Nothing) { CKrProperty const made(a, b, CKrProperty::ePropString, Text(), true, true); } },
        { "copy",          either,         kept, [](Nothing) { CKrProperty const copy(Source()); } },
        { "word of type",  throwsMemory,   kept, [](Nothing) { CKrProperty::PropertyTypeToString(CKrProperty::ePropInt); } },
        { "type of word",  takesNone,      kept, [](Nothing) { CKrProperty::PropertyTypeFromString(general); } },
        { "GetString",     throwsMemory,   kept, [](Nothing) { Source().GetString(); } },
        { "GetValue",      throwsMemory,   kept, [](Nothing) { Source().GetValue(); } },
        { "GetFileName",   throwsMemory,   kept, [](Nothing) { Source().GetFileName(); } },
        { "GetAttribute",  throwsMemory,   kept, [](Nothing) { Source().GetAttribute(a); } },
        { "GetAsString",   throwsMemory,   kept, [](Nothing) { Source().GetAsString(); } },
    });
    // clang-format on
}

TEST(CKrPropertyMemory, ReadsAndWritesTextByTypeOrThrows)
{
    struct TypeRow
    {
        CKrProperty::EPropType type;
        CKrVariant value;
        CString text;
        unsigned reading, writing;
    };
    // clang-format off
    TypeRow const types[] = {
        { CKrProperty::ePropString,   Text(),                              longText,                      throwsMemory, throwsMemory },
        { CKrProperty::ePropDouble,   CKrVariant(2.5),                     OLESTR("0,35"),                throwsMemory, throwsMemory },
        { CKrProperty::ePropInt,      CKrVariant(7),                       OLESTR("25"),                  takesNone,    throwsMemory },
        { CKrProperty::ePropBool,     CKrVariant(true),                    OLESTR("0"),                   takesNone,    takesNone    },
        { CKrProperty::ePropColor,    CKrVariant(CKrColor(5)),             OLESTR("-3"),                  takesNone,    throwsMemory },
        { CKrProperty::ePropDate,     CKrVariant(COleDateTime(44197.75)),  OLESTR("3/15/2021"),           takesNone,    throwsMemory },
        { CKrProperty::ePropTime,     CKrVariant(COleDateTime(44197.75)),  OLESTR("8:05 PM"),             takesNone,    throwsMemory },
        { CKrProperty::ePropDateTime, CKrVariant(COleDateTime(44197.75)),  OLESTR("2021-03-15 08:05:09"), takesNone,    throwsMemory },
        { CKrProperty::ePropFile,     Text(),                              OLESTR("C:\\kr\\a.txt"),       throwsMemory, throwsMemory },
        { CKrProperty::ePropDir,      Text(),                              OLESTR("C:\\kr"),              throwsMemory, throwsMemory },
    };
    // clang-format on
    for (TypeRow const & type : types)
    {
        SCOPED_TRACE(type.type);
        struct Typed
        {
            CKrProperty property;
            CString const & text;
        };
        auto const make = [&type] { return Typed{CKrProperty(a, none, type.type, type.value, true, true), type.text}; };
        // clang-format off
        ExpectRows(make, [](Typed const & typed) { return StateOf(typed.property); }, std::vector<Row<Typed>>{
            { "SetValueFromString",   type.reading, kept, [](Typed & typed) { typed.property.SetValueFromString(typed.text); } },
            { "GetAsString",          type.writing, kept, [](Typed & typed) { typed.property.GetAsString(); } },
            { "GetAsInvariantString", type.writing, kept, [](Typed & typed) { typed.property.GetAsInvariantString(); } },
            { "GetAsLocaleString",    type.writing, kept, [](Typed & typed) { typed.property.GetAsLocaleString(); } },
        });
        // clang-format on
    }
}

TEST(CKrPropertyMemory, FindsNamesOfManyWithoutAnIndexToo)
{
    struct Wide
    {
        CKrProperty root;
        CString last;

        Wide()
        {
            for (int index = 0; index < 100; ++index)
            {
                last.Format(OLESTR("%d"), index);
                root.AddSubProperty(new CKrProperty(last, none, CKrProperty::ePropInt, CKrVariant(1), true, true));
            }
        }
    };
    auto const stateOf = [](Wide const & wide) { return Described(wide.root.GetSubPropertyCount()); };
    auto const findOften = [](Wide & wide)
    {
        bool found = true;
        for (int times = 0; times < 10; ++times)
            found = wide.root.GetSubProperty(wide.last) && !wide.root.GetSubProperty(general) && found;
        return found;
    };
    ExpectRows([] { return Wide(); }, stateOf, std::vector<Row<Wide>>{{"GetSubProperty", goesOn, kept, findOften}});
}

TEST(CKrAssCtrlMemory, KeepsTheControl)
{
    static std::vector<CKrVariant> const values = {Text(), CKrVariant(3)};
    auto const stateOf = [](CKrAssCtrl const & control)
    {
        std::vector<CKrVariant> const * const list = control.GetSelectionList();
        return Described(control.GetType(), control.GetUserCtrlType(), control.HasEvents(), list ? list->size() : 99);
    };
    // clang-format off
    ExpectRows([] { return CKrAssCtrl(CKrAssCtrl::eEditCtrl); }, stateOf, std::vector<Row<CKrAssCtrl>>{
        { "=",                   either,         kept, [](CKrAssCtrl & control) { control = Control(); } },
        { "copy",                either,         kept, [](CKrAssCtrl &) { CKrAssCtrl const copy(Control()); } },
        { "CreateSelectionList", throwsBadAlloc, kept, [](CKrAssCtrl & control) { control.CreateSelectionList(); } },
        { "SetSelectionList",    either,         kept, [](CKrAssCtrl & control) { control.SetSelectionList(values); } },
        { "AddEvent",            either,         kept, [](CKrAssCtrl & control) { control.AddEvent(CKrEvent::eEventNone, Event()); } },
        { "CopyEvents",          either,         kept, [](CKrAssCtrl & control) { control.CopyEvents(Control()); } },
        { "GetCtrlTypeAsString", throwsMemory,   kept, [](CKrAssCtrl & control) { control.GetCtrlTypeAsString(); } },
        { "CtrlTypeToString",    throwsMemory,   kept, [](CKrAssCtrl &) { CKrAssCtrl::CtrlTypeToString(CKrAssCtrl::eEditCtrl); } },
        { "SetCtrlType",         throwsBadAlloc, kept, [](CKrAssCtrl & control) { control.SetCtrlType(a); } },
        { "SetUserCtrlType",     throwsBadAlloc, kept, [](CKrAssCtrl & control) { control.SetUserCtrlType(b); } },
        { "SetTooltip",          throwsBadAlloc, kept, [](CKrAssCtrl & control) { control.SetTooltip(b); } },
        { "in place",            takesNone,      kept, [](CKrAssCtrl & control)
          {
              control.SetCtrlType(none);
              control.SetUserCtrlType(none);
              control.SetTooltip(none);
              control.ClearEvents();
              control.ClearSelectionList();
          } },
    });
    // clang-format on
}

TEST(CKrEventMemory, KeepsTheEvent)
{
    auto const make = []
    {
        CKrEvent event;
        event.AddCmdArg(b, CKrVariant(7));
        return event;
    };
    auto const stateOf = [](CKrEvent const & event) {
        return Described(event.GetActionText(), event.HasCmdArg(a), event.HasCmdArg(b),
                         event.GetCmdArg(b).GetAsString());
    };
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrEvent>>{
        { "=",             either,       kept, [](CKrEvent & event) { event = Event(); } },
        { "copy",          either,       kept, [](CKrEvent &) { CKrEvent const copy(Event()); } },
        { "AddCmdArg",     either,       kept, [](CKrEvent & event) { return event.AddCmdArg(a, Text()); } },
        { "AddCmdArg known", throwsMemory, kept, [](CKrEvent & event) { return event.AddCmdArg(b, Text()); } },
        { "GetCmdArg",     throwsMemory, kept, [](CKrEvent &) { Event().GetCmdArg(a); } },
        { "GetActionText", throwsMemory, kept, [](CKrEvent & event) { event.GetActionText(); } },
        { "RemoveCmdArg",  takesNone,    kept, [](CKrEvent & event) { event.RemoveCmdArg(b); } },
    });
    // clang-format on
}

namespace
{

CKrPropertySet MakeSet()
{
    CKrPropertySet set;
    set.AddProperty(new CountedProperty(b), general);
    set.AddProperty(new CountedProperty(a), general);
    return set;
}

CKrPropertySet const & OtherSet()
{
    static CKrPropertySet const & other = []() -> CKrPropertySet const &
    {
        static CKrPropertySet made;
        made.AddProperty(new CKrProperty(Source()), general);
        return made;
    }();
    return other;
}

} // namespace

TEST(CKrPropertySetMemory, KeepsTheSetAndFreesThePropertyThatWasGiven)
{
    auto const stateOf = [](CKrPropertySet const & set) { return StateOf(set.GetRootProperty()); };
    // clang-format off
    ExpectRows(MakeSet, stateOf, std::vector<Row<CKrPropertySet>>{
        { "=",                         either,         kept,   [](CKrPropertySet & set) { set = OtherSet(); } },
        { "copy",                      either,         kept,   [](CKrPropertySet & set) { CKrPropertySet const copy(set); } },
        { "empty",                     takesNone,      kept,   [](CKrPropertySet &) { CKrPropertySet const made; } },
        { "CreateCategory",            throwsBadAlloc, kept,   [](CKrPropertySet & set) { set.CreateCategory(a, b, true); } },
        { "CreateCategory default",    throwsBadAlloc, kept,   [](CKrPropertySet & set) { set.CreateCategory(none); } },
        { "CreateProperty",            throwsBadAlloc, kept,   [](CKrPropertySet & set) { set.CreateProperty(a); } },
        { "CreateProperty name",       either,         kept,   [](CKrPropertySet & set) { set.CreateProperty(a, b); } },
        { "CreateProperty type",       either,         kept,   [](CKrPropertySet & set) { set.CreateProperty(a, CKrProperty::ePropString, general); } },
        { "AddProperty",               either,         kept,   [](CKrPropertySet & set) { set.AddProperty(new CountedProperty(b), general); } },
        { "AddProperty new category",  either,         kept,   [](CKrPropertySet & set) { set.AddProperty(new CountedProperty(b), none); } },
        { "InsertProperty",            either,         kept,   [](CKrPropertySet & set) { set.InsertProperty(0, new CountedProperty(b), general); } },
        { "GetCategory default",       takesNone,      kept,   [](CKrPropertySet & set) { set.GetCategory(none); } },
        { "GetProperty default",       takesNone,      kept,   [](CKrPropertySet & set) { set.GetProperty(a, none); } },
        { "DeleteCategory default",    takesNone,      kept,   [](CKrPropertySet & set) { set.DeleteCategory(none); } },
        { "DeleteProperty default",    takesNone,      kept,   [](CKrPropertySet & set) { set.DeleteProperty(a, none); } },
        { "MoveCategory",              takesNone,      kept,   [](CKrPropertySet & set) { return set.MoveCategory(general, 0); } },
        { "AlphabeticSortCategories",  throwsGuarded,  kept,   [](CKrPropertySet & set) { return set.AlphabeticSortCategories(); } },
        { "AlphabeticSortProperties",  throwsGuarded,  kept,   [](CKrPropertySet & set) { return set.AlphabeticSortProperties(general); } },
        { "AlphabeticSortProperties all", throwsGuarded, partly, [](CKrPropertySet & set) { return set.AlphabeticSortProperties(none); } },
        { "ChangeValues",              throwsMemory,   partly, [](CKrPropertySet & set) { return set.ChangeValues(OtherSet()); } },
        { "Visit",                     throwsGuarded,  kept,   [](CKrPropertySet & set)
          {
              struct Reader : kr::visitor<CKrProperty>
              {
                  bool Action(CKrProperty * node) override
                  {
                      node->GetDescription() + longText;
                      return true;
                  }
              } reader;
              return set.Visit(reader);
          } },
    });
    // clang-format on
}

TEST(CKrPropertyValueFormatterMemory, KeepsThePropertyAndTheText)
{
    struct Default
    {
        CKrProperty property;
        CString text = longText;
        CString given;
    };
    static CKrPropertyValueFormatter const formatter;
    auto const stateOf = [](Default const & value) { return StateOf(value.property) + Described(value.text); };
    struct TypeRow
    {
        CKrProperty::EPropType type;
        CString text;
        unsigned parsing, formatting;
    };
    // clang-format off
    TypeRow const types[] = {
        { CKrProperty::ePropDateTime, OLESTR(" today"),  throwsGuarded, throwsGuarded },
        { CKrProperty::ePropDateTime, none,              throwsGuarded, throwsGuarded },
        { CKrProperty::ePropDateTime, OLESTR("2021-03-15"), throwsGuarded, throwsGuarded },
        { CKrProperty::ePropColor,    OLESTR(" rgb(1,2,3)"), throwsGuarded, throwsGuarded },
        { CKrProperty::ePropString,   longText,          throwsGuarded, throwsGuarded },
    };
    // clang-format on
    for (TypeRow const & type : types)
    {
        SCOPED_TRACE(testing::Message() << type.type << type.text);
        auto const make = [&type]
        {
            Default value{CKrProperty(b, none, type.type, true, true), longText, type.text};
            formatter.ParseDefaultValue(OLESTR("NULL"), value.property);
            return value;
        };
        // clang-format off
        ExpectRows(make, stateOf, std::vector<Row<Default>>{
            { "ParseDefaultValue",           type.parsing,    kept, [](Default & value) { return formatter.ParseDefaultValue(value.given, value.property); } },
            { "FormatDefaultValueInvariant", type.formatting, kept, [](Default & value) { return formatter.FormatDefaultValueInvariant(value.property, value.text); } },
            { "FormatDefaultValueLocale",    type.formatting, kept, [](Default & value) { return formatter.FormatDefaultValueLocale(value.property, value.text); } },
        });
        // clang-format on
    }
}

TEST(CKrPropertyDataMapperMemory, KeepsPropertyAndData)
{
    struct Mapped
    {
        CKrProperty property{a, none, CKrProperty::ePropString, Text(), true, true};
        CString data = b;
    };
    static CKrPropertyDataMapper const mapper;
    auto const stateOf = [](Mapped const & mapped) { return StateOf(mapped.property) + Described(mapped.data); };
    // clang-format off
    ExpectRows([] { return Mapped(); }, stateOf, std::vector<Row<Mapped>>{
        { "DataFromProp",    throwsMemory, kept, [](Mapped & mapped) { mapper.DataFromProp(&mapped.property, mapped.data); } },
        { "DataToProp",      throwsMemory, kept, [](Mapped & mapped) { mapper.DataToProp(&mapped.property, mapped.data); } },
        { "DataToProp literal", throwsMemory, kept, [](Mapped & mapped) { mapper.DataToProp(&mapped.property, OLESTR("literal")); } },
        { "DataToProp int",  takesNone,    kept, [](Mapped & mapped) { mapper.DataToProp(&mapped.property, 7); } },
    });
    // clang-format on
}
