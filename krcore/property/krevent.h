// What is to happen when something occurs at a control.
#pragma once

#include <krcore/export.h>
#include <krcore/foundation/krobject.h>
#include <krcore/values/krattrlist.h>

/// Describes an event of a control: a command to run, or a context menu to open. The library stores and copies these records and
/// dispatches nothing; clients read them and act.
///
///     CKrEvent event;
///     event.SetGlobalName(OLESTR("EDITLAYER"));
///     event.AddCmdArg(OLESTR("name"), CKrVariant(OLESTR("wall")));     -> true
///     event.GetActionText()            -> "GlobalName = EDITLAYER\r\nLocalName = \r\nGruppe = "
class KRCORE_API CKrEvent
{
public:
    /// What triggers the event, and the kind of command: numbers that clients give a meaning; any number may be cast.
    enum EventType : int
    {
        eEventNone = 0
    };
    enum CommandType : int
    {
        eCommandNone = 0
    };
    enum ActionType : int
    {
        eActionCommand = 0,       ///< run the command of global name, local name and group
        eActionContextMenu = 1,   ///< open the context menu
        eActionContextMenuRef = 2 ///< open the menu that the reference names
    };

    CKrEvent();
    CKrEvent(CKrEvent const & other);
    CKrEvent & operator=(CKrEvent const & other);
    virtual ~CKrEvent();

    EventType GetEventType() const noexcept { return m_eventType; }
    void SetEventType(EventType type) noexcept { m_eventType = type; }
    ActionType GetActionType() const noexcept { return m_actionType; }
    void SetActionType(ActionType type) noexcept { m_actionType = type; }
    CommandType GetCommandType() const noexcept { return m_commandType; }
    void SetCommandType(CommandType type) noexcept { m_commandType = type; }
    CString const & GetContextMenuRef() const noexcept { return m_contextMenuRef; }
    void SetContextMenuRef(CString const & reference) { m_contextMenuRef = reference; }
    CString const & GetContextMenu() const noexcept { return m_contextMenu; }
    void SetContextMenu(CString const & menu) { m_contextMenu = menu; }
    CString const & GetGlobalName() const noexcept { return m_globalName; }
    void SetGlobalName(CString const & name) { m_globalName = name; }
    CString const & GetLocalName() const noexcept { return m_localName; }
    void SetLocalName(CString const & name) { m_localName = name; }
    CString const & GetCommandGroup() const noexcept { return m_commandGroup; }
    void SetCommandGroup(CString const & group) { m_commandGroup = group; }
    bool IsTransparent() const noexcept { return m_transparent; }
    void SetTransparent(bool transparent) noexcept { m_transparent = transparent; }

    /// The text of the action: three labelled lines for a command (the same labels in every language), the menu, or the reference;
    /// empty for any other number.
    CString GetActionText() const;

    /// Adds or replaces an argument; false, and nothing added, for an empty name or an invalid value.
    bool AddCmdArg(CString const & name, CKrVariant const & value);
    /// The argument's value; an invalid one if it is missing.
    CKrVariant GetCmdArg(CString const & name) const;
    bool HasCmdArg(CString const & name) const;
    void RemoveCmdArg(CString const & name);
    CKrAttrList const & GetCmdArgList() const noexcept { return m_arguments; }

private:
    EventType m_eventType = eEventNone;
    ActionType m_actionType = eActionCommand;
    CommandType m_commandType = eCommandNone;
    CString m_contextMenuRef;
    CString m_contextMenu;
    CString m_globalName;
    CString m_localName;
    CString m_commandGroup;
    bool m_transparent = false;
    CKrAttrList m_arguments;
};

/// Base of the clients' handlers.
class KRCORE_API CKrEventHandler : public CKrObject
{
public:
    CKrEventHandler();
    CKrEventHandler(CKrEventHandler const & other);
    CKrEventHandler & operator=(CKrEventHandler const & other);
    ~CKrEventHandler() override;

    CKrClass * IsA() const override;
    /// Whether the event was handled: true here, whatever the event.
    virtual bool HandleEvent(CKrEvent & event);

    static CKrClass * Cls();
    /// The object if it is a handler by its built-in type, otherwise null.
    static CKrEventHandler const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;
};
