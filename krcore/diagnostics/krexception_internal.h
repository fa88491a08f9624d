// What the two exception classes share.
#pragma once

#include <krcore/diagnostics/krexception.h>
#include <krplatform/automation/bstr_t.h>

#include <memory>

namespace kr::detail
{

/// Makes `kept` the exception's message and gives its narrow form; empty text where that fails.
char const * KeepMessage(_bstr_t & kept, CKrException const & exception, bool withPath) noexcept;

/// Frees `exception` and throws a copy of it as an `Exception`; null throws a copy of `standIn`.
template <class Exception>
[[noreturn]] void FreeAndThrow(Exception * exception, Exception const & standIn)
{
    std::unique_ptr<Exception> owner(exception);
    Exception const copy = owner ? *owner : standIn;
    owner.reset();
    throw copy;
}

} // namespace kr::detail
