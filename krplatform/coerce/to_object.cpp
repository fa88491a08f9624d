#include <krplatform/coerce/converter.h>

namespace kr::detail
{

namespace
{

/// Asks the object for another of its interfaces; no object stays none. Its refusal is the failure.
template <class Interface>
HRESULT AskFor(IUnknown * object, Interface *& found)
{
    found = nullptr;
    if (!object)
        return S_OK;
    void * asked = nullptr;
    HRESULT const result = object->QueryInterface(interfaceId<Interface>, &asked);
    found = static_cast<Interface *>(asked);
    return result;
}

} // namespace

HRESULT ToUnknown(VARIANT const & source, LocaleFacts const *, VARIANT & result)
{
    return AskFor(source.pdispVal, result.punkVal);
}

HRESULT ToDispatch(VARIANT const & source, LocaleFacts const *, VARIANT & result)
{
    return AskFor(source.punkVal, result.pdispVal);
}

} // namespace kr::detail
