// CStringT: formatting.

template <class Char>
void CStringT<Char>::FormatV(Char const * format, va_list arguments)
{
    kr::detail::FormatOutput<Char> output;
    kr::detail::VariableArguments source(arguments);
    kr::detail::FormatText(output, format, source);
    Assign(output.View());
}

template <class Char>
void CStringT<Char>::FormatList(Char const * format, std::initializer_list<kr::detail::FormatArgument> arguments)
{
    kr::detail::FormatOutput<Char> output;
    kr::detail::ArgumentList source({arguments.begin(), arguments.size()});
    kr::detail::FormatText(output, format, source);
    Assign(output.View());
}
