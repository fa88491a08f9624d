// The samples that headers begin with, where no test of their subsystem has them.
#include <krcore/krcore.h>

#include "tests/docs/shown.h"

#include <gtest/gtest.h>

using kr::test::Shown;

TEST(HeaderSamples, OfValuesAreTrue)
{
    EXPECT_EQ(Shown(CKrVariant(2.5).GetAsString()), "2.5");
    CKrVariant truth(true);
    truth.ConvertType(CKrVariant::eDouble);
    EXPECT_TRUE(truth.IsDouble());
    EXPECT_EQ(truth.dblVal, 1.0);
    EXPECT_EQ(int(CKrVariant(OLESTR("17"))), 17);
    EXPECT_EQ(double(CKrVariant(OLESTR("abc"))), 0.0);
    CKrVariant const color(CKrColor(5));
    EXPECT_TRUE(color.IsColor());
    EXPECT_EQ(color.lVal, -5);
    EXPECT_FALSE(CKrVariant(5) == CKrVariant(5.0));

    CKrAttrList list;
    EXPECT_EQ(list.GetLong(OLESTR("x"), 5), 5);
    EXPECT_EQ(list.size(), 0);
    EXPECT_EQ(list.GetLongAdd(OLESTR("x"), 5, OLESTR("width")), 5);
    EXPECT_EQ(list.size(), 1);
    EXPECT_EQ(list.GetLongAdd(OLESTR("x"), 9, OLESTR("other")), 5);
    try
    {
        list.GetValue(OLESTR("y"));
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException const & exception)
    {
        EXPECT_EQ(Shown(exception.GetErrorMessage(false)), "Attribute y nicht enthalten");
    }

    CKrOptionList options;
    options.AddOption(OLESTR("wall"), OLESTR("Walls"), true);
    options.AddOptionID(OLESTR("door"), true);
    EXPECT_EQ(Shown(options.GetSelectedIDs()), "wall;door");
    EXPECT_EQ(CKrOptionList(options).GetOptionCount(), 0u);
}

TEST(HeaderSamples, OfColoursAndStylesAreTrue)
{
    EXPECT_EQ(CKrColor(250, 3, 0).GetAsColorIndex(), 1);
    EXPECT_EQ(CKrColor(3).GetAsColorRef(), 0x0000FF00u);
    EXPECT_TRUE(CKrColor(257).IsNoColor());
    CKrColor color;
    color.Parse(OLESTR("#FF8000"));
    EXPECT_TRUE(color == CKrColor(255, 128, 0));
    EXPECT_EQ(Shown(color.Format(true)), "#ff8000");
    color.Parse(OLESTR("abc"));
    EXPECT_TRUE(color == CKrColor(0));

    CKrLineStyle const byWeight = CKrLineStyle::AcadLineStyle(25, OLESTR(""));
    EXPECT_EQ(Shown(byWeight.GetName()), "CONTINUOUS");
    EXPECT_EQ(byWeight.GetLineWeight(), 25);
    EXPECT_EQ(byWeight.GetLineWidth(), 0.25);
    CKrLineStyle const byWidth = CKrLineStyle::AcadLineStyle(0.26, OLESTR(""));
    EXPECT_EQ(Shown(byWidth.GetName()), "CONTINUOUS");
    EXPECT_EQ(byWidth.GetLineWeight(), 30);
    EXPECT_EQ(byWidth.GetLineWidth(), 0.26);
}

TEST(HeaderSamples, OfErrorsAndExceptionsAreTrue)
{
    EXPECT_STREQ(CKrCriticalException(OLESTR("a"), OLESTR("f"), 3).what(), "a\nf(3): ");
    CKrException const exception(OLESTR("a"), OLESTR("f"), 3, CKrException::eLevelNormal);
    EXPECT_EQ(Shown(exception.GetErrorMessage(true)), "a\nf(3): ");
    EXPECT_STREQ(exception.what(), "a");

    CKrMessagePool pool;
    pool.AddMessageGroup(OLESTR("layers"));
    pool.AddMessage(1500, OLESTR("No such layer"), OLESTR("layers"));
    pool.SetIDRange(1000, 1999, OLESTR("layers"));
    CString text;
    EXPECT_TRUE(pool.GetMessageW(1500, text));

    CKrError error = CKrError::IdError(1500);
    EXPECT_TRUE(error.FillMessage(pool));
    error.AddLocation(OLESTR("reader.cpp"), 12);
    EXPECT_EQ(Shown(error.GetFormattedMessage(true, true)), "No such layer\nreader.cpp(12): ");
    EXPECT_FALSE(CKrError::StringError(OLESTR("x")) == 5ul);
}

TEST(HeaderSamples, OfFileNamesAreTrue)
{
    CKrFileName const name(OLESTR("C:/a/b.txt"), false);
    EXPECT_EQ(Shown(name.GetDrive()), "C");
    EXPECT_EQ(Shown(name.GetDir()), "\\a");
    EXPECT_EQ(Shown(name.GetBaseName()), "b");
    EXPECT_EQ(Shown(name.GetExt()), "txt");
    EXPECT_EQ(Shown(name.GetFullName(true)), "C:\\a\\b.txt");
    EXPECT_TRUE(CKrFileName(OLESTR("C:\\a"), true).IsDirName());
    EXPECT_TRUE(name == CKrFileName(OLESTR("c:\\A\\B.TXT"), false));
    EXPECT_EQ(Shown(CKrFileName(OLESTR("//srv/x"), true).GetDrive()), "\\");
}

TEST(HeaderSamples, OfObjectsAreTrue)
{
    EXPECT_EQ(Shown(CKrClass::Cls()->ClsName()), "CKrClass");
    EXPECT_EQ(CKrClass::Cls()->IsA(), CKrClass::Cls());
    EXPECT_EQ(CKrClass::Cls()->GetBaseCls(), nullptr);

    EXPECT_EQ(CKrNamedObject().GetID(), -1);
    EXPECT_EQ(Shown(CKrNamedObject(7, true).GetName()), "7");
    EXPECT_EQ(Shown(CKrNamedObject(7, false).GetName()), "");

    CKrStringObject const text(OLESTR("wall"));
    EXPECT_EQ(text.IsA(), CKrStringObject::Cls());
    EXPECT_EQ(CKrStringObject::Cast(&text), &text);
    EXPECT_FALSE(text.IsKindOf(CKrObject::Cls()));
    CKrStringObject wall(OLESTR("wall"));
    EXPECT_EQ(Shown(std::unique_ptr<CKrStringObject>(wall.Clone())->GetValue()), "wall");
    CKrObject const & object = wall;
    EXPECT_EQ(std::unique_ptr<CKrObject>(object.Clone())->IsA(), CKrObject::Cls());

    kr::ownervector<CKrObject> children;
    children.push_back(new CKrStringObject(OLESTR("wall")));
    kr::ownervector<CKrObject> const copy(children);
    EXPECT_TRUE(copy.empty());
    children = copy;
    EXPECT_TRUE(children.empty());

    EXPECT_EQ(CKrWrappedObj::ObjId(3).GetObjId(), 3);
    EXPECT_TRUE(CKrWrappedObj::ObjName(OLESTR("a")) < CKrWrappedObj::ObjName(OLESTR("b")));
}

TEST(HeaderSamples, OfPropertiesAreTrue)
{
    CKrEvent event;
    event.SetGlobalName(OLESTR("EDITLAYER"));
    EXPECT_TRUE(event.AddCmdArg(OLESTR("name"), CKrVariant(OLESTR("wall"))));
    EXPECT_EQ(Shown(event.GetActionText()), "GlobalName = EDITLAYER\r\nLocalName = \r\nGruppe = ");

    CKrPropertySet set;
    set.CreateProperty(OLESTR("Color"), CKrProperty::ePropColor, OLESTR("General"))->SetColor(CKrColor(7));
    EXPECT_EQ(Shown(set.GetProperty(OLESTR("Color"), OLESTR("General"))->GetAsString()), "-7");
    set.CreateProperty(OLESTR("x"), CString());
    EXPECT_EQ(Shown(set.GetCategoryName(1)), "_KRPROPDEFCAT_");
}

TEST(HeaderSamples, OfThePlatformAreTrue)
{
    CString name(OLESTR("wall"));
    name += OLESTR('s');
    EXPECT_EQ(Shown(name), "walls");
    CString text;
    text.Format(OLESTR("%s: %05.2f"), name, 2.5);
    EXPECT_EQ(Shown(text), "walls: 02.50");
    EXPECT_EQ(CString(OLESTR("a,b")).Find(OLESTR(',')), 1);
    EXPECT_EQ(Shown(CString("abc").Mid(-3)), "abc");

    _bstr_t shared(OLESTR("wall"));
    _bstr_t const copy(shared);
    shared += _bstr_t("s");
    EXPECT_STREQ(static_cast<char const *>(copy), "wall");
    EXPECT_STREQ(static_cast<char const *>(shared), "walls");

    COleVariant value(OLESTR("2.5"));
    value.ChangeType(VT_R8);
    EXPECT_EQ(value.dblVal, 2.5);
    EXPECT_FALSE(COleVariant(long(5)) == COleVariant(5.0));

    EXPECT_EQ(Shown(COleCurrency(12, 5000).Format(0, 127)), "12.5");
    COleDateTime const date(2021, 3, 15, 8, 5, 9);
    EXPECT_EQ(Shown(date.Format(OLESTR("%Y-%m-%d %H:%M:%S"))), "2021-03-15 08:05:09");
    EXPECT_EQ(Shown(date.Format(0, 1033)), "3/15/2021 8:05:09 AM");
    EXPECT_EQ(COleDateTime(2021, 2, 30, 0, 0, 0).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(Shown(CTime(2021, 3, 15, 8, 5, 9).Format(OLESTR("%H:%M"))), "08:05");

    DATE read = 0.0;
    EXPECT_EQ(VarDateFromStr(OLESTR("3/15/2021 8:05 PM"), 1033, 0, &read), S_OK);
    EXPECT_EQ(Shown(COleDateTime(read).Format(OLESTR("%Y-%m-%d %H:%M"))), "2021-03-15 20:05");
    EXPECT_EQ(VarDateFromStr(OLESTR("15. M\u00E4rz 2021"), 1031, 0, &read), S_OK);
    EXPECT_EQ(Shown(COleDateTime(read).Format(OLESTR("%Y-%m-%d"))), "2021-03-15");

    EXPECT_EQ(Shown(CString(_com_error(E_FAIL).ErrorMessage())), "Unspecified error");
    EXPECT_EQ(Shown(CString(_com_error(static_cast<HRESULT>(0x80040205)).ErrorMessage())), "IDispatch error #5");
    EXPECT_EQ(_com_error(static_cast<HRESULT>(0x8004FFFF)).Description().length(), 0u);
}
