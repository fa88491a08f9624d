// Finds in a drawing, group by group, what an editor of layers needs.
#include "drawing.h"
#include "drawing_file.h"
#include "encoding.h"
#include "messages.h"

#include <krplatform/codepage/codepage.h>
#include <krplatform/text/numbers.h>

#include <algorithm>

namespace layeredit
{

namespace
{

/// What a file begins with that is no drawing, though it may look like one.
struct Beginning
{
    std::string_view bytes;
    MessageId message;
};

// clang-format off
constexpr Beginning s_beginnings[] = {
    { "AutoCAD Binary DXF", eBinaryDrawing },
    { "AC10",               eDwgDrawing    },
    { "AC1.",               eDwgDrawing    },
    { "AC2.",               eDwgDrawing    },
    { "\xFF\xFE",           eUtf16Text     },
    { "\xFE\xFF",           eUtf16Text     },
};
// clang-format on

constexpr std::string_view s_byteOrderMark = "\xEF\xBB\xBF";
constexpr UINT s_pageOfNoWord = 1252;
constexpr int s_flagOfReference = 16;

enum class Section
{
    None, ///< before the first, or between two
    Header,
    Tables,
    Other
};

Section SectionOf(std::string_view name)
{
    return name == "HEADER" ? Section::Header : name == "TABLES" ? Section::Tables : Section::Other;
}

class Reader
{
public:
    Reader(Drawing & drawing, GroupStream & stream) : m_drawing(drawing), m_stream(stream) {}

    bool Read();

private:
    bool ReadFirst(Group & group);
    bool StopAt(Taken taken, Group const & group);
    bool OnZero(Group const & group);
    bool OnValue(Group const & group);
    void OnHeader(Group const & group);
    void OnTableHead(Group const & group);
    bool OnRecord(Group const & group);
    bool IsInTable(std::string_view name) const { return m_section == Section::Tables && m_table == name; }
    Stretch Here(Group const & group) const { return {m_stream.GetOffset(), std::string(group.bytes)}; }

    Drawing & m_drawing;
    GroupStream & m_stream;
    Section m_section = Section::None;
    std::string m_table;      ///< "LAYER", ...; empty between tables
    std::string m_record;     ///< what the last group 0 was
    std::string m_variable;   ///< of the header
    bool m_hasLayers = false; ///< the layer table is over
};

bool Reader::Read()
{
    Group group;
    if (!ReadFirst(group))
        return false;
    for (;;)
    {
        if (group.code == 0 && Trimmed(group.value) == "EOF")
            break;
        if (!(group.code == 0 ? OnZero(group) : OnValue(group)))
            return false;
        if (Taken const taken = m_stream.Next(group); taken != Taken::Group)
        {
            m_drawing.isSound = false;
            return StopAt(taken, group);
        }
    }
    return !IsInTable("LAYER") || Tell(eOpenTable, m_drawing.title, m_stream.GetLine(), OLESTR("EOF"));
}

bool Reader::ReadFirst(Group & group)
{
    Taken taken = m_stream.Next(group);
    while (taken == Taken::Group && group.code == 999)
        taken = m_stream.Next(group);
    if (taken == Taken::Group && group.code == 0 && Trimmed(group.value) == "SECTION")
        return true;
    std::string_view const shown = taken == Taken::Group ? group.value : group.codeLine;
    return Tell(eNoDrawing, m_drawing.title, m_stream.GetLine(), Excerpt(shown));
}

bool Reader::StopAt(Taken taken, Group const & group)
{
    long const line = m_stream.GetLine();
    if (taken == Taken::BadCode)
    {
        Tell(m_hasLayers ? eNoteDamagedBehind : eBadCode, m_drawing.title, line, Excerpt(group.codeLine));
        return m_hasLayers;
    }
    Tell(m_hasLayers ? eNoteCutOffBehind : eCutOff, m_drawing.title, line);
    return m_hasLayers;
}

bool Reader::OnZero(Group const & group)
{
    std::string_view const word = Trimmed(group.value);
    if (m_section == Section::Other && word != "ENDSEC" && word != "SECTION")
        return true; // most of a drawing
    m_record = word;
    bool const endsTable = m_record == "ENDTAB" || m_record == "TABLE" || m_record == "ENDSEC";
    if (IsInTable("LAYER") && endsTable)
    {
        if (m_record != "ENDTAB")
            return Tell(eOpenTable, m_drawing.title, m_stream.GetLine(), Excerpt(m_record));
        m_hasLayers = true;
    }
    if (IsInTable("APPID") && m_record == "ENDTAB")
        m_drawing.applications.end = Here(group);
    if (endsTable)
        m_table.clear();
    if (m_record == "SECTION" || m_record == "ENDSEC")
        m_section = Section::None;
    if (m_record != m_table)
        return true;
    if (IsInTable("LAYER"))
        m_drawing.layers.push_back({{m_stream.GetOffset() + group.bytes.size(), {}}, m_stream.GetLine() + 2});
    else if (IsInTable("LTYPE"))
        m_drawing.lineTypes.emplace_back();
    else if (IsInTable("APPID"))
        m_drawing.applications.names.emplace_back();
    return true;
}

bool Reader::OnValue(Group const & group)
{
    std::uint64_t handle = 0;
    bool const isHandle = (group.code == 5 || group.code == 105) && m_section != Section::Header; // that is the seed
    if (isHandle && ReadNumber(group.value, handle, 16))
        m_drawing.greatestHandle = std::max(m_drawing.greatestHandle, handle);
    if (m_section == Section::Other)
        return true;
    if (m_section == Section::None && m_record == "SECTION" && group.code == 2)
        m_section = SectionOf(Trimmed(group.value));
    else if (m_section == Section::Header)
        OnHeader(group);
    else if (m_section == Section::Tables && m_record == "TABLE")
        OnTableHead(group);
    else if (m_section == Section::Tables && m_record == m_table)
        return OnRecord(group);
    return true;
}

void Reader::OnHeader(Group const & group)
{
    if (group.code == 9)
        m_variable = Trimmed(group.value);
    else if (m_variable == "$ACADVER" && group.code == 1)
        m_drawing.versionWord = Trimmed(group.value);
    else if (m_variable == "$DWGCODEPAGE" && group.code == 3)
        m_drawing.pageWord = Trimmed(group.value);
    else if (m_variable == "$CLAYER" && group.code == 8)
        m_drawing.currentLayerBytes = group.value;
    else if (m_variable == "$TDUPDATE" && group.code == 40)
        m_drawing.saved = wcstod(Widen(group.value, s_pageOfNoWord), nullptr);
    else if (m_variable == "$HANDSEED" && group.code == 5)
        m_drawing.handleSeed = Here(group);
}

void Reader::OnTableHead(Group const & group)
{
    if (group.code == 2 && m_table.empty())
        m_table = Trimmed(group.value);
    else if (m_table == "APPID" && group.code == 5)
        m_drawing.applications.handle = Trimmed(group.value);
    else if (m_table == "APPID" && group.code == 70)
        m_drawing.applications.count = Here(group);
}

bool Reader::OnRecord(Group const & group)
{
    if (m_table == "LAYER")
    {
        if (group.isCut)
            return Tell(eBadCode, m_drawing.title, m_stream.GetLine() + 1, Excerpt(group.value));
        m_drawing.layers.back().bytes += group.bytes;
    }
    else if (m_table == "LTYPE" && group.code == 2)
        m_drawing.lineTypes.back().nameBytes = group.value;
    else if (int flags = 0; m_table == "LTYPE" && group.code == 70 && ReadNumber(group.value, flags))
        m_drawing.lineTypes.back().isOfReference = (flags & s_flagOfReference) != 0;
    else if (m_table == "APPID" && group.code == 2)
        m_drawing.applications.names.back() = Trimmed(group.value);
    return true;
}

void Settle(Drawing & drawing, UINT codePage)
{
    if (!drawing.versionWord.empty())
        drawing.version = VersionOfWord(drawing.versionWord);
    UINT const ofWord = CodePageOfWord(drawing.pageWord);
    bool const isUtf8 = drawing.hasByteOrderMark || drawing.version >= eVersionR2007;
    drawing.codePage = isUtf8 ? CP_UTF8 : ofWord ? ofWord : codePage ? codePage : s_pageOfNoWord;
    if (drawing.hasByteOrderMark)
        Tell(eNoteByteOrderMark, drawing.title);
    if (codePage && (isUtf8 || ofWord))
        Tell(eNoteEncodingUnused, drawing.title, PageName(drawing));
    if (!isUtf8 && !ofWord && !drawing.pageWord.empty())
        Tell(eNoteUnknownPage, drawing.title, Excerpt(drawing.pageWord), drawing.codePage);
    for (LineType & lineType : drawing.lineTypes)
        lineType.name = DecodeValue(lineType.nameBytes, drawing.codePage);
    drawing.currentLayer = DecodeValue(drawing.currentLayerBytes, drawing.codePage);
}

/// What stands before the first group is no drawing, or is a byte order mark, which is passed over.
bool ReadBeginning(Drawing & drawing, std::istream & stream)
{
    char bytes[20] = {};
    stream.read(bytes, sizeof bytes);
    std::string_view const first(bytes, static_cast<std::size_t>(stream.gcount()));
    stream.clear();
    if (first.empty())
        return Tell(eEmptyFile, drawing.title);
    for (Beginning const & row : s_beginnings)
        if (first.starts_with(row.bytes))
            return Tell(row.message, drawing.title);
    drawing.hasByteOrderMark = first.starts_with(s_byteOrderMark);
    stream.seekg(drawing.hasByteOrderMark ? static_cast<std::streamoff>(s_byteOrderMark.size()) : 0);
    return true;
}

} // namespace

bool ReadDrawing(Drawing & drawing, UINT codePage, Progress & progress)
{
    DrawingFile file;
    if (!file.Open(drawing.fileName, drawing.title) || !ReadBeginning(drawing, file.GetStream()))
        return false;
    drawing.size = file.GetSize();
    std::uint64_t const offset = drawing.hasByteOrderMark ? s_byteOrderMark.size() : 0;
    GroupStream stream(file.GetStream(), offset, drawing.size, progress);
    bool const isRead = Reader(drawing, stream).Read();
    if (stream.HasFailed())
        return TellSystemFailure(eCannotRead, drawing.title);
    if (isRead)
        Settle(drawing, codePage);
    return isRead;
}

} // namespace layeredit
