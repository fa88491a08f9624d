#include <krcore/property/krassctrlold.h>

namespace
{

// clang-format off
constexpr kr::detail::TypeWord<CKrAssCtrlOld::ECtrlType> s_words[] = {
    { CKrAssCtrlOld::eEditCtrl,        OLESTR("eEditCtrl")        },
    { CKrAssCtrlOld::eComboCtrl,       OLESTR("eComboCtrl")       },
    { CKrAssCtrlOld::eColorCtrl,       OLESTR("eColorCtrl")       },
    { CKrAssCtrlOld::eFileNameCtrl,    OLESTR("eFileNameCtrl")    },
    { CKrAssCtrlOld::eDirNameCtrl,     OLESTR("eDirNameCtrl")     },
    { CKrAssCtrlOld::ePasswordCtrl,    OLESTR("ePasswordCtrl")    },
    { CKrAssCtrlOld::eDateCtrl,        OLESTR("eDateCtrl")        },
    { CKrAssCtrlOld::eTimeCtrl,        OLESTR("eTimeCtrl")        },
    { CKrAssCtrlOld::eMemoCtrl,        OLESTR("eMemoCtrl")        },
    { CKrAssCtrlOld::eUserDefinedCtrl, OLESTR("eUserDefinedCtrl") },   // 101 in the newer generation
    { CKrAssCtrlOld::eConfigListCtrl,  OLESTR("eConfigListCtrl")  },   // gone in the newer generation
};
// clang-format on

} // namespace

CKrAssCtrlOld::CKrAssCtrlOld() = default;

CKrAssCtrlOld::CKrAssCtrlOld(EObjType type, CString const & name) : m_type(type), m_objName(name), m_ctrlText(name) {}

CKrAssCtrlOld::CKrAssCtrlOld(CKrAssCtrlOld const & other) = default;

CKrAssCtrlOld & CKrAssCtrlOld::operator=(CKrAssCtrlOld const & other)
{
    if (this != &other)
        *this = CKrAssCtrlOld(other); // all that can fail comes before the first change
    return *this;
}

CKrAssCtrlOld::CKrAssCtrlOld(CKrAssCtrlOld && other) noexcept = default;

CKrAssCtrlOld & CKrAssCtrlOld::operator=(CKrAssCtrlOld && other) noexcept = default;

CKrAssCtrlOld::~CKrAssCtrlOld() = default;

bool CKrAssCtrlOld::operator==(CKrAssCtrlOld const & other) const
{
    return this == &other || (m_type == other.m_type && m_objName == other.m_objName &&
                              m_ctrlText == other.m_ctrlText && m_visible == other.m_visible &&
                              m_enabled == other.m_enabled && m_order == other.m_order && m_tooltip == other.m_tooltip);
}

CKrAssCtrlOld::ECtrlType CKrAssCtrlOld::CtrlTypeFromString(CString const & text)
{
    return kr::detail::TypeOfWord(s_words, text, eNoCtrl);
}

CString CKrAssCtrlOld::CtrlTypeToString(ECtrlType type) { return kr::detail::WordOfType(s_words, type); }
