#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/source.h>
#include <krplatform/coerce/truth_parse.h>

#include <concepts>

namespace kr::detail
{

namespace
{

struct BoolTarget
{
    LocaleFacts const * locale;
    VARIANT_BOOL & truth;

    HRESULT operator()(Nothing) const { return Store(false); }
    HRESULT operator()(std::integral auto source) const { return Store(source != 0); }
    HRESULT operator()(float source) const { return Store(source != 0); }
    HRESULT operator()(double source) const { return Store(source != 0); }
    HRESULT operator()(Amount source) const { return Store(source.tenThousandths != 0); }
    HRESULT operator()(Moment source) const { return Store(source.days != 0); }
    HRESULT operator()(TextView source) const { return ParseTruth(source, *locale, false, truth); }

    HRESULT operator()(Truth source) const
    {
        truth = source.number;
        return S_OK;
    }

private:
    HRESULT Store(bool value) const
    {
        truth = value ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
};

} // namespace

HRESULT ToBool(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ReadSource(source, BoolTarget{locale, result.boolVal});
}

} // namespace kr::detail
