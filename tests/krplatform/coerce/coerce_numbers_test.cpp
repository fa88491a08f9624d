// How numbers become numbers and text.
#include <krplatform/coerce/coerce.h>
#include <krplatform/coerce/converter.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/coerce/locale_samples.h"
#include "tests/krplatform/coerce/vector_values.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

struct Row
{
    char const * sourceType;
    char const * source;
    char const * targetType;
    char const * target; ///< what `Show` tells of it, or the failure
};

constexpr char s_overflow[] = "overflow";
constexpr char s_mismatch[] = "mismatch";

std::string Convert(Row const & row, detail::LocaleFacts const & locale)
{
    Cleared source(MakeValue(row.sourceType, row.source));
    Cleared destination(MakeBits(VT_EMPTY, 0));
    HRESULT const result = detail::Coerce(*destination.Get(), *source, TagOf(row.targetType), &locale);
    if (result == DISP_E_OVERFLOW)
        return s_overflow;
    if (result == DISP_E_TYPEMISMATCH)
        return s_mismatch;
    return result == S_OK ? Show(*destination) : std::to_string(result);
}

template <std::size_t Count>
void CheckRows(Row const (&rows)[Count], detail::LocaleFacts const & locale = english)
{
    for (Row const & row : rows)
    {
        SCOPED_TRACE(std::string(row.sourceType) + " " + row.source + " to " + row.targetType);
        EXPECT_EQ(Convert(row, locale), row.target);
    }
}

// Doubles by their bits.
constexpr char s_oneAndAHalf[] = ":3FF8000000000000";
constexpr char s_twoAndAHalf[] = ":4004000000000000";
constexpr char s_minusHalf[] = ":BFE0000000000000";

} // namespace

TEST(CoerceNumbers, EmptyIsZeroOrEmptyText)
{
    for (char const * target : {"I1", "UI1", "I2", "UI2", "I4", "UI4", "I8", "UI8", "INT", "UINT", "CY", "BOOL"})
        EXPECT_EQ(Convert({"EMPTY", "-", target, ""}, english), "0") << target;
    // clang-format off
    Row const rows[] = {
        { "EMPTY", "-", "R4",   "0:00000000"         },
        { "EMPTY", "-", "R8",   "0:0000000000000000" },
        { "EMPTY", "-", "DATE", "0:0000000000000000" },
        { "EMPTY", "-", "BSTR", ""                   },
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, SignedAndUnsignedOfOneWidthKeepTheirBits)
{
    // clang-format off
    Row const rows[] = {
        { "I1",   "-1",         "UI1",  "255"                  },
        { "UI1",  "255",        "I1",   "-1"                   },
        { "I2",   "-32768",     "UI2",  "32768"                },
        { "UI2",  "65535",      "I2",   "-1"                   },
        { "I4",   "-1",         "UI4",  "4294967295"           },
        { "I4",   "-1",         "UINT", "4294967295"           },
        { "INT",  "-2",         "UI4",  "4294967294"           },
        { "UI4",  "4294967295", "INT",  "-1"                   },
        { "UINT", "4294967295", "I4",   "-1"                   },
        { "I8",   "-1",         "UI8",  "18446744073709551615" },
        { "UI8",  "9223372036854775808", "I8", "-9223372036854775808" },
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, OtherIntegersThatDoNotFitOverflow)
{
    // clang-format off
    Row const rows[] = {
        { "I1",  "-1",          "UI2", s_overflow },
        { "I2",  "128",         "I1",  s_overflow },
        { "I2",  "-1",          "UI1", s_overflow },
        { "UI2", "128",         "I1",  s_overflow },
        { "I4",  "32768",       "I2",  s_overflow },
        { "I4",  "65536",       "UI2", s_overflow },
        { "I4",  "-1",          "UI8", s_overflow },
        { "I8",  "2147483648",  "I4",  s_overflow },
        { "I8",  "4294967296",  "UI4", s_overflow },
        { "I8",  "-1",          "UI4", s_overflow },
        { "UI8", "256",         "UI1", s_overflow },
        { "UI4", "4294967295",  "I8",  "4294967295" },
        { "I4",  "-128",        "I1",  "-128" },
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, TruthValuesKeepTheirNumberAndNeverOverflow)
{
    // clang-format off
    Row const rows[] = {
        { "BOOL", "-1",  "UI1",  "255"                  },
        { "BOOL", "256", "UI1",  "0"                    },
        { "BOOL", "255", "I1",   "-1"                   },
        { "BOOL", "-1",  "UI2",  "65535"                },
        { "BOOL", "-2",  "UI4",  "4294967294"           },
        { "BOOL", "-2",  "UI8",  "18446744073709551614" },
        { "BOOL", "2",   "I4",   "2"                    },
        { "BOOL", "2",   "BOOL", "2"                    },
        { "BOOL", "2",   "CY",   "20000"                },
        { "BOOL", "-1",  "R8",   "-1:BFF0000000000000"  },
        { "BOOL", "-1",  "R4",   "-1:BF800000"          },
        { "BOOL", "-1",  "DATE", "-1:BFF0000000000000"  },
        { "BOOL", "-1",  "BSTR", "-1"                   },
        { "BOOL", "0",   "BSTR", "0"                    },
        { "BOOL", "2",   "BSTR", "2"                    },
    };
    // clang-format on
    CheckRows(rows);
    CheckRows(rows, german);
}

TEST(CoerceNumbers, AnyNumberIsTrueUnlessZero)
{
    // clang-format off
    Row const rows[] = {
        { "I1",   "-128",              "BOOL", "-1" },
        { "I4",   "0",                 "BOOL", "0"  },
        { "I4",   "65536",             "BOOL", "-1" },  // its low bits are zero
        { "UI8",  "18446744073709551615", "BOOL", "-1" },
        { "CY",   "1",                 "BOOL", "-1" },
        { "CY",   "0",                 "BOOL", "0"  },
        { "R4",   ":00000001",         "BOOL", "-1" },
        { "R8",   ":8000000000000000", "BOOL", "0"  },
        { "R8",   ":0000000000000001", "BOOL", "-1" },
        { "R8",   ":7FF8000000000000", "BOOL", "-1" },
        { "DATE", ":0000000000000000", "BOOL", "0"  },
        { "DATE", s_minusHalf,         "BOOL", "-1" },
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, IntegersAreRoundedHalfToEven)
{
    // clang-format off
    Row const rows[] = {
        { "R8",   s_oneAndAHalf,     "I2",  "2"        },
        { "R8",   s_twoAndAHalf,     "I2",  "2"        },
        { "R4",   ":40200000",       "I4",  "2"        },
        { "DATE", s_twoAndAHalf,     "UI8", "2"        },
        { "DATE", s_minusHalf,       "UI1", "0"        },
        { "R8",   ":BFE3333333333333", "UI1", s_overflow },  // -0.6
        { "CY",   "15000",           "I4",  "2"        },
        { "CY",   "25000",           "UI8", "2"        },
        { "CY",   "-5000",           "UI4", "0"        },
        { "CY",   "-5001",           "UI4", s_overflow },
        { "CY",   "-15000",          "I4",  "-2"       },
        { "CY",   "1275000",         "I1",  s_overflow },
        { "R8",   ":41DFFFFFFFE00000", "I4", s_overflow },  // 2147483647.5
        { "R8",   ":7FF8000000000000", "I4", s_overflow },  // not a number
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, NegativeAmountsIntoSixtyFourBitsAreCutAndOneLess)
{
    // clang-format off
    Row const rows[] = {
        { "CY", "10000",   "I8", "1"  },
        { "CY", "25000",   "I8", "2"  },
        { "CY", "0",       "I8", "0"  },
        { "CY", "-1",      "I8", "-1" },
        { "CY", "-5000",   "I8", "-1" },
        { "CY", "-10000",  "I8", "-2" },
        { "CY", "-15000",  "I8", "-2" },
        { "CY", "-1280000", "I8", "-129" },
        { "CY", "-9223372036854775808", "I8", "-922337203685478" },
        { "CY", "-1280000", "I4", "-128" },  // in 64 bits only
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, AmountsAreExactOrOverflow)
{
    // clang-format off
    Row const rows[] = {
        { "I1",   "-128",                "CY", "-1280000"            },
        { "UI4",  "4294967295",          "CY", "42949672950000"      },
        { "UI8",  "922337203685477",     "CY", "9223372036854770000" },
        { "UI8",  "922337203685478",     "CY", s_overflow            },
        { "I8",   "922337203685476",     "CY", "9223372036854760000" },
        { "I8",   "922337203685477",     "CY", s_overflow            },  // though it would fit
        { "I8",   "-922337203685477",    "CY", s_overflow            },
        { "I8",   "-922337203685476",    "CY", "-9223372036854760000" },
        { "I8",   "-9223372036854775808", "CY", s_overflow           },
        { "R4",   ":3DCCCCCD",           "CY", "1000"                },
        { "R8",   ":3F50624DD2F1A9FC",   "CY", "10"                  },
        { "DATE", s_twoAndAHalf,         "CY", "25000"               },
        { "R8",   ":7E37E43C8800759C",   "CY", s_overflow            },
        { "CY",   "-9223372036854775808", "CY", "-9223372036854775808" },
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, FloatsAndDoublesTakeTheNearestNumber)
{
    // clang-format off
    Row const rows[] = {
        { "I8",   "9007199254740993",     "R8", "9007199254740992:4340000000000000"       },
        { "UI8",  "18446744073709551615", "R8", "1.8446744073709552e+19:43F0000000000000" },
        { "I8",   "9007199791611905",     "R4", "9.00720033e+15:5A000001"                 },  // rounded twice: ...000
        { "CY",   "-1",                   "R8", "-0.0001:BF1A36E2EB1C432D"                },
        { "CY",   "12345678",             "R4", "1234.56775:449A522B"                     },
        { "R8",   ":3FB999999999999A",    "R4", "0.100000001:3DCCCCCD"                    },
        { "R8",   ":8000000000000000",    "R4", "-0:80000000"                             },
        { "DATE", ":8000000000000000",    "R8", "0:0000000000000000"                      },
        { "DATE", ":8000000000000000",    "R4", "0:00000000"                              },
        { "R8",   ":47EFFFFFE0000000",    "R4", "3.40282347e+38:7F7FFFFF"                 },
        { "R8",   ":47EFFFFFEFFFFFFF",    "R4", s_overflow                                },  // nearer to the largest
        { "R8",   ":C7EFFFFFEFFFFFFF",    "R4", s_overflow                                },
        { "R8",   ":7FF0000000000000",    "R4", s_overflow                                },
        { "R4",   ":7F800000",            "R8", "inf:7FF0000000000000"                    },
    };
    // clang-format on
    CheckRows(rows);
    EXPECT_EQ(Convert({"R8", ":7FF8000000000000", "R4", ""}, english).substr(0, 3), "nan");
}

TEST(CoerceNumbers, DatesMustLieInTheCalendar)
{
    // clang-format off
    Row const rows[] = {
        { "I4",   "-657434",            "DATE", "-657434:C124103400000000"            },
        { "I4",   "-657435",            "DATE", s_overflow                            },
        { "I4",   "2958465",            "DATE", "2958465:4146924080000000"            },
        { "UI8",  "2958466",            "DATE", s_overflow                            },
        { "R8",   ":C1241035FFFEB075",  "DATE", "-657434.99999000004:C1241035FFFEB075" },
        { "R8",   ":C124103600000000",  "DATE", s_overflow                            },
        { "R8",   ":41469240FFFFAC1D",  "DATE", "2958465.9999899999:41469240FFFFAC1D" },
        { "R8",   ":4146924100000000",  "DATE", s_overflow                            },
        { "R4",   ":4A349208",          "DATE", s_overflow                            },
        { "CY",   "29584660000",        "DATE", s_overflow                            },
        { "CY",   "-6574350000",        "DATE", s_overflow                            },
        { "R8",   ":7FF8000000000000",  "DATE", s_overflow                            },
        { "DATE", ":4146924100000000",  "DATE", "2958466:4146924100000000"            },  // is one already
        { "DATE", ":4146924100000000",  "R8",   "2958466:4146924100000000"            },
    };
    // clang-format on
    CheckRows(rows);
}

TEST(CoerceNumbers, BecomeTextInTheLocale)
{
    // clang-format off
    Row const rows[] = {
        { "I1",   "-128",               "BSTR", "-128"                 },
        { "UI1",  "255",                "BSTR", "255"                  },
        { "I2",   "-32768",             "BSTR", "-32768"               },
        { "UI2",  "65535",              "BSTR", "65535"                },
        { "I4",   "333",                "BSTR", "333"                  },
        { "UI4",  "4294967295",         "BSTR", "4294967295"           },
        { "I8",   "-9223372036854775808", "BSTR", "-9223372036854775808" },
        { "UI8",  "18446744073709551615", "BSTR", "18446744073709551615" },
        { "INT",  "-1",                 "BSTR", "-1"                   },
        { "UINT", "1",                  "BSTR", "1"                    },
        { "R4",   ":3FC00000",          "BSTR", "1,5"                  },
        { "R8",   s_twoAndAHalf,        "BSTR", "2,5"                  },
        { "CY",   "-12345",             "BSTR", "-1,2345"              },
    };
    // clang-format on
    CheckRows(rows, german);
    EXPECT_EQ(Convert({"DATE", ":4004000000000000", "BSTR", ""}, detail::InvariantFacts()), "01/01/1900 12:00:00");
}

TEST(CoerceNumbers, ADateOutsideTheCalendarHasNoText)
{
    Cleared source(MakeBits(VT_DATE, 0));
    source->date = 2958466;
    Cleared destination(MakeBits(VT_I4, 4711));
    EXPECT_EQ(detail::Coerce(*destination.Get(), *source, VT_BSTR, &english), E_INVALIDARG);
    EXPECT_EQ(destination->lVal, 4711);
}

TEST(CoerceNumbers, AreReadFromTextInTheLocale)
{
    // clang-format off
    Row const rows[] = {
        { "BSTR", "1.234,5",    "I2",   "1234"                      },
        { "BSTR", "2,5",        "I1",   "2"                         },
        { "BSTR", "-0,5",       "UI1",  "0"                         },
        { "BSTR", "-0,6",       "UI8",  s_overflow                  },
        { "BSTR", "18446744073709551615", "UI8", "18446744073709551615" },
        { "BSTR", "18446744073709551616", "UI8", s_overflow         },
        { "BSTR", "-9223372036854775808", "I8",  "-9223372036854775808" },
        { "BSTR", "127,5",      "I1",   s_overflow                  },
        { "BSTR", "1e3",        "UI2",  "1000"                      },
        { "BSTR", "&HFFFF",     "I2",   "-1"                        },  // as many bits as it has
        { "BSTR", "&HFFFF",     "UI2",  "65535"                     },
        { "BSTR", "&HFFFF",     "I4",   "65535"                     },
        { "BSTR", "&H10000",    "I2",   s_overflow                  },
        { "BSTR", "&HFFFFFFFFFFFFFFFF", "I8", "-1"                  },
        { "BSTR", "&H10000000000000000", "UI8", s_overflow          },
        { "BSTR", "1,5",        "R4",   "1.5:3FC00000"              },
        { "BSTR", "3,5e38",     "R4",   s_overflow                  },
        { "BSTR", "1,5",        "R8",   "1.5:3FF8000000000000"      },
        { "BSTR", "1e309",      "R8",   s_overflow                  },
        { "BSTR", "1,5 \\u20AC", "CY",  "15000"                     },
        { "BSTR", "1e15",       "CY",   s_overflow                  },
        { "BSTR", "True",       "BOOL", "-1"                        },
        { "BSTR", "0,0",        "BOOL", "0"                         },
        { "BSTR", "True",       "I4",   s_mismatch                  },
        { "BSTR", "abc",        "I4",   s_mismatch                  },
        { "BSTR", "abc",        "R8",   s_mismatch                  },
        { "BSTR", "abc",        "CY",   s_mismatch                  },
        { "BSTR", "abc",        "DATE", s_mismatch                  },
    };
    // clang-format on
    CheckRows(rows, german);
    EXPECT_EQ(Convert({"BSTR", "1/2/1900 6:00", "DATE", ""}, detail::InvariantFacts()), "3.25:400A000000000000");
}

TEST(CoerceNumbers, NoTextAndEmptyTextAreNoNumbers)
{
    for (char const * target :
         {"I1", "UI1", "I2", "UI2", "I4", "UI4", "I8", "UI8", "INT", "UINT", "R4", "R8", "CY", "BOOL", "DATE"})
    {
        EXPECT_EQ(Convert({"BSTR", "\\null", target, ""}, english), s_mismatch) << target;
        EXPECT_EQ(Convert({"BSTR", "", target, ""}, english), s_mismatch) << target;
    }
}

TEST(CoerceNumbers, ATextIsReadUpToItsFirstZero)
{
    Cleared source(MakeTextVariant(std::basic_string_view<WCHAR>(OLESTR("12\0abc"), 6)));
    Cleared destination(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(detail::Coerce(*destination.Get(), *source, VT_I4, &english), S_OK);
    EXPECT_EQ(destination->lVal, 12);
}

// `Coerce` copies a value of the type asked for, and does not call these then.
TEST(CoerceNumbers, EachTargetTakesItsOwnTypeAsItIs)
{
    VARIANT result{};
    EXPECT_EQ(detail::ToBool(MakeBits(VT_BOOL, 2), nullptr, result), S_OK);
    EXPECT_EQ(result.boolVal, 2);
    EXPECT_EQ(detail::ToCy(MakeBits(VT_CY, 15001), nullptr, result), S_OK);
    EXPECT_EQ(result.cyVal.int64, 15001);
    VARIANT date = MakeR8(1e10);
    date.vt = VT_DATE;
    EXPECT_EQ(detail::ToDate(date, nullptr, result), S_OK);
    EXPECT_EQ(result.date, 1e10);
    Cleared const text(MakeTextVariant(OLESTR("abc")));
    Cleared copy(MakeBits(VT_BSTR, 0));
    EXPECT_EQ(detail::ToBstr(*text, nullptr, *copy.Get()), S_OK);
    EXPECT_EQ(TextOf(copy->bstrVal), OLESTR("abc"));
}

} // namespace kr::test
