// The bytes that a fuzz target is fed with, taken off piece by piece.
#pragma once

#include <krplatform/text/cstring.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace kr::fuzz
{

using Units = std::basic_string<WCHAR>;

/// Takes values from the front of the bytes; behind their end there are zeros and empty texts, so that a target never asks
/// whether there is enough.
class FuzzInput
{
public:
    explicit FuzzInput(std::string_view bytes) : m_rest(bytes) {}

    bool IsAtEnd() const { return m_rest.empty(); }

    unsigned Byte() { return static_cast<unsigned char>(Number<char>()); }
    /// 0 to `count` - 1. Digits choose their own value, so that small inputs can be written by hand.
    unsigned Below(unsigned count) { return (Byte() + 256 * count - '0') % count; }
    bool Flag() { return Below(2) != 0; }

    /// A number by its bits.
    template <class T>
    T Number()
    {
        static_assert(std::is_arithmetic_v<T>);
        T number{};
        std::string_view const bytes = Bytes(sizeof number);
        if (!bytes.empty()) // a view of nothing may be null
            std::memcpy(&number, bytes.data(), bytes.size());
        return number;
    }

    /// At most `count` bytes.
    std::string_view Bytes(std::size_t count)
    {
        std::string_view const bytes = m_rest.substr(0, count);
        m_rest.remove_prefix(bytes.size());
        return bytes;
    }
    std::string_view Rest() { return Bytes(m_rest.size()); }
    /// Up to the next line feed, which is passed over.
    std::string_view Line();

    Units TextLine() { return UnitsOf(Line()); }
    Units TextRest() { return UnitsOf(Rest()); }

    /// The bytes as UTF-8 that knows any unit up to U+FFFF, lone surrogates too. A byte that does not fit is a unit itself, so that
    /// every input is a text, and every text has an input.
    static Units UnitsOf(std::string_view bytes);

private:
    std::string_view m_rest;
};

inline CString TextOf(Units const & units) { return CString(units.data(), static_cast<int>(units.size())); }

} // namespace kr::fuzz
