#include <krcore/property/krassctrl.h>

namespace
{

// clang-format off
constexpr kr::detail::TypeWord<CKrAssCtrl::ECtrlType> s_words[] = {
    { CKrAssCtrl::eEditCtrl,        OLESTR("eEditCtrl")        },
    { CKrAssCtrl::eComboCtrl,       OLESTR("eComboCtrl")       },
    { CKrAssCtrl::eColorCtrl,       OLESTR("eColorCtrl")       },
    { CKrAssCtrl::eFileNameCtrl,    OLESTR("eFileNameCtrl")    },
    { CKrAssCtrl::eDirNameCtrl,     OLESTR("eDirNameCtrl")     },
    { CKrAssCtrl::ePasswordCtrl,    OLESTR("ePasswordCtrl")    },
    { CKrAssCtrl::eDateCtrl,        OLESTR("eDateCtrl")        },
    { CKrAssCtrl::eTimeCtrl,        OLESTR("eTimeCtrl")        },
    { CKrAssCtrl::eMemoCtrl,        OLESTR("eMemoCtrl")        },
    { CKrAssCtrl::eCheckCtrl,       OLESTR("eCheckCtrl")       },
    { CKrAssCtrl::eDateTimeCtrl,    OLESTR("eDateTimeCtrl")    },
    { CKrAssCtrl::eLinkCtrl,        OLESTR("eLinkCtrl")        },
    { CKrAssCtrl::eWebAddrCtrl,     OLESTR("eWebAddrCtrl")     },
    { CKrAssCtrl::eMailAddrCtrl,    OLESTR("eMailAddrCtrl")    },
    { CKrAssCtrl::eUserDefinedCtrl, OLESTR("eUserDefinedCtrl") },
};
// clang-format on

} // namespace

CKrAssCtrl::CKrAssCtrl() = default;

CKrAssCtrl::CKrAssCtrl(ECtrlType type) : m_type(type) {}

CKrAssCtrl::CKrAssCtrl(CKrAssCtrl const & other) = default;

CKrAssCtrl & CKrAssCtrl::operator=(CKrAssCtrl const & other)
{
    if (this != &other)
        *this = CKrAssCtrl(other); // all that can fail comes before the first change
    return *this;
}

CKrAssCtrl::CKrAssCtrl(CKrAssCtrl && other) noexcept = default;

CKrAssCtrl & CKrAssCtrl::operator=(CKrAssCtrl && other) noexcept = default;

CKrAssCtrl::~CKrAssCtrl() = default;

bool CKrAssCtrl::operator==(CKrAssCtrl const & other) const
{
    return this == &other ||
           (m_type == other.m_type && m_userCtrlType == other.m_userCtrlType && m_visible == other.m_visible &&
            m_enabled == other.m_enabled && m_tooltip == other.m_tooltip);
}

CKrAssCtrl::ECtrlType CKrAssCtrl::CtrlTypeFromString(CString const & text)
{
    return kr::detail::TypeOfWord(s_words, text, eNoCtrl);
}

CString CKrAssCtrl::CtrlTypeToString(ECtrlType type) { return kr::detail::WordOfType(s_words, type); }

void CKrAssCtrl::SetType(ECtrlType type)
{
    m_type = type;
    if (type != eUserDefinedCtrl)
        m_userCtrlType.Empty();
}

void CKrAssCtrl::SetCtrlType(CString const & text)
{
    m_type = CtrlTypeFromString(text);
    if (m_type == eNoCtrl && !text.IsEmpty())
    {
        m_type = eUserDefinedCtrl;
        m_userCtrlType = text;
    }
}

void CKrAssCtrl::SetUserCtrlType(CString const & text)
{
    m_userCtrlType = text;
    if (!text.IsEmpty())
        m_type = eUserDefinedCtrl;
}

CString CKrAssCtrl::GetCtrlTypeAsString() const
{
    return m_type == eUserDefinedCtrl ? m_userCtrlType : CtrlTypeToString(m_type);
}
