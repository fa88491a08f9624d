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
           (m_type == other.m_type && GetUserCtrlType() == other.GetUserCtrlType() && m_visible == other.m_visible &&
            m_enabled == other.m_enabled && GetTooltip() == other.GetTooltip());
}

CKrAssCtrl::ECtrlType CKrAssCtrl::CtrlTypeFromString(CString const & text)
{
    return kr::detail::TypeOfWord(s_words, text, eNoCtrl);
}

CString CKrAssCtrl::CtrlTypeToString(ECtrlType type) { return kr::detail::WordOfType(s_words, type); }

void CKrAssCtrl::SetType(ECtrlType type)
{
    m_type = type;
    if (type != eUserDefinedCtrl && m_details.Get())
        m_details.Get()->userCtrlType.Empty();
}

void CKrAssCtrl::SetCtrlType(CString const & text)
{
    ECtrlType const type = CtrlTypeFromString(text);
    if (type == eNoCtrl && !text.IsEmpty())
        SetUserCtrlType(text);
    else
        m_type = type;
}

void CKrAssCtrl::SetUserCtrlType(CString const & text)
{
    if (text != GetUserCtrlType()) // most controls have none, and get none
        m_details.Write([&text](Details & details) { details.userCtrlType = text; });
    if (!text.IsEmpty())
        m_type = eUserDefinedCtrl;
}

CString CKrAssCtrl::GetCtrlTypeAsString() const
{
    return m_type == eUserDefinedCtrl ? GetUserCtrlType() : CtrlTypeToString(m_type);
}

void CKrAssCtrl::SetTooltip(CString const & tooltip)
{
    if (tooltip != GetTooltip())
        m_details.Write([&tooltip](Details & details) { details.tooltip = tooltip; });
}

void CKrAssCtrl::CreateSelectionList()
{
    m_details.Write([](Details & details) { details.selectionList.Create(); });
}

void CKrAssCtrl::ClearSelectionList() noexcept
{
    if (m_details.Get())
        m_details.Get()->selectionList.Clear();
}

void CKrAssCtrl::SetSelectionList(std::vector<CKrVariant> const & values)
{
    m_details.Write([&values](Details & details) { details.selectionList.Create(values); });
}

void CKrAssCtrl::AddEvent(CKrEvent::EventType type, CKrEvent const & event)
{
    m_details.Write([type, &event](Details & details) { details.events.Add(type, event); });
}

void CKrAssCtrl::ClearEvents() noexcept
{
    if (m_details.Get())
        m_details.Get()->events.Clear();
}

void CKrAssCtrl::CopyEvents(CKrAssCtrl const & other)
{
    m_details.Write([&other](Details & details) { details.events.CopyFrom(other.m_details.Read().events); });
}
