#include <krplatform/coerce/truth_parse.h>

#include "tests/krplatform/coerce/locale_samples.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

struct Row
{
    WCHAR const * text;
    HRESULT result;
    VARIANT_BOOL truth; ///< 99: not written
};

template <std::size_t Count>
void CheckRows(detail::LocaleFacts const & locale, bool acceptLocalWords, Row const (&rows)[Count])
{
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        VARIANT_BOOL truth = 99;
        EXPECT_EQ(detail::ParseTruth(row.text, locale, acceptLocalWords, truth), row.result);
        EXPECT_EQ(truth, row.truth);
    }
}

detail::LocaleFacts GermanWithWords()
{
    detail::LocaleFacts facts = german;
    facts.yes = OLESTR("Wahr");
    facts.no = OLESTR("\u00DCbel");
    return facts;
}

} // namespace

TEST(TruthParse, ReadsTheEnglishWordsInAnyCaseWithoutBlanks)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("True"),    S_OK,                -1 },
        { OLESTR("true"),    S_OK,                -1 },
        { OLESTR("tRuE"),    S_OK,                -1 },
        { OLESTR("False"),   S_OK,                 0 },
        { OLESTR("FALSE"),   S_OK,                 0 },
        { OLESTR("#TRUE#"),  S_OK,                -1 },
        { OLESTR("#FALSE#"), S_OK,                 0 },
        { OLESTR("#True#"),  DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("#false#"), DISP_E_TYPEMISMATCH, 99 },
        { OLESTR(" True"),   DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("True "),   DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("Tru"),     DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("Truely"),  DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("T"),       DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("Yes"),     DISP_E_TYPEMISMATCH, 99 },
        { OLESTR(""),        DISP_E_TYPEMISMATCH, 99 },
    };
    // clang-format on
    CheckRows(english, false, rows);
    CheckRows(german, false, rows);
}

TEST(TruthParse, ReadsAnyNumberOfTheLocale)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("0"),       S_OK,                 0 },
        { OLESTR("0,00"),    S_OK,                 0 },
        { OLESTR("0,1"),     S_OK,                -1 },
        { OLESTR("-1.000"),  S_OK,                -1 },
        { OLESTR(" 12 "),    S_OK,                -1 },
        { OLESTR("1e-300"),  S_OK,                -1 },
        { OLESTR("1e-400"),  S_OK,                 0 },  // no double but zero
        { OLESTR("&H10"),    S_OK,                -1 },
        { OLESTR("1e400"),   DISP_E_OVERFLOW,     99 },
        { OLESTR("1x"),      DISP_E_TYPEMISMATCH, 99 },
    };
    // clang-format on
    CheckRows(german, false, rows);
}

TEST(TruthParse, ReadsTheWordsOfTheLocaleWhereAskedTo)
{
    // clang-format off
    Row const refused[] = {
        { OLESTR("Wahr"),       DISP_E_TYPEMISMATCH, 99 },
        { OLESTR("\u00DCbel"),  DISP_E_TYPEMISMATCH, 99 },
    };
    Row const accepted[] = {
        { OLESTR("Wahr"),       S_OK,                -1 },
        { OLESTR("wAHR"),       S_OK,                -1 },
        { OLESTR("\u00DCBEL"),  S_OK,                 0 },
        { OLESTR("True"),       S_OK,                -1 },
        { OLESTR("False"),      S_OK,                 0 },
        { OLESTR("\u00FCbel"),  DISP_E_TYPEMISMATCH, 99 },  // only ASCII letters in any case
    };
    // clang-format on
    CheckRows(GermanWithWords(), false, refused);
    CheckRows(GermanWithWords(), true, accepted);
}

} // namespace kr::test
