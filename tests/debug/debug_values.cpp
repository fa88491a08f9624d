// A program with values for a debugger to show, sound and broken. It calls `Stop` where all are there.
#include <krcore/krcore.h>

#include <cstring>
#include <limits>

extern "C" void Stop() {}

namespace
{

/// Storage that holds the bits of no object.
template <class Object>
struct Garbage
{
    alignas(Object) unsigned char bytes[sizeof(Object)];
    Object * object;

    explicit Garbage(unsigned char byte) : object(reinterpret_cast<Object *>(bytes))
    {
        std::memset(bytes, byte, sizeof(Object));
    }
};

CKrProperty * AddTo(CKrProperty & parent, char16_t const * name)
{
    auto const child = new CKrProperty(name, CString(), CKrProperty::ePropString, true, true);
    parent.AddSubProperty(child);
    return child;
}

void ShowTexts()
{
    CString const empty;
    CString const wall(OLESTR("wall"));
    CString const quoted(OLESTR("a \"b\\c\"\t\u00e4\U0001F600"));
    CString const withZero(OLESTR("a\0b"), 3);
    CString const lonely(u"\xD800 alone", 7);
    CString const longText(OLESTR('x'), 1000);
    CStringA const narrow("wall \xE4 \xC3\xA4");
    CString const & reference = wall;
    Garbage<CString> const nothing(0);
    Garbage<CString> const garbage(0x11);
    CString cut(OLESTR("wall"));
    kr::detail::TextBlock<WCHAR>::Of(cut.GetBuffer())->length = -1;

    BSTR const noText = nullptr;
    BSTR const text = SysAllocStringLen(OLESTR("a\0b"), 3);
    BSTR const unended = SysAllocString(OLESTR("wall"));
    unended[4] = OLESTR('s');
    BSTR const wild = reinterpret_cast<BSTR>(16);
    _bstr_t const shared(OLESTR("wall"));
    _bstr_t const without;
    Stop();
    kr::detail::TextBlock<WCHAR>::Of(cut.GetBuffer())->length = 4;
    SysFreeString(text);
    SysFreeString(unended);
}

void ShowVariants()
{
    VARIANT plain{};
    plain.vt = VT_I4;
    plain.lVal = -5;
    VARIANT byReference{};
    byReference.vt = VT_BYREF | VT_I4;
    VARIANT unknown{};
    unknown.vt = 77;
    unknown.llVal = 0x1234;
    VARIANT wildArray{};
    wildArray.vt = VT_ARRAY | VT_R8;
    wildArray.llVal = 16;
    VARIANT noArray = wildArray;
    noArray.llVal = 0;
    VARIANT wildText{};
    wildText.vt = VT_BSTR;
    wildText.llVal = 16;
    COleVariant const ole(short{7});

    CKrVariant const invalid;
    CKrVariant const color(CKrColor(5));
    CKrVariant const number(5);
    CKrVariant const real(0.35);
    CKrVariant const single(VARIANT{.vt = VT_R4, .wReserved1 = 0, .wReserved2 = 0, .wReserved3 = 0, .fltVal = 0.1F});
    CKrVariant const truth(true);
    CKrVariant const text(OLESTR("wall"));
    CKrVariant const money(COleCurrency(CY{.int64 = -123456}));
    CKrVariant const moment(COleDateTime(2021, 3, 15, 8, 5, 9));
    CKrVariant const object(static_cast<IDispatch *>(nullptr));
    CKrVariant const numbers(std::vector<double>{0.5, 1.0});
    CKrVariant const names(std::vector<CString>{OLESTR("wall"), CString()});
    kr::matrix<CKrVariant> cells;
    cells.Resize(2, 3);
    cells.At(0, 0) = CKrVariant(1);
    cells.At(1, 0) = CKrVariant(OLESTR("wall"));
    CKrVariant const matrix(cells);
    CKrVariant const many(std::vector<double>(1000));
    Garbage<CKrVariant> const garbage(0x11);
    Garbage<VARIANT> const garbageOfAnArray(0x21);
    VARIANT shortElements = numbers;
    shortElements.vt = VT_ARRAY | VT_I2;
    CKrVariant const * const nowhere = nullptr;
    VARIANT every[VT_BLOB + 1]{};
    for (VARTYPE tag = 0; tag <= VT_BLOB; ++tag)
    {
        every[tag].vt = tag;
        every[tag].ullVal = 0xFEDC'BA98'F654'8F81;
    }
    Stop();
}

void ShowProperties()
{
    CKrProperty layer(OLESTR("Layer"), CString(), CKrProperty::ePropString, CKrVariant(OLESTR("wall")), true, true);
    CKrProperty * const width = AddTo(layer, OLESTR("Width"));
    width->SetDouble(0.35);
    CKrProperty const * const nowhere = nullptr;
    Garbage<CKrProperty> const garbage(0x11);
    Stop();
}

void ShowDatesAndColors()
{
    CKrDateTime const zero;
    CKrDateTime const moment(COleDateTime(2021, 3, 15, 8, 5, 9));
    CKrDateTime null;
    null.SetNull();
    CKrDate broken;
    broken.SetZero();
    CKrTime const time(COleDateTime(0.75));
    COleDateTime const before(-1.25);
    COleDateTime const first(100, 1, 1, 0, 0, 0);
    COleDateTime const last(9999, 12, 31, 23, 59, 59);
    COleDateTime const nearMidnight(COleDateTime(44269.9999999));
    Garbage<COleDateTime> const outside(0x11);
    COleDateTime far;
    far.m_dt = 1e300;
    COleDateTime notANumber;
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    COleCurrency const amount(CY{.int64 = 123456});
    COleCurrency const small(CY{.int64 = -5});

    CKrColor const orange(250, 128, 0);
    CKrColor const index(7);
    CKrColor const byLayer(256);
    CKrColor const none = CKrColor::NoColor();
    CKrColor inherited;
    inherited.SetInheritedColor();
    CKrColor glass(1, 2, 3);
    glass.SetAlpha(128);
    CKrColor clear(1, 2, 3);
    clear.SetAlpha(128);
    clear.SetAlpha(0);
    CKrColor below(1, 2, 3);
    below.SetAlpha(-5);
    CKrColor strange;
    strange.SetColorSpace(static_cast<CKrColor::ColorSpace>(5));
    CKrColor const * const nowhere = nullptr;
    Stop();
}

} // namespace

int main()
{
    ShowTexts();
    ShowVariants();
    ShowProperties();
    ShowDatesAndColors();
}
