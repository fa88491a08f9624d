#include <krcore/property/krevent.h>

#include "tests/support/memory_failure.h"
#include "tests/support/virtual_slot.h"

#include <krcore/foundation/krclass.h>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

using kr::test::VirtualSlotOf;

namespace
{

/// Every field away from its default.
CKrEvent MakeEvent()
{
    CKrEvent event;
    event.SetEventType(static_cast<CKrEvent::EventType>(7));
    event.SetActionType(CKrEvent::eActionContextMenu);
    event.SetCommandType(static_cast<CKrEvent::CommandType>(-3));
    event.SetContextMenuRef(OLESTR("reference"));
    event.SetContextMenu(OLESTR("menu"));
    event.SetGlobalName(OLESTR("EDITLAYER"));
    event.SetLocalName(OLESTR("LAYERBEARB"));
    event.SetCommandGroup(OLESTR("PLAN"));
    event.SetTransparent(true);
    event.AddCmdArg(OLESTR("name"), CKrVariant(OLESTR("wall")));
    return event;
}

void ExpectMadeEvent(CKrEvent const & event)
{
    EXPECT_EQ(event.GetEventType(), 7);
    EXPECT_EQ(event.GetActionType(), CKrEvent::eActionContextMenu);
    EXPECT_EQ(event.GetCommandType(), -3);
    EXPECT_EQ(event.GetContextMenuRef(), OLESTR("reference"));
    EXPECT_EQ(event.GetContextMenu(), OLESTR("menu"));
    EXPECT_EQ(event.GetGlobalName(), OLESTR("EDITLAYER"));
    EXPECT_EQ(event.GetLocalName(), OLESTR("LAYERBEARB"));
    EXPECT_EQ(event.GetCommandGroup(), OLESTR("PLAN"));
    EXPECT_TRUE(event.IsTransparent());
    EXPECT_EQ(event.GetCmdArgList().size(), 1);
    EXPECT_EQ(event.GetCmdArg(OLESTR("name")).GetAsString(), OLESTR("wall"));
}

class Handler : public CKrEventHandler
{
public:
    bool HandleEvent(CKrEvent & event) override { return event.IsTransparent(); }
};

} // namespace

TEST(CKrEvent, StartsAsACommandWithoutNames)
{
    CKrEvent const event;
    EXPECT_EQ(event.GetEventType(), 0);
    EXPECT_EQ(event.GetActionType(), CKrEvent::eActionCommand);
    EXPECT_EQ(event.GetCommandType(), 0);
    EXPECT_EQ(event.GetContextMenuRef(), OLESTR(""));
    EXPECT_EQ(event.GetContextMenu(), OLESTR(""));
    EXPECT_EQ(event.GetGlobalName(), OLESTR(""));
    EXPECT_EQ(event.GetLocalName(), OLESTR(""));
    EXPECT_EQ(event.GetCommandGroup(), OLESTR(""));
    EXPECT_FALSE(event.IsTransparent());
    EXPECT_EQ(event.GetCmdArgList().size(), 0);
}

TEST(CKrEvent, KeepsWhatItIsTold) { ExpectMadeEvent(MakeEvent()); }

TEST(CKrEvent, NumbersItsActions)
{
    EXPECT_EQ(static_cast<int>(CKrEvent::eActionCommand), 0);
    EXPECT_EQ(static_cast<int>(CKrEvent::eActionContextMenu), 1);
    EXPECT_EQ(static_cast<int>(CKrEvent::eActionContextMenuRef), 2);
    EXPECT_EQ(sizeof(CKrEvent::EventType), 4u);
    EXPECT_EQ(sizeof(CKrEvent::ActionType), 4u);
    EXPECT_EQ(sizeof(CKrEvent::CommandType), 4u);
}

TEST(CKrEvent, CopiesEveryField)
{
    CKrEvent const event = MakeEvent();
    CKrEvent const copy(event);
    ExpectMadeEvent(copy);
    CKrEvent assigned;
    assigned.AddCmdArg(OLESTR("old"), CKrVariant(1));
    assigned = event;
    ExpectMadeEvent(assigned);
}

TEST(CKrEvent, IsUnchangedByAssigningItToItself)
{
    CKrEvent event = MakeEvent();
    CKrEvent const & itself = event;
    event = itself;
    ExpectMadeEvent(event);
}

TEST(CKrEvent, StaysAsItWasWhereMemoryRunsOut)
{
    CKrEvent event = MakeEvent();
    CKrEvent other;
    for (WCHAR const * const name : {OLESTR("a"), OLESTR("b"), OLESTR("c")})
        other.AddCmdArg(name, CKrVariant(OLESTR("text")));
    EXPECT_GT(kr::test::FailUntilItPasses([&] { event = other; }, [&] { ExpectMadeEvent(event); }), 2u);
    EXPECT_EQ(event.GetGlobalName(), OLESTR(""));
    EXPECT_EQ(event.GetCmdArgList().size(), 3);

    CString const name(OLESTR("more"));
    CKrVariant const value(OLESTR("text"));
    auto const checkUnchanged = [&] { EXPECT_EQ(event.GetCmdArgList().size(), 3); };
    EXPECT_GT(kr::test::FailUntilItPasses([&] { event.AddCmdArg(name, value); }, checkUnchanged), 0u);
    EXPECT_EQ(event.GetCmdArgList().size(), 4);
}

TEST(CKrEvent, HasArgumentsOfItsOwnInEachCopy)
{
    CKrEvent event = MakeEvent();
    CKrEvent copy(event);
    copy.AddCmdArg(OLESTR("name"), CKrVariant(OLESTR("door")));
    copy.AddCmdArg(OLESTR("more"), CKrVariant(1));
    ExpectMadeEvent(event);
    event.RemoveCmdArg(OLESTR("name"));
    EXPECT_EQ(copy.GetCmdArg(OLESTR("name")).GetAsString(), OLESTR("door"));
    EXPECT_EQ(copy.GetCmdArgList().size(), 2);
}

TEST(CKrEvent, TellsTheTextOfItsAction)
{
    // clang-format off
    struct { int type; WCHAR const * text; } const rows[] = {
        { 0,  OLESTR("GlobalName = EDITLAYER\r\nLocalName = LAYERBEARB\r\nGruppe = PLAN") },   // a German label in every language
        { 1,  OLESTR("menu")      },
        { 2,  OLESTR("reference") },
        { 3,  OLESTR("")          },
        { -1, OLESTR("")          },
    };
    // clang-format on
    CKrEvent event = MakeEvent();
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.type);
        event.SetActionType(static_cast<CKrEvent::ActionType>(row.type));
        EXPECT_EQ(event.GetActionType(), row.type);
        EXPECT_EQ(event.GetActionText(), row.text);
    }
}

TEST(CKrEvent, TellsTheLabelsWithoutNamesToo)
{
    EXPECT_EQ(CKrEvent().GetActionText(), OLESTR("GlobalName = \r\nLocalName = \r\nGruppe = "));
}

TEST(CKrEvent, AddsArgumentsWithoutADescription)
{
    CKrEvent event;
    EXPECT_TRUE(event.AddCmdArg(OLESTR("name"), CKrVariant(3)));
    EXPECT_TRUE(event.HasCmdArg(OLESTR("name")));
    EXPECT_FALSE(event.HasCmdArg(OLESTR("Name"))); // case counts
    EXPECT_EQ(event.GetCmdArg(OLESTR("name")).GetType(), CKrVariant::eLong);
    EXPECT_EQ(event.GetCmdArgList().GetDescription(OLESTR("name")), OLESTR(""));
    EXPECT_EQ(event.GetCmdArgList().GetAttr(OLESTR("name")).GetName(), OLESTR("name"));
}

TEST(CKrEvent, ReplacesAnArgumentOfTheSameName)
{
    CKrEvent event;
    event.AddCmdArg(OLESTR("name"), CKrVariant(3));
    EXPECT_TRUE(event.AddCmdArg(OLESTR("name"), CKrVariant(OLESTR("text"))));
    EXPECT_EQ(event.GetCmdArgList().size(), 1);
    EXPECT_EQ(event.GetCmdArg(OLESTR("name")).GetAsString(), OLESTR("text"));
}

TEST(CKrEvent, RefusesArgumentsWithoutNameOrValue)
{
    CKrEvent event;
    EXPECT_FALSE(event.AddCmdArg(OLESTR(""), CKrVariant(3)));
    EXPECT_FALSE(event.AddCmdArg(OLESTR("name"), CKrVariant()));
    EXPECT_FALSE(event.AddCmdArg(OLESTR(""), CKrVariant()));
    EXPECT_EQ(event.GetCmdArgList().size(), 0);

    event.AddCmdArg(OLESTR("name"), CKrVariant(3));
    EXPECT_FALSE(event.AddCmdArg(OLESTR("name"), CKrVariant())); // the value that is there stays
    EXPECT_EQ(event.GetCmdArg(OLESTR("name")).GetAsString(), OLESTR("3"));
}

TEST(CKrEvent, GivesAnInvalidValueForAMissingArgument)
{
    CKrEvent const event = MakeEvent();
    EXPECT_EQ(event.GetCmdArg(OLESTR("other")).GetType(), CKrVariant::eInvalid);
    EXPECT_EQ(event.GetCmdArg(OLESTR("")).GetType(), CKrVariant::eInvalid);
    EXPECT_FALSE(event.HasCmdArg(OLESTR("other")));
    EXPECT_EQ(event.GetCmdArgList().size(), 1);
}

TEST(CKrEvent, RemovesArguments)
{
    CKrEvent event = MakeEvent();
    event.RemoveCmdArg(OLESTR("other")); // there is none
    EXPECT_EQ(event.GetCmdArgList().size(), 1);
    event.RemoveCmdArg(OLESTR("name"));
    EXPECT_FALSE(event.HasCmdArg(OLESTR("name")));
    EXPECT_EQ(event.GetCmdArgList().size(), 0);
}

TEST(CKrEventHandler, ReportsEveryEventAsHandled)
{
    CKrEventHandler handler;
    CKrEvent event;
    EXPECT_TRUE(handler.HandleEvent(event));
    event = MakeEvent();
    EXPECT_TRUE(handler.HandleEvent(event));
    ExpectMadeEvent(event);
}

TEST(CKrEventHandler, IsOverriddenByClients)
{
    Handler handler;
    CKrEventHandler & base = handler;
    CKrEvent event;
    EXPECT_FALSE(base.HandleEvent(event));
    event.SetTransparent(true);
    EXPECT_TRUE(base.HandleEvent(event));
}

TEST(CKrEventHandler, HasADescriptorOfItsOwn)
{
    CKrEventHandler const handler;
    ASSERT_NE(CKrEventHandler::Cls(), nullptr);
    EXPECT_EQ(CKrEventHandler::Cls(), CKrEventHandler::s_pCls.get());
    EXPECT_EQ(handler.IsA(), CKrEventHandler::Cls());
    EXPECT_EQ(handler.ClsName(), OLESTR("CKrEventHandler"));
    EXPECT_EQ(Handler().ClsName(), OLESTR("CKrEventHandler"));
}

TEST(CKrEventHandler, IsCastByItsBuiltInType)
{
    Handler const handler;
    std::unique_ptr<CKrObject> const other(handler.Clone());
    EXPECT_EQ(CKrEventHandler::Cast(&handler), &handler);
    EXPECT_EQ(CKrEventHandler::Cast(other.get()), nullptr); // the inherited clone is a bare object
    EXPECT_EQ(CKrEventHandler::Cast(nullptr), nullptr);
}

TEST(CKrEventHandler, HasNothingToCopy)
{
    CKrEventHandler const handler;
    CKrEventHandler copy(handler);
    EXPECT_EQ(&(copy = handler), &copy);
    EXPECT_EQ(copy.IsA(), CKrEventHandler::Cls());
}

TEST(CKrEventHandler, HandlesInTheSlotBehindThoseOfItsBase)
{
    EXPECT_EQ(VirtualSlotOf(&CKrEventHandler::HandleEvent), VirtualSlotOf(&CKrObject::Clone) + 1);
}
