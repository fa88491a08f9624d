// Typed values, attribute lists, option lists and matrices where memory runs out.
#include <krcore/values/krattrlist.h>
#include <krcore/values/krmatrix.h>
#include <krcore/values/kroptionlist.h>
#include <krcore/values/krvariant.h>

#include "tests/memory/failing_rows.h"

#include <memory>

using namespace kr::test;

namespace
{

CString const longText(OLESTR("a text that is not kept in place"));
CString const a(OLESTR("a"));
CString const b(OLESTR("b"));
CString const c(OLESTR("c"));
std::vector<CString> const texts = {a, longText};

kr::matrix<CString> const & Names()
{
    static kr::matrix<CString> const names = []
    {
        kr::matrix<CString> made;
        made.Resize(2, 2);
        made.At(1, 1) = longText;
        return made;
    }();
    return names;
}

kr::matrix<CKrVariant> const & Cells()
{
    static kr::matrix<CKrVariant> const cells = []
    {
        kr::matrix<CKrVariant> made;
        made.Resize(2, 2);
        made.At(1, 1) = CKrVariant(longText);
        return made;
    }();
    return cells;
}

CKrPoint3List const & Points()
{
    static CKrPoint3List const points = {CKrPoint3(1, 2, 3), CKrPoint3(4, 5, 6)};
    return points;
}

CKrVector3List const & Vectors()
{
    static CKrVector3List const vectors(2);
    return vectors;
}

std::string StateOf(CKrVariant const & value) { return Described(value.GetType(), value.vt, value.GetAsString()); }

} // namespace

TEST(CKrVariantMemory, LeavesNothingOfAValueThatCannotBeMade)
{
    static CKrVariant const text(longText);
    static std::vector<VARIANT> const values = {VARIANT{}, VARIANT{}};
    static std::vector<IDispatch *> const objects = {nullptr, nullptr};
    static std::vector<double> const doubles = {1.5, 2.5};
    static std::vector<long> const longs = {1, 2};
    // clang-format off
    ExpectRows({
        { "copy",            throwsMemory, kept, [](Nothing) { CKrVariant const copy(text); } },
        { "VARIANT",         throwsMemory, kept, [](Nothing) { CKrVariant const made(static_cast<VARIANT const &>(text)); } },
        { "CString",         throwsMemory, kept, [](Nothing) { CKrVariant const made(longText); } },
        { "units",           throwsMemory, kept, [](Nothing) { CKrVariant const made(OLESTR("wall")); } },
        { "bytes",           throwsMemory, kept, [](Nothing) { CKrVariant const made("wall"); } },
        { "wchar_t",         throwsMemory, kept, [](Nothing) { CKrVariant const made(L"wall"); } },
        { "texts",           throwsMemory, kept, [](Nothing) { CKrVariant const made(texts); } },
        { "doubles",         throwsMemory, kept, [](Nothing) { CKrVariant const made(doubles); } },
        { "longs",           throwsMemory, kept, [](Nothing) { CKrVariant const made(longs); } },
        { "objects",         throwsMemory, kept, [](Nothing) { CKrVariant const made(objects); } },
        { "values",          throwsMemory, kept, [](Nothing) { CKrVariant const made(values); } },
        { "matrix of texts", throwsMemory, kept, [](Nothing) { CKrVariant const made(Names()); } },
        { "matrix of values", throwsMemory, kept, [](Nothing) { CKrVariant const made(Cells()); } },
        { "point",           throwsMemory, kept, [](Nothing) { CKrVariant const made(CKrPoint3(1, 2, 3)); } },
        { "vector",          throwsMemory, kept, [](Nothing) { CKrVariant const made(CKrVector3(1, 2, 3)); } },
        { "points",          throwsMemory, kept, [](Nothing) { CKrVariant const made(Points()); } },
        { "vectors",         throwsMemory, kept, [](Nothing) { CKrVariant const made(Vectors()); } },
        { "number",          takesNone,    kept, [](Nothing) { CKrVariant const made(2.5); CKrVariant const copy(made); } },
    });
    // clang-format on
}

TEST(CKrVariantMemory, KeepsTheValue)
{
    static CKrVariant const text(longText);
    static CKrVariant const array(texts);
    auto const rows = [](CKrVariant const & start, std::vector<Row<CKrVariant>> const & table) {
        ExpectRows([&start] { return CKrVariant(start); }, [](CKrVariant const & value) { return StateOf(value); },
                   table);
    };
    // clang-format off
    rows(CKrVariant(2.5), {
        { "=",                 throwsMemory, kept, [](CKrVariant & value) { value = text; } },
        { "= array",           throwsMemory, kept, [](CKrVariant & value) { value = array; } },
        { "ConvertType",       throwsMemory, kept, [](CKrVariant & value) { value.ConvertType(CKrVariant::eString); } },
        { "ConvertTypeLocale", throwsMemory, kept, [](CKrVariant & value) { value.ConvertTypeLocale(CKrVariant::eString); } },
    });
    rows(CKrVariant(true), {
        { "ConvertType bool",  throwsMemory, kept, [](CKrVariant & value) { value.ConvertType(CKrVariant::eString); } },
    });
    rows(CKrVariant(COleDateTime(44197.75)), {
        { "ConvertType date",  throwsMemory, kept, [](CKrVariant & value) { value.ConvertType(CKrVariant::eString); } },
        { "ConvertTypeLocale date", throwsMemory, kept, [](CKrVariant & value) { value.ConvertTypeLocale(CKrVariant::eString); } },
    });
    rows(CKrVariant(OLESTR("2.5")), {
        { "ConvertType text",  takesNone,    kept, [](CKrVariant & value) { value.ConvertType(CKrVariant::eDouble); } },
    });
    // clang-format on
}

TEST(CKrVariantMemory, ThrowsInPlaceOfAnEmptyText)
{
    static CKrVariant const text(longText);
    static CKrVariant const number(2.5);
    static CKrVariant const real = CKrVariant(2.5).ConvertType(CKrVariant::eFloat);
    static CKrVariant const small(short(25));
    static CKrVariant const whole(25);
    static CKrVariant const color{CKrColor(5)};
    static CKrVariant const truth(true);
    static CKrVariant const amount{COleCurrency(12, 5000)};
    static CKrVariant const date{COleDateTime(44197.75)};
    // clang-format off
    ExpectRows({
        { "to CString",           throwsMemory, kept, [](Nothing) { text.operator CString(); } },
        { "number to CString",    throwsMemory, kept, [](Nothing) { number.operator CString(); } },
        { "date to CString",      throwsMemory, kept, [](Nothing) { date.operator CString(); } },
        { "text to double",       takesNone,    kept, [](Nothing) { static_cast<void>(text.operator double()); } },
        { "text to date",         takesNone,    kept, [](Nothing) { text.operator COleDateTime(); } },
        { "GetAsString text",     throwsMemory, kept, [](Nothing) { text.GetAsString(); } },
        { "GetAsString double",   throwsMemory, kept, [](Nothing) { number.GetAsString(); } },
        { "GetAsString float",    throwsMemory, kept, [](Nothing) { real.GetAsString(); } },
        { "GetAsString short",    throwsMemory, kept, [](Nothing) { small.GetAsString(); } },
        { "GetAsString long",     throwsMemory, kept, [](Nothing) { whole.GetAsString(); } },
        { "GetAsString color",    throwsMemory, kept, [](Nothing) { color.GetAsString(); } },
        { "GetAsString bool",     takesNone,    kept, [](Nothing) { truth.GetAsString(); } },
        { "GetAsString currency", throwsMemory, kept, [](Nothing) { amount.GetAsString(); } },
        { "GetAsString date",     throwsMemory, kept, [](Nothing) { date.GetAsString(); } },
        { "GetAsInvariantString", throwsMemory, kept, [](Nothing) { date.GetAsInvariantString(); } },
        { "GetAsInvariantString double", throwsMemory, kept, [](Nothing) { number.GetAsInvariantString(); } },
        { "GetAsLocaleString",    throwsMemory, kept, [](Nothing) { number.GetAsLocaleString(); } },
        { "GetAsLocaleString bool", throwsMemory, kept, [](Nothing) { truth.GetAsLocaleString(); } },
    });
    // clang-format on
}

TEST(CKrVariantMemory, LeavesTheOutputOfAReading)
{
    static CKrVariant const manyTexts(texts);
    static CKrVariant const doubles(std::vector<double>{1.5, 2.5, 3.5});
    static CKrVariant const longs(std::vector<long>{1, 2, 3});
    static CKrVariant const names(Names());
    static CKrVariant const cells(Cells());
    static CKrVariant const points(Points());
    static CKrVariant const objects(std::vector<IDispatch *>{nullptr, nullptr});
    struct Outputs
    {
        std::vector<CString> texts;
        std::vector<double> doubles;
        std::vector<long> longs;
        std::vector<VARIANT> values;
        kr::matrix<CString> names;
        kr::matrix<CKrVariant> cells;
        CKrPoint3List points;

        Outputs() = default;
        Outputs(Outputs const &) = delete;
        Outputs & operator=(Outputs const &) = delete;
        ~Outputs() { Clear(values); }

        static void Clear(std::vector<VARIANT> & variants)
        {
            for (VARIANT & value : variants)
                VariantClear(&value);
        }
    };
    auto const stateOf = [](Outputs const & outputs)
    {
        return Described(outputs.texts.size(), outputs.doubles.size(), outputs.longs.size(), outputs.values.size(),
                         outputs.names.GetRows(), outputs.cells.GetRows(), outputs.points.size());
    };
    // clang-format off
    ExpectRows([] { return Outputs(); }, stateOf, std::vector<Row<Outputs>>{
        { "texts",    throwsMemory | throwsBadAlloc, kept, [](Outputs & outputs) { manyTexts.GetValue(outputs.texts); } },
        { "doubles",  throwsBadAlloc,                kept, [](Outputs & outputs) { doubles.GetValue(outputs.doubles); } },
        { "longs",    throwsBadAlloc,                kept, [](Outputs & outputs) { longs.GetValue(outputs.longs); } },
        { "names",    throwsMemory | throwsBadAlloc, kept, [](Outputs & outputs) { names.GetValue(outputs.names); } },
        { "cells",    throwsMemory | throwsBadAlloc, kept, [](Outputs & outputs) { cells.GetValue(outputs.cells); } },
        { "points",   throwsBadAlloc,                kept, [](Outputs & outputs) { points.GetValue(outputs.points); } },
        { "values",   throwsMemory | throwsBadAlloc, kept, [](Outputs & outputs)
          {
              std::vector<VARIANT> read;
              points.GetValue(read);
              Outputs::Clear(outputs.values);
              outputs.values = std::move(read);
          } },
    });
    ExpectRows({
        { "GetStringVector",  throwsMemory | throwsBadAlloc, kept, [](Nothing) { manyTexts.GetStringVector(); } },
        { "GetDoubleVector",  throwsBadAlloc,                kept, [](Nothing) { doubles.GetDoubleVector(); } },
        { "GetLongVector",    throwsBadAlloc,                kept, [](Nothing) { longs.GetLongVector(); } },
        { "GetStringMatrix",  throwsMemory | throwsBadAlloc, kept, [](Nothing) { names.GetStringMatrix(); } },
        { "GetVariantMatrix", throwsMemory | throwsBadAlloc, kept, [](Nothing) { cells.GetVariantMatrix(); } },
        { "GetPoint3List",    throwsBadAlloc,                kept, [](Nothing) { points.GetPoint3List(); } },
        { "GetVARIANTVector", throwsMemory | throwsBadAlloc, kept, [](Nothing) { auto read = points.GetVARIANTVector(); Outputs::Clear(read); } },
        { "to objects",       throwsBadAlloc,                kept, [](Nothing) { objects.operator std::vector<IDispatch *>(); } },
        { "GetPoint3",        takesNone,                     kept, [](Nothing) { doubles.GetPoint3(); } },
    });
    // clang-format on
}

TEST(MatrixMemory, KeepsTheElements)
{
    // clang-format off
    ExpectRows([] { return kr::matrix<CKrVariant>(Cells()); },
               [](kr::matrix<CKrVariant> const & matrix)
               {
                   std::string text = Described(matrix.GetRows(), matrix.GetColumns());
                   for (int row = 0; row < matrix.GetRows(); ++row)
                       text += StateOf(matrix.At(row, 0));
                   return text;
               },
               std::vector<Row<kr::matrix<CKrVariant>>>{
        { "Resize", throwsBadAlloc,                kept, [](kr::matrix<CKrVariant> & matrix) { matrix.Resize(9, 9); } },
        { "=",      throwsMemory | throwsBadAlloc, kept, [](kr::matrix<CKrVariant> & matrix) { matrix = Cells(); } },
    });
    // clang-format on
}

TEST(CKrAttrListMemory, KeepsTheList)
{
    static CKrVariant const text(longText);
    static CKrAttrData const attribute(b, text, longText);
    static CKrAttrList const others = []
    {
        CKrAttrList made;
        made.AddLong(a, 7);
        made.AddAttr(attribute);
        return made;
    }();
    auto const make = []
    {
        CKrAttrList list;
        list.AddString(a, longText);
        return list;
    };
    auto const stateOf = [](CKrAttrList const & list)
    {
        std::string state;
        for (int index = 0; index < list.size(); ++index)
            state += Described(list.At(index).GetName(), list.At(index).GetDescription(),
                               StateOf(list.At(index).GetValue()));
        return state;
    };
    constexpr unsigned either = throwsMemory | throwsBadAlloc;
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrAttrList>>{
        { "=",              either,         kept,   [](CKrAttrList & list) { list = others; } },
        { "copy",           either,         kept,   [](CKrAttrList & list) { CKrAttrList const copy(list); } },
        { "AddAttr",        either,         kept,   [](CKrAttrList & list) { list.AddAttr(attribute); } },
        { "SetAttr",        either,         kept,   [](CKrAttrList & list) { list.SetAttr(b, attribute); } },
        { "SetAttr known",  throwsMemory,   kept,   [](CKrAttrList & list) { list.SetAttr(a, attribute); } },
        { "AppendAttrList", either,         partly, [](CKrAttrList & list) { list.AppendAttrList(others); } },
        { "SetValue",       throwsMemory,   kept,   [](CKrAttrList & list) { list.SetValue(a, text); } },
        { "SetBool",        throwsBadAlloc, kept,   [](CKrAttrList & list) { list.SetBool(b, true, longText); } },
        { "SetDouble",      throwsBadAlloc, kept,   [](CKrAttrList & list) { list.SetDouble(b, 2.5, longText); } },
        { "SetLong",        throwsBadAlloc, kept,   [](CKrAttrList & list) { list.SetLong(b, 25, longText); } },
        { "SetPtr",         throwsBadAlloc, kept,   [](CKrAttrList & list) { list.SetPtr(b, nullptr, longText); } },
        { "SetString",      either,         kept,   [](CKrAttrList & list) { list.SetString(b, longText, longText); } },
        { "AddBool",        throwsBadAlloc, kept,   [](CKrAttrList & list) { list.AddBool(b, true); } },
        { "AddDouble",      throwsBadAlloc, kept,   [](CKrAttrList & list) { list.AddDouble(b, 2.5); } },
        { "AddLong",        throwsBadAlloc, kept,   [](CKrAttrList & list) { list.AddLong(b, 25); } },
        { "AddPtr",         throwsBadAlloc, kept,   [](CKrAttrList & list) { list.AddPtr(b, nullptr); } },
        { "AddString",      either,         kept,   [](CKrAttrList & list) { list.AddString(b, longText); } },
        { "GetBoolAdd",     throwsBadAlloc, kept,   [](CKrAttrList & list) { list.GetBoolAdd(b, true, longText); } },
        { "GetDoubleAdd",   throwsBadAlloc, kept,   [](CKrAttrList & list) { list.GetDoubleAdd(b, 2.5, longText); } },
        { "GetLongAdd",     throwsBadAlloc, kept,   [](CKrAttrList & list) { list.GetLongAdd(b, 25, longText); } },
        { "GetStringAdd",   either,         kept,   [](CKrAttrList & list) { list.GetStringAdd(b, longText, longText); } },
        { "GetString",      throwsMemory,   kept,   [](CKrAttrList & list) { list.GetString(a, b); } },
        { "GetValue",       throwsMemory,   kept,   [](CKrAttrList & list) { list.GetValue(a); } },
        { "At",             throwsMemory,   kept,   [](CKrAttrList & list) { list.At(0).GetValueAsString(); } },
        { "GetPtrAdd",      either,         partly, [](CKrAttrList & list)
          {
              try
              {
                  list.GetPtrAdd(b, nullptr, longText);
              }
              catch (COleException * exception)
              {
                  exception->Delete();
              }
          } },
        { "GetAttr missing", throwsMemory,  kept,   [](CKrAttrList & list)
          {
              try
              {
                  list.GetAttr(c);
              }
              catch (CKrException const &)
              {
              }
          } },
    });
    static CKrAttrList const truth = []
    {
        CKrAttrList made;
        made.AddString(a, OLESTR("1"));
        return made;
    }();
    ExpectRows({
        { "GetBool of text",   throwsMemory, kept, [](Nothing) { truth.GetBool(a, false); } },
        { "GetLong of text",   throwsMemory, kept, [](Nothing) { truth.GetLong(a, 0); } },
        { "GetDouble of text", throwsMemory, kept, [](Nothing) { truth.GetDouble(a, 0.0); } },
        { "attribute",      throwsMemory, kept, [](Nothing) { CKrAttrData const made(a, text, longText); } },
        { "attribute copy", throwsMemory, kept, [](Nothing) { CKrAttrData const copy(attribute); } },
        { "attribute text", throwsMemory, kept, [](Nothing) { attribute.GetValueAsString(); } },
    });
    ExpectRows([] { return CKrAttrData(a, CKrVariant(7), b); },
               [](CKrAttrData const & data) { return Described(data.GetName(), data.GetDescription(), StateOf(data.GetValue())); },
               std::vector<Row<CKrAttrData>>{
        { "attribute =",    throwsMemory, kept, [](CKrAttrData & data) { data = attribute; } },
        { "SetValue",       throwsMemory, kept, [](CKrAttrData & data) { data.SetValue(text); } },
    });
    // clang-format on
}

TEST(CKrOptionListMemory, KeepsTheList)
{
    struct Options
    {
        CKrOptionList list;
        Options()
        {
            list.AddOption(a, a, true);
            list.AddOption(b, b, false)->SetValue(CKrVariant(longText));
        }
    };
    static CKrOptionListItem const other = []
    {
        CKrOptionListItem made(c, c);
        made.SetValue(CKrVariant(longText));
        return made;
    }();
    static CKrOptionListItem const changed = []
    {
        CKrOptionListItem made(a, c);
        made.SetValue(CKrVariant(longText));
        return made;
    }();
    static std::vector<std::pair<CString, CString>> const pairs = {{c, c}, {longText, longText}};
    static std::vector<CString> const more = {c, longText};
    static CString const identifiers(OLESTR("b;a"));
    auto const stateOf = [](Options const & options)
    {
        std::string state;
        for (unsigned int index = 0; index < options.list.GetOptionCount(); ++index)
        {
            CKrOptionListItem const & item = *options.list.GetOptionAt(index);
            bool const isFound = options.list.GetOption(item.GetID()) == &item;
            state += Described(item.GetID(), item.GetText(), item.IsSelected(), StateOf(item.GetValue()), isFound);
        }
        return state;
    };
    constexpr unsigned either = throwsMemory | throwsBadAlloc;
    // clang-format off
    ExpectRows([] { return Options(); }, stateOf, std::vector<Row<Options>>{
        { "AddOption item",        either,         kept,   [](Options & options) { options.list.AddOption(other); } },
        { "AddOption known item",  throwsMemory,   kept,   [](Options & options) { options.list.AddOption(changed); } },
        { "AddOption",             throwsBadAlloc, kept,   [](Options & options) { options.list.AddOption(c, longText, true); } },
        { "AddOption pairs",       throwsBadAlloc, partly, [](Options & options) { options.list.AddOption(pairs); } },
        { "AddOption lists",       throwsBadAlloc, partly, [](Options & options) { options.list.AddOption(more, texts); } },
        { "AddOptionID",           throwsBadAlloc, kept,   [](Options & options) { options.list.AddOptionID(c, true); } },
        { "AddOptionIDs",          throwsBadAlloc, partly, [](Options & options) { options.list.AddOptionIDs(more); } },
        { "AddOptionText",         throwsBadAlloc, kept,   [](Options & options) { options.list.AddOptionText(c, true); } },
        { "AddOptionText texts",   throwsBadAlloc, partly, [](Options & options) { options.list.AddOptionText(more); } },
        { "GetSelectedIDs",        either,         kept,   [](Options & options) { options.list.GetSelectedIDs(); } },
        { "GetSelectedTexts",      either,         kept,   [](Options & options) { options.list.GetSelectedTexts(); } },
        { "SelectIDs",             either,         kept,   [](Options & options) { options.list.SelectIDs(identifiers, true); } },
        { "SelectTexts",           either,         kept,   [](Options & options) { options.list.SelectTexts(identifiers, true); } },
        { "the others",            takesNone,      kept,   [](Options & options)
          {
              options.list.SelectID(b, true);
              options.list.SelectText(a, false);
              options.list.SelectIDs(texts, true);
              options.list.SetSelection({});
              options.list.SetOptionText(texts);
              options.list.DeleteOption(a);
              options.list.Clear();
          } },
    });
    ExpectRows({
        { "a list",       throwsMemory, kept, [](Nothing) { CKrOptionList const made; } },
        { "an item",      takesNone,    kept, [](Nothing) { CKrOptionListItem const made(a, b); } },
        { "a copy",       throwsMemory, kept, [](Nothing) { CKrOptionListItem const copy(other); } },
        { "Clone",        either,       kept, [](Nothing) { delete other.Clone(); } },
        { "GetValue",     throwsMemory, kept, [](Nothing) { other.GetValue(); } },
    });
    ExpectRows([] { return CKrOptionListItem(a, b); },
               [](CKrOptionListItem const & item) { return Described(item.GetID(), item.GetText(), StateOf(item.GetValue())); },
               std::vector<Row<CKrOptionListItem>>{
        { "an item =",    throwsMemory, kept, [](CKrOptionListItem & item) { item = other; } },
        { "SetValue",     throwsMemory, kept, [](CKrOptionListItem & item) { item.SetValue(other.GetValue()); } },
    });
    // clang-format on
}

TEST(CKrOptionListMemory, LeavesTheOutputOfAReading)
{
    static CKrOptionList const & list = []() -> CKrOptionList const &
    {
        static CKrOptionList made;
        made.AddOption(a, a, true)->SetValue(CKrVariant(longText));
        made.AddOption(b, longText, true);
        return made;
    }();
    struct Outputs
    {
        std::vector<CString> texts;
        std::vector<CKrVariant> values;
    };
    auto const make = [] { return Outputs{{c}, {CKrVariant(7)}}; };
    auto const stateOf = [](Outputs const & outputs)
    {
        return Described(outputs.texts.size(), outputs.texts.front(), outputs.values.size(),
                         StateOf(outputs.values.front()));
    };
    // clang-format off
    ExpectRows(make, [stateOf](Outputs const & outputs) { return outputs.texts.empty() ? std::string() : stateOf(outputs); },
               std::vector<Row<Outputs>>{
        { "GetSelectedIDs",    throwsBadAlloc,                kept, [](Outputs & outputs) { list.GetSelectedIDs(outputs.texts); } },
        { "GetSelectedTexts",  throwsBadAlloc,                kept, [](Outputs & outputs) { list.GetSelectedTexts(outputs.texts); } },
        { "GetSelectedValues", throwsMemory | throwsBadAlloc, kept, [](Outputs & outputs) { list.GetSelectedValues(outputs.values); } },
    });
    // clang-format on
}
