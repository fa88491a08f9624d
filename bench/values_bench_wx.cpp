// The typed value of wxWidgets.
#include "bench/values_rows.h"

#include <wx/variant.h>

namespace
{

struct Wx
{
    static constexpr char const * label = "wxVariant";
    using Value = wxVariant;
    using Text = wxString;

    static Text MakeText(char const * text) { return wxString(text); }
    static int ReadInt(Value const & value) { return static_cast<int>(value.GetLong()); }
    static double ReadDouble(Value const & value) { return value.GetDouble(); }
    static Text ReadText(Value const & value) { return value.GetString(); }
    static Value DoubleToText(Value const & value) { return value.GetString(); }
    static Value BoolToText(Value const & value) { return value.GetString(); }
    static Value TextToDouble(Value const & value) { return value.GetDouble(); }
    static Value IntToDouble(Value const & value) { return value.GetDouble(); }
};

[[maybe_unused]] bool const s_registered =
    (kr::bench::RegisterBasicRows<Wx>(), kr::bench::RegisterConversionRows<Wx>(), true);

} // namespace
