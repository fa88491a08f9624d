#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

LocaleFacts const & InvariantFacts()
{
    static LocaleFacts const facts = []
    {
        LocaleFacts made;
        made.currency.symbol = OLESTR("\u00A4");
        made.date.shortDate = OLESTR("MM/dd/yyyy");
        made.date.longTime = OLESTR("HH:mm:ss");
        made.date.am = OLESTR("AM");
        made.date.pm = OLESTR("PM");
        made.date.monthNames = {OLESTR("January"),   OLESTR("February"), OLESTR("March"),    OLESTR("April"),
                                OLESTR("May"),       OLESTR("June"),     OLESTR("July"),     OLESTR("August"),
                                OLESTR("September"), OLESTR("October"),  OLESTR("November"), OLESTR("December")};
        made.date.shortMonthNames = {OLESTR("Jan"), OLESTR("Feb"), OLESTR("Mar"), OLESTR("Apr"),
                                     OLESTR("May"), OLESTR("Jun"), OLESTR("Jul"), OLESTR("Aug"),
                                     OLESTR("Sep"), OLESTR("Oct"), OLESTR("Nov"), OLESTR("Dec")};
        made.date.dayNames = {OLESTR("Sunday"),   OLESTR("Monday"), OLESTR("Tuesday"), OLESTR("Wednesday"),
                              OLESTR("Thursday"), OLESTR("Friday"), OLESTR("Saturday")};
        made.date.shortDayNames = {OLESTR("Sun"), OLESTR("Mon"), OLESTR("Tue"), OLESTR("Wed"),
                                   OLESTR("Thu"), OLESTR("Fri"), OLESTR("Sat")};
        made.yes = OLESTR("True");
        made.no = OLESTR("False");
        return made;
    }();
    return facts;
}

} // namespace kr::detail
