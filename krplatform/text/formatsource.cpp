#include <krplatform/base/cexception.h>
#include <krplatform/text/formatsource.h>

namespace kr::detail
{

FormatArgument ArgumentList::Next(ExpectedArgument)
{
    if (m_rest.empty())
        AtlThrow(E_INVALIDARG);
    FormatArgument const argument = m_rest.front();
    m_rest = m_rest.subspan(1);
    return argument;
}

FormatArgument VariableArguments::Next(ExpectedArgument expected)
{
    switch (expected)
    {
    case ExpectedArgument::Integer:
        return va_arg(m_arguments, int);
    case ExpectedArgument::LongInteger:
        return va_arg(m_arguments, long long);
    case ExpectedArgument::Real:
        return va_arg(m_arguments, double);
    case ExpectedArgument::LongReal:
        return va_arg(m_arguments, long double);
    case ExpectedArgument::NarrowText:
        return va_arg(m_arguments, char const *);
    case ExpectedArgument::WideText:
        return va_arg(m_arguments, WCHAR const *);
    case ExpectedArgument::Pointer:
        break;
    }
    return va_arg(m_arguments, void const *);
}

} // namespace kr::detail
