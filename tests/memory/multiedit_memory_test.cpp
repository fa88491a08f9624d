// Several property sets edited as one where memory runs out.
#include <krcore/diagnostics/krtrace.h>
#include <krcore/property/krpropmultiedithelper.h>
#include <krcore/property/krsimultaneouspropertyvisitor.h>

#include "tests/memory/failing_rows.h"

using namespace kr::test;

namespace
{

CString const general(OLESTR("General"));
CString const name(OLESTR("name"));

constexpr unsigned either = throwsMemory | throwsBadAlloc;

CKrPropertySet MakeSet(WCHAR const * value)
{
    CKrPropertySet set;
    set.CreateProperty(name, general)->SetString(value);
    return set;
}

CString ValueOf(CKrPropertySet const & set)
{
    CKrProperty const * const property = set.GetProperty(name, general);
    return property ? property->GetAsString() : CString();
}

class Helper : public CKrPropMultiEditHelper
{
public:
    explicit Helper(std::vector<CKrPropertySet *> const & sets) : CKrPropMultiEditHelper(sets) {}

    /// Value and mark of the main set, the value of the reference, and the number of spare sets.
    std::string State() const
    {
        CKrProperty const * const property = m_mainSet.GetProperty(name, general);
        return Described(ValueOf(m_mainSet), property && property->HasAttribute(OLESTR("Kr.VariedMode")),
                         ValueOf(m_referenceSet), m_spareSets.size());
    }
    void AddSpare(CKrPropertySet * set) { m_spareSets.push_back(set); }
};

/// Prepared of two sets, which then change.
struct Edit
{
    CKrPropertySet first = MakeSet(OLESTR("old")), second = MakeSet(OLESTR("old"));
    Helper helper{{&first, &second}};

    Edit()
    {
        helper.PrepareEdit();
        for (CKrPropertySet * const set : {&first, &second})
            set->GetProperty(name, general)->SetString(OLESTR("new"));
    }
    Edit(Edit const &) = delete;
    Edit & operator=(Edit const &) = delete;
};

std::string StateOf(Edit const & edit)
{
    return edit.helper.State() + Described(ValueOf(edit.first), ValueOf(edit.second));
}

} // namespace

TEST(CKrPropMultiEditHelperMemory, KeepsMainSetAndReferenceTogether)
{
    static CKrPropertySet set = MakeSet(OLESTR("of another helper"));
    static Helper const & other = []() -> Helper const &
    {
        static Helper made({&set});
        made.PrepareEdit();
        made.AddSpare(&set);
        return made;
    }();
    CKrTrace::GetObjectW(true); // which the operations would make
    // clang-format off
    ExpectRows([] { return Edit(); }, [](Edit const & edit) { return StateOf(edit); }, std::vector<Row<Edit>>{
        { "PrepareEdit",             either,         kept, [](Edit & edit) { return edit.helper.PrepareEdit(); } },
        { "=",                       either,         kept, [](Edit & edit) { edit.helper = other; } },
        { "copy",                    either,         kept, [](Edit & edit) { Helper const copy(edit.helper); } },
        { "SetMainPropertySet",      either,         kept, [](Edit & edit) { edit.helper.SetMainPropertySet(set); } },
        { "AddPropertySet",          throwsBadAlloc, kept, [](Edit & edit) { edit.helper.AddPropertySet(&set); } },
        { "AddPropertySet many",     throwsBadAlloc, kept, [](Edit & edit) { edit.helper.AddPropertySet({&set, &set}); } },
    });
    ExpectRows({
        { "of sets",                 throwsBadAlloc, kept, [](Nothing) { CKrPropMultiEditHelper const made({&set}); } },
        { "CKrSimultaneousPropertyVisitor", takesNone, kept, [](Nothing) { CKrSimultaneousPropertyVisitor const made(set); } },
    });
    // clang-format on
}

TEST(CKrPropMultiEditHelperMemory, LeavesWhatWasMarkedOrCarried)
{
    auto const makeVaried = []
    {
        struct Varied : Edit
        {
            Varied()
            {
                helper.SetMainPropertySet(MakeSet(OLESTR("given")));
                helper.GetMainPropertySet().GetProperty(name, general)->SetModified(true);
            }
        };
        return Varied();
    };
    using Varied = decltype(makeVaried());
    // clang-format off
    ExpectRows(makeVaried, [](Varied const & edit) { return StateOf(edit); }, std::vector<Row<Varied>>{
        { "PrepareEdit", either | throwsGuarded,       partly, [](Varied & edit) { return edit.helper.PrepareEdit(); } },
        { "Update",      throwsMemory | throwsGuarded, partly, [](Varied & edit) { return edit.helper.Update(); } },
    });
    // clang-format on
}

TEST(CKrPropMultiEditHelperMemory, KeepsOneSetThatIsMarkedOrCarriedBySteps)
{
    struct Simple
    {
        CKrSimplePropMultiEditHelper helper;
        CKrPropertySet set = MakeSet(OLESTR("new"));

        Simple()
        {
            helper.SetMainPropertySet(MakeSet(OLESTR("given")));
            helper.GetMainPropertySet().GetProperty(name, general)->SetModified(true);
        }
        Simple(Simple const &) = delete;
        Simple & operator=(Simple const &) = delete;
    };
    auto const stateOf = [](Simple const & simple)
    {
        CKrProperty const & main = *simple.helper.GetMainPropertySet().GetProperty(name, general);
        return Described(ValueOf(simple.set), main.HasAttribute(OLESTR("Kr.VariedMode")));
    };
    // clang-format off
    ExpectRows([] { return Simple(); }, stateOf, std::vector<Row<Simple>>{
        { "Prepare", throwsGuarded, kept, [](Simple & simple) { return simple.helper.Prepare(simple.set); } },
        { "Update",  throwsGuarded, kept, [](Simple & simple) { return simple.helper.Update(simple.set); } },
    });
    // clang-format on
}
