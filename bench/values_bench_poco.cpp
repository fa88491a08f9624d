// The typed value of POCO, whose texts are UTF-8.
#include "bench/values_rows.h"

#include <Poco/Dynamic/Var.h>

namespace
{

struct Poco
{
    static constexpr char const * label = "Poco::Dynamic::Var";
    using Value = ::Poco::Dynamic::Var;
    using Text = std::string;

    static Text MakeText(char const * text) { return text; }
    static int ReadInt(Value const & value) { return value.convert<int>(); }
    static double ReadDouble(Value const & value) { return value.convert<double>(); }
    static Text ReadText(Value const & value) { return value.convert<std::string>(); }
    static Value DoubleToText(Value const & value) { return value.convert<std::string>(); }
    static Value BoolToText(Value const & value) { return value.convert<std::string>(); }
    static Value TextToDouble(Value const & value) { return value.convert<double>(); }
    static Value IntToDouble(Value const & value) { return value.convert<double>(); }
};

[[maybe_unused]] bool const s_registered =
    (kr::bench::RegisterBasicRows<Poco>(), kr::bench::RegisterConversionRows<Poco>(), true);

} // namespace
