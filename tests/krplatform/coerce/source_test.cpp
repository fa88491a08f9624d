#include <krplatform/coerce/source.h>

#include <gtest/gtest.h>

#include <string>

namespace kr::test
{

namespace
{

/// Tells what it was given.
struct Teller
{
    std::string & told;

    HRESULT operator()(detail::Nothing) const { return Tell("nothing"); }
    HRESULT operator()(detail::Truth source) const { return Tell("truth " + std::to_string(source.number)); }
    HRESULT operator()(detail::Amount source) const { return Tell("amount " + std::to_string(source.tenThousandths)); }
    HRESULT operator()(detail::Moment source) const { return Tell("moment " + std::to_string(source.days)); }
    HRESULT operator()(float source) const { return Tell("float " + std::to_string(source)); }
    HRESULT operator()(double source) const { return Tell("double " + std::to_string(source)); }
    HRESULT operator()(std::integral auto source) const { return Tell(std::to_string(source)); }
    HRESULT operator()(detail::TextView source) const { return Tell("text of " + std::to_string(source.size())); }

private:
    HRESULT Tell(std::string const & text) const
    {
        told = text;
        return S_FALSE;
    }
};

TEST(ReadSource, GivesEachScalarAsWhatItIs)
{
    struct Row
    {
        VARTYPE type;
        char const * told;
    };
    // clang-format off
    Row const rows[] = {
        { VT_EMPTY, "nothing"             },
        { VT_I1,    "-2"                  },
        { VT_UI1,   "254"                 },
        { VT_I2,    "-2"                  },
        { VT_UI2,   "65534"               },
        { VT_I4,    "-2"                  },
        { VT_UI4,   "4294967294"          },
        { VT_I8,    "-2"                  },
        { VT_UI8,   "18446744073709551614" },
        { VT_INT,   "-2"                  },
        { VT_UINT,  "4294967294"          },
        { VT_BOOL,  "truth -2"            },
        { VT_CY,    "amount -2"           },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        std::string told;
        VARIANT source{};
        source.llVal = -2;
        source.vt = row.type;
        EXPECT_EQ(detail::ReadSource(source, Teller{told}), S_FALSE) << "the answer of the target";
        EXPECT_EQ(told, row.told) << row.type;
    }
}

TEST(ReadSource, GivesRealsDatesAndTexts)
{
    std::string told;
    VARIANT source{};
    source.vt = VT_R4;
    source.fltVal = 0.5f;
    detail::ReadSource(source, Teller{told});
    EXPECT_EQ(told, "float 0.500000");
    source.vt = VT_R8;
    source.dblVal = 0.5;
    detail::ReadSource(source, Teller{told});
    EXPECT_EQ(told, "double 0.500000");
    source.vt = VT_DATE;
    detail::ReadSource(source, Teller{told});
    EXPECT_EQ(told, "moment 0.500000");
    WCHAR text[] = {'a', 'b', 0, 'c', 0};
    source.vt = VT_BSTR;
    source.bstrVal = text;
    detail::ReadSource(source, Teller{told});
    EXPECT_EQ(told, "text of 2") << "it ends at its first zero";
}

TEST(ReadSource, IsATypeMismatchForWhatIsNoScalar)
{
    constexpr VARTYPE types[] = {
        VT_NULL, VT_DISPATCH,      VT_ERROR,          VT_VARIANT,       VT_UNKNOWN, 14,
        VT_BLOB, VT_I4 | VT_ARRAY, VT_UI1 | VT_ARRAY, VT_I4 | VT_BYREF, VT_BSTR}; // a text without units is none
    for (VARTYPE const type : types)
    {
        std::string told = "untouched";
        VARIANT source{};
        source.vt = type;
        EXPECT_EQ(detail::ReadSource(source, Teller{told}), DISP_E_TYPEMISMATCH) << type;
        EXPECT_EQ(told, "untouched") << type;
    }
}

} // namespace

} // namespace kr::test
