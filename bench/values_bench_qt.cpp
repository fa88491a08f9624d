// The typed value of Qt.
#include "bench/values_rows.h"

#include <QString>
#include <QVariant>

namespace
{

struct Qt
{
    static constexpr char const * label = "QVariant";
    using Value = QVariant;
    using Text = QString;

    static Text MakeText(char const * text) { return QString(text); }
    static int ReadInt(Value const & value) { return value.toInt(); }
    static double ReadDouble(Value const & value) { return value.toDouble(); }
    static Text ReadText(Value const & value) { return value.toString(); }
    static Value DoubleToText(Value const & value) { return value.toString(); }
    static Value BoolToText(Value const & value) { return value.toString(); }
    static Value TextToDouble(Value const & value) { return value.toDouble(); }
    static Value IntToDouble(Value const & value) { return value.toDouble(); }
};

[[maybe_unused]] bool const s_registered =
    (kr::bench::RegisterBasicRows<Qt>(), kr::bench::RegisterConversionRows<Qt>(), true);

} // namespace
