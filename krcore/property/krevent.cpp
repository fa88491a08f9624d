#include <krcore/property/krevent.h>

#include <krcore/foundation/krclass.h>

std::unique_ptr<CKrClass> CKrEventHandler::s_pCls;

CKrEvent::CKrEvent() = default;

CKrEvent::CKrEvent(CKrEvent const & other) = default;

CKrEvent & CKrEvent::operator=(CKrEvent const & other)
{
    m_arguments = other.m_arguments; // first: nothing else can fail
    m_eventType = other.m_eventType;
    m_actionType = other.m_actionType;
    m_commandType = other.m_commandType;
    m_contextMenuRef = other.m_contextMenuRef;
    m_contextMenu = other.m_contextMenu;
    m_globalName = other.m_globalName;
    m_localName = other.m_localName;
    m_commandGroup = other.m_commandGroup;
    m_transparent = other.m_transparent;
    return *this;
}

CKrEvent::~CKrEvent() = default;

CString CKrEvent::GetActionText() const
{
    switch (m_actionType)
    {
    case eActionCommand:
        return OLESTR("GlobalName = ") + m_globalName + OLESTR("\r\nLocalName = ") + m_localName +
               OLESTR("\r\nGruppe = ") + m_commandGroup;
    case eActionContextMenu:
        return m_contextMenu;
    case eActionContextMenuRef:
        return m_contextMenuRef;
    default:
        return CString();
    }
}

bool CKrEvent::AddCmdArg(CString const & name, CKrVariant const & value)
{
    if (name.IsEmpty() || !value.IsValid())
        return false;
    m_arguments.AddAttr(CKrAttrData(name, value, CString()));
    return true;
}

CKrVariant CKrEvent::GetCmdArg(CString const & name) const
{
    return HasCmdArg(name) ? m_arguments.GetValue(name) : CKrVariant();
}

bool CKrEvent::HasCmdArg(CString const & name) const { return m_arguments.Includes(name); }

void CKrEvent::RemoveCmdArg(CString const & name) { m_arguments.ClearKey(name); }

CKrEventHandler::CKrEventHandler() = default;

CKrEventHandler::CKrEventHandler(CKrEventHandler const & other) = default;

CKrEventHandler & CKrEventHandler::operator=(CKrEventHandler const &) { return *this; }

CKrEventHandler::~CKrEventHandler() = default;

CKrClass * CKrEventHandler::IsA() const { return Cls(); }

CKrClass * CKrEventHandler::Cls() { return s_pCls.get(); }

bool CKrEventHandler::HandleEvent(CKrEvent &) { return true; }

CKrEventHandler const * CKrEventHandler::Cast(CKrObject const * object)
{
    return dynamic_cast<CKrEventHandler const *>(object);
}
