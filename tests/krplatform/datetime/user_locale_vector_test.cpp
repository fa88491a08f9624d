// The user's locale, row by row as the vector file has it: each environment in a process of its own.
#include <krplatform/automation/variant.h>
#include <krplatform/automation/vartext.h>
#include <krplatform/codepage/codepage.h>
#include <krplatform/text/bstr.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/child_process.h"
#include "tests/support/text.h"
#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace kr::test
{

namespace
{

struct Answer
{
    HRESULT result;
    std::string text;
};

struct Question
{
    LCID locale;
    VectorRow const & row;
};

std::string TakeText(BSTR text)
{
    std::string const shown = Narrow(TextOf(text));
    SysFreeString(text);
    return shown;
}

/// A number as the file writes it, with its bits.
std::string Show(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.17g:%016llX", value, std::bit_cast<unsigned long long>(value));
    return text;
}

Answer WriteNumber(Question const & question)
{
    BSTR text = nullptr;
    HRESULT const result = VarBstrFromR8(question.row.GetDouble("argument"), question.locale, 0, &text);
    return {result, TakeText(text)};
}

Answer WriteDate(Question const & question)
{
    BSTR text = nullptr;
    HRESULT const result = VarBstrFromDate(question.row.GetDouble("argument"), question.locale, 0, &text);
    return {result, TakeText(text)};
}

Answer WriteAmount(Question const & question)
{
    CY amount;
    amount.int64 = question.row.GetInteger("argument");
    BSTR text = nullptr;
    HRESULT const result = VarBstrFromCy(amount, question.locale, 0, &text);
    return {result, TakeText(text)};
}

Answer ReadDate(Question const & question)
{
    double date = 0.0;
    HRESULT const result = VarDateFromStr(question.row.GetText("argument")->c_str(), question.locale, 0, &date);
    return {result, SUCCEEDED(result) ? Show(date) : "-"};
}

Answer CoerceToNumber(Question const & question)
{
    Cleared source(MakeTextVariant(*question.row.GetText("argument")));
    VARIANT number = {};
    HRESULT const result = VariantChangeTypeEx(&number, source.Get(), question.locale, 0, VT_R8);
    return {result, SUCCEEDED(result) ? Show(number.dblVal) : "-"};
}

Answer CoerceToText(Question const & question)
{
    VARIANT const source = MakeR8(question.row.GetDouble("argument"));
    VARIANT text = {};
    HRESULT const result = VariantChangeType(&text, &source, 0, VT_BSTR);
    return {result, TakeText(text.bstrVal)};
}

/// The bytes of a unit that is exact in the process code page, in hexadecimal.
Answer EncodeUnit(Question const & question)
{
    WCHAR const unit = static_cast<WCHAR>(std::stoul(question.row["argument"], nullptr, 16));
    char bytes[2] = {};
    BOOL usedDefault = FALSE;
    int const count = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, 2, nullptr, &usedDefault);
    std::string shown;
    for (int index = 0; index < count && !usedDefault; ++index)
    {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned char>(bytes[index]));
        shown += digits;
    }
    return {S_OK, shown.empty() ? "-" : shown};
}

Answer AskCodePage(Question const &) { return {S_OK, std::to_string(GetACP())}; }

struct Function
{
    std::string_view name;
    Answer (*ask)(Question const &);
};

// clang-format off
constexpr Function s_functions[] = {
    { "VarBstrFromR8",                    WriteNumber    },
    { "VarBstrFromDate",                  WriteDate      },
    { "VarBstrFromCy",                    WriteAmount    },
    { "VarDateFromStr",                   ReadDate       },
    { "VariantChangeTypeEx R8",           CoerceToNumber },
    { "VariantChangeType BSTR",           CoerceToText   },
    { "WideCharToMultiByte CP_ACP exact", EncodeUnit     },
    { "code page of CP_ACP",              AskCodePage    },
};
// clang-format on

void CheckRow(VectorRow const & row)
{
    LCID const locale = row["lcid"] == "-" ? 0 : static_cast<LCID>(row.GetInteger("lcid"));
    for (Function const & function : s_functions)
    {
        if (function.name != row["function"])
            continue;
        Answer const answer = function.ask({locale, row});
        EXPECT_EQ(answer.result, row.GetHresult());
        EXPECT_EQ(answer.text, row["result"]);
        return;
    }
    FAIL() << "unknown function";
}

} // namespace

TEST(UserLocaleRows, DISABLED_OfThisEnvironment)
{
    std::string const environment = std::getenv("LC_ALL");
    int checked = 0;
    VectorFile const file("user_locale");
    for (VectorRow const & row : file.GetRows())
    {
        if (row["environment"] != environment || !IsBinding("user_locale", row))
            continue;
        SCOPED_TRACE(row.ToString());
        CheckRow(row);
        ++checked;
    }
    EXPECT_GT(checked, 10);
}

TEST(UserLocaleVectors, AreAnsweredAsByThePlatform)
{
    for (char const * const environment : {"C", "de_DE", "en_US", "fr_FR", "ja_JP", "ru_RU"})
    {
        ChildResult const child =
            RunTestInChild("UserLocaleRows.DISABLED_OfThisEnvironment", {{"LC_ALL", environment}});
        EXPECT_EQ(child.exitStatus, 0) << child.output;
    }
}

TEST(UserLocaleVectors, HaveNoOtherEnvironment)
{
    VectorFile const file("user_locale");
    for (VectorRow const & row : file.GetRows())
        EXPECT_TRUE(std::string_view("C de_DE en_US fr_FR ja_JP ru_RU").find(row["environment"]) != std::string::npos);
}

} // namespace kr::test
