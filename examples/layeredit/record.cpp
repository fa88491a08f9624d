#include "record.h"

#include "groups.h"

#include <algorithm>

namespace layeredit
{

namespace
{

enum GroupCode : int
{
    eName = 2,
    eList = 102,
    eExtendedText = 1000,
    eApplication = 1001
};

char Lower(char unit) { return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit; }

std::string Filled(std::string number, std::size_t width)
{
    return std::string(width > number.size() ? width - number.size() : 0, ' ') + number;
}

bool HasBlankInFront(std::string_view value) { return value.starts_with(' '); }

} // namespace

std::string InStyleOf(std::string_view old, std::string number)
{
    return HasBlankInFront(old) ? Filled(std::move(number), old.size()) : number;
}

bool IsSameWord(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, {}, Lower, Lower);
}

Record::Record(std::string_view bytes)
{
    Group group;
    while (TakeGroup(bytes, group) == Taken::Group)
    {
        char const * const value = group.value.data();
        m_groups.push_back({group.code, std::string(group.bytes.data(), value), std::string(group.value),
                            std::string(value + group.value.size(), group.bytes.data() + group.bytes.size())});
    }
}

std::string Record::GetBytes() const
{
    std::string bytes;
    for (RecordGroup const & group : m_groups)
        bytes += group.codeLine + group.value + group.valueEnd;
    return bytes;
}

int Record::Find(int code) const
{
    bool isInList = false;
    for (std::size_t place = 0; place < m_groups.size(); ++place)
    {
        RecordGroup const & group = m_groups[place];
        if (group.code == eList)
            isInList = Trimmed(group.value).starts_with('{');
        else if (group.code == code && !isInList)
            return static_cast<int>(place);
    }
    return -1;
}

void Record::SetText(int code, std::string_view value, std::span<int const> neighbours)
{
    int const place = Find(code);
    if (place >= 0)
    {
        m_groups[static_cast<std::size_t>(place)].value = value;
        return;
    }
    int behind = -1;
    for (int const neighbour : neighbours)
        if (behind < 0)
            behind = Find(neighbour);
    Insert(behind + 1, Make(code, value));
}

void Record::SetNumber(int code, long number, std::span<int const> neighbours, std::size_t width)
{
    std::string text = std::to_string(number);
    if (int const place = Find(code); place >= 0)
        text = InStyleOf(GetAt(place).value, text);
    else if (HasBlanksBeforeNumbers())
        text = Filled(text, width);
    SetText(code, text, neighbours);
}

void Record::Remove(int code)
{
    if (int const place = Find(code); place >= 0)
        m_groups.erase(m_groups.begin() + place);
}

int Record::FindExtendedData(std::string_view application) const
{
    auto const found =
        std::ranges::find_if(m_groups, [application](RecordGroup const & group)
                             { return group.code == eApplication && IsSameWord(Trimmed(group.value), application); });
    return found == m_groups.end() ? -1 : static_cast<int>(found - m_groups.begin());
}

int Record::FindExtendedText(std::string_view application, int index) const
{
    int const begin = FindExtendedData(application);
    if (begin < 0)
        return -1;
    for (int place = begin + 1; place < static_cast<int>(m_groups.size()) && GetAt(place).code != eApplication; ++place)
        if (GetAt(place).code == eExtendedText && index-- == 0)
            return place;
    return -1;
}

void Record::SetExtendedText(std::string_view application, int index, std::string_view value)
{
    int begin = FindExtendedData(application);
    if (begin < 0)
    {
        begin = static_cast<int>(m_groups.size());
        Insert(begin, Make(eApplication, application));
    }
    int last = begin;
    for (int text = 0; text <= index; ++text)
    {
        int const place = FindExtendedText(application, text);
        if (place < 0)
            Insert(last + 1, Make(eExtendedText, {}));
        last = place < 0 ? last + 1 : place;
    }
    m_groups[static_cast<std::size_t>(last)].value = value;
}

bool Record::HasBlanksBeforeNumbers() const
{
    constexpr int numbers[] = {70, 62, 370};
    return std::ranges::any_of(numbers, [this](int code)
                               { return Find(code) >= 0 && HasBlankInFront(GetAt(Find(code)).value); });
}

/// A group in the style of the name's: its line ends, and blanks before codes of less than three digits if it has them.
RecordGroup Record::Make(int code, std::string_view value) const
{
    int const name = Find(eName);
    RecordGroup const & model = name >= 0 ? GetAt(name) : m_groups.front();
    std::size_t const width = HasBlankInFront(model.codeLine) ? 3 : 0;
    bool const hasReturn = model.codeLine.ends_with("\r\n");
    return {code, Filled(std::to_string(code), width) + (hasReturn ? "\r\n" : "\n"), std::string(value),
            hasReturn ? "\r\n" : "\n"};
}

void Record::Insert(int place, RecordGroup group) { m_groups.insert(m_groups.begin() + place, std::move(group)); }

} // namespace layeredit
