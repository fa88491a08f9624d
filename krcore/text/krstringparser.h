// Lists held in a text.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

#include <vector>

/// A list held in one text, cut at a separator into texts, doubles or integers, and joined again. There is no quoting, no escaping and
/// no trimming: n separators always give n + 1 items. The object form treats the items of two parsers as multisets too.
///
///     std::vector<CString> items;
///     CKrStringParser::Split(OLESTR("a,,b"), OLESTR(","), items);          -> "a", "", "b"
///     CKrStringParser(OLESTR("1,5;2.5"), OLESTR(";"), CKrStringParser::eParserTypeDouble).Join(CString())  -> "1.5;2.5"
///     CKrStringParser(OLESTR("b;a;a"), OLESTR(";"), CKrStringParser::eParserTypeString)
///         .Union(OLESTR("a;c"), CString()).Join(CString())                -> "a;a;b;c"
///
/// Text that is no number reads as 0; a comma in a double is a point. Splitting a text at an empty separator is a broken contract and
/// ends in `CMemoryException *` at once. When memory runs out, lists and separator stay as they were.
class KRCORE_API CKrStringParser
{
public:
    /// Which of the three lists is active. Operations work on that one; the others stay as they are.
    enum EParserType : int
    {
        eParserTypeString = 0,
        eParserTypeDouble = 1,
        eParserTypeInt = 2
    };

    explicit CKrStringParser(EParserType type = eParserTypeString);
    CKrStringParser(CString const & separator, EParserType type);
    CKrStringParser(CString const & text, CString const & separator, EParserType type);
    CKrStringParser(std::vector<CString> const & items, CString const & separator);
    CKrStringParser(std::vector<double> const & items, CString const & separator);
    CKrStringParser(std::vector<int> const & items, CString const & separator);
    CKrStringParser(CKrStringParser const & other);
    CKrStringParser & operator=(CKrStringParser const & other);
    virtual ~CKrStringParser();

    /// Cuts the text. Always true. Deliberate: empty text leaves the items as they are; any other replaces them.
    static bool Split(CString const & text, CString const & separator, std::vector<CString> & items);
    static bool Split(CString const & text, CString const & separator, std::vector<double> & items);
    static bool Split(CString const & text, CString const & separator, std::vector<int> & items);
    /// The items with the separator between them; doubles with a point and up to 15 digits.
    static CString Join(CString const & separator, std::vector<CString> const & items);
    static CString Join(CString const & separator, std::vector<double> const & items);
    static CString Join(CString const & separator, std::vector<int> const & items);
    /// The same; empty items leave no trace.
    static CString JoinSkipEmpty(CString const & separator, std::vector<CString> const & items);

    /// As the static forms, on the active list. A separator that is not empty replaces the stored one for good. False, or empty text, for
    /// an unknown type.
    bool Split(CString const & text, CString const & separator);
    CString Join(CString const & separator);

    CString const & GetSeperator() const noexcept { return m_separator; }
    void SetSeperator(CString const & separator) { m_separator = separator; }
    EParserType GetType() const noexcept { return m_type; }
    /// Selects a list; nothing is converted.
    void SetType(EParserType const & type) noexcept { m_type = type; }
    /// Empties all three lists.
    void Clear() noexcept;

    // Combining with another parser of the same type; one of another type changes nothing. The second forms read a text, with the own
    // separator where the given one is empty.
    /// The other's items behind the own.
    CKrStringParser & Append(CKrStringParser const & other);
    CKrStringParser & Append(CString const & text, CString const & separator);
    // Multisets, of m own and n other occurrences. The result is sorted, texts by code units. Sorting puts what is not a number behind
    // all numbers, and takes it for equal to its like there.
    /// The greater of m and n.
    CKrStringParser & Union(CKrStringParser const & other);
    CKrStringParser & Union(CString const & text, CString const & separator);
    /// The smaller of m and n.
    CKrStringParser & Intersection(CKrStringParser const & other);
    CKrStringParser & Intersection(CString const & text, CString const & separator);
    /// m - n, at the least 0.
    CKrStringParser & Difference(CKrStringParser const & other);
    CKrStringParser & Difference(CString const & text, CString const & separator);
    CKrStringParser & Remove(CKrStringParser const & other) { return Difference(other); }
    CKrStringParser & Remove(CString const & text, CString const & separator) { return Difference(text, separator); }
    /// The difference of m and n.
    CKrStringParser & SymmetricDifference(CKrStringParser const & other);
    CKrStringParser & SymmetricDifference(CString const & text, CString const & separator);

    /// Ascending; texts by code units or, with `caseSensitive` false, without case.
    CKrStringParser & Sort(bool caseSensitive);
    CKrStringParser & Reverse();
    /// Sorts, and drops repetitions.
    CKrStringParser & Unique();
    /// Changes every item that equals `oldItem`, in place. Deliberate: never changes a double, see `Has`.
    CKrStringParser & Replace(CString const & oldItem, CString const & newItem);

    /// Whether an item equals the text, read as the type. Deliberate: false for every double, since their tolerance is negative.
    bool Has(CString const & item) const;
    /// Same type and number of items, and equal items in order. Deliberate: doubles are the reverse, two lists of them are equal if each
    /// pair differs by at least 1e-10, so that only an empty list equals itself.
    bool IsEqual(CKrStringParser const & other) const;
    bool IsEqual(CString const & text, CString const & separator) const;
    /// Deliberate: true, whatever the argument.
    bool Find(CKrStringParser const & other) const;
    bool Find(CString const & text, CString const & separator) const;

private:
    CString const & SeparatorOr(CString const & separator) const noexcept;
    CKrStringParser ParserOf(CString const & text, CString const & separator) const;
    template <class Work>
    bool WithActiveList(Work work) const;
    template <class Merge>
    CKrStringParser & MergeSorted(CKrStringParser const & other, Merge merge);

    CString m_separator;
    EParserType m_type;
    std::vector<CString> m_strings;
    std::vector<double> m_doubles;
    std::vector<int> m_integers;
};
