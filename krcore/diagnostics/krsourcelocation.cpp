#include <krcore/diagnostics/krsourcelocation.h>

namespace kr::detail
{

CString SourceLocation::ToString() const
{
    CString text;
    text.Format(OLESTR("%s(%d): "), file.ToString(), static_cast<LONG>(line));
    return text;
}

} // namespace kr::detail
