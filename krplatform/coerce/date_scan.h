// The first half of reading a date: text becomes a short row of numbers, months and marks of the half of the day.
#pragma once

#include <krplatform/coerce/locale_facts.h>

#include <cstddef>

namespace kr::detail
{

/// What joins an item to the one before: nothing but blanks or a comma, a mark of dates (`/`, `-`, the locale's), or a
/// mark of times (`:`, and `.` unless the locale writes it in dates).
enum class DateJoint
{
    none,
    date,
    time
};

struct DateItem
{
    enum class Kind
    {
        number,
        month,
        halfOfDay ///< `value` 0 before noon, 1 after
    };

    Kind kind;
    int value; ///< numbers stop at 100000, far above any that means something
    DateJoint joint;
};

/// The items of a text. More than a date, a time and a mark of the half of the day have, no text may hold.
struct DateItems
{
    static constexpr std::size_t room = 7;

    DateItem items[room];
    std::size_t count = 0;
};

/// Takes a text apart. False for text that holds anything else, two marks in a row, or a mark at an end (but for a date
/// mark at the end where the locale writes it there).
bool ScanDate(TextView text, DateFacts const & facts, DateItems & items) noexcept;

} // namespace kr::detail
