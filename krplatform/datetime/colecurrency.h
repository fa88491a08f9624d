// The automation currency with its status.
#pragma once

#include <krplatform/automation/variant.h>
#include <krplatform/automation/variant_conversion.h>
#include <krplatform/text/cstring.h>

#include <compare>

/// An amount as a count of ten-thousandths, with a status. A new object is the valid amount 0.
///
///     COleCurrency amount(12, 5000);           -> 12.5
///     amount.Format(0, 127)                    -> "12.5"
///
/// When memory runs out `CMemoryException *` is thrown and the amount stays as it was.
class KRPLATFORM_API COleCurrency
{
public:
    enum CurrencyStatus : int
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    COleCurrency() noexcept : m_cur{} {}
    COleCurrency(CY amount) noexcept : m_cur(amount) {}
    /// Whole units and ten-thousandths, added up. Amounts out of range give amount 0 with status invalid.
    COleCurrency(long units, long fraction) noexcept;
    /// A VT_CY value as it stands; VT_NULL and VT_EMPTY give status null, other tags are converted with the default
    /// locale, status invalid where that fails. Without a value the amount is 0.
    template <kr::detail::PlainVariant<COleCurrency> Variant>
    COleCurrency(Variant const & value) : COleCurrency()
    {
        *this = static_cast<VARIANT const &>(value);
    }
    template <kr::detail::ConvertsItself<COleCurrency> Variant>
    explicit COleCurrency(Variant const & value) : COleCurrency(value.operator COleCurrency())
    {
    }
    COleCurrency & operator=(VARIANT const & value);

    CurrencyStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(CurrencyStatus status) noexcept { m_status = status; }
    operator CY() const noexcept { return m_cur; }

    /// The locale's plain number; empty for status null, "Invalid Currency" for status invalid and for an unknown
    /// locale.
    CString Format(DWORD flags = 0, LCID locale = LOCALE_USER_DEFAULT) const;
    /// Reads a number of the locale. False, with amount 0 and status invalid, for text that is none.
    bool ParseCurrency(WCHAR const * text, DWORD flags = 0, LCID locale = LOCALE_USER_DEFAULT);

    /// Amounts with a status other than valid are equal if their status is, and never less.
    friend KRPLATFORM_API bool operator==(COleCurrency const & left, COleCurrency const & right) noexcept;
    friend KRPLATFORM_API std::partial_ordering operator<=>(COleCurrency const & left,
                                                            COleCurrency const & right) noexcept;

    CY m_cur;
    CurrencyStatus m_status = valid;
};
