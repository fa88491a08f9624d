#include <krplatform/coerce/date_scan.h>
#include <krplatform/text/casing.h>

#include <algorithm>

namespace kr::detail
{

namespace
{

constexpr bool IsDigit(WCHAR unit) { return unit >= OLESTR('0') && unit <= OLESTR('9'); }

/// The common answers need no call.
bool IsBlank(WCHAR unit) { return unit <= 0x20 || unit >= 0x80 ? IsSpace(unit) : false; }

bool IsLetter(WCHAR unit)
{
    if (unit < 0x80)
        return (unit >= OLESTR('a') && unit <= OLESTR('z')) || (unit >= OLESTR('A') && unit <= OLESTR('Z'));
    return !IsSpace(unit);
}

/// Reads one text from left to right.
class DateScanner
{
public:
    DateScanner(TextView text, DateFacts const & facts, DateItems & items) noexcept
        : m_next(text.data()), m_end(text.data() + text.size()), m_facts(facts), m_items(items)
    {
    }

    bool Scan() noexcept
    {
        while (m_next < m_end)
        {
            WCHAR const unit = *m_next;
            if (IsDigit(unit) ? !ReadNumber() : !ReadMark(unit) && !SkipBlank(unit) && !ReadWord())
                return false;
        }
        return m_mark == Mark::none || (m_mark == Mark::date && m_facts.markEndsDate);
    }

private:
    enum class Mark
    {
        none,
        date,
        time,
        comma
    };

    bool Add(DateItem::Kind kind, int value) noexcept
    {
        if (m_items.count == DateItems::room)
            return false;
        DateJoint const joint = m_mark == Mark::date   ? DateJoint::date
                                : m_mark == Mark::time ? DateJoint::time
                                                       : DateJoint::none;
        if (joint == DateJoint::none)
            m_isInGroup = false;
        m_items.items[m_items.count++] = {kind, value, joint};
        m_mark = Mark::none;
        return true;
    }

    bool ReadNumber() noexcept
    {
        constexpr int limit = 100000;
        int value = 0;
        for (; m_next < m_end && IsDigit(*m_next); ++m_next)
            value = std::min(value * 10 + (*m_next - OLESTR('0')), limit);
        return Add(DateItem::Kind::number, value);
    }

    bool SkipBlank(WCHAR unit) noexcept
    {
        if (!IsBlank(unit))
            return false;
        ++m_next;
        return true;
    }

    bool ReadMark(WCHAR unit) noexcept
    {
        Mark const mark = MarkOf(unit);
        bool const isAllowed = m_mark == Mark::none && (m_items.count > 0 || mark == Mark::comma);
        if (mark == Mark::none || !isAllowed)
            return false;
        m_mark = mark;
        ++m_next;
        return true;
    }

    Mark MarkOf(WCHAR unit) noexcept
    {
        if (unit == m_facts.dateMark)
            return unit == m_facts.timeMark ? MarkOfGroup() : Mark::date;
        switch (unit)
        {
        case OLESTR('/'):
        case OLESTR('-'):
            return Mark::date;
        case OLESTR(':'):
        case OLESTR('.'):
            return Mark::time;
        case OLESTR(','):
            return Mark::comma;
        default:
            return unit == m_facts.timeMark ? Mark::time : Mark::none;
        }
    }

    /// Where dates and times have the same mark, the first group that it joins is the date.
    Mark MarkOfGroup() noexcept
    {
        if (!m_isInGroup)
            ++m_groups;
        m_isInGroup = true;
        return m_groups == 1 ? Mark::date : Mark::time;
    }

    bool ReadWord() noexcept
    {
        WCHAR const first = LowerCase(*m_next);
        for (DateWord const & word : m_facts.words)
        {
            if (word.folded.front() != first || !StartsWith(word.folded))
                continue;
            WCHAR const * const end = m_next + word.folded.size();
            if (end < m_end && IsLetter(word.folded.back()) && IsLetter(*end))
                return false;
            m_next = end;
            if (word.kind == DateWord::Kind::filler)
                return true;
            return Add(word.kind == DateWord::Kind::month ? DateItem::Kind::month : DateItem::Kind::halfOfDay,
                       word.value);
        }
        return false;
    }

    bool StartsWith(TextView folded) const noexcept
    {
        auto const isSame = [](WCHAR foldedUnit, WCHAR unit) { return foldedUnit == LowerCase(unit); };
        return folded.size() <= static_cast<std::size_t>(m_end - m_next) &&
               std::equal(folded.begin(), folded.end(), m_next, isSame);
    }

    WCHAR const * m_next;
    WCHAR const * m_end;
    DateFacts const & m_facts;
    DateItems & m_items;
    Mark m_mark = Mark::none; ///< read since the last item
    bool m_isInGroup = false; ///< the last item was joined by the mark of both dates and times
    int m_groups = 0;
};

} // namespace

bool ScanDate(TextView text, DateFacts const & facts, DateItems & items) noexcept
{
    items.count = 0;
    return DateScanner(text, facts, items).Scan();
}

} // namespace kr::detail
