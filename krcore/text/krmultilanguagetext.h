// One text in several languages.
#pragma once

#include <krcore/export.h>
#include <krcore/foundation/krownermap.h>
#include <krplatform/text/cstring.h>

#include <map>

/// A text for each language code, and a rule for a language that is missing or whose text is empty: the answer then comes from a reference
/// text outside, or else from the entry of a reference language. Case plays no part in language codes; they are kept in upper
/// case.
///
///     CKrMultiLanguageText text;
///     text.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
///     text.SetRefLanguage(OLESTR("DE"));
///     text.m_bUseRefTextForMissingLanguage = true;
///     text.GetLanguageText(OLESTR("fr"))                  -> "Wand"
///
/// The rule is off unless the two switches are set. An object belongs to one thread at a time.
class KRCORE_API CKrMultiLanguageText
{
public:
    /// The switches are taken from the statics of the same names, here and in the next two.
    CKrMultiLanguageText();
    /// With a reference text, which stays the caller's and must outlive the object.
    explicit CKrMultiLanguageText(CString & refText);
    /// Assigned from the prototype of that id; empty where there is none.
    explicit CKrMultiLanguageText(int id);
    /// Copies share the reference text. Deliberate: the switches are not copied; a copy takes them from the statics, a target keeps its own.
    CKrMultiLanguageText(CKrMultiLanguageText const & other);
    CKrMultiLanguageText & operator=(CKrMultiLanguageText const & other);
    virtual ~CKrMultiLanguageText();

    /// The text of a language, open to change; a missing one gets an empty entry. Valid until the entry is removed.
    CString & GetText(CString const & language);
    /// The answer by the rule.
    CString GetLanguageText(CString const & language) const;
    bool HasLanguageText(CString const & language) const;
    void AddLanguageText(CString const & language, CString const & text);
    /// Changes an entry; adds none.
    void SetLanguageText(CString const & language, CString const & text);
    /// Empties an entry; it stays.
    void ClearLanguageText(CString const & language);
    void RemoveLanguageText(CString const & language);
    /// Gives every entry this text.
    void SetText(CString const & text);
    void ClearText();
    CString const & GetRefLanguage() const noexcept { return m_refLanguage; }
    void SetRefLanguage(CString const & language);
    /// Points at the caller's text, which must outlive the object.
    void SetRefText(CString & refText) noexcept { m_refText = &refText; }
    /// The entries by upper-case language code.
    std::map<CString, CString> const & GetRawMap() const noexcept { return m_texts; }

    bool m_bUseRefTextForMissingLanguage;
    bool m_bUseRefTextForEmpty;

    /// Prototypes by id; filled by clients.
    static kr::ownermap<int, CKrMultiLanguageText> s_mapPrototypes;
    /// For clients; the library does not read it.
    static bool s_bInitFromDefaultText;
    static bool s_bUseRefTextForMissingLanguage;
    static bool s_bUseRefTextForEmpty;

private:
    CString const * Find(CString const & upperLanguage) const;

    std::map<CString, CString> m_texts;
    CString * m_refText = nullptr;
    CString m_refLanguage;
};
