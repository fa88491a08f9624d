#include <krplatform/codepage/codepage.h>
#include <krplatform/linux/codepage_convert.h>
#include <krplatform/linux/codepage_process.h>
#include <krplatform/linux/codepage_registry.h>
#include <krplatform/linux/codepage_utf8.h>

#include <limits>
#include <string>

namespace kr::detail
{

namespace
{

int Fail(DWORD error)
{
    SetLastError(error);
    return 0;
}

/// The number of places, or 0 with the last error set.
int AnswerOf(Conversion conversion)
{
    if (conversion.error != ERROR_SUCCESS)
        return Fail(conversion.error);
    if (conversion.count > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return Fail(ERROR_INVALID_PARAMETER); // GCOVR_EXCL_LINE: only the slow tests make such a text
    return static_cast<int>(conversion.count);
}

template <class Source, class Target>
bool AreBuffersUsable(Source const * source, int length, Target const * target, int room)
{
    return source && length != 0 && room >= 0 && (target || room == 0) &&
           static_cast<void const *>(source) != static_cast<void const *>(target);
}

/// A negative length measures up to and with the zero.
template <class Char>
std::basic_string_view<Char> ViewOf(Char const * text, int length)
{
    return {text, length < 0 ? std::char_traits<Char>::length(text) + 1 : static_cast<std::size_t>(length)};
}

template <class Char>
Destination<Char> DestinationOf(Char * buffer, int room)
{
    return {buffer, static_cast<std::size_t>(room)};
}

inline bool IsOfProcess(UINT codePage) { return codePage == CP_ACP || codePage == CP_THREAD_ACP; }

/// What a code page is converted by: a table, or the rules of UTF-8.
struct Scheme
{
    CodePageTable const * table;
    bool isUtf8;
};

/// Neither, with the last error set, for an unknown code page and when memory runs out.
inline Scheme FindScheme(UINT codePage)
{
    bool const isUtf8 = codePage == CP_UTF8;
    return {isUtf8 ? nullptr : FindCodePage(codePage), isUtf8};
}

/// The caller's substitute may be a character of two bytes.
CharacterBytes DefaultBytes(CodePageTable const & table, char const * defaultChar)
{
    if (!defaultChar)
        return '?';
    auto const first = static_cast<BYTE>(defaultChar[0]);
    if (!table.IsLead(first) || defaultChar[1] == 0)
        return first;
    return TwoBytes(first, static_cast<BYTE>(defaultChar[1]));
}

/// One unit: whoever converts text one by one asks so, and is spared what a text needs. 0, with nothing done, where the room may
/// not do, for a surrogate in UTF-8, and for a code page without a table yet.
inline int NarrowUnit(UINT codePage, bool exactOnly, WCHAR unit, char * bytes, int room, BOOL * usedDefault)
{
    if (codePage == CP_UTF8)
    {
        if (room < 3 || IsSurrogate(unit))
            return 0;
        if (usedDefault)
            *usedDefault = FALSE;
        WritingOutput<char> output({bytes, 3});
        PutUtf8(output, unit);
        return static_cast<int>(output.GetCount());
    }
    CodePageTable const * const table = FindMadeCodePage(codePage);
    if (!table || room < 2)
        return 0;
    CharacterBytes const found = BytesFor(unit, *table, {exactOnly, '?'});
    if (usedDefault)
        *usedDefault = found == noBytes;
    return PutCharacter(bytes, found == noBytes ? CharacterBytes{'?'} : found);
}

/// One character, likewise. 0, with nothing done, where it is not valid or not one unit, and for a
/// code page without a table yet.
inline int WidenCharacter(UINT codePage, std::string_view bytes, WCHAR * text)
{
    if (codePage == CP_UTF8)
    {
        Utf8Character const found = DecodeUtf8(bytes);
        if (found.size != bytes.size() || !found.isValid || found.character >= 0x10000)
            return 0;
        *text = static_cast<WCHAR>(found.character);
        return 1;
    }
    CodePageTable const * const table = FindMadeCodePage(codePage);
    if (!table)
        return 0;
    DecodedCharacter const found = DecodeCharacter(*table, bytes);
    if (found.size != bytes.size() || !found.isValid)
        return 0;
    *text = found.unit;
    return 1;
}

// What is not inlined keeps its frame away from single units, which need none.

[[gnu::noinline]] int NarrowAnyText(UINT codePage, DWORD flags, WCHAR const * text, int length, char * bytes, int room,
                                    char const * defaultChar, BOOL * usedDefault)
{
    if (IsOfProcess(codePage))
        return WideCharToMultiByte(ProcessCodePage(), flags, text, length, bytes, room, defaultChar, usedDefault);
    if (!AreBuffersUsable(text, length, bytes, room))
        return Fail(ERROR_INVALID_PARAMETER);
    auto const [table, isUtf8] = FindScheme(codePage);
    if (!table && !isUtf8)
        return 0;
    DWORD const knownFlags = WC_NO_BEST_FIT_CHARS | (isUtf8 ? WC_ERR_INVALID_CHARS : 0);
    if ((flags & ~knownFlags) != 0)
        return Fail(ERROR_INVALID_FLAGS);

    bool const exactOnly = (flags & WC_NO_BEST_FIT_CHARS) != 0;
    TextView const view = ViewOf(text, length);
    Destination<char> const destination = DestinationOf(bytes, room);
    bool isDefaultUsed = false;
    Conversion const conversion =
        isUtf8 ? NarrowToUtf8((flags & WC_ERR_INVALID_CHARS) != 0, view, destination, isDefaultUsed)
               : NarrowText(*table, {exactOnly, DefaultBytes(*table, defaultChar)}, view, destination, isDefaultUsed);
    if (usedDefault)
        *usedDefault = isDefaultUsed;
    return AnswerOf(conversion);
}

[[gnu::noinline]] int WidenAnyText(UINT codePage, DWORD flags, char const * bytes, int length, WCHAR * text, int room)
{
    if (IsOfProcess(codePage))
        return MultiByteToWideChar(ProcessCodePage(), flags, bytes, length, text, room);
    if (!AreBuffersUsable(bytes, length, text, room))
        return Fail(ERROR_INVALID_PARAMETER);
    auto const [table, isUtf8] = FindScheme(codePage);
    if (!table && !isUtf8)
        return 0;
    DWORD const knownFlags = MB_ERR_INVALID_CHARS | (isUtf8 ? 0 : MB_PRECOMPOSED);
    if ((flags & ~knownFlags) != 0)
        return Fail(ERROR_INVALID_FLAGS);

    bool const validOnly = (flags & MB_ERR_INVALID_CHARS) != 0;
    std::string_view const view = ViewOf(bytes, length);
    Destination<WCHAR> const destination = DestinationOf(text, room);
    return AnswerOf(isUtf8 ? WidenUtf8(validOnly, view, destination)
                           : WidenBytes(*table, validOnly, view, destination));
}

} // namespace

} // namespace kr::detail

using namespace kr::detail;

int WideCharToMultiByte(UINT codePage, DWORD flags, WCHAR const * text, int length, char * bytes, int room,
                        char const * defaultChar, BOOL * usedDefault)
{
    bool const isUnit = length == 1 && text && bytes && static_cast<void const *>(text) != bytes && !defaultChar &&
                        (flags & ~WC_NO_BEST_FIT_CHARS) == 0;
    int const count = isUnit ? NarrowUnit(codePage, flags != 0, *text, bytes, room, usedDefault) : 0;
    return count != 0 ? count : NarrowAnyText(codePage, flags, text, length, bytes, room, defaultChar, usedDefault);
}

int MultiByteToWideChar(UINT codePage, DWORD flags, char const * bytes, int length, WCHAR * text, int room)
{
    bool const isCharacter = length > 0 && room > 0 && bytes && text && static_cast<void const *>(text) != bytes &&
                             (flags & ~MB_ERR_INVALID_CHARS) == 0;
    int const count = isCharacter ? WidenCharacter(codePage, ViewOf(bytes, length), text) : 0;
    return count != 0 ? count : WidenAnyText(codePage, flags, bytes, length, text, room);
}
