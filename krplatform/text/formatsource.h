// Where a formatter takes its arguments from: a list that knows their kinds, or variable arguments that do not. Internal
// to the text classes.
#pragma once

#include <krplatform/text/formatargument.h>

#include <cstdarg>
#include <span>

namespace kr::detail
{

/// What a conversion expects, which is all that variable arguments can be read by.
enum class ExpectedArgument : unsigned char
{
    Integer, ///< 4 bytes
    LongInteger,
    Real,
    LongReal, ///< read as the nearest double
    NarrowText,
    WideText,
    Pointer
};

class ArgumentSource
{
public:
    /// The next argument. A missing one raises E_INVALIDARG, where that can be known.
    virtual FormatArgument Next(ExpectedArgument expected) = 0;

protected:
    ~ArgumentSource() = default;
};

class ArgumentList final : public ArgumentSource
{
public:
    explicit ArgumentList(std::span<FormatArgument const> arguments) : m_rest(arguments) {}
    FormatArgument Next(ExpectedArgument expected) override;

private:
    std::span<FormatArgument const> m_rest;
};

class VariableArguments final : public ArgumentSource
{
public:
    explicit VariableArguments(va_list arguments) { va_copy(m_arguments, arguments); }
    VariableArguments(VariableArguments const &) = delete;
    VariableArguments & operator=(VariableArguments const &) = delete;
    ~VariableArguments() { va_end(m_arguments); }
    FormatArgument Next(ExpectedArgument expected) override;

private:
    va_list m_arguments;
};

} // namespace kr::detail
