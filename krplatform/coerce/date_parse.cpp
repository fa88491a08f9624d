#include <krplatform/coerce/calendar.h>
#include <krplatform/coerce/date_parse.h>
#include <krplatform/coerce/date_scan.h>
#include <krplatform/coerce/date_text.h>
#include <krplatform/coerce/locale_lookup.h>

#include <span>

namespace kr::detail
{

namespace
{

/// Which number of a text is the year, the month and the day; -1 where it has none.
struct Order
{
    int year;
    int month;
    int day;
};

constexpr Order yearMonthDay = {0, 1, 2};
constexpr Order yearDayMonth = {0, 2, 1};
constexpr Order monthDayYear = {2, 0, 1};
constexpr Order dayMonthYear = {2, 1, 0};
constexpr Order monthDay = {-1, 0, 1};
constexpr Order dayMonth = {-1, 1, 0};
constexpr Order monthYear = {1, 0, -1};
constexpr Order yearMonth = {0, 1, -1};

// The orders that are tried, in turn, until one gives a day that there is. Other orders are none.
// clang-format off
constexpr Order ordersMonthDayYear[] = { monthDayYear, yearMonthDay, dayMonthYear, yearDayMonth };
constexpr Order ordersDayMonthYear[] = { dayMonthYear, yearMonthDay, monthDayYear, yearDayMonth };
constexpr Order ordersYearMonthDay[] = { yearMonthDay, monthDayYear, dayMonthYear, yearDayMonth };
constexpr Order ordersWithName[]     = { monthDayYear, dayMonthYear, yearMonthDay, yearDayMonth };  // every locale's
constexpr Order ordersMonthDay[]     = { monthDay, dayMonth, monthYear, yearMonth };
constexpr Order ordersDayMonth[]     = { dayMonth, monthDay, monthYear, yearMonth };
// clang-format on

struct Date
{
    int parts[3] = {};
    std::size_t count = 0;
    int namedMonth = -1; ///< which part is a month by its name
};

struct Time
{
    int parts[3] = {};
    std::size_t count = 0;
    int halfOfDay = -1;
};

/// Deals the items of a text out to its date and its time, which stand one behind the other.
class DateDealer
{
public:
    DateDealer(DateItems const & items, DateFacts const & facts) noexcept : m_items(items), m_facts(facts) {}

    bool Deal(Date & date, Time & time) noexcept
    {
        while (m_next < m_items.count)
        {
            if (!(StartsTime() ? DealTime(date, time) : DealDatePart(date)))
                return false;
        }
        return true;
    }

private:
    using Kind = DateItem::Kind;

    DateItem const & Item() const noexcept { return m_items.items[m_next]; }
    bool HasItem() const noexcept { return m_next < m_items.count; }
    bool IsHalfOfDay() const noexcept
    {
        return HasItem() && Item().kind == Kind::halfOfDay && Item().joint == DateJoint::none;
    }

    /// A number is the first of a time where a mark of times follows it, or AM or PM.
    bool StartsTime() const noexcept
    {
        if (Item().kind == Kind::halfOfDay)
            return m_facts.halfBeforeTime;
        if (Item().kind == Kind::month || m_next + 1 == m_items.count)
            return false;
        DateItem const & following = m_items.items[m_next + 1];
        bool const isHour = following.kind == Kind::halfOfDay && following.joint == DateJoint::none;
        return following.joint == DateJoint::time || (isHour && !m_facts.halfBeforeTime);
    }

    bool DealTime(Date const & date, Time & time) noexcept
    {
        bool const isAfterEndedDate = m_facts.markEndsDate && Item().joint == DateJoint::date && date.count == 3;
        if (time.count > 0 || (Item().joint != DateJoint::none && !isAfterEndedDate))
            return false;
        m_hasWholeDate = date.count > 0;
        if (Item().kind == Kind::halfOfDay)
            time.halfOfDay = m_items.items[m_next++].value;
        do
        {
            if (!HasItem() || Item().kind != Kind::number || time.count == std::size(time.parts))
                return false;
            time.parts[time.count++] = m_items.items[m_next++].value;
        } while (HasItem() && Item().joint == DateJoint::time);
        if (IsHalfOfDay() && time.halfOfDay < 0)
            time.halfOfDay = m_items.items[m_next++].value;
        return !HasItem() || Item().joint == DateJoint::none;
    }

    bool DealDatePart(Date & date) noexcept
    {
        bool const isFull = m_hasWholeDate || date.count == std::size(date.parts);
        if (isFull || Item().kind == Kind::halfOfDay || Item().joint == DateJoint::time)
            return false;
        // Deliberate: only the first month's name is one, another is the number of its month
        if (Item().kind == Kind::month && date.namedMonth < 0)
            date.namedMonth = static_cast<int>(date.count);
        date.parts[date.count++] = m_items.items[m_next++].value;
        return true;
    }

    DateItems const & m_items;
    DateFacts const & m_facts;
    std::size_t m_next = 0;
    bool m_hasWholeDate = false; ///< the time came behind the date, of which no more may follow
};

std::span<Order const> OrdersOf(Date const & date, DateOrder order)
{
    if (date.count == 2)
        return order == DateOrder::dayMonthYear ? std::span(ordersDayMonth) : std::span(ordersMonthDay);
    if (date.namedMonth >= 0)
        return ordersWithName;
    switch (order)
    {
    case DateOrder::monthDayYear:
        return ordersMonthDayYear;
    case DateOrder::dayMonthYear:
        return ordersDayMonthYear;
    default:
        return ordersYearMonthDay;
    }
}

/// The day that the parts name in this order, if there is one.
bool DayInOrder(Date const & date, Order const & order, int & dayNumber)
{
    if (date.namedMonth >= 0 && date.namedMonth != order.month)
        return false;
    int const month = date.parts[order.month];
    int const year = order.year < 0 ? RunningYear() : FullYear(date.parts[order.year]);
    int const day = order.day < 0 ? 1 : date.parts[order.day];
    if (month < 1 || month > 12 || year > 9999 || day < 1 || day > DaysInMonth(year, month))
        return false;
    dayNumber = DayNumber(year, month, day);
    return true;
}

bool DayOf(Date const & date, DateOrder order, int & dayNumber)
{
    if (date.count == 1)
        return false;
    for (Order const & attempt : OrdersOf(date, order))
    {
        if (DayInOrder(date, attempt, dayNumber))
            return true;
    }
    return false;
}

/// Brings the hour to 0 to 23. An hour above 12 keeps its half whatever the mark says.
bool Complete(Time & time)
{
    int & hour = time.parts[0];
    if (time.halfOfDay == 1 && hour < 12)
        hour += 12;
    else if (time.halfOfDay == 0 && hour == 12)
        hour = 0;
    return hour < 24 && time.parts[1] < 60 && time.parts[2] < 60;
}

} // namespace

bool TextToDate(TextView text, unsigned flags, LocaleFacts const & facts, double & date)
{
    DateItems items;
    Date day;
    Time time;
    if (!ScanDate(text, facts.date, items) || items.count == 0 || !DateDealer(items, facts.date).Deal(day, time))
        return false;
    int dayNumber = 0;
    if (!Complete(time) || (day.count > 0 && !DayOf(day, facts.date.order, dayNumber)))
        return false;
    if (flags & dateTextTimeOnly)
        dayNumber = 0;
    if (flags & dateTextDateOnly)
        time = {};
    date = DateOf(dayNumber, time.parts[0], time.parts[1], time.parts[2]);
    return true;
}

} // namespace kr::detail
