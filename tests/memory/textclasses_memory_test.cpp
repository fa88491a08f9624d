// Lists in texts, buffers and texts in several languages where memory runs out.
#include <krcore/text/krbuffer.h>
#include <krcore/text/krcharformatter.h>
#include <krcore/text/krmultilanguagetext.h>
#include <krcore/text/krstringparser.h>

#include "tests/memory/failing_rows.h"

#include <string>

using namespace kr::test;

namespace
{

CString const none;
CString const semicolon(OLESTR(";"));
CString const plus(OLESTR("+"));
CString const numbers(OLESTR("2,5;1;3"));
CString const others(OLESTR("3+4+1"));
CString const german(OLESTR("de"));
CString const french(OLESTR("fr"));
CString const wall(OLESTR("Wand"));

constexpr unsigned either = throwsMemory | throwsBadAlloc;

template <class Item>
std::string ItemsOf(std::vector<Item> const & items)
{
    std::string text = Described(items.size());
    for (Item const & item : items)
        text += Described(item);
    return text;
}

} // namespace

TEST(CKrStringParserMemory, LeavesTheItemsThatASplitWouldReplace)
{
    struct Lists
    {
        std::vector<CString> texts;
        std::vector<double> doubles;
        std::vector<int> integers;
    };
    auto const make = [] { return Lists{{wall}, {7.5}, {7}}; };
    auto const stateOf = [](Lists const & lists)
    { return ItemsOf(lists.texts) + ItemsOf(lists.doubles) + ItemsOf(lists.integers); };
    static std::vector<CString> const texts = {wall, none, french};
    static std::vector<double> const doubles = {2.5, 1e10};
    static std::vector<int> const integers = {1, -20};
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<Lists>>{
        { "Split texts",    either,         kept, [](Lists & lists) { CKrStringParser::Split(numbers, semicolon, lists.texts); } },
        { "Split doubles",  throwsBadAlloc, kept, [](Lists & lists) { CKrStringParser::Split(numbers, semicolon, lists.doubles); } },
        { "Split integers", throwsBadAlloc, kept, [](Lists & lists) { CKrStringParser::Split(numbers, semicolon, lists.integers); } },
    });
    ExpectRows({
        { "Join texts",     throwsMemory,   kept, [](Nothing) { CKrStringParser::Join(semicolon, texts); } },
        { "Join doubles",   throwsMemory,   kept, [](Nothing) { CKrStringParser::Join(semicolon, doubles); } },
        { "Join integers",  throwsMemory,   kept, [](Nothing) { CKrStringParser::Join(semicolon, integers); } },
        { "JoinSkipEmpty",  throwsMemory,   kept, [](Nothing) { CKrStringParser::JoinSkipEmpty(semicolon, texts); } },
        { "from texts",     throwsBadAlloc, kept, [](Nothing) { CKrStringParser const made(texts, semicolon); } },
        { "from doubles",   throwsBadAlloc, kept, [](Nothing) { CKrStringParser const made(doubles, semicolon); } },
        { "from integers",  throwsBadAlloc, kept, [](Nothing) { CKrStringParser const made(integers, semicolon); } },
    });
    // clang-format on
}

TEST(CKrStringParserMemory, KeepsTheLists)
{
    constexpr CKrStringParser::EParserType types[] = {
        CKrStringParser::eParserTypeString,
        CKrStringParser::eParserTypeDouble,
        CKrStringParser::eParserTypeInt,
    };
    struct Parsers
    {
        CKrStringParser parser;
        CKrStringParser other;
    };
    auto const stateOf = [](Parsers const & parsers)
    {
        CKrStringParser copy(parsers.parser);
        return Described(copy.GetSeperator(), copy.GetType(), copy.Join(none));
    };
    for (CKrStringParser::EParserType const type : types)
    {
        SCOPED_TRACE(type);
        bool const isText = type == CKrStringParser::eParserTypeString;
        unsigned const items = isText ? either : throwsBadAlloc;
        auto const make = [type] {
            return Parsers{CKrStringParser(numbers, semicolon, type), CKrStringParser(others, plus, type)};
        };
        // clang-format off
        ExpectRows(make, stateOf, std::vector<Row<Parsers>>{
            { "=",                        throwsBadAlloc, kept, [](Parsers & p) { p.parser = p.other; } },
            { "copy",                     throwsBadAlloc, kept, [](Parsers & p) { CKrStringParser const copy(p.parser); } },
            { "from text",                items,          kept, [](Parsers & p) { CKrStringParser const made(numbers, semicolon, p.parser.GetType()); } },
            { "Split",                    items,          kept, [](Parsers & p) { p.parser.Split(others, plus); } },
            { "Join",                     throwsMemory,   kept, [](Parsers & p) { p.parser.Join(plus); } },
            { "Append",                   throwsBadAlloc, kept, [](Parsers & p) { p.parser.Append(p.other); } },
            { "Append text",              items,          kept, [](Parsers & p) { p.parser.Append(others, plus); } },
            { "Union",                    throwsBadAlloc, kept, [](Parsers & p) { p.parser.Union(p.other); } },
            { "Union text",               items,          kept, [](Parsers & p) { p.parser.Union(others, plus); } },
            { "Intersection",             throwsBadAlloc, kept, [](Parsers & p) { p.parser.Intersection(p.other); } },
            { "Intersection text",        items,          kept, [](Parsers & p) { p.parser.Intersection(others, plus); } },
            { "Difference",               throwsBadAlloc, kept, [](Parsers & p) { p.parser.Difference(p.other); } },
            { "Difference text",          items,          kept, [](Parsers & p) { p.parser.Difference(others, plus); } },
            { "Remove",                   throwsBadAlloc, kept, [](Parsers & p) { p.parser.Remove(p.other); } },
            { "Remove text",              items,          kept, [](Parsers & p) { p.parser.Remove(others, plus); } },
            { "SymmetricDifference",      throwsBadAlloc, kept, [](Parsers & p) { p.parser.SymmetricDifference(p.other); } },
            { "SymmetricDifference text", items,          kept, [](Parsers & p) { p.parser.SymmetricDifference(others, plus); } },
            { "IsEqual text",             items,          kept, [](Parsers & p) { static_cast<void>(p.parser.IsEqual(others, plus)); } },
            { "Find text",                items,          kept, [](Parsers & p) { static_cast<void>(p.parser.Find(others, plus)); } },
            { "in place",                 takesNone,      kept, [](Parsers & p) { p.parser.Sort(true); p.parser.Sort(false); p.parser.Reverse(); p.parser.Unique(); } },
        });
        // clang-format on
    }
}

namespace
{

/// Content and size of a buffer; `Buffer` may be any of the four.
template <class Buffer>
std::string ContentOf(Buffer const & buffer)
{
    CKrRawBuffer const & raw = buffer;
    std::string text = Described(raw.BufSize(), raw.BufLength());
    if (raw.Get())
        text.append(reinterpret_cast<char const *>(raw.Get()), raw.BufLength());
    return text;
}

template <class Buffer>
void ExpectBufferRows(Buffer const & start, std::vector<Row<Buffer>> const & rows)
{
    ExpectRows([&start] { return Buffer(start); }, ContentOf<Buffer>, rows);
}

constexpr unsigned char bytes[] = {1, 2, 3};
constexpr unsigned char full[256] = {1, 2, 3};
constexpr WCHAR const * letters = OLESTR("letters");

/// As many characters as no block has room for that was made for a few.
constexpr unsigned int many = 5000;
std::string const manyBytes(many, 'x');
CString const manyUnits(OLESTR('x'), many);

} // namespace

TEST(BufferMemory, KeepsTheContentOfBytes)
{
    static CKrRawBuffer const otherRaw(many);
    static CKrByteBuffer const otherBytes(nullptr, many, many);
    // clang-format off
    ExpectBufferRows(CKrRawBuffer(bytes, 3, 3), {
        { "Alloc",      throwsMemory, kept, [](CKrRawBuffer & buffer) { buffer.Alloc(many); } },
        { "AllocExact", throwsMemory, kept, [](CKrRawBuffer & buffer) { buffer.AllocExact(many); } },
        { "Assign",     throwsMemory, kept, [](CKrRawBuffer & buffer) { buffer.Assign(many, 7); } },
        { "Clone",      throwsMemory, kept, [](CKrRawBuffer & buffer) { buffer.Clone(otherRaw); } },
        { "=",          throwsMemory, kept, [](CKrRawBuffer & buffer) { buffer = otherRaw; } },
        { "copy",       throwsMemory, kept, [](CKrRawBuffer & buffer) { CKrRawBuffer const copy(buffer); } },
    });
    ExpectBufferRows(CKrByteBuffer(full, 256, 256), {
        { "Expand",     throwsMemory, kept, [](CKrByteBuffer & buffer) { buffer.Expand(many); } },
        { "Add itself", throwsMemory, kept, [](CKrByteBuffer & buffer) { buffer.Add(buffer.Get(), 256); } },
        { "Add buffer", throwsMemory, kept, [](CKrByteBuffer & buffer) { buffer.Add(otherBytes); } },
        { "=",          throwsMemory, kept, [](CKrByteBuffer & buffer) { buffer = otherBytes; } },
    });
    ExpectBufferRows(CKrByteBuffer(), {
        { "Add byte",   throwsMemory, kept, [](CKrByteBuffer & buffer) { buffer.Add(7); } },
        { "Add bytes",  throwsMemory, kept, [](CKrByteBuffer & buffer) { buffer.Add(bytes, 3); } },
    });
    ExpectRows({
        { "CKrRawBuffer size",   throwsMemory, kept, [](Nothing) { CKrRawBuffer const made(16); } },
        { "CKrRawBuffer data",   throwsMemory, kept, [](Nothing) { CKrRawBuffer const made(bytes, 3, 16); } },
        { "CKrByteBuffer size",  throwsMemory, kept, [](Nothing) { CKrByteBuffer const made(16); } },
        { "CKrByteBuffer data",  throwsMemory, kept, [](Nothing) { CKrByteBuffer const made(bytes, 3, 16); } },
    });
    // clang-format on
}

TEST(BufferMemory, KeepsTheContentOfCharacters)
{
    static CKrCharBuffer const otherChars(manyBytes.c_str());
    static CKrWcharBuffer const otherWide(manyUnits.GetString());
    // clang-format off
    ExpectBufferRows(CKrCharBuffer("abc"), {
        { "= bytes",          throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer = manyBytes.c_str(); } },
        { "= units",          throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer = manyUnits.GetString(); } },
        { "=",                throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer = otherChars; } },
        { "copy",             throwsMemory, kept, [](CKrCharBuffer & buffer) { CKrCharBuffer const copy(buffer); } },
        { "AddString bytes",  throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(manyBytes.c_str()); } },
        { "AddString counted bytes", throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(manyBytes.c_str(), many); } },
        { "AddString buffer", throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(otherChars); } },
        { "AddString wide",   throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(otherWide); } },
        { "to CStringA",      throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.operator CStringA(); } },
    });
    ExpectBufferRows(CKrCharBuffer(), {
        { "AddString byte",   throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString('x'); } },
        { "AddString unit",   throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(OLESTR('x')); } },
        { "AddString units",  throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(letters); } },
        { "AddString counted units", throwsMemory, kept, [](CKrCharBuffer & buffer) { buffer.AddString(letters, 7); } },
    });
    ExpectRows({
        { "size",          throwsMemory, kept, [](Nothing) { CKrCharBuffer const made(16); } },
        { "bytes",         throwsMemory, kept, [](Nothing) { CKrCharBuffer const made("abc"); } },
        { "counted bytes", throwsMemory, kept, [](Nothing) { CKrCharBuffer const made("abc", 2); } },
        { "units",         throwsMemory, kept, [](Nothing) { CKrCharBuffer const made(letters); } },
        { "counted units", throwsMemory, kept, [](Nothing) { CKrCharBuffer const made(letters, 2); } },
        { "wide",          throwsMemory, kept, [](Nothing) { CKrCharBuffer const made(otherWide); } },
    });
    // clang-format on
}

TEST(BufferMemory, KeepsTheContentOfWideCharacters)
{
    static CKrWcharBuffer const other(manyUnits.GetString());
    // clang-format off
    ExpectBufferRows(CKrWcharBuffer(OLESTR("abc")), {
        { "= bytes",          throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer = manyBytes.c_str(); } },
        { "= units",          throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer = manyUnits.GetString(); } },
        { "=",                throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer = other; } },
        { "copy",             throwsMemory, kept, [](CKrWcharBuffer & buffer) { CKrWcharBuffer const copy(buffer); } },
        { "Expand",           throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.Expand(many); } },
        { "AddString bytes",  throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString(manyBytes.c_str()); } },
        { "AddString counted bytes", throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString(manyBytes.c_str(), many); } },
        { "AddString buffer", throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString(other); } },
        { "to CString",       throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.operator CString(); } },
    });
    ExpectBufferRows(CKrWcharBuffer(), {
        { "AddString byte",   throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString('x'); } },
        { "AddString unit",   throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString(OLESTR('x')); } },
        { "AddString units",  throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString(letters); } },
        { "AddString counted units", throwsMemory, kept, [](CKrWcharBuffer & buffer) { buffer.AddString(letters, 7); } },
    });
    ExpectRows({
        { "size",          throwsMemory, kept, [](Nothing) { CKrWcharBuffer const made(16); } },
        { "bytes",         throwsMemory, kept, [](Nothing) { CKrWcharBuffer const made("abc"); } },
        { "counted bytes", throwsMemory, kept, [](Nothing) { CKrWcharBuffer const made("abc", 2); } },
        { "units",         throwsMemory, kept, [](Nothing) { CKrWcharBuffer const made(letters); } },
        { "counted units", throwsMemory, kept, [](Nothing) { CKrWcharBuffer const made(letters, 2); } },
    });
    // clang-format on
}

TEST(StringBufferMemory, LeavesTheStringAndTheBuffer)
{
    struct Wide
    {
        CString text{OLESTR("abc")};
        CString shared{text};
        CKrBufferCStringW buffer;
    };
    struct Narrow
    {
        CStringA text{"abc"};
        CStringA shared{text};
        CKrBufferCStringA buffer;
    };
    auto const stateOf = [](auto const & lent)
    { return Described(lent.text, lent.shared, lent.buffer.Length(), lent.buffer.Get() == nullptr); };
    // clang-format off
    ExpectRows([] { return Wide(); }, stateOf, std::vector<Row<Wide>>{
        { "AttachString", either, kept, [](Wide & lent) { lent.buffer.AttachString(lent.text, -1); } },
        { "constructor",  either, kept, [](Wide & lent) { CKrBufferCStringW const buffer(lent.text, -1); } },
    });
    ExpectRows([] { return Narrow(); }, stateOf, std::vector<Row<Narrow>>{
        { "AttachString", either, kept, [](Narrow & lent) { lent.buffer.AttachString(lent.text, -1); } },
        { "constructor",  either, kept, [](Narrow & lent) { CKrBufferCStringA const buffer(lent.text, -1); } },
    });
    // clang-format on
}

TEST(CKrMultiLanguageTextMemory, KeepsTheTexts)
{
    static constexpr int prototype = 1;
    struct Prototype
    {
        Prototype()
        {
            auto * const text = new CKrMultiLanguageText;
            text->AddLanguageText(german, wall);
            CKrMultiLanguageText::s_mapPrototypes.AddObject(prototype, text);
        }
        ~Prototype() { CKrMultiLanguageText::s_mapPrototypes.Clear(); }
        Prototype(Prototype const &) = delete;
        Prototype & operator=(Prototype const &) = delete;
    } const isThere;
    static CKrMultiLanguageText const other = []
    {
        CKrMultiLanguageText made;
        made.AddLanguageText(german, wall);
        made.AddLanguageText(french, wall);
        return made;
    }();
    auto const make = []
    {
        CKrMultiLanguageText text;
        text.AddLanguageText(german, none);
        return text;
    };
    auto const stateOf = [](CKrMultiLanguageText const & text)
    {
        std::string state = Described(text.GetRefLanguage());
        for (auto const & [language, entry] : text.GetRawMap())
            state += Described(language, entry);
        return state;
    };
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrMultiLanguageText>>{
        { "=",                  throwsBadAlloc, kept, [](CKrMultiLanguageText & text) { text = other; } },
        { "copy",               throwsBadAlloc, kept, [](CKrMultiLanguageText & text) { CKrMultiLanguageText const copy(text); } },
        { "from a prototype",   throwsBadAlloc, kept, [](CKrMultiLanguageText &) { CKrMultiLanguageText const made(prototype); } },
        { "GetText",            either,         kept, [](CKrMultiLanguageText & text) { text.GetText(french); } },
        { "AddLanguageText",    either,         kept, [](CKrMultiLanguageText & text) { text.AddLanguageText(french, wall); } },
        { "SetLanguageText",    throwsMemory,   kept, [](CKrMultiLanguageText & text) { text.SetLanguageText(german, wall); } },
        { "ClearLanguageText",  throwsMemory,   kept, [](CKrMultiLanguageText & text) { text.ClearLanguageText(german); } },
        { "RemoveLanguageText", throwsMemory,   kept, [](CKrMultiLanguageText & text) { text.RemoveLanguageText(german); } },
        { "GetLanguageText",    throwsMemory,   kept, [](CKrMultiLanguageText & text) { text.GetLanguageText(german); } },
        { "HasLanguageText",    throwsMemory,   kept, [](CKrMultiLanguageText & text) { static_cast<void>(text.HasLanguageText(german)); } },
        { "SetRefLanguage",     throwsMemory,   kept, [](CKrMultiLanguageText & text) { text.SetRefLanguage(french); } },
        { "SetText",            takesNone,      kept, [](CKrMultiLanguageText & text) { text.SetText(wall); } },
    });
    // clang-format on
}

TEST(CKrCharFormatterMemory, TakesNone)
{
    // clang-format off
    ExpectRows({
        { "characters and escapes", takesNone, kept, [](Nothing)
          {
              char narrow[16];
              WCHAR wide[16];
              int room = 16;
              CKrCharFormatter(CKrCharFormatter::eCharFormatAnsi, true, true).WcharToBytes(0x20AC, narrow, 16);
              CKrCharFormatter::WcharFromCIFMIF(OLESTR("\\U+00E4"), wide, 16);
              CKrCharFormatter::WcharNonNativeToCIF(OLESTR("\u58C1"), wide, 16);
              CKrCharFormatter::WcharNonNativeToRTF(1252, OLESTR("\u58C1"), 1, narrow, &room);
              CKrCharFormatter::IsAnsiString(wall, 1252);
          } },
    });
    // clang-format on
}
