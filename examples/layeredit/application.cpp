#include "application.h"

#include "layer_mapping.h"
#include "messages.h"
#include "record.h"

#include <algorithm>

namespace layeredit
{

namespace
{

std::string Hexadecimal(std::uint64_t number)
{
    CString text;
    text.Format(OLESTR("%llX"), static_cast<unsigned long long>(number));
    return std::string(CStringA(text).GetString());
}

/// The group with another value, everything else as it was.
Patch WithValue(Stretch const & stretch, std::string_view value)
{
    Record group(stretch.bytes);
    group.SetText(group.GetAt(0).code, value, {});
    return {stretch, group.GetBytes()};
}

/// A record in the style of the line that ends the table.
class RecordText
{
public:
    explicit RecordText(std::string_view model)
        : m_lineEnd(model.substr(0, model.find('\n')).ends_with('\r') ? "\r\n" : "\n"),
          m_hasBlanks(model.starts_with(' '))
    {
    }

    RecordText & Add(std::string const & code, std::string_view value)
    {
        m_text += InStyleOf(m_hasBlanks ? "   " : "", code) + m_lineEnd;
        m_text += std::string(value) + m_lineEnd;
        return *this;
    }
    std::string const & Get() const { return m_text; }

private:
    std::string m_lineEnd;
    bool m_hasBlanks;
    std::string m_text;
};

/// The least handle above all that the drawing says or has; 0 where part of it could not be read and it says none.
std::uint64_t FreeHandle(Drawing const & drawing)
{
    std::uint64_t next = 0;
    if (drawing.handleSeed.IsThere())
        ReadNumber(Record(drawing.handleSeed.bytes).GetAt(0).value, next, 16);
    if (next == 0 && !drawing.isSound)
        return 0;
    return std::max(next, drawing.greatestHandle + 1);
}

} // namespace

bool RegisterApplication(Drawing const & drawing, std::vector<Patch> & patches)
{
    ApplicationTable const & table = drawing.applications;
    if (!table.end.IsThere())
        return Tell(eNoApplicationTable, drawing.title);
    RecordText record(table.end.bytes);
    record.Add("0", "APPID");
    bool const hasHandles = drawing.version >= eVersionR13;
    if (hasHandles)
    {
        std::uint64_t const handle = FreeHandle(drawing);
        if (handle == 0 || table.handle.empty())
            return Tell(eNoHandle, drawing.title);
        record.Add("5", Hexadecimal(handle)).Add("330", table.handle);
        record.Add("100", "AcDbSymbolTableRecord").Add("100", "AcDbRegAppTableRecord");
        if (drawing.handleSeed.IsThere())
            patches.push_back(WithValue(drawing.handleSeed, Hexadecimal(handle + 1)));
    }
    record.Add("2", descriptionApplication);
    int count = 0;
    std::string oldCount;
    if (table.count.IsThere())
    {
        oldCount = Record(table.count.bytes).GetAt(0).value;
        ReadNumber(oldCount, count);
        patches.push_back(WithValue(table.count, InStyleOf(oldCount, std::to_string(count + 1))));
    }
    record.Add("70", InStyleOf(oldCount.starts_with(' ') ? "      " : "", "0"));
    patches.push_back({{table.end.offset, {}}, record.Get()});
    return true;
}

} // namespace layeredit
