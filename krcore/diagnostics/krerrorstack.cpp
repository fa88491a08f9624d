#include <krcore/diagnostics/krerrorstack.h>

#include <krplatform/system/messagebox.h>

std::unique_ptr<CKrErrorStack> CKrErrorStack::s_pCKrErrorStackStatic;

CKrErrorStack::CKrErrorStack() : m_stacks(1), m_levels(1, CKrError::eError) {}

CKrErrorStack::CKrErrorStack(CKrErrorStack const & other) = default;

CKrErrorStack & CKrErrorStack::operator=(CKrErrorStack const & other)
{
    CKrErrorStack copy(other); // all that can fail: the lists never part from their levels
    m_stacks.swap(copy.m_stacks);
    m_levels.swap(copy.m_levels);
    return *this;
}

CKrErrorStack::~CKrErrorStack() { Clear(); }

CKrErrorStack * CKrErrorStack::GetObjectW(bool create)
{
    if (!s_pCKrErrorStackStatic && create)
        s_pCKrErrorStackStatic = std::make_unique<CKrErrorStack>();
    return s_pCKrErrorStackStatic.get();
}

void CKrErrorStack::SetObject(CKrErrorStack * stack, bool overwrite)
{
    if (s_pCKrErrorStackStatic && !overwrite)
        return;
    if (s_pCKrErrorStackStatic.get() != stack)
        s_pCKrErrorStackStatic.reset(stack);
}

bool CKrErrorStack::PushError(CKrError const & error)
{
    if (error.GetLevel() < m_levels.back())
        return false;
    m_stacks.back().push_back(error);
    return true;
}

bool CKrErrorStack::PopError()
{
    if (IsEmpty())
        return false;
    m_stacks.back().pop_back();
    return true;
}

CKrError * CKrErrorStack::GetLastError() { return IsEmpty() ? nullptr : &m_stacks.back().back(); }

CKrError * CKrErrorStack::GetErrorAt(unsigned int index)
{
    return index < GetErrorCount() ? &m_stacks.back()[index] : nullptr;
}

unsigned int CKrErrorStack::GetErrorCount() const { return static_cast<unsigned int>(m_stacks.back().size()); }

bool CKrErrorStack::IsEmpty() const { return m_stacks.back().empty(); }

unsigned int CKrErrorStack::GetStackCount() const { return static_cast<unsigned int>(m_stacks.size()); }

bool CKrErrorStack::PushNewStack(CKrError::ELevel level)
{
    m_stacks.emplace_back();
    try
    {
        m_levels.push_back(level);
    }
    catch (...)
    {
        m_stacks.pop_back();
        throw;
    }
    return true;
}

bool CKrErrorStack::PopStack()
{
    if (m_stacks.size() == 1)
        return false;
    m_stacks.pop_back();
    m_levels.pop_back();
    return true;
}

bool CKrErrorStack::ClearStack()
{
    m_stacks.back().clear();
    return true;
}

bool CKrErrorStack::Clear()
{
    while (PopStack()) {}
    return true;
}

namespace
{

template <class Source>
bool FillFrom(Source const & source, std::vector<CKrError> & errors, bool lastOnly)
{
    for (auto error = errors.rbegin(); error != errors.rend(); ++error)
    {
        error->FillMessage(source);
        if (lastOnly)
            break;
    }
    return true;
}

} // namespace

bool CKrErrorStack::FillMessages(CKrMessagePool const & pool, bool lastOnly)
{
    return FillFrom(pool, m_stacks.back(), lastOnly);
}

bool CKrErrorStack::FillMessages(HINSTANCE module, bool lastOnly)
{
    return FillFrom(module, m_stacks.back(), lastOnly);
}

CString CKrErrorStack::GetFormattedMessage(bool lastOnly, bool second, bool location) const
{
    CString result;
    std::vector<CKrError> const & errors = m_stacks.back();
    for (auto error = errors.rbegin(); error != errors.rend(); ++error)
    {
        CString const text = error->GetFormattedMessage(second, location);
        if (!text.IsEmpty() && !result.IsEmpty())
            result += OLESTR('\n');
        result += text;
        if (lastOnly)
            break;
    }
    return result;
}

int CKrErrorStack::ReportErrors(bool lastOnly, bool second, bool location, unsigned int style) const
{
    CString const text = GetFormattedMessage(lastOnly, second, location);
    if (text.IsEmpty())
        return 0;
    if ((style & MB_ICONMASK) == 0)
        style |= MB_ICONSTOP;
    return AfxMessageBox(text, style, 0);
}

CString CKrErrorStack::GetTraceMessage() const
{
    return OLESTR("\n*** ErrorStackBegin ***\n") + GetFormattedMessage(false, true, true) +
           OLESTR("\n*** ErrorStackEnd ***\n\n");
}

CKrPushErrorStack::CKrPushErrorStack(CKrError::ELevel level) { CKrErrorStack::GetObjectW(true)->PushNewStack(level); }

CKrPushErrorStack::CKrPushErrorStack(CKrPushErrorStack const &) {}

CKrPushErrorStack & CKrPushErrorStack::operator=(CKrPushErrorStack const &) { return *this; }

CKrPushErrorStack::~CKrPushErrorStack() { CKrErrorStack::GetObjectW(true)->PopStack(); }
