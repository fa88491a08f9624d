#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/integer_target.h>

namespace kr::detail
{

namespace
{

struct I8Target : IntegerTarget<LONGLONG>
{
    using IntegerTarget<LONGLONG>::operator();

    /// Deliberate: a negative amount is cut toward zero and then one less, so that -1 becomes -2 and -0.4 becomes -1.
    HRESULT operator()(Amount source) const
    {
        if (source.tenThousandths >= 0)
            return IntegerTarget<LONGLONG>::operator()(source);
        number = source.tenThousandths / 10000 - 1;
        return S_OK;
    }
};

} // namespace

HRESULT ToI8(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ReadSource(source, I8Target{{locale, result.llVal}});
}

} // namespace kr::detail
