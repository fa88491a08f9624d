// The tables of one code page: its units by bytes, and bytes by units.
#pragma once

#include <krplatform/base/types.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>

namespace kr::detail
{

/// The bytes of a character as one number: below 0x100 a byte alone, else the lead byte in the upper half.
using CharacterBytes = std::uint16_t;

constexpr CharacterBytes TwoBytes(unsigned lead, unsigned trail)
{
    return static_cast<CharacterBytes>(lead << 8 | trail);
}

constexpr CharacterBytes noBytes = 0xFFFF;
constexpr WCHAR noUnit = 0xFFFF;

/// Bytes that begin a character of two.
struct LeadRange
{
    BYTE first;
    BYTE last;
};

class CodePageTable
{
public:
    /// A table of the ASCII characters. Null when memory runs out.
    static std::unique_ptr<CodePageTable> Create(UINT codePage, std::span<LeadRange const> leads, WCHAR defaultUnit);

    UINT GetCodePage() const { return m_codePage; }

    /// Stands for bytes without a unit.
    WCHAR GetDefaultUnit() const { return m_defaultUnit; }

    bool IsLead(BYTE byte) const { return m_blocks[byte] != 0; }

    /// The unit of a single byte, or of two that begin with a lead byte; `noUnit` where they have none.
    WCHAR UnitOf(CharacterBytes bytes) const { return m_units[IndexOf(bytes)]; }

    /// The bytes of a unit or of its look-alike; `noBytes` where it has neither.
    CharacterBytes BytesOf(WCHAR unit) const { return m_bytes[unit]; }

    /// The bytes that decode back to the unit; `noBytes` where there are none.
    CharacterBytes ExactBytesOf(WCHAR unit) const { return m_exactBytes[unit]; }

    void SetUnit(CharacterBytes bytes, WCHAR unit) { m_units[IndexOf(bytes)] = unit; }
    void SetBytes(WCHAR unit, CharacterBytes bytes) { m_bytes[unit] = bytes; }

    /// Makes the bytes those of the unit, in both directions.
    void SetPair(CharacterBytes bytes, WCHAR unit);

    /// To be called when all units and bytes are set.
    void FindExactBytes();

private:
    CodePageTable(UINT codePage, WCHAR defaultUnit);

    std::size_t IndexOf(CharacterBytes bytes) const { return m_blocks[bytes >> 8] * 256u + (bytes & 0xFFu); }

    UINT m_codePage;
    WCHAR m_defaultUnit;
    std::array<BYTE, 256> m_blocks{}; ///< by lead byte: the number of its block of units; 0: no lead byte
    std::unique_ptr<WCHAR[]> m_units; ///< blocks of 256, the first for bytes alone
    std::array<CharacterBytes, 0x10000> m_bytes;
    std::array<CharacterBytes, 0x10000> m_exactBytes;
};

} // namespace kr::detail
