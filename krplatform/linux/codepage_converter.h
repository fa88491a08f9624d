// A converter of ICU, asked for one character at a time.
#pragma once

#include <krplatform/linux/codepage_table.h>

struct UConverter;

namespace kr::detail
{

class CodePageConverter
{
public:
    /// `name` is ICU's own, which stands for one version of a table. `lookAlikes` makes `BytesOf` give the bytes of
    /// look-alikes too, as ICU knows them.
    CodePageConverter(char const * name, bool lookAlikes);
    ~CodePageConverter();
    CodePageConverter(CodePageConverter const &) = delete;
    CodePageConverter & operator=(CodePageConverter const &) = delete;

    /// ERROR_SUCCESS if the converter can be used, ERROR_NOT_ENOUGH_MEMORY, or ERROR_INVALID_PARAMETER where ICU has
    /// no such table.
    DWORD GetError() const { return m_error; }

    /// `noUnit` for bytes that are not exactly one unit.
    WCHAR UnitOf(CharacterBytes bytes) const;

    /// `noBytes` for a unit that has none, or more than two.
    CharacterBytes BytesOf(WCHAR unit) const;

private:
    UConverter * m_converter;
    DWORD m_error;
};

} // namespace kr::detail
