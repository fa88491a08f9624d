// What follows from the declared type: words, tags, default values, controls.
#include <krcore/property/krproperty.h>

namespace
{

struct TypeRow
{
    CKrProperty::EPropType type;
    CKrVariant::EType tag; ///< the tag that a value of the type has
    CKrAssCtrl::ECtrlType control;
    WCHAR const * word;
};

struct TypeWord
{
    WCHAR const * word;
    CKrProperty::EPropType type;
};

// clang-format off
constexpr TypeRow s_types[] = {
    { CKrProperty::ePropString,   CKrVariant::eString,      CKrAssCtrl::eEditCtrl,     OLESTR("string")    },
    { CKrProperty::ePropDouble,   CKrVariant::eDouble,      CKrAssCtrl::eEditCtrl,     OLESTR("double")    },
    { CKrProperty::ePropInt,      CKrVariant::eLong,        CKrAssCtrl::eEditCtrl,     OLESTR("int")       },
    { CKrProperty::ePropBool,     CKrVariant::eBool,        CKrAssCtrl::eCheckCtrl,    OLESTR("bool")      },
    { CKrProperty::ePropColor,    CKrVariant::eColor,       CKrAssCtrl::eColorCtrl,    OLESTR("color")     },
    { CKrProperty::ePropDateTime, CKrVariant::eOleDateTime, CKrAssCtrl::eDateTimeCtrl, OLESTR("datetime")  },
    { CKrProperty::ePropFile,     CKrVariant::eString,      CKrAssCtrl::eFileNameCtrl, OLESTR("file")      },
    { CKrProperty::ePropDate,     CKrVariant::eOleDateTime, CKrAssCtrl::eDateCtrl,     OLESTR("date")      },
    { CKrProperty::ePropDir,      CKrVariant::eString,      CKrAssCtrl::eDirNameCtrl,  OLESTR("directory") },
    { CKrProperty::ePropTime,     CKrVariant::eOleDateTime, CKrAssCtrl::eTimeCtrl,     OLESTR("time")      },
};

constexpr TypeWord s_words[] = {                     // searched in this order, case counts
    { OLESTR("string"),    CKrProperty::ePropString   },
    { OLESTR("bool"),      CKrProperty::ePropBool     },
    { OLESTR("int"),       CKrProperty::ePropInt      },
    { OLESTR("double"),    CKrProperty::ePropDouble   },
    { OLESTR("long"),      CKrProperty::ePropInt      },   // Deliberate: read, never written
    { OLESTR("datetime"),  CKrProperty::ePropDateTime },
    { OLESTR("file"),      CKrProperty::ePropFile     },
    { OLESTR("directory"), CKrProperty::ePropDir      },
    { OLESTR("date"),      CKrProperty::ePropDate     },
    { OLESTR("time"),      CKrProperty::ePropTime     },
    { OLESTR("color"),     CKrProperty::ePropColor    },
};
// clang-format on

TypeRow const * FindType(CKrProperty::EPropType type)
{
    for (TypeRow const & row : s_types)
    {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

CKrVariant DefaultValueOf(CKrVariant::EType tag)
{
    switch (tag)
    {
    case CKrVariant::eString:
        return CKrVariant(CString());
    case CKrVariant::eDouble:
        return CKrVariant(0.0);
    case CKrVariant::eBool:
        return CKrVariant(false);
    case CKrVariant::eOleDateTime:
        return CKrVariant(COleDateTime());
    default:
        return CKrVariant(0); // Deliberate: for a colour too, so that it is not valid yet
    }
}

} // namespace

CKrProperty::EPropType CKrProperty::PropertyTypeFromString(CString const & text)
{
    for (TypeWord const & row : s_words)
    {
        if (text == row.word)
            return row.type;
    }
    return ePropNone;
}

CString CKrProperty::PropertyTypeToString(EPropType type)
{
    TypeRow const * const row = FindType(type);
    return row ? CString(row->word) : CString();
}

CKrAssCtrl::ECtrlType CKrProperty::GetDefaultCtrlType(EPropType type)
{
    TypeRow const * const row = FindType(type);
    return row ? row->control : CKrAssCtrl::eEditCtrl;
}

CKrVariant CKrProperty::MakeDefaultValue(EPropType type)
{
    TypeRow const * const row = FindType(type);
    return row ? DefaultValueOf(row->tag) : CKrVariant();
}

void CKrProperty::SetDefaultValue()
{
    if (m_type == ePropNone)
        m_value.Clear();
    else if (TypeRow const * const row = FindType(m_type))
        m_value = DefaultValueOf(row->tag);
}

void CKrProperty::SetType(EPropType type)
{
    TypeRow const * const row = FindType(type);
    if (row && !m_value.IsType(row->tag))
    {
        m_value.ConvertTypeLocale(row->tag);
        if (!m_value.IsType(row->tag))
            m_value = DefaultValueOf(row->tag);
    }
    m_type = type; // last: the default value may run out of memory
}

bool CKrProperty::IsValid() const
{
    if (!m_value.IsValid())
        return false;
    switch (GetValueType())
    {
    case ePropString:
    case ePropDouble:
    case ePropInt:
    case ePropBool:
    case ePropDateTime:
        return static_cast<unsigned int>(m_value.GetType()) == GetValueType();
    default:
        return m_type == ePropColor && m_value.IsColor();
    }
}
