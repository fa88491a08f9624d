#include <krplatform/base/cexception.h>
#include <krplatform/text/joinedtext.h>
#include <krplatform/text/textblock.h>
#include <krplatform/text/textunits.h>

namespace kr::detail
{

CString JoinedText(std::span<TextView const> pieces)
{
    std::size_t length = 0;
    for (TextView const piece : pieces)
        length += piece.size();
    if (length == 0)
        return {};
    if (length > largestTextCapacity)
        AfxThrowMemoryException();
    CString text;
    WCHAR * end = text.GetBuffer(static_cast<int>(length));
    for (TextView const piece : pieces)
    {
        CopyUnits(end, piece.data(), piece.size());
        end += piece.size();
    }
    text.ReleaseBufferSetLength(static_cast<int>(length));
    return text;
}

} // namespace kr::detail
