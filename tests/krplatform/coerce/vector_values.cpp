#include "tests/krplatform/coerce/vector_values.h"

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/text.h"
#include "tests/support/vectors.h"

#include <krplatform/automation/safearray.h>
#include <krplatform/coerce/locale_lookup.h>

#include <bit>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace kr::test
{

namespace
{

struct TypeName
{
    std::string_view name;
    int tag;
};

// clang-format off
constexpr TypeName s_types[] = {
    { "EMPTY",         VT_EMPTY              },
    { "NULL",          VT_NULL               },
    { "I1",            VT_I1                 },
    { "UI1",           VT_UI1                },
    { "I2",            VT_I2                 },
    { "UI2",           VT_UI2                },
    { "I4",            VT_I4                 },
    { "UI4",           VT_UI4                },
    { "I8",            VT_I8                 },
    { "UI8",           VT_UI8                },
    { "INT",           VT_INT                },
    { "UINT",          VT_UINT               },
    { "R4",            VT_R4                 },
    { "R8",            VT_R8                 },
    { "CY",            VT_CY                 },
    { "DATE",          VT_DATE               },
    { "BSTR",          VT_BSTR               },
    { "BOOL",          VT_BOOL               },
    { "ERROR",         VT_ERROR              },
    { "DISPATCH",      VT_DISPATCH           },
    { "UNKNOWN",       VT_UNKNOWN            },
    { "VARIANT",       VT_VARIANT            },
    { "VOID",          VT_VOID               },
    { "PTR",           VT_PTR                },
    { "BLOB",          VT_BLOB               },
    { "VT15",          15                    },
    { "ARRAY_I4",      VT_ARRAY | VT_I4      },
    { "ARRAY_R8",      VT_ARRAY | VT_R8      },
    { "ARRAY_UI1",     VT_ARRAY | VT_UI1     },
    { "ARRAY_BSTR",    VT_ARRAY | VT_BSTR    },
    { "ARRAY_VARIANT", VT_ARRAY | VT_VARIANT },
};
// clang-format on

ULONGLONG BitsOf(std::string const & field) { return std::stoull(field.substr(field.find(':') + 1), nullptr, 16); }

bool IsSigned(int tag)
{
    return tag == VT_I1 || tag == VT_I2 || tag == VT_I4 || tag == VT_I8 || tag == VT_INT || tag == VT_BOOL ||
           tag == VT_CY;
}

/// Elements parted by commas; one of VARIANT is `type value`.
VARIANT MakeArray(VARTYPE element, std::string const & field)
{
    std::vector<std::string> parts;
    std::istringstream stream(field);
    for (std::string part; std::getline(stream, part, ',');)
        parts.push_back(part);
    SAFEARRAY * const array = SafeArrayCreateVector(element, 0, static_cast<ULONG>(parts.size()));
    for (LONG index = 0; index < static_cast<LONG>(parts.size()); ++index)
    {
        std::string const & part = parts[static_cast<std::size_t>(index)];
        std::size_t const blank = part.find(' ');
        if (element == VT_VARIANT)
        {
            Cleared value(MakeValue(part.substr(0, blank), part.substr(blank + 1)));
            SafeArrayPutElement(array, &index, value.Get());
        }
        else if (element == VT_BSTR)
        {
            Cleared value(MakeTextVariant(DecodeField(part)));
            SafeArrayPutElement(array, &index, value->bstrVal);
        }
        else if (element == VT_R8)
        {
            double const number = std::stod(part);
            SafeArrayPutElement(array, &index, &number);
        }
        else
        {
            long long const number = std::stoll(part);
            SafeArrayPutElement(array, &index, &number);
        }
    }
    return MakeArrayVariant(array);
}

std::string ShowReal(double value, int digits, unsigned long long bits, int bitDigits)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*g:%0*llX", digits, value, bitDigits, bits);
    return text;
}

DATE DayOfRunningYear(std::string const & field)
{
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (std::sscanf(field.c_str(), "Y:%u-%u %d:%d:%d", &month, &day, &hour, &minute, &second) != 5)
        throw std::runtime_error("no day of the running year: " + field);
    using namespace std::chrono;
    sys_days const date = year_month_day(year(detail::RunningYear()), std::chrono::month(month), std::chrono::day(day));
    sys_days const first = year(1899) / 12 / 30;
    return static_cast<double>((date - first).count()) + (hour * 3600 + minute * 60 + second) / 86400.0;
}

} // namespace

VARTYPE TagOf(std::string_view name)
{
    for (TypeName const & type : s_types)
    {
        if (type.name == name)
            return static_cast<VARTYPE>(type.tag);
    }
    throw std::runtime_error("no type " + std::string(name));
}

VARIANT MakeValue(std::string_view type, std::string const & field)
{
    VARTYPE const tag = TagOf(type);
    if ((tag & VT_ARRAY) != 0)
        return MakeArray(tag & VT_TYPEMASK, field);
    if (tag == VT_BSTR)
        return field == "\\null" ? MakeBits(VT_BSTR, 0) : MakeTextVariant(DecodeField(field));
    if (field == "-" || field == "null")
        return MakeBits(tag, 0);
    if (tag == VT_R4 || tag == VT_R8 || tag == VT_DATE || tag == VT_ERROR)
        return MakeBits(tag, BitsOf(field));
    return MakeBits(tag, IsSigned(tag) ? static_cast<ULONGLONG>(std::stoll(field)) : std::stoull(field));
}

std::string Show(VARIANT const & value)
{
    switch (value.vt)
    {
    // clang-format off
    case VT_EMPTY:
    case VT_NULL:  return "-";
    case VT_I1:    return std::to_string(value.cVal);
    case VT_UI1:   return std::to_string(value.bVal);
    case VT_I2:    return std::to_string(value.iVal);
    case VT_UI2:   return std::to_string(value.uiVal);
    case VT_I4:    return std::to_string(value.lVal);
    case VT_UI4:   return std::to_string(value.ulVal);
    case VT_I8:    return std::to_string(value.llVal);
    case VT_UI8:   return std::to_string(value.ullVal);
    case VT_INT:   return std::to_string(value.intVal);
    case VT_UINT:  return std::to_string(value.uintVal);
    case VT_CY:    return std::to_string(value.cyVal.int64);
    case VT_BOOL:  return std::to_string(value.boolVal);
    case VT_R4:    return ShowReal(static_cast<double>(value.fltVal), 9, std::bit_cast<ULONG>(value.fltVal), 8);
    case VT_R8:    return ShowReal(value.dblVal, 17, value.ullVal, 16);
    case VT_DATE:  return ShowReal(value.date, 17, value.ullVal, 16);
    // clang-format on
    case VT_BSTR:
    {
        std::string text = Narrow(TextOf(value.bstrVal));
        if (text.ends_with(' '))
            text.replace(text.size() - 1, 1, "\\u0020");
        if (text.starts_with(' '))
            text.replace(0, 1, "\\u0020");
        return text;
    }
    case VT_ERROR:
    {
        char text[16];
        std::snprintf(text, sizeof text, "%08X", value.ulVal);
        return text;
    }
    default:
        return (value.vt & VT_ARRAY) != 0 ? "array" : value.punkVal ? "object" : "null";
    }
}

bool Says(std::string const & field, bool isApproximate, VARIANT const & value)
{
    DATE days = 0;
    if (field.starts_with("Y:"))
        days = DayOfRunningYear(field);
    else if (isApproximate)
        days = std::bit_cast<double>(BitsOf(field));
    else
        return Show(value) == field;
    return value.vt == VT_DATE && std::abs(value.date - days) < 1e-6;
}

} // namespace kr::test
