// The layer reader of layeredit: an encoding, whether the rest stands in a whole drawing, a description, and the rest.
#include "fuzz/fuzz_target.h"

#include "examples/layeredit/drawing.h"
#include "examples/layeredit/drawing_file.h"
#include "examples/layeredit/encoding.h"
#include "examples/layeredit/layer_mapping.h"
#include "examples/layeredit/layer_properties.h"
#include "examples/layeredit/progress.h"
#include "examples/layeredit/record.h"

#include <krcore/diagnostics/krerrorstack.h>
#include <krplatform/codepage/codepage.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

namespace kr::fuzz
{

namespace
{

using namespace layeredit;
namespace fs = std::filesystem;

/// A file of the process, written anew for every drawing.
class ScratchFile
{
public:
    ScratchFile()
        : m_path(fs::temp_directory_path() / ("fuzz-layer-reader-" + std::to_string(std::random_device()()) + ".dxf"))
    {
        Write({});
        KR_LAW(MakeFileName(CString(m_path.c_str()), name));
    }
    ~ScratchFile()
    {
        std::error_code error;
        fs::remove(m_path, error);
    }
    ScratchFile(ScratchFile const &) = delete;
    ScratchFile & operator=(ScratchFile const &) = delete;

    void Write(std::string_view bytes) const
    {
        std::ofstream(m_path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    CKrFileName name;

private:
    fs::path m_path;
};

ScratchFile const & Scratch()
{
    static ScratchFile const file;
    return file;
}

/// Reads the bytes as a drawing; an error is told exactly where there is none.
bool Read(std::string_view bytes, UINT codePage, Drawing & drawing)
{
    Scratch().Write(bytes);
    drawing.fileName = Scratch().name;
    drawing.title = OLESTR("drawing");
    Progress progress(drawing.title, nullptr);
    CKrPushErrorStack const errors;
    bool const isRead = ReadDrawing(drawing, codePage, progress);
    CKrErrorStack & stack = *CKrErrorStack::GetObjectW(true);
    KR_LAW(isRead || !stack.IsEmpty());
    return isRead;
}

/// The stream gives the groups of the whole text, and says where they stand.
void CheckGroups(std::string_view bytes)
{
    std::istringstream stream{std::string(bytes)};
    Progress progress(CString(), nullptr);
    GroupStream groups(stream, 0, bytes.size(), progress);
    std::string_view rest = bytes;
    for (;;)
    {
        Group expected, group;
        std::size_t const offset = bytes.size() - rest.size();
        long const line = 1 + std::ranges::count(bytes.substr(0, offset), '\n');
        Taken const taken = TakeGroup(rest, expected);
        KR_LAW(groups.Next(group) == taken);
        KR_LAW(groups.GetOffset() == offset);
        if (taken != Taken::Group)
            return;
        KR_LAW(groups.GetLine() == line && !group.isCut);
        KR_LAW(group.code == expected.code && group.value == expected.value && group.bytes == expected.bytes);
    }
}

void CheckInPlace(std::string_view bytes, Stretch const & stretch)
{
    KR_LAW(!stretch.IsThere() ||
           bytes.substr(static_cast<std::size_t>(stretch.offset), stretch.bytes.size()) == stretch.bytes);
}

/// Other ends of lines, and remarks in front, say the same.
void CheckOtherSpellings(std::string_view bytes, UINT codePage, bool isRead, Drawing const & drawing)
{
    bool const startsPlainly = bytes.starts_with(' ') || bytes.starts_with('0');
    if (!startsPlainly || bytes.find('\r') != std::string_view::npos)
        return;
    std::string other = "999\r\nremark\r\n";
    for (char const byte : bytes)
        other += byte == '\n' ? std::string("\r\n") : std::string(1, byte);
    Drawing respelt;
    KR_LAW(Read(other, codePage, respelt) == isRead);
    KR_LAW(!isRead ||
           (respelt.versionWord == drawing.versionWord && respelt.codePage == drawing.codePage &&
            respelt.currentLayer == drawing.currentLayer && respelt.isSound == drawing.isSound &&
            respelt.greatestHandle == drawing.greatestHandle && respelt.layers.size() == drawing.layers.size() &&
            respelt.lineTypes.size() == drawing.lineTypes.size() &&
            respelt.applications.names == drawing.applications.names));
}

/// Values for all properties that can be set, from a few bits; each is changed or not.
void ChangeProperties(CKrPropertySet & set, unsigned bits, CString const & description)
{
    auto const change = [&set](CString const & name, bool isWanted, auto store)
    {
        CKrProperty & property = *set.GetPropertyByPropName(name);
        if (!isWanted)
            return;
        store(property);
        property.SetModified(true);
    };
    bool const isOn = (bits & 1) != 0;
    auto const storeFlag = [isOn](CKrProperty & property) { property.SetBool(isOn); };
    change(propertyColor, bits & 2,
           [bits](CKrProperty & property) {
               property.SetColor(bits & 4 ? CKrColor(bits, bits / 2, bits / 3)
                                          : CKrColor(static_cast<int>(bits % 255 + 1)));
           });
    change(propertyLineWeight, bits & 8,
           [bits](CKrProperty & property) { property.SetInt(bits & 4 ? defaultLineWeight : static_cast<int>(bits)); });
    change(propertyPlot, (bits & 16) && !IsNeverPlotted(set), storeFlag);
    change(propertyOn, bits & 32, storeFlag);
    change(propertyFrozen, bits & 64, storeFlag);
    change(propertyLocked, bits & 128, storeFlag);
    change(propertyDescription, bits & 1, [&](CKrProperty & property) { property.SetString(description); });
}

/// What stands in lists, which are somebody else's.
std::string ListsOf(std::string_view bytes)
{
    std::string lists;
    bool isInList = false;
    for (Group group; TakeGroup(bytes, group) == Taken::Group;)
    {
        if (group.code == 102)
            isInList = Trimmed(group.value).starts_with('{');
        if (group.code == 102 || isInList)
            lists += group.bytes;
    }
    return lists;
}

/// A record without changes is written as it stands, and a changed one reads as it was changed.
void CheckLayer(Drawing const & drawing, LayerRecord const & layer, unsigned bits, CString const & description)
{
    KR_LAW(Record(layer.bytes).GetBytes() == layer.bytes);
    CKrPropertySet set;
    if (!ReadLayer(drawing, layer, set))
        return;
    KR_LAW(WriteLayer(drawing, layer, set) == layer.bytes);
    ChangeProperties(set, bits, description);
    LayerRecord changed = layer;
    changed.bytes = WriteLayer(drawing, layer, set);
    KR_LAW(ListsOf(changed.bytes) == ListsOf(layer.bytes));
    CKrPropertySet again;
    KR_LAW(ReadLayer(drawing, changed, again));
    KR_LAW(set.IsEqual(again) && again.IsEqual(set));
}

void CheckDrawing(std::string_view bytes, UINT codePage, unsigned bits, CString const & description)
{
    Drawing drawing;
    bool const isRead = Read(bytes, codePage, drawing);
    CheckOtherSpellings(bytes, codePage, isRead, drawing);
    if (!isRead)
        return;
    for (Stretch const & stretch : {drawing.handleSeed, drawing.applications.count, drawing.applications.end})
        CheckInPlace(bytes, stretch);
    CKrPushErrorStack const errors; // of damaged layers
    std::uint64_t end = 0;
    for (LayerRecord const & layer : drawing.layers)
    {
        CheckInPlace(bytes, layer);
        KR_LAW(layer.offset >= end);
        end = layer.offset + layer.bytes.size();
        CheckLayer(drawing, layer, bits, description);
    }
}

void CheckTexts(CString const & text, UINT codePage)
{
    KR_LAW(DecodeControls(EncodeControls(text)) == text);
    KR_LAW(DecodeValue(EncodeValue(text, codePage), codePage) == text);
    KR_LAW(OnOneLine(OnOneLine(text)) == OnOneLine(text));
}

/// A drawing with this in its layer table.
std::string InDrawing(std::string_view layers)
{
    return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1018\n  9\n$DWGCODEPAGE\n  3\nANSI_932\n  0\nENDSEC\n"
           "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n" +
           std::string(layers) + (layers.ends_with('\n') ? "" : "\n") + "  0\nENDTAB\n  0\nENDSEC\n  0\nEOF\n";
}

} // namespace

void CheckLaws(FuzzInput input)
{
    constexpr UINT pages[] = {0, 1252, 932, CP_UTF8, 949, 1251};
    UINT const codePage = pages[input.Below(static_cast<unsigned>(std::size(pages)))];
    bool const isInDrawing = input.Flag();
    unsigned const bits = input.Byte();
    CString const description = TextOf(input.TextLine()).GetString(); // without zeros
    std::string_view const rest = input.Rest();
    CheckTexts(description, codePage == 0 ? 1252 : codePage);
    CheckGroups(rest);
    CheckDrawing(isInDrawing ? InDrawing(rest) : std::string(rest), codePage, bits, description);
}

} // namespace kr::fuzz
