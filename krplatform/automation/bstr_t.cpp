#include <krplatform/automation/bstr_t.h>

#include <krplatform/automation/com_error.h>
#include <krplatform/automation/owned_text.h>
#include <krplatform/codepage/codepage.h>

#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

using namespace kr::detail;

struct _bstr_t::Data
{
    OwnedText text;
    std::unique_ptr<char[]> narrow;
    unsigned int references = 1;
};

namespace
{

template <class Pointer>
Pointer CheckMemory(Pointer pointer)
{
    if (!pointer)
        _com_issue_error(E_OUTOFMEMORY);
    return pointer;
}

OwnedText CopyOf(BSTR text)
{
    if (!text)
        return nullptr;
    return OwnedText(CheckMemory(SysAllocStringByteLen(reinterpret_cast<char const *>(text), SysStringByteLen(text))));
}

OwnedText Widen(char const * text)
{
    if (!text)
        return nullptr;
    int const length = static_cast<int>(std::strlen(text));
    int const units = length ? MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0) : 0;
    OwnedText wide(CheckMemory(SysAllocStringLen(nullptr, static_cast<UINT>(units))));
    if (units)
        MultiByteToWideChar(CP_ACP, 0, text, length, wide.get(), units);
    return wide;
}

// Ended by a zero.
std::unique_ptr<char[]> NarrowCopy(BSTR text)
{
    int const units = static_cast<int>(SysStringLen(text));
    int const length = units ? WideCharToMultiByte(CP_ACP, 0, text, units, nullptr, 0, nullptr, nullptr) : 0;
    std::unique_ptr<char[]> narrow(CheckMemory(new (std::nothrow) char[static_cast<std::size_t>(length) + 1]));
    if (length)
        WideCharToMultiByte(CP_ACP, 0, text, units, narrow.get(), length, nullptr, nullptr);
    narrow[static_cast<std::size_t>(length)] = '\0';
    return narrow;
}

} // namespace

_bstr_t::_bstr_t(_bstr_t const & other) noexcept : m_data(other.m_data)
{
    if (m_data)
        ++m_data->references;
}

_bstr_t::_bstr_t(_bstr_t && other) noexcept : m_data(std::exchange(other.m_data, nullptr)) {}

_bstr_t::_bstr_t(char const * text)
{
    OwnedText wide = Widen(text);
    m_data = NewData(wide.get());
    wide.release();
}

_bstr_t::_bstr_t(WCHAR const * text)
{
    OwnedText wide(text ? CheckMemory(SysAllocString(text)) : nullptr);
    m_data = NewData(wide.get());
    wide.release();
}

_bstr_t::_bstr_t(BSTR text, bool copy)
{
    OwnedText ownCopy = copy ? CopyOf(text) : nullptr;
    m_data = NewData(copy ? ownCopy.get() : text);
    ownCopy.release();
}

_bstr_t::~_bstr_t() { Release(); }

_bstr_t & _bstr_t::operator=(_bstr_t const & other) noexcept
{
    _bstr_t kept(other);
    std::swap(m_data, kept.m_data);
    return *this;
}

_bstr_t & _bstr_t::operator=(_bstr_t && other) noexcept
{
    _bstr_t kept(std::move(other));
    std::swap(m_data, kept.m_data);
    return *this;
}

_bstr_t & _bstr_t::operator=(char const * text) { return *this = _bstr_t(text); }

_bstr_t & _bstr_t::operator=(WCHAR const * text) { return *this = _bstr_t(text); }

_bstr_t & _bstr_t::operator+=(_bstr_t const & other) { return *this = *this + other; }

_bstr_t operator+(_bstr_t const & left, _bstr_t const & right)
{
    if (!right.m_data || !left.m_data)
        return left.m_data ? left : right;
    UINT const leftLength = left.length();
    UINT const rightLength = right.length();
    OwnedText joined(CheckMemory(SysAllocStringLen(nullptr, leftLength + rightLength)));
    std::char_traits<WCHAR>::copy(joined.get(), left.m_data->text.get(), leftLength);
    std::char_traits<WCHAR>::copy(joined.get() + leftLength, right.m_data->text.get(), rightLength);
    _bstr_t result(joined.get(), false);
    joined.release();
    return result;
}

_bstr_t::operator WCHAR const *() const noexcept { return m_data ? m_data->text.get() : nullptr; }

_bstr_t::operator char const *() const
{
    if (!m_data)
        return nullptr;
    if (!m_data->narrow)
        m_data->narrow = NarrowCopy(m_data->text.get());
    return m_data->narrow.get();
}

unsigned int _bstr_t::length() const noexcept { return m_data ? SysStringLen(m_data->text.get()) : 0; }

BSTR _bstr_t::copy() const { return m_data ? CopyOf(m_data->text.get()).release() : nullptr; }

BSTR _bstr_t::Detach()
{
    if (!m_data)
        return nullptr;
    BSTR const text = m_data->references == 1 ? m_data->text.release() : copy();
    Release();
    return text;
}

bool operator==(_bstr_t const & left, _bstr_t const & right) noexcept
{
    unsigned int const length = left.length();
    return length == right.length() &&
           (length == 0 ||
            std::char_traits<WCHAR>::compare(left.m_data->text.get(), right.m_data->text.get(), length) == 0);
}

// No data stands for no text.
_bstr_t::Data * _bstr_t::NewData(BSTR text)
{
    return text ? CheckMemory(new (std::nothrow) Data{OwnedText(text), nullptr, 1}) : nullptr;
}

void _bstr_t::Release() noexcept
{
    if (m_data && --m_data->references == 0)
        delete m_data;
    m_data = nullptr;
}
