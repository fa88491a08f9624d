// The two mappings between the tags. They are not inverse of each other.
#include <krcore/values/krvariant.h>

#include <array>
#include <cstddef>

namespace
{

struct TagOfVt
{
    int vt;
    CKrVariant::EType type;
};

struct VtOfTag
{
    CKrVariant::EType type;
    int vt;
};

// clang-format off
constexpr TagOfVt s_tags[] = {
    { VT_NULL,                CKrVariant::eNull           },
    { VT_I2,                  CKrVariant::eShort          },
    { VT_I1,                  CKrVariant::eShort          },
    { VT_UI1,                 CKrVariant::eShort          },
    { VT_I4,                  CKrVariant::eLong           },
    { VT_UI2,                 CKrVariant::eLong           },
    { VT_INT,                 CKrVariant::eLong           },
    { VT_UINT,                CKrVariant::eLong           },
    { VT_R4,                  CKrVariant::eFloat          },
    { VT_R8,                  CKrVariant::eDouble         },
    { VT_CY,                  CKrVariant::eOleCurrency    },
    { VT_DATE,                CKrVariant::eOleDateTime    },
    { VT_BSTR,                CKrVariant::eString         },
    { VT_DISPATCH,            CKrVariant::eDispatch       },
    { VT_BOOL,                CKrVariant::eBool           },
    { VT_VARIANT,             CKrVariant::eVariant        },
    { VT_UI8,                 CKrVariant::eVoidPtr        },
    { VT_BLOB,                CKrVariant::eBinary         },
    { VT_ARRAY | VT_I4,       CKrVariant::eLongVector     },
    { VT_ARRAY | VT_UI2,      CKrVariant::eLongVector     },
    { VT_ARRAY | VT_INT,      CKrVariant::eLongVector     },
    { VT_ARRAY | VT_UINT,     CKrVariant::eLongVector     },
    { VT_ARRAY | VT_R4,       CKrVariant::eDoubleVector   },
    { VT_ARRAY | VT_R8,       CKrVariant::eDoubleVector   },
    { VT_ARRAY | VT_BSTR,     CKrVariant::eStringVector   },
    { VT_ARRAY | VT_DISPATCH, CKrVariant::eDispatchVector },
    { VT_ARRAY | VT_BOOL,     CKrVariant::eBoolVector     },
    { VT_ARRAY | VT_VARIANT,  CKrVariant::eVariantMatrix  },   // Deliberate: never a variant vector
};

constexpr VtOfTag s_vts[] = {
    { CKrVariant::eNull,           VT_NULL                },
    { CKrVariant::eString,         VT_BSTR                },
    { CKrVariant::eFloat,          VT_R4                  },
    { CKrVariant::eDouble,         VT_R8                  },
    { CKrVariant::eShort,          VT_I2                  },
    { CKrVariant::eLong,           VT_I4                  },
    { CKrVariant::eColor,          VT_I4                  },   // Deliberate: comes back as a long
    { CKrVariant::eBool,           VT_BOOL                },
    { CKrVariant::eOleCurrency,    VT_CY                  },
    { CKrVariant::eOleDateTime,    VT_DATE                },
    { CKrVariant::eDispatch,       VT_DISPATCH            },
    { CKrVariant::eBinary,         VT_BLOB                },
    { CKrVariant::eVoidPtr,        VT_UI8                 },
    { CKrVariant::eStringVector,   VT_ARRAY | VT_BSTR     },
    { CKrVariant::eDoubleVector,   VT_ARRAY | VT_R8       },
    { CKrVariant::eLongVector,     VT_ARRAY | VT_I4       },
    { CKrVariant::eBoolVector,     VT_ARRAY | VT_BOOL     },
    { CKrVariant::eDispatchVector, VT_ARRAY | VT_DISPATCH },
    { CKrVariant::eVariant,        VT_VARIANT             },
    { CKrVariant::eVariantMatrix,  VT_ARRAY | VT_VARIANT  },
};
// clang-format on

/// The tags by `vt`, first the plain ones and then those of arrays: every conversion asks for one.
constexpr auto s_tagsByVt = []
{
    std::array<std::array<CKrVariant::EType, VT_BLOB + 1>, 2> tags{};
    for (TagOfVt const & row : s_tags)
        tags[(row.vt & VT_ARRAY) != 0][static_cast<std::size_t>(row.vt & ~VT_ARRAY)] = row.type;
    return tags;
}();

} // namespace

CKrVariant::EType CKrVariant::SwapType(int vt) noexcept
{
    auto const & tags = s_tagsByVt[(vt & VT_ARRAY) != 0];
    auto const element = static_cast<std::size_t>(vt & ~VT_ARRAY);
    return element < tags.size() ? tags[element] : eInvalid;
}

int CKrVariant::SwapType(EType type) noexcept
{
    for (VtOfTag const & row : s_vts)
    {
        if (row.type == type)
            return row.vt;
    }
    return VT_EMPTY;
}
