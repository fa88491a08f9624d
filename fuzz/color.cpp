// Colours and their text: a line of text to be read, then the bytes of a colour to be written.
#include "fuzz/fuzz_target.h"

#include "tests/graphics/color_fields.h"
#include "tests/graphics/naive_nearest.h"

#include <krcore/graphics/krcolor.h>
#include <krplatform/text/numbers.h>

#include <algorithm>

namespace kr::fuzz
{

namespace
{

using kr::test::FieldsOf;

CKrColor Parsed(CString const & text)
{
    CKrColor color;
    color.Parse(text);
    return color;
}

/// The whole of the rule, with a runtime function for each of the library's short cuts.
CKrColor SlowlyParsed(CString text)
{
    text.Trim();
    CString upper = text;
    std::transform(text.View().begin(), text.View().end(), upper.GetBuffer(),
                   [](WCHAR unit) { return static_cast<WCHAR>(unit >= 'a' && unit <= 'z' ? unit - 0x20 : unit); });
    upper.ReleaseBuffer(text.GetLength());
    if (text.IsEmpty() || upper == CString(OLESTR("NOCOLOR")))
        return CKrColor::NoColor();
    if (upper.Left(4) == OLESTR("RGB("))
    {
        int red = 0, green = 0, blue = 0;
        swscanf(text.Mid(4), OLESTR("%d,%d,%d"), &red, &green, &blue);
        return {static_cast<unsigned>(red), static_cast<unsigned>(green), static_cast<unsigned>(blue)};
    }
    if (text[0] == '#')
    {
        unsigned red = 0, green = 0, blue = 0;
        swscanf(text.Mid(1), OLESTR("%2x%2x%2x"), &red, &green, &blue);
        return {red, green, blue};
    }
    return upper == CString(OLESTR("BYLAYER")) ? CKrColor(256) : CKrColor(static_cast<short>(_wtoi(text)));
}

/// What is written is read back, in both forms, and written the same again.
void CheckRoundTrip(CKrColor const & color)
{
    for (bool const hex : {false, true})
    {
        CString const text = color.Format(hex);
        CKrColor const again = Parsed(text);
        KR_LAW(again == color);
        KR_LAW(again.GetColorIndex() == color.GetColorIndex());
        KR_LAW(again.Format(hex) == text);
    }
}

void CheckText(CString const & text)
{
    CKrColor const color = Parsed(text);
    KR_LAW(FieldsOf(color) == FieldsOf(SlowlyParsed(text)));
    KR_LAW(FieldsOf(Parsed(OLESTR(" \t\u3000") + text + OLESTR("\r\n "))) == FieldsOf(color));
    CheckRoundTrip(color);

    CKrColor used(1, 2, 3);
    used.SetAlpha(7);
    used.Parse(text);
    KR_LAW(used == color || (used.IsNoColor() && used.GetAlpha() == 7));
}

void CheckNearest(CKrColor const & color)
{
    static kr::test::NaiveNearest const naive;
    int const nearest = color.GetAsColorIndex();
    KR_LAW(nearest == naive.Find(color.GetRed(), color.GetGreen(), color.GetBlue()));

    CKrColor row = color;
    row.RGBToIndex();
    KR_LAW(row.GetColorIndex() == nearest);
    KR_LAW(row.IndexToRGB().GetAsColorIndex() == nearest);
}

} // namespace

void CheckLaws(FuzzInput input)
{
    CheckText(TextOf(input.TextLine()));

    CKrColor const color(input.Number<std::uint32_t>());
    CheckRoundTrip(color);
    CheckNearest(color);
    CheckRoundTrip(CKrColor(input.Number<short>()));
}

} // namespace kr::fuzz
