// The platform's text classes: `CString` of 16-bit code units, `CStringA` of bytes.
#pragma once

#include <krplatform/automation/variant_conversion.h>
#include <krplatform/base/types.h>
#include <krplatform/export.h>
#include <krplatform/text/formatargument.h>
#include <krplatform/text/textblock.h>

#include <compare>
#include <cstdarg>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <string_view>
#include <type_traits>
#include <utility>

template <class Char>
class CStringT;

/// Text of 16-bit code units.
using CString = CStringT<WCHAR>;
using CStringW = CString;
/// Text of bytes.
using CStringA = CStringT<char>;

/// A text with value semantics, one pointer in size. Copies share an immutable block until one of them is written; an
/// empty text allocates nothing. Never null.
///
///     CString name(OLESTR("wall"));
///     name += OLESTR('s');                                    -> "walls"
///     CString text; text.Format(OLESTR("%s: %05.2f"), name, 2.5);   -> "walls: 02.50"
///     CString(OLESTR("a,b")).Find(OLESTR(','))                -> 1
///     CString("abc").Mid(-3)                                  -> "abc": a negative start counts as 0
///
/// Positions and lengths count code units (bytes in `CStringA`). A null pointer where text is expected is empty text.
/// Narrow text enters and leaves `CString` through the process code page (`CP_ACP`). Comparisons are ordinal.
/// When memory runs out `CMemoryException *` is thrown and the text stays as it was. Different objects may be used from
/// different threads, also when they share a block; one object belongs to one thread at a time.
template <class Char>
class KRPLATFORM_API CStringT
{
    using OtherChar = std::conditional_t<std::is_same_v<Char, WCHAR>, char, WCHAR>;

public:
    using XCHAR = Char;

    CStringT() noexcept : m_text(&s_empty.terminator) {}
    CStringT(CStringT const & other) noexcept : m_text(other.m_text) { Block::Of(m_text)->AddReference(); }
    CStringT(CStringT && other) noexcept : m_text(std::exchange(other.m_text, &s_empty.terminator)) {}
    CStringT(std::nullptr_t) noexcept : CStringT() {}
    CStringT(Char const * text);
    /// The first `length` units of `text`; zeros inside are kept. A negative `length` raises E_INVALIDARG.
    CStringT(Char const * text, int length);
    /// `count` times `unit`; a count of 0 or below gives empty text.
    explicit CStringT(Char unit, int count = 1);
    /// Converts by the process code page.
    CStringT(OtherChar const * text);
    CStringT(OtherChar const * text, int length);
    CStringT(CStringT<OtherChar> const & text);
    /// Converts a copy of `value` to text with the default locale; raises the platform's failure (`COleException *`)
    /// where that fails, as for arrays.
    template <kr::detail::PlainVariant<CStringT> Variant>
    CStringT(Variant const & value) : CStringT(FromVariant(value))
    {
    }
    template <kr::detail::ConvertsItself<CStringT> Variant>
    explicit CStringT(Variant const & value) : CStringT(value.operator CStringT())
    {
    }
    /// Takes text of `wchar_t` where that is wider than a code unit; characters above U+FFFF become surrogate pairs.
    template <kr::detail::WideCharacter Wide>
    CStringT(Wide const * text) : CStringT(FromWide(text))
    {
    }
    ~CStringT() { Block::Of(m_text)->Release(); }

    CStringT & operator=(CStringT other) noexcept { return swap(other), *this; }
    CStringT & operator=(Char const * text);
    CStringT & operator=(Char unit);

    /// Appending text of this object to itself is allowed.
    CStringT & operator+=(CStringT const & other) { return Append(other), *this; }
    CStringT & operator+=(Char const * text) { return Append(text), *this; }
    CStringT & operator+=(Char unit) { return AppendChar(unit), *this; }
    void Append(Char const * text) { AppendView(ViewOf(text)); }
    void Append(Char const * text, int length) { AppendView(ViewOf(text, length)); }
    void Append(CStringT const & other);
    void AppendChar(Char unit)
    {
        if (!Block::Of(m_text)->TryAppend(unit))
            AppendView({&unit, 1});
    }
    /// Makes `result` the two texts joined.
    static void Concatenate(CStringT & result, Char const * first, int firstLength, Char const * second,
                            int secondLength);

    int GetLength() const noexcept { return Block::Of(m_text)->length; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    /// Makes the text empty and gives up its storage.
    void Empty() noexcept { CStringT().swap(*this); }

    /// The unit at `index`, the terminator included at `index` == length; anything else raises E_INVALIDARG.
    Char GetAt(std::ptrdiff_t index) const
    {
        if (index < 0 || index > GetLength())
            RaiseInvalidArgument();
        return m_text[index];
    }
    Char operator[](std::ptrdiff_t index) const { return GetAt(index); }
    /// Replaces the unit at `index`, which must lie below the length (E_INVALIDARG).
    void SetAt(int index, Char unit);

    /// The text, terminated. Valid until the object is changed or destroyed; never null.
    Char const * GetString() const noexcept { return m_text; }
    operator Char const *() const noexcept { return m_text; }
    std::basic_string_view<Char> View() const noexcept { return {m_text, static_cast<std::size_t>(GetLength())}; }

    /// Storage of its own for at least `minimumLength` units beside the terminator, for the caller to write into. State
    /// the length afterwards with `ReleaseBuffer`. Present text stays. A negative length raises E_INVALIDARG.
    Char * GetBuffer(int minimumLength);
    Char * GetBuffer() { return GetBuffer(0); }
    /// The same, with the length set to `length` at once.
    Char * GetBufferSetLength(int length);
    /// States the length of what was written; -1 measures up to the first zero. A length below -1 or above the
    /// allocated one raises E_INVALIDARG.
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength);
    /// Units that fit without a new allocation.
    int GetAllocLength() const noexcept { return Block::Of(m_text)->capacity; }
    /// Makes room for `length` units in storage of its own.
    void Preallocate(int length);
    /// Gives up room that is not used, unless the storage is shared.
    void FreeExtra();
    /// Cuts the text to `newLength`, which must not exceed the length (E_INVALIDARG).
    void Truncate(int newLength);

    /// -1, 0 or 1, by code units. Two objects are compared with the zeros inside them, as by the operators.
    int Compare(CStringT const & other) const noexcept;
    int Compare(Char const * text) const noexcept;
    /// The same with each unit taken in lower case by itself, in all scripts, without a locale (A to Z in `CStringA`).
    int CompareNoCase(CStringT const & other) const noexcept;
    int CompareNoCase(Char const * text) const noexcept;

    /// The position of the first hit at or behind `start`, or -1; a start below 0 counts as 0. Empty text is found at
    /// any start up to the length.
    int Find(Char const * text, int start = 0) const noexcept;
    int Find(Char unit, int start = 0) const noexcept;
    /// The first position of any of the given units.
    int FindOneOf(Char const * units) const noexcept;
    int ReverseFind(Char unit) const noexcept;

    /// Parts of the text; all arguments are held within it, a negative count gives empty text.
    CStringT Left(int count) const;
    CStringT Right(int count) const;
    CStringT Mid(int first) const;
    CStringT Mid(int first, int count) const;
    /// The longest beginning made only of, or without any of, the given units.
    CStringT SpanIncluding(Char const * units) const;
    CStringT SpanExcluding(Char const * units) const;
    /// The next piece between any of the given units, from `start` on, which moves behind the piece; -1 and empty text
    /// where none is left. Pieces are never empty; a `start` below 0 is the end.
    CStringT Tokenize(Char const * units, int & start) const;

    /// The number of replacements. What was put in is not searched again; an empty `oldText` changes nothing, nor does
    /// a unit replaced by itself.
    int Replace(Char const * oldText, Char const * newText);
    int Replace(Char oldUnit, Char newUnit);
    int Remove(Char unit);
    /// The new length. An index below 0 counts as 0, one past the end as the end; a count below 0 deletes nothing.
    int Insert(int index, Char const * text);
    int Insert(int index, Char unit);
    int Delete(int index, int count = 1);

    /// White space, or the given units, at one or both ends.
    CStringT & Trim();
    CStringT & Trim(Char unit);
    CStringT & Trim(Char const * units);
    CStringT & TrimLeft();
    CStringT & TrimLeft(Char unit);
    CStringT & TrimLeft(Char const * units);
    CStringT & TrimRight();
    CStringT & TrimRight(Char unit);
    CStringT & TrimRight(Char const * units);

    /// Map each unit by itself by the simple mapping of Unicode, in all scripts, without a locale (A to Z in
    /// `CStringA`); reverse the units, the halves of surrogate pairs too.
    CStringT & MakeUpper();
    CStringT & MakeLower();
    CStringT & MakeReverse();

    /// Formatting as by printf; the rules stand in formatargument.h. `%s` is text of this class's units, `%S` and `%hs`
    /// the other way round; a text may be a `CString` object. What is no format, a null one too, and arguments that are
    /// missing or do not fit raise E_INVALIDARG; the text then stays as it was. Arguments may lie in the text itself.
    template <kr::detail::Formattable... Arguments>
    void Format(Char const * format, Arguments const &... arguments)
    {
        FormatList(format, {kr::detail::ToFormatArgument(arguments)...});
    }
    /// The same with the format taken from a string resource, as by `LoadString`; a missing one raises E_FAIL.
    template <kr::detail::Formattable... Arguments>
    void Format(UINT formatId, Arguments const &... arguments)
    {
        FormatList(LoadFormat(formatId), {kr::detail::ToFormatArgument(arguments)...});
    }
    template <kr::detail::Formattable... Arguments>
    void AppendFormat(Char const * format, Arguments const &... arguments)
    {
        CStringT text;
        text.FormatList(format, {kr::detail::ToFormatArgument(arguments)...});
        Append(text);
    }
    /// The kinds of the arguments are not known here: what does not fit is not found.
    void FormatV(Char const * format, va_list arguments);

    /// Takes the text of a string resource of the current resource module, or of `module`. False if there is none; the
    /// text then stays as it was.
    bool LoadString(UINT id);
    bool LoadString(struct HINSTANCE__ * module, UINT id);

    /// A new `BSTR` with the text, owned by the receiver. Throws `CMemoryException *` when memory runs out.
    BSTR AllocSysString() const;

    void swap(CStringT & other) noexcept { std::swap(m_text, other.m_text); }

    friend bool operator==(CStringT const & left, CStringT const & right) noexcept
    {
        std::size_t const size = left.View().size() * sizeof(Char);
        return left.m_text == right.m_text || // copies share their block
               (left.GetLength() == right.GetLength() && std::memcmp(left.m_text, right.m_text, size) == 0);
    }
    friend bool operator==(CStringT const & left, Char const * right) noexcept { return left.Compare(right) == 0; }
    friend auto operator<=>(CStringT const & left, CStringT const & right) noexcept
    {
        return left.Compare(right) <=> 0;
    }
    friend auto operator<=>(CStringT const & left, Char const * right) noexcept { return left.Compare(right) <=> 0; }

    friend CStringT operator+(CStringT left, CStringT const & right) { return std::move(left += right); }
    friend CStringT operator+(CStringT left, Char const * right) { return std::move(left += right); }
    friend CStringT operator+(CStringT left, Char right) { return std::move(left += right); }
    friend CStringT operator+(Char const * left, CStringT const & right) { return Join(ViewOf(left), right.View()); }
    friend CStringT operator+(Char left, CStringT const & right) { return Join({&left, 1}, right.View()); }

private:
    using Block = kr::detail::TextBlock<Char>;
    using TextView = std::basic_string_view<Char>;

    template <class>
    friend class CStringT;

    static TextView ViewOf(Char const * text) noexcept { return text ? TextView(text) : TextView(); }
    static TextView ViewOf(Char const * text, int length);
    static CStringT Join(TextView left, TextView right);
    [[noreturn]] static void RaiseInvalidArgument();

    explicit CStringT(Block * block) noexcept : m_text(block->Text()) {}
    static Block * Allocate(std::size_t capacity);
    static Block * NewBlock(TextView left, TextView right, std::size_t capacity = 0);
    void Adopt(Block * block) noexcept;
    void Assign(TextView text);
    void AppendView(TextView text);
    void AppendConverted(std::basic_string_view<OtherChar> text);
    Char * MakeWritable(int capacity);
    Char * GrowBy(std::size_t count);
    void SetLength(std::size_t length) noexcept;
    CStringT Part(std::size_t first, std::size_t count) const;
    CStringT & Keep(TextView part);
    int InsertView(int index, TextView text);

    void FormatList(Char const * format, std::initializer_list<kr::detail::FormatArgument> arguments);
    static CStringT LoadFormat(UINT formatId);
    static CStringT FromWide(wchar_t const * text);
    static CStringT FromVariant(VARIANT const & value);

    static kr::detail::EmptyTextBlock<Char> s_empty;

    Char * m_text; ///< the units of a block, never null
};

extern template class KRPLATFORM_API CStringT<WCHAR>;
extern template class KRPLATFORM_API CStringT<char>;

/// Writes the text as UTF-8 (`CString`) or byte by byte (`CStringA`).
KRPLATFORM_API std::ostream & operator<<(std::ostream & stream, CString const & text);
KRPLATFORM_API std::ostream & operator<<(std::ostream & stream, CStringA const & text);

/// @cond the standard's namespace has no page in the reference
template <class Char>
struct std::hash<CStringT<Char>>
{
    std::size_t operator()(CStringT<Char> const & text) const noexcept
    {
        return std::hash<std::basic_string_view<Char>>()(text.View());
    }
};
/// @endcond
