#include <krcore/text/krmultilanguagetext.h>

#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

namespace
{

CString const none;

// Puts the statics back when a test ends.
struct KeptStatics
{
    ~KeptStatics()
    {
        CKrMultiLanguageText::s_bUseRefTextForMissingLanguage = false;
        CKrMultiLanguageText::s_bUseRefTextForEmpty = false;
        CKrMultiLanguageText::s_mapPrototypes.Clear();
    }
};

} // namespace

TEST(CKrMultiLanguageText, KeepsLanguagesInUpperCase)
{
    CKrMultiLanguageText text;
    EXPECT_FALSE(text.HasLanguageText(OLESTR("de")));
    text.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
    EXPECT_TRUE(text.HasLanguageText(OLESTR("DE")));
    EXPECT_EQ(text.GetLanguageText(OLESTR("De")), OLESTR("Wand"));
    EXPECT_EQ(text.GetRawMap().begin()->first, OLESTR("DE"));
    text.AddLanguageText(OLESTR("dE"), OLESTR("Mauer"));
    EXPECT_EQ(text.GetRawMap().size(), 1u);
    EXPECT_EQ(text.GetLanguageText(OLESTR("de")), OLESTR("Mauer"));
    text.SetRefLanguage(OLESTR("en"));
    EXPECT_EQ(text.GetRefLanguage(), OLESTR("EN"));
}

TEST(CKrMultiLanguageText, ChangesAndRemovesEntries)
{
    CKrMultiLanguageText text;
    text.SetText(OLESTR("all"));
    text.SetLanguageText(OLESTR("de"), OLESTR("Wand"));
    text.ClearLanguageText(OLESTR("de"));
    text.RemoveLanguageText(OLESTR("de"));
    EXPECT_TRUE(text.GetRawMap().empty());
    EXPECT_EQ(text.GetText(OLESTR("de")), none);
    EXPECT_TRUE(text.HasLanguageText(OLESTR("de"))) << "asking for the text to change adds it";
    text.GetText(OLESTR("DE")) = OLESTR("Wand");
    text.AddLanguageText(OLESTR("en"), OLESTR("wall"));
    text.SetLanguageText(OLESTR("EN"), OLESTR("partition"));
    EXPECT_EQ(text.GetLanguageText(OLESTR("de")), OLESTR("Wand"));
    EXPECT_EQ(text.GetLanguageText(OLESTR("en")), OLESTR("partition"));
    text.ClearLanguageText(OLESTR("en"));
    EXPECT_TRUE(text.HasLanguageText(OLESTR("en")));
    EXPECT_EQ(text.GetLanguageText(OLESTR("en")), none);
    text.SetText(OLESTR("all"));
    EXPECT_EQ(text.GetLanguageText(OLESTR("de")), OLESTR("all"));
    EXPECT_EQ(text.GetLanguageText(OLESTR("en")), OLESTR("all"));
    text.ClearText();
    EXPECT_EQ(text.GetLanguageText(OLESTR("de")), none);
    EXPECT_EQ(text.GetRawMap().size(), 2u);
    text.RemoveLanguageText(OLESTR("De"));
    EXPECT_FALSE(text.HasLanguageText(OLESTR("de")));
}

TEST(CKrMultiLanguageText, AnswersFromReferencesWhereItsSwitchesAllow)
{
    // de has a text, fr an empty one, it none; the reference language is de or one without entry.
    // clang-format off
    struct { bool forMissing, forEmpty, outside; WCHAR const * reference; WCHAR const * german; WCHAR const * french; WCHAR const * italian; } const rows[] = {
        { false, false, true,  OLESTR("de"), OLESTR("Wand"), OLESTR(""),     OLESTR("")     },
        { true,  false, true,  OLESTR("de"), OLESTR("Wand"), OLESTR(""),     OLESTR("wall") }, // the outside text goes first
        { false, true,  true,  OLESTR("de"), OLESTR("Wand"), OLESTR("wall"), OLESTR("")     },
        { true,  true,  false, OLESTR("de"), OLESTR("Wand"), OLESTR("Wand"), OLESTR("Wand") },
        { true,  true,  false, OLESTR("EN"), OLESTR("Wand"), OLESTR(""),     OLESTR("")     },
        { true,  true,  false, OLESTR("fr"), OLESTR("Wand"), OLESTR(""),     OLESTR("")     }, // an empty one is the answer
        { true,  true,  false, OLESTR(""),   OLESTR("Wand"), OLESTR(""),     OLESTR("")     },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(&row - rows);
        CString outside = OLESTR("wall");
        CKrMultiLanguageText text;
        text.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
        text.AddLanguageText(OLESTR("fr"), none);
        text.m_bUseRefTextForMissingLanguage = row.forMissing;
        text.m_bUseRefTextForEmpty = row.forEmpty;
        text.SetRefLanguage(row.reference);
        if (row.outside)
            text.SetRefText(outside);
        EXPECT_EQ(text.GetLanguageText(OLESTR("de")), row.german);
        EXPECT_EQ(text.GetLanguageText(OLESTR("fr")), row.french);
        EXPECT_EQ(text.GetLanguageText(OLESTR("it")), row.italian);
        EXPECT_EQ(text.GetRawMap().size(), 2u) << "asking adds nothing";
    }
}

TEST(CKrMultiLanguageText, AnswersWithAnEmptyOutsideTextToo)
{
    CString outside;
    CKrMultiLanguageText text(outside);
    text.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
    text.SetRefLanguage(OLESTR("de"));
    text.m_bUseRefTextForMissingLanguage = true;
    EXPECT_EQ(text.GetLanguageText(OLESTR("it")), none);
    outside = OLESTR("wall");
    EXPECT_EQ(text.GetLanguageText(OLESTR("it")), OLESTR("wall"));
}

TEST(CKrMultiLanguageText, HasNoReferenceLanguageWhereItsCodeIsEmpty)
{
    CKrMultiLanguageText text;
    text.AddLanguageText(none, OLESTR("nowhere"));
    text.m_bUseRefTextForMissingLanguage = true;
    EXPECT_EQ(text.GetLanguageText(OLESTR("it")), none) << "though there is an entry for the empty code";
    EXPECT_EQ(text.GetLanguageText(none), OLESTR("nowhere"));
}

TEST(CKrMultiLanguageText, SharesItsReferenceTextWithACopyButNotItsSwitches)
{
    CString outside = OLESTR("wall");
    CKrMultiLanguageText text(outside);
    text.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
    text.SetRefLanguage(OLESTR("de"));
    text.m_bUseRefTextForMissingLanguage = true;
    CKrMultiLanguageText copy(text);
    EXPECT_FALSE(copy.m_bUseRefTextForMissingLanguage);
    CKrMultiLanguageText assigned;
    assigned.m_bUseRefTextForMissingLanguage = true;
    assigned.m_bUseRefTextForEmpty = true;
    assigned = text;
    EXPECT_TRUE(assigned.m_bUseRefTextForEmpty);
    copy.m_bUseRefTextForMissingLanguage = true;
    outside = OLESTR("mur");
    for (CKrMultiLanguageText const * const one : {&copy, &assigned})
    {
        EXPECT_EQ(one->GetLanguageText(OLESTR("it")), OLESTR("mur"));
        EXPECT_EQ(one->GetLanguageText(OLESTR("de")), OLESTR("Wand"));
        EXPECT_EQ(one->GetRefLanguage(), OLESTR("DE"));
    }
    copy.AddLanguageText(OLESTR("de"), OLESTR("Mauer"));
    EXPECT_EQ(text.GetLanguageText(OLESTR("de")), OLESTR("Wand"));
}

TEST(CKrMultiLanguageText, TakesItsSwitchesFromTheStaticsWhenItIsMade)
{
    KeptStatics const kept;
    CString outside;
    CKrMultiLanguageText const before;
    CKrMultiLanguageText::s_bUseRefTextForEmpty = true;
    CKrMultiLanguageText const empty;
    CKrMultiLanguageText::s_bUseRefTextForMissingLanguage = true;
    CKrMultiLanguageText::s_bUseRefTextForEmpty = false;
    CKrMultiLanguageText const missing(outside);
    CKrMultiLanguageText const copy(before);
    EXPECT_FALSE(before.m_bUseRefTextForEmpty || before.m_bUseRefTextForMissingLanguage);
    EXPECT_TRUE(empty.m_bUseRefTextForEmpty && !empty.m_bUseRefTextForMissingLanguage);
    EXPECT_TRUE(missing.m_bUseRefTextForMissingLanguage && !missing.m_bUseRefTextForEmpty);
    EXPECT_TRUE(copy.m_bUseRefTextForMissingLanguage) << "a copy too";
}

TEST(CKrMultiLanguageText, IsMadeFromAPrototype)
{
    KeptStatics const kept;
    auto * const prototype = new CKrMultiLanguageText;
    prototype->AddLanguageText(OLESTR("de"), OLESTR("Wand"));
    CKrMultiLanguageText::s_mapPrototypes.AddObject(7, prototype);
    CKrMultiLanguageText const made(7);
    EXPECT_EQ(made.GetLanguageText(OLESTR("de")), OLESTR("Wand"));
    EXPECT_TRUE(CKrMultiLanguageText(8).GetRawMap().empty());
    CKrMultiLanguageText::s_mapPrototypes.AddObject(9, nullptr);
    EXPECT_TRUE(CKrMultiLanguageText(9).GetRawMap().empty());
}

TEST(CKrMultiLanguageText, StaysAsItWasWhenMemoryRunsOut)
{
    KeptStatics const kept;
    using kr::test::FailUntilItPasses;
    CString outside = OLESTR("wall");
    CKrMultiLanguageText text;
    text.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
    text.SetRefLanguage(OLESTR("de"));
    auto const isUnchanged = [&]
    {
        EXPECT_EQ(text.GetRawMap(), (std::map<CString, CString>{{OLESTR("DE"), OLESTR("Wand")}}));
        EXPECT_EQ(text.GetRefLanguage(), OLESTR("DE"));
        text.m_bUseRefTextForMissingLanguage = true;
        EXPECT_EQ(text.GetLanguageText(OLESTR("EN")), OLESTR("Wand")) << "no text outside is pointed at";
    };
    CKrMultiLanguageText source(outside);
    source.AddLanguageText(OLESTR("de"), OLESTR("Mauer"));
    source.AddLanguageText(OLESTR("fr"), OLESTR("mur"));
    source.SetRefLanguage(OLESTR("fr"));
    CString const lower = OLESTR("fr");
    CString const mur = OLESTR("mur");
    EXPECT_EQ(FailUntilItPasses([&] { text.AddLanguageText(lower, mur); }, isUnchanged), 2u) << "the key and the entry";
    text.RemoveLanguageText(lower);
    EXPECT_EQ(FailUntilItPasses([&] { text.GetText(lower); }, isUnchanged), 2u);
    text.RemoveLanguageText(lower);
    EXPECT_EQ(FailUntilItPasses([&] { text.SetLanguageText(lower, mur); }, isUnchanged), 1u);
    EXPECT_EQ(FailUntilItPasses([&] { text.SetRefLanguage(lower); }, isUnchanged), 1u);
    text.SetRefLanguage(OLESTR("de"));
    EXPECT_EQ(FailUntilItPasses([&] { text = source; }, isUnchanged), 2u) << "an entry for each language";
    EXPECT_EQ(text.GetRawMap().size(), 2u);
    EXPECT_EQ(FailUntilItPasses([&] { CKrMultiLanguageText const copy(source); }, [] {}), 2u);
    EXPECT_EQ(FailUntilItPasses([&] { source.GetLanguageText(lower); }, [] {}), 1u);
}
