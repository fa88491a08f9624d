// The typed value of GLib. It changes numbers and truth values into texts; texts into numbers is a matter of functions beside it.
#include "bench/values_rows.h"

#include <glib-object.h>

namespace
{

class OwnedValue
{
public:
    explicit OwnedValue(GType type) { g_value_init(&m_value, type); }
    explicit OwnedValue(int number) : OwnedValue(G_TYPE_INT) { g_value_set_int(&m_value, number); }
    explicit OwnedValue(double number) : OwnedValue(G_TYPE_DOUBLE) { g_value_set_double(&m_value, number); }
    explicit OwnedValue(bool truth) : OwnedValue(G_TYPE_BOOLEAN)
    {
        g_value_set_boolean(&m_value, truth ? TRUE : FALSE);
    }
    explicit OwnedValue(std::string const & text) : OwnedValue(G_TYPE_STRING)
    {
        g_value_set_string(&m_value, text.c_str());
    }
    OwnedValue(OwnedValue const & other) : OwnedValue(G_VALUE_TYPE(&other.m_value))
    {
        g_value_copy(&other.m_value, &m_value);
    }
    OwnedValue & operator=(OwnedValue const &) = delete;
    ~OwnedValue() { g_value_unset(&m_value); }

    GValue const * Get() const { return &m_value; }
    OwnedValue As(GType type) const
    {
        OwnedValue changed(type);
        g_value_transform(&m_value, &changed.m_value);
        return changed;
    }

private:
    GValue m_value = G_VALUE_INIT;
};

struct GLib
{
    static constexpr char const * label = "GLib";
    using Value = OwnedValue;
    using Text = std::string;

    static Text MakeText(char const * text) { return text; }
    static int ReadInt(Value const & value) { return g_value_get_int(value.Get()); }
    static double ReadDouble(Value const & value) { return g_value_get_double(value.Get()); }
    static Text ReadText(Value const & value) { return g_value_get_string(value.Get()); }
    static Value DoubleToText(Value const & value) { return value.As(G_TYPE_STRING); }
    static Value BoolToText(Value const & value) { return value.As(G_TYPE_STRING); }
    static Value TextToDouble(Value const & value)
    {
        return Value(g_ascii_strtod(g_value_get_string(value.Get()), nullptr));
    }
    static Value IntToDouble(Value const & value) { return value.As(G_TYPE_DOUBLE); }
};

[[maybe_unused]] bool const s_registered =
    (kr::bench::RegisterBasicRows<GLib>(), kr::bench::RegisterConversionRows<GLib>(), true);

} // namespace
