// The values of properties in text form: the choice of a type and of another, then a text.
#include "fuzz/fuzz_target.h"
#include "fuzz/property_types.h"

#include <krcore/property/krpropertyold.h>
#include <krplatform/automation/vartext.h>
#include <krplatform/text/numbers.h>

#include <cmath>

namespace kr::fuzz
{

namespace
{

double DateOf(CString const & text, ULONG flags)
{
    double date = 0.0;
    bool const isRead = !text.IsEmpty() && SUCCEEDED(VarDateFromStr(text, LOCALE_USER_DEFAULT, flags, &date));
    return isRead ? date : 0.0;
}

double DoubleOf(CString text)
{
    text.Replace(OLESTR(','), OLESTR('.'));
    return wcstod(text, nullptr);
}

/// What the type makes of the text, by the readers themselves.
CKrVariant Expected(CKrProperty::EPropType type, CString const & text)
{
    switch (type)
    {
    case CKrProperty::ePropString:
        return CKrVariant(text);
    case CKrProperty::ePropDouble:
        return CKrVariant(DoubleOf(text));
    case CKrProperty::ePropInt:
        return CKrVariant(_wtoi(text));
    case CKrProperty::ePropBool:
        return CKrVariant(_wtoi(text) != 0);
    case CKrProperty::ePropDateTime:
        return CKrVariant(COleDateTime(DateOf(text, 0)));
    case CKrProperty::ePropDate:
        return CKrVariant(COleDateTime(DateOf(text, VAR_DATEVALUEONLY)));
    case CKrProperty::ePropTime:
        return CKrVariant(COleDateTime(DateOf(text, VAR_TIMEVALUEONLY)));
    case CKrProperty::ePropFile:
        return CKrVariant(CKrFileName(text, false).GetFullName(true));
    case CKrProperty::ePropDir:
        return CKrVariant(CKrFileName(text, true).GetFullName(true));
    default:
    {
        int const number = _wtoi(text);
        return number < 0 ? CKrVariant(CKrColor(static_cast<short>(0u - static_cast<unsigned>(number))))
                          : CKrVariant(CKrColor(static_cast<unsigned int>(number)));
    }
    }
}

/// The invariant text says the whole value, but for numbers of more than 15 digits and for those without a text.
void CheckInvariantText(CKrProperty const & property)
{
    CString const text = property.GetAsInvariantString();
    CKrProperty again(property);
    again.SetDefaultValue();
    again.SetValueFromString(text);
    bool const isName = property.GetType() == CKrProperty::ePropFile || property.GetType() == CKrProperty::ePropDir;
    if (property.IsDoubleValue())
        KR_LAW(!std::isfinite(property.GetDouble()) || again.GetAsInvariantString() == text);
    else if (!isName && !property.IsColorValue())
        KR_LAW(again.GetValue() == property.GetValue());
}

/// A new type gets a value of its own tag, whatever was there; a colour is none before it is set.
void CheckNewType(CKrProperty property, CKrProperty::EPropType type)
{
    property.SetType(type);
    KR_LAW(property.GetType() == type);
    KR_LAW(property.IsValid() || property.IsColorValue());
    CKrVariant const value = property.GetValue();
    property.SetType(type);
    KR_LAW(property.GetValue() == value);
}

/// The older generation reads numbers and texts alike.
void CheckOldGeneration(CKrProperty const & property, CString const & text)
{
    CKrPropertyOld old(OLESTR("p"), CString(), true, true);
    struct Pair
    {
        CKrProperty::EPropType type;
        CKrAssCtrlOld::EObjType oldType;
    };
    constexpr Pair pairs[] = {{CKrProperty::ePropString, CKrAssCtrlOld::eObjString},
                              {CKrProperty::ePropDouble, CKrAssCtrlOld::eObjDouble},
                              {CKrProperty::ePropInt, CKrAssCtrlOld::eObjInt},
                              {CKrProperty::ePropBool, CKrAssCtrlOld::eObjBool}};
    for (Pair const & pair : pairs)
    {
        if (pair.type != property.GetType())
            continue;
        old.SetType(pair.oldType);
        old.SetValueFromString(text);
        KR_LAW(old.GetValue() == property.GetValue() && old.GetAsString() == property.GetAsString());
    }
}

} // namespace

void CheckLaws(FuzzInput input)
{
    CKrProperty::EPropType const type = TypeOf(input), otherType = TypeOf(input);
    CString const text = TextOf(input.TextRest());
    CKrProperty property(OLESTR("p"), CString(), type, true, true);
    bool const isModified = text.GetLength() % 2 != 0;
    property.SetModified(isModified);
    property.SetValueFromString(text);
    KR_LAW(property.GetValue() == Expected(type, text));
    KR_LAW(property.IsModified() == isModified && property.GetType() == type);
    CheckInvariantText(property);
    CheckOldGeneration(property, text);
    CheckNewType(property, otherType);

    CKrProperty none(OLESTR("p"), CString(), CKrProperty::ePropNone, CKrVariant(5), true, true);
    none.SetValueFromString(text);
    KR_LAW(none.GetInt() == 5);
}

} // namespace kr::fuzz
