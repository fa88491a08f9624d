// The platform's texts where memory runs out.
#include <krplatform/automation/variant.h>
#include <krplatform/automation/vartext.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>
#include <krplatform/text/numbers.h>

#include "tests/memory/failing_rows.h"
#include "tests/support/text.h"

#include <array>
#include <climits>
#include <cstdarg>
#include <utility>

using namespace kr::test;

namespace
{

/// A literal in units of either width.
template <class Char, std::size_t Size>
constexpr std::array<Char, Size> Units(char const (&literal)[Size])
{
    std::array<Char, Size> units{};
    for (std::size_t index = 0; index < Size; ++index)
        units[index] = static_cast<Char>(literal[index]);
    return units;
}

template <class Char>
struct Texts
{
    static constexpr auto words = Units<Char>(" aBc abc ");
    static constexpr auto abc = Units<Char>("abc");
    static constexpr auto b = Units<Char>("b");
    static constexpr auto blank = Units<Char>(" ");
    static constexpr auto manyPlaces = Units<Char>("%s%s%400d");
    static constexpr auto numberFormat = Units<Char>("%400d");
    static constexpr auto otherFormat = Units<Char>("%400S");
    static inline CStringT<Char> const large{Char('x'), 300};
};

template <class Char>
using Other = std::conditional_t<std::is_same_v<Char, char>, WCHAR, char>;

/// A text, which shares its storage with another one or has it for itself.
template <class Char>
struct Text
{
    CStringT<Char> text;
    CStringT<Char> copy;

    operator CStringT<Char> &() { return text; }
};

template <class Char>
std::string StateOf(Text<Char> const & subject)
{
    return Described(subject.text, subject.copy);
}

template <class Char>
void ExpectTextRows(std::vector<Row<Text<Char>>> const & rows, bool shared)
{
    SCOPED_TRACE(shared ? "shared" : "alone");
    auto const make = [shared]
    {
        CStringT<Char> const text(Texts<Char>::words.data());
        return Text<Char>{text, shared ? text : CStringT<Char>()};
    };
    ExpectRows(make, StateOf<Char>, rows);
}

template <class Char>
void FormatWithList(CStringT<Char> * text, Char const * format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    struct End
    {
        va_list & list;
        ~End() { va_end(list); }
    } const end{arguments};
    text->FormatV(format, arguments);
}

template <class Char>
class CStringMemory : public testing::Test
{
};

using Widths = testing::Types<WCHAR, char>;
TYPED_TEST_SUITE(CStringMemory, Widths);

} // namespace

TYPED_TEST(CStringMemory, KeepsATextThatCannotBeChanged)
{
    using Char = TypeParam;
    using Self = CStringT<Char>;
    using T = Texts<Char>;
    static constexpr auto foreign = Units<Other<Char>>("a text of the other width that needs some room");
    static CStringT<Other<Char>> const foreignText(foreign.data());
    // clang-format off
    std::vector<Row<Text<Char>>> const rows = {
        { "= units",         throwsMemory, kept, [](Self & text) { text = T::large.GetString(); } },
        { "= other width",   throwsMemory, kept, [](Self & text) { text = foreign.data(); } },
        { "= other text",    throwsMemory, kept, [](Self & text) { text = foreignText; } },
        { "+=",              throwsMemory, kept, [](Self & text) { text += T::large; } },
        { "+= units",        throwsMemory, kept, [](Self & text) { text += T::large.GetString(); } },
        { "Append",          throwsMemory, kept, [](Self & text) { text.Append(T::large); } },
        { "Append units",    throwsMemory, kept, [](Self & text) { text.Append(T::large.GetString()); } },
        { "Append length",   throwsMemory, kept, [](Self & text) { text.Append(T::large, 200); } },
        { "Concatenate",     throwsMemory, kept, [](Self & text) { Self::Concatenate(text, text, 2, T::large, 300); } },
        { "GetBuffer",       throwsMemory, kept, [](Self & text) { text.GetBuffer(400); } },
        { "GetBufferSetLength", throwsMemory, kept, [](Self & text) { text.GetBufferSetLength(400)[0] = 'x'; text.Truncate(1); } },
        { "Preallocate",     throwsMemory, kept, [](Self & text) { text.Preallocate(400); } },
        { "FreeExtra",       throwsMemory, kept, [](Self & text) { text.Preallocate(400); text.FreeExtra(); } },
        { "Replace text",    throwsMemory, kept, [](Self & text) { text.Replace(T::b.data(), T::large); } },
        { "Insert text",     throwsMemory, kept, [](Self & text) { text.Insert(1, T::large); } },
        { "Insert itself",   throwsMemory, kept, [](Self & text) { text.Insert(1, text); } },
        { "Format",          throwsMemory, kept, [](Self & text) { text.Format(T::manyPlaces.data(), text, text, 5); } },
        { "Format other width", throwsMemory, kept, [](Self & text) { text.Format(T::otherFormat.data(), foreign.data()); } },
        { "Format resource", throwsMemory, kept, [](Self & text) { text.Format(100u, T::large.GetString()); } },
        { "FormatV",         throwsMemory, kept, [](Self & text) { FormatWithList(&text, T::numberFormat.data(), 5); } },
        { "AppendFormat",    throwsMemory, kept, [](Self & text) { text.AppendFormat(T::numberFormat.data(), 5); } },
        { "LoadString",      throwsMemory, kept, [](Self & text) { return text.LoadString(101); } },
        { "LoadString module", throwsMemory, kept, [](Self & text) { return text.LoadString(nullptr, 101); } },
    };
    // clang-format on
    ExpectTextRows(rows, true);
    ExpectTextRows(rows, false);
}

TYPED_TEST(CStringMemory, KeepsASharedTextThatCannotBeParted)
{
    using Char = TypeParam;
    using Self = CStringT<Char>;
    using T = Texts<Char>;
    // clang-format off
    std::vector<Row<Text<Char>>> const rows = {
        { "= unit",          throwsMemory, kept, [](Self & text) { text = Char('x'); } },
        { "= few units",     throwsMemory, kept, [](Self & text) { text = T::abc.data(); } },
        { "+= unit",         throwsMemory, kept, [](Self & text) { text += Char('x'); } },
        { "+= itself",       throwsMemory, kept, [](Self & text) { text += text; } },
        { "AppendChar",      throwsMemory, kept, [](Self & text) { text.AppendChar(Char('x')); } },
        { "SetAt",           throwsMemory, kept, [](Self & text) { text.SetAt(0, Char('x')); } },
        { "GetBuffer",       throwsMemory, kept, [](Self & text) { text.GetBuffer(); } },
        { "ReleaseBuffer",   throwsMemory, kept, [](Self & text) { text.ReleaseBuffer(2); } },
        { "ReleaseBufferSetLength", throwsMemory, kept, [](Self & text) { text.ReleaseBufferSetLength(2); } },
        { "Truncate",        throwsMemory, kept, [](Self & text) { text.Truncate(1); } },
        { "Replace unit",    throwsMemory, kept, [](Self & text) { text.Replace(Char('b'), Char('x')); } },
        { "Remove",          throwsMemory, kept, [](Self & text) { text.Remove(Char('b')); } },
        { "Insert unit",     throwsMemory, kept, [](Self & text) { text.Insert(1, Char('x')); } },
        { "Delete",          throwsMemory, kept, [](Self & text) { text.Delete(1); } },
        { "Trim",            throwsMemory, kept, [](Self & text) { text.Trim(); } },
        { "Trim unit",       throwsMemory, kept, [](Self & text) { text.Trim(Char(' ')); } },
        { "Trim units",      throwsMemory, kept, [](Self & text) { text.Trim(T::blank.data()); } },
        { "TrimLeft",        throwsMemory, kept, [](Self & text) { text.TrimLeft(); } },
        { "TrimLeft unit",   throwsMemory, kept, [](Self & text) { text.TrimLeft(Char(' ')); } },
        { "TrimLeft units",  throwsMemory, kept, [](Self & text) { text.TrimLeft(T::blank.data()); } },
        { "TrimRight",       throwsMemory, kept, [](Self & text) { text.TrimRight(); } },
        { "TrimRight unit",  throwsMemory, kept, [](Self & text) { text.TrimRight(Char(' ')); } },
        { "TrimRight units", throwsMemory, kept, [](Self & text) { text.TrimRight(T::blank.data()); } },
        { "MakeUpper",       throwsMemory, kept, [](Self & text) { text.MakeUpper(); } },
        { "MakeLower",       throwsMemory, kept, [](Self & text) { text.MakeLower(); } },
        { "MakeReverse",     throwsMemory, kept, [](Self & text) { text.MakeReverse(); } },
    };
    // clang-format on
    ExpectTextRows(rows, true);
}

TYPED_TEST(CStringMemory, LeavesNothingOfATextThatCannotBeMade)
{
    using Char = TypeParam;
    using Self = CStringT<Char>;
    using T = Texts<Char>;
    static constexpr auto foreign = Units<Other<Char>>("abc");
    static Self const words(T::words.data());
    static CStringT<Other<Char>> const foreignText(foreign.data());
    static VARIANT const number = []
    {
        VARIANT made{};
        made.vt = VT_I4;
        made.lVal = 12345;
        return made;
    }();
    // clang-format off
    ExpectRows({
        { "units",           throwsMemory, kept, [](Nothing) { Self const made(T::abc.data()); } },
        { "length",          throwsMemory, kept, [](Nothing) { Self const made(T::abc.data(), 2); } },
        { "repeated",        throwsMemory, kept, [](Nothing) { Self const made(Char('x'), 9); } },
        { "other width",     throwsMemory, kept, [](Nothing) { Self const made(foreign.data()); } },
        { "other length",    throwsMemory, kept, [](Nothing) { Self const made(foreign.data(), 2); } },
        { "other text",      throwsMemory, kept, [](Nothing) { Self const made(foreignText); } },
        { "wchar_t",         throwsMemory, kept, [](Nothing) { Self const made(L"new text"); } },
        { "variant",         throwsMemory, kept, [](Nothing) { Self const made(number); } },
        { "Left",            throwsMemory, kept, [](Nothing) { words.Left(1); } },
        { "Right",           throwsMemory, kept, [](Nothing) { words.Right(1); } },
        { "Mid",             throwsMemory, kept, [](Nothing) { words.Mid(1); } },
        { "Mid count",       throwsMemory, kept, [](Nothing) { words.Mid(1, 2); } },
        { "SpanIncluding",   throwsMemory, kept, [](Nothing) { words.SpanIncluding(T::blank.data()); } },
        { "SpanExcluding",   throwsMemory, kept, [](Nothing) { words.SpanExcluding(T::b.data()); } },
        { "Tokenize",        throwsMemory, kept, [](Nothing) { int start = 0; words.Tokenize(T::blank.data(), start); } },
        { "text + text",     throwsMemory, kept, [](Nothing) { words + T::large; } },
        { "text + units",    throwsMemory, kept, [](Nothing) { words + T::abc.data(); } },
        { "text + unit",     throwsMemory, kept, [](Nothing) { words + Char('x'); } },
        { "units + text",    throwsMemory, kept, [](Nothing) { T::abc.data() + words; } },
        { "unit + text",     throwsMemory, kept, [](Nothing) { Char('x') + words; } },
        { "AllocSysString",  throwsMemory, kept, [](Nothing) { SysFreeString(words.AllocSysString()); } },
    });
    // clang-format on
}

TEST(CStringMemory, LengthsBeyondAllMemoryAreMemoryRunningOut)
{
    CString text(OLESTR("abc"));
    EXPECT_THROW(text.GetBuffer(INT_MAX), CMemoryException *);
    EXPECT_EQ(text, OLESTR("abc"));
}

TEST(CStringMemory, LeavesAPositionWhereItWasWhenAPieceCannotBeMade)
{
    struct Pieces
    {
        CString text = OLESTR("a b");
        int start = 0;
    };
    ExpectRows(
        [] { return Pieces(); }, [](Pieces const & pieces) { return Described(pieces.start); },
        std::vector<Row<Pieces>>{
            {"Tokenize", throwsMemory, kept, [](Pieces & pieces) { pieces.text.Tokenize(OLESTR(" "), pieces.start); }},
        });
}

TEST(StreamMemory, ThrowsOrMarksTheStreamThatATextCannotBeWrittenTo)
{
    static CString const text(OLESTR('\u00E4'), 200); // its UTF-8 is made by the text, then stored by the stream
    ExpectRows({
        {"<<", throwsMemory | tellsIt, kept,
         [](Nothing)
         {
             std::ostringstream stream;
             stream << text;
             return stream.good();
         }},
    });
}

TEST(BstrMemory, AnswersWithNullOrFalse)
{
    struct Held
    {
        BSTR text = nullptr;
        Held() = default;
        explicit Held(WCHAR const * start) : text(SysAllocString(start)) {}
        Held(Held const &) = delete;
        Held & operator=(Held const &) = delete;
        ~Held() { SysFreeString(text); }

        bool Take(BSTR made)
        {
            if (made)
                SysFreeString(std::exchange(text, made));
            return made != nullptr;
        }
    };
    static constexpr WCHAR letters[] = OLESTR("abcd");
    // clang-format off
    ExpectRows([] { return Held(OLESTR("old")); }, [](Held const & held) { return Narrow(held.text); }, std::vector<Row<Held>>{
        { "SysAllocString",        tellsIt, kept, [](Held & held) { return held.Take(SysAllocString(letters)); } },
        { "SysAllocStringLen",     tellsIt, kept, [](Held & held) { return held.Take(SysAllocStringLen(letters, 3)); } },
        { "SysAllocStringByteLen", tellsIt, kept, [](Held & held) { return held.Take(SysAllocStringByteLen("abcdef", 6)); } },
        { "SysReAllocString",      tellsIt, kept, [](Held & held) { return SysReAllocString(&held.text, letters); } },
        { "SysReAllocStringLen",   tellsIt, kept, [](Held & held) { return SysReAllocStringLen(&held.text, letters, 2); } },
    });
    // clang-format on
}

TEST(VartextMemory, AnswersWithTheResult)
{
    struct Held
    {
        BSTR text = nullptr;
        Held() = default;
        Held(Held const &) = delete;
        Held & operator=(Held const &) = delete;
        ~Held() { SysFreeString(text); }

        bool Is(HRESULT result) const
        {
            EXPECT_TRUE(result == S_OK || (result == E_OUTOFMEMORY && !text));
            return result == S_OK;
        }
    };
    static constexpr CY amount = {.int64 = 125000};
    // clang-format off
    ExpectRows([] { return Held(); }, [](Held const & held) { return Narrow(held.text); }, std::vector<Row<Held>>{
        { "VarBstrFromR8",   tellsIt, kept, [](Held & held) { return held.Is(VarBstrFromR8(2.5, 1031, 0, &held.text)); } },
        { "VarBstrFromR4",   tellsIt, kept, [](Held & held) { return held.Is(VarBstrFromR4(2.5f, 1031, 0, &held.text)); } },
        { "VarBstrFromCy",   tellsIt, kept, [](Held & held) { return held.Is(VarBstrFromCy(amount, 1031, 0, &held.text)); } },
        { "VarBstrFromBool", tellsIt, kept, [](Held & held) { return held.Is(VarBstrFromBool(VARIANT_TRUE, 1031, 0, &held.text)); } },
        { "VarBstrFromBool local", tellsIt, kept,
          [](Held & held) { return held.Is(VarBstrFromBool(VARIANT_TRUE, 1031, VAR_LOCALBOOL, &held.text)); } },
        { "VarBstrFromDate", tellsIt, kept, [](Held & held) { return held.Is(VarBstrFromDate(44197.75, 1031, 0, &held.text)); } },
    });
    // clang-format on
}
