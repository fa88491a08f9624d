#include <krplatform/base/hresult.h>
#include <krplatform/linux/codepage_converter.h>

#include <unicode/ucnv.h>

namespace kr::detail
{

CodePageConverter::CodePageConverter(char const * name, bool lookAlikes)
{
    UErrorCode status = U_ZERO_ERROR;
    m_converter = ucnv_open(name, &status);
    ucnv_setFromUCallBack(m_converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setToUCallBack(m_converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    if (status == U_MEMORY_ALLOCATION_ERROR)
        m_error = ERROR_NOT_ENOUGH_MEMORY;
    else
        m_error = U_FAILURE(status) ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
    if (m_error == ERROR_SUCCESS)
        ucnv_setFallback(m_converter, static_cast<UBool>(lookAlikes));
}

CodePageConverter::~CodePageConverter() { ucnv_close(m_converter); }

WCHAR CodePageConverter::UnitOf(CharacterBytes bytes) const
{
    char const source[] = {static_cast<char>(bytes >> 8), static_cast<char>(bytes)};
    char const * const end = source + 2;
    char const * begin = bytes < 0x100 ? source + 1 : source;
    UChar units[4];
    UChar * next = units;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_resetToUnicode(m_converter);
    ucnv_toUnicode(m_converter, &next, units + 4, &begin, end, nullptr, true, &status);
    return U_SUCCESS(status) && next == units + 1 ? units[0] : noUnit;
}

CharacterBytes CodePageConverter::BytesOf(WCHAR unit) const
{
    UChar const source[] = {unit};
    UChar const * begin = source;
    char bytes[8] = {};
    char * next = bytes;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_resetFromUnicode(m_converter);
    ucnv_fromUnicode(m_converter, &next, bytes + 8, &begin, source + 1, nullptr, true, &status);
    if (U_FAILURE(status) || next < bytes + 1 || next > bytes + 2)
        return noBytes;
    auto const first = static_cast<BYTE>(bytes[0]);
    return next == bytes + 1 ? first : TwoBytes(first, static_cast<BYTE>(bytes[1]));
}

} // namespace kr::detail
