#include <krplatform/codepage/codepage.h>
#include <krplatform/text/cstring.h>

#include <ostream>

std::ostream & operator<<(std::ostream & stream, CString const & text)
{
    CStringA utf8;
    if (!text.IsEmpty())
    {
        int const size = WideCharToMultiByte(CP_UTF8, 0, text, text.GetLength(), nullptr, 0, nullptr, nullptr);
        char * const bytes = utf8.GetBufferSetLength(size);
        WideCharToMultiByte(CP_UTF8, 0, text, text.GetLength(), bytes, size, nullptr, nullptr);
    }
    return stream << utf8;
}

std::ostream & operator<<(std::ostream & stream, CStringA const & text) { return stream << text.View(); }
