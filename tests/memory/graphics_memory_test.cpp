// Colours, schemes and styles where memory runs out.
#include <krcore/graphics/krcolor.h>
#include <krcore/graphics/krcolorschememap.h>
#include <krcore/graphics/krstyles.h>

#include "tests/memory/failing_rows.h"

using namespace kr::test;

namespace
{

CString const one(OLESTR("one"));
CString const two(OLESTR("two"));

} // namespace

TEST(ColorMemory, LeavesNothingOfAText)
{
    static CKrColor const rgb(1, 2, 3);
    static CKrColor const index(5);
    static CString const text(OLESTR(" rgb( 1,2,3)"));
    // clang-format off
    ExpectRows({
        { "Format",       throwsMemory, kept, [](Nothing) { rgb.Format(false); } },
        { "Format hex",   throwsMemory, kept, [](Nothing) { rgb.Format(true); } },
        { "Format index", throwsMemory, kept, [](Nothing) { index.Format(false); } },
        { "Format none",  throwsMemory, kept, [](Nothing) { CKrColor::NoColor().Format(false); } },
        { "Parse",        takesNone,    kept, [](Nothing) { CKrColor color; color.Parse(text); } },
    });
    // clang-format on
}

TEST(StyleMemory, LeavesNothingOfAStyle)
{
    static CString const none;
    static CKrLayerStyle const layer(CKrLayerStyle::AcadLayer(one));
    // clang-format off
    ExpectRows({
        { "AcadLineStyle",        throwsMemory, kept, [](Nothing) { CKrLineStyle::AcadLineStyle(); } },
        { "AcadLineStyle weight", throwsMemory, kept, [](Nothing) { CKrLineStyle::AcadLineStyle(25, none); } },
        { "AcadLineStyle width",  throwsMemory, kept, [](Nothing) { CKrLineStyle::AcadLineStyle(0.25, none); } },
        { "AcadLayer",            throwsMemory, kept, [](Nothing) { CKrLayerStyle::AcadLayer(one); } },
        { "AcadLayer color",      throwsMemory, kept, [](Nothing) { CKrLayerStyle::AcadLayer(one, CKrColor(5)); } },
        { "CKrHatchStyle",        throwsMemory, kept, [](Nothing) { CKrHatchStyle const made; } },
        { "copy",                 takesNone,    kept, [](Nothing) { CKrLayerStyle const copy(layer); } },
    });
    // clang-format on
}

TEST(ColorSchemeMemory, KeepsTheSchemesAndFreesTheOneThatWasGiven)
{
    struct Schemes
    {
        CKrColorSchemeMap map;
        explicit Schemes(bool filled = false)
        {
            if (filled)
                map.SetNULL(one);
        }
    };
    static CKrColorSchemeMap const others = []
    {
        CKrColorSchemeMap made;
        made.SetNULL(one);
        made.SetNULL(two);
        made.SetCurrentScheme(two);
        return made;
    }();
    auto const stateOf = [](Schemes const & schemes)
    {
        std::string text = Described(schemes.map.GetCurrentScheme());
        for (auto const & [name, scheme] : schemes.map.GetMap())
            text += Described(name, scheme != nullptr);
        return text;
    };
    // clang-format off
    ExpectRows([] { return Schemes(true); }, stateOf, std::vector<Row<Schemes>>{
        { "AddObject", throwsBadAlloc, kept, [](Schemes & schemes) { schemes.map.AddObject(two, new CKrColorSchemeBase); } },
        { "SetNULL",   throwsBadAlloc, kept, [](Schemes & schemes) { schemes.map.SetNULL(two); } },
        { "=",         throwsBadAlloc, kept, [](Schemes & schemes) { schemes.map = others; } },
        { "copy",      throwsBadAlloc, kept, [](Schemes &) { CKrColorSchemeMap const copy(others); } },
    });
    ExpectRows({
        { "a scheme", takesNone, kept, [](Nothing) { CKrColorSchemeBase made; made.SetName(one); made.SetDescription(two); } },
    });
    // clang-format on
}
