#include <krplatform/coerce/coerce.h>

#include <krplatform/coerce/converter.h>

#include <array>
#include <cstddef>
#include <iterator>

namespace kr::detail
{

namespace
{

/// Types that convert alike.
enum class Kind : unsigned char
{
    empty,
    null,
    integer,
    decimal,
    text,
    error,
    dispatch,
    unknown,
    variant,
    array,
    bytes, ///< an array of VT_UI1
    none   ///< no variant type
};

struct Tag
{
    VARTYPE tag;
    Kind kind;
    Converter convert;
};

// clang-format off
// The place of a row is its tag. No converter: a value of this type is only ever copied.
constexpr Tag s_tags[] = {
    { VT_EMPTY,    Kind::empty,    ToNothing  },
    { VT_NULL,     Kind::null,     ToNothing  },
    { VT_I2,       Kind::integer,  ToI2       },
    { VT_I4,       Kind::integer,  ToI4       },
    { VT_R4,       Kind::decimal,  ToR4       },
    { VT_R8,       Kind::decimal,  ToR8       },
    { VT_CY,       Kind::decimal,  ToCy       },
    { VT_DATE,     Kind::decimal,  ToDate     },
    { VT_BSTR,     Kind::text,     ToBstr     },
    { VT_DISPATCH, Kind::dispatch, ToDispatch },
    { VT_ERROR,    Kind::error,    nullptr    },
    { VT_BOOL,     Kind::integer,  ToBool     },
    { VT_VARIANT,  Kind::variant,  nullptr    },
    { VT_UNKNOWN,  Kind::unknown,  ToUnknown  },
    { 14,          Kind::none,     nullptr    },
    { 15,          Kind::none,     nullptr    },
    { VT_I1,       Kind::integer,  ToI1       },
    { VT_UI1,      Kind::integer,  ToUI1      },
    { VT_UI2,      Kind::integer,  ToUI2      },
    { VT_UI4,      Kind::integer,  ToUI4      },
    { VT_I8,       Kind::integer,  ToI8       },
    { VT_UI8,      Kind::integer,  ToUI8      },
    { VT_INT,      Kind::integer,  ToI4       },
    { VT_UINT,     Kind::integer,  ToUI4      },
};

enum class Verdict : unsigned char
{
    no,    ///< type mismatch
    bad,   ///< bad variable type
    same,  ///< from the same type only, which is a copy
    yes,   ///< by the function of the target, and from the same type as a copy
    local  ///< the same, by what the locale says
};
using enum Verdict;

// Rows are sources. The value of a dispatch object would be asked of the object, and no method of one is called here.
constexpr Verdict s_verdicts[][static_cast<std::size_t>(Kind::none)] = {
    //         to    empty null integer  decimal  text   error  dispatch  unknown  variant  array  bytes
    /* empty    */ { same, yes,  yes,     yes,     yes,   no,    no,       no,      no,      no,    no   },
    /* null     */ { no,   same, no,      no,      no,    no,    no,       no,      no,      no,    no   },
    /* integer  */ { yes,  yes,  yes,     yes,     yes,   no,    no,       no,      no,      no,    no   },
    /* decimal  */ { yes,  yes,  yes,     yes,     local, no,    no,       no,      no,      no,    no   },
    /* text     */ { yes,  yes,  local,   local,   same,  no,    no,       no,      no,      no,    yes  },
    /* error    */ { no,   no,   no,      no,      no,    same,  no,       no,      no,      no,    no   },
    /* dispatch */ { yes,  yes,  bad,     bad,     bad,   no,    same,     yes,     no,      no,    no   },
    /* unknown  */ { yes,  yes,  no,      no,      no,    no,    yes,      same,    no,      no,    no   },
    /* variant  */ { no,   no,   no,      no,      no,    no,    no,       no,      no,      no,    no   },
    /* array    */ { no,   no,   no,      no,      no,    no,    no,       no,      no,      same,  no   },
    /* bytes    */ { no,   no,   no,      no,      yes,   no,    no,       no,      no,      no,    same },
};
// clang-format on

constexpr bool IsEveryTagInItsPlace()
{
    for (std::size_t index = 0; index < std::size(s_tags); ++index)
    {
        if (s_tags[index].tag != index)
            return false;
    }
    return true;
}
static_assert(IsEveryTagInItsPlace());
static_assert(std::size(s_verdicts) == static_cast<std::size_t>(Kind::none));

constexpr Kind KindOf(VARTYPE tag)
{
    if (tag < std::size(s_tags))
        return s_tags[tag].kind;
    VARTYPE const element = tag ^ VT_ARRAY; // not an element if the flag was clear
    if (element <= VT_NULL || element >= std::size(s_tags) || s_tags[element].kind == Kind::none)
        return Kind::none;
    return element == VT_UI1 ? Kind::bytes : Kind::array;
}

constexpr Verdict VerdictOnKinds(VARTYPE source, VARTYPE target)
{
    Kind const sourceKind = KindOf(source);
    Kind const targetKind = KindOf(target);
    if (sourceKind == Kind::none || targetKind == Kind::none)
        return bad;
    return s_verdicts[static_cast<std::size_t>(sourceKind)][static_cast<std::size_t>(targetKind)];
}

/// The verdicts on all pairs of scalars.
constexpr auto s_verdictsOnTags = []
{
    std::array<std::array<Verdict, std::size(s_tags)>, std::size(s_tags)> verdicts{};
    for (VARTYPE source = 0; source < verdicts.size(); ++source)
    {
        for (VARTYPE target = 0; target < verdicts.size(); ++target)
            verdicts[source][target] = VerdictOnKinds(source, target);
    }
    return verdicts;
}();

Verdict VerdictOn(VARTYPE source, VARTYPE target)
{
    bool const areScalars = source < s_verdictsOnTags.size() && target < s_verdictsOnTags.size();
    return areScalars ? s_verdictsOnTags[source][target] : VerdictOnKinds(source, target);
}

HRESULT CheckTypes(VARTYPE source, VARTYPE target)
{
    Verdict const verdict = VerdictOn(source, target);
    if (verdict == bad)
        return DISP_E_BADVARTYPE;
    return verdict == no || (verdict == same && source != target) ? DISP_E_TYPEMISMATCH : S_OK;
}

HRESULT Convert(VARIANT const & source, VARTYPE target, LocaleFacts const * locale, VARIANT & result)
{
    if (source.vt == target)
        return VariantCopy(&result, &source);
    Converter const convert = target < std::size(s_tags) ? s_tags[target].convert : ToBytes;
    return convert(source, locale, result);
}

} // namespace

bool ReadsLocale(VARTYPE source, VARTYPE target) { return VerdictOn(source, target) == local; }

HRESULT Coerce(VARIANT & destination, VARIANT const & source, VARTYPE target, LocaleFacts const * locale)
{
    HRESULT result = CheckTypes(source.vt, target);
    if (FAILED(result) || (source.vt == target && &source == &destination))
        return result;
    VARIANT converted{};
    result = Convert(source, target, locale, converted);
    if (FAILED(result))
        return result;
    converted.vt = target;
    result = VariantClear(&destination);
    if (FAILED(result))
    {
        VariantClear(&converted);
        return result;
    }
    // Single fields: a whole variant that is read just after one of its fields was written waits for the memory.
    destination.vt = target;
    destination.llVal = converted.llVal;
    return result;
}

} // namespace kr::detail
