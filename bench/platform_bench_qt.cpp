// The text of Qt.
#include "bench/string_rows.h"

#include <QString>

namespace
{

struct Qt
{
    static constexpr char const * label = "QString";
    using Text = QString;
    static constexpr QChar unit{u'x'};

    static Text MakeText(char const * text) { return QString(text); }
    static Text Format(Text const & name, int index, int count, double width)
    {
        return QString::asprintf("%ls: %d of %d (%5.2f)", qUtf16Printable(name), index, count, width);
    }
};

[[maybe_unused]] bool const s_registered = (kr::bench::RegisterStringRows<Qt>(), true);

} // namespace
