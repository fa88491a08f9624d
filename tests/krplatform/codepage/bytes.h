// Bytes and units in the tests of code pages: written as hexadecimal digits, converted in one call.
#pragma once

#include <krplatform/codepage/codepage.h>

#include <string>
#include <string_view>

namespace kr::test
{

/// "82A0" -> two bytes.
std::string BytesOfHex(std::string_view digits);

/// "00E43042" -> two units.
std::basic_string<WCHAR> UnitsOfHex(std::string_view digits);

std::string HexOf(std::string_view bytes);
std::string HexOf(std::basic_string_view<WCHAR> units);

/// What one unit becomes in a code page, in hexadecimal digits; "-" where the default character stands for it.
std::string NarrowUnit(UINT codePage, DWORD flags, WCHAR unit);

/// The one unit that bytes are in a code page, in hexadecimal digits; "-" where they are none or more.
std::string WidenToUnit(UINT codePage, DWORD flags, std::string_view bytes);

/// The pages whose look-alikes are the platform's.
constexpr UINT ansiCodePages[] = {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 1361};

} // namespace kr::test
