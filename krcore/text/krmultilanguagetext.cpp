#include <krcore/text/krmultilanguagetext.h>

namespace
{

CString KeyOf(CString language) { return language.MakeUpper(); }

} // namespace

kr::ownermap<int, CKrMultiLanguageText> CKrMultiLanguageText::s_mapPrototypes;
bool CKrMultiLanguageText::s_bInitFromDefaultText = false;
bool CKrMultiLanguageText::s_bUseRefTextForMissingLanguage = false;
bool CKrMultiLanguageText::s_bUseRefTextForEmpty = false;

CKrMultiLanguageText::CKrMultiLanguageText()
    : m_bUseRefTextForMissingLanguage(s_bUseRefTextForMissingLanguage), m_bUseRefTextForEmpty(s_bUseRefTextForEmpty)
{
}

CKrMultiLanguageText::CKrMultiLanguageText(CString & refText) : CKrMultiLanguageText() { m_refText = &refText; }

CKrMultiLanguageText::CKrMultiLanguageText(int id) : CKrMultiLanguageText()
{
    if (CKrMultiLanguageText const * const prototype = s_mapPrototypes.GetObjectW(id))
        *this = *prototype;
}

CKrMultiLanguageText::CKrMultiLanguageText(CKrMultiLanguageText const & other) : CKrMultiLanguageText()
{
    *this = other;
}

CKrMultiLanguageText & CKrMultiLanguageText::operator=(CKrMultiLanguageText const & other)
{
    std::map<CString, CString> texts(other.m_texts); // nothing changes when memory runs out
    m_texts.swap(texts);
    m_refText = other.m_refText;
    m_refLanguage = other.m_refLanguage;
    return *this;
}

CKrMultiLanguageText::~CKrMultiLanguageText() = default;

CString const * CKrMultiLanguageText::Find(CString const & upperLanguage) const
{
    auto const place = m_texts.find(upperLanguage);
    return place == m_texts.end() ? nullptr : &place->second;
}

CString & CKrMultiLanguageText::GetText(CString const & language) { return m_texts[KeyOf(language)]; }

CString CKrMultiLanguageText::GetLanguageText(CString const & language) const
{
    CString const * const entry = Find(KeyOf(language));
    bool const askReference = entry ? m_bUseRefTextForEmpty && entry->IsEmpty() : m_bUseRefTextForMissingLanguage;
    if (!askReference)
        return entry ? *entry : CString();
    if (m_refText)
        return *m_refText;
    CString const * const reference = m_refLanguage.IsEmpty() ? nullptr : Find(m_refLanguage);
    return reference ? *reference : CString();
}

bool CKrMultiLanguageText::HasLanguageText(CString const & language) const { return Find(KeyOf(language)) != nullptr; }

void CKrMultiLanguageText::AddLanguageText(CString const & language, CString const & text) { GetText(language) = text; }

void CKrMultiLanguageText::SetLanguageText(CString const & language, CString const & text)
{
    if (auto const place = m_texts.find(KeyOf(language)); place != m_texts.end())
        place->second = text;
}

void CKrMultiLanguageText::ClearLanguageText(CString const & language) { SetLanguageText(language, CString()); }

void CKrMultiLanguageText::RemoveLanguageText(CString const & language) { m_texts.erase(KeyOf(language)); }

void CKrMultiLanguageText::SetText(CString const & text)
{
    for (auto & [language, entry] : m_texts)
        entry = text;
}

void CKrMultiLanguageText::ClearText() { SetText(CString()); }

void CKrMultiLanguageText::SetRefLanguage(CString const & language) { m_refLanguage = KeyOf(language); }
