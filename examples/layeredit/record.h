// One record, taken apart into its groups, changed, and put together again with every other byte as it was.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace layeredit
{

/// A group that may be changed. Its lines keep their ends.
struct RecordGroup
{
    int code = 0;
    std::string codeLine; ///< with its line end
    std::string value;    ///< without
    std::string valueEnd;
};

class Record
{
public:
    explicit Record(std::string_view bytes);

    std::string GetBytes() const;

    /// The place of the first group of that code, lists `102 {...}` left out; -1 if there is none. Codes of extended data begin
    /// at 1000.
    int Find(int code) const;
    RecordGroup const & GetAt(int place) const { return m_groups[static_cast<std::size_t>(place)]; }

    /// Replaces the value, or puts a new group behind the first of `neighbours` that the record has, at its beginning if it has none.
    void SetText(int code, std::string_view value, std::span<int const> neighbours);
    /// The same with a number in the style of the old one: as many blanks in front as make its width. A new one is `width` wide where
    /// the record's numbers have blanks in front.
    void SetNumber(int code, long number, std::span<int const> neighbours, std::size_t width);
    void Remove(int code);

    /// The place of the n-th (from 0) text of an application in the extended data, the application's case ignored; -1 if there is none.
    int FindExtendedText(std::string_view application, int index) const;
    /// Sets that text. Texts before it that are missing become empty; a missing block is put at the end.
    void SetExtendedText(std::string_view application, int index, std::string_view value);

private:
    int FindExtendedData(std::string_view application) const;
    RecordGroup Make(int code, std::string_view value) const;
    void Insert(int place, RecordGroup group);
    bool HasBlanksBeforeNumbers() const;

    std::vector<RecordGroup> m_groups;
};

/// The number with blanks in front, up to the width of `old` if that has some.
std::string InStyleOf(std::string_view old, std::string number);

/// The same letters, the case of A to Z ignored.
bool IsSameWord(std::string_view left, std::string_view right);

} // namespace layeredit
