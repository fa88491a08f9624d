#include "layer_mapping.h"

#include "encoding.h"
#include "layer_properties.h"
#include "messages.h"
#include "record.h"

#include <algorithm>
#include <cstdlib>

namespace layeredit
{

namespace
{

enum GroupCode : int
{
    eName = 2,
    eLineType = 6,
    eColor = 62,
    eFlags = 70,
    ePlot = 290,
    eLineWeight = 370,
    eTrueColor = 420,
    eColorBook = 430
};

enum Flag : int
{
    eFrozenFlag = 1,
    eLockedFlag = 4,
    eReferenceFlag = 16
};

constexpr int s_order[] = {eLineWeight, ePlot, eLineType, eColorBook, eTrueColor, eColor, eFlags, eName};
constexpr std::size_t s_widthOf16Bits = 6;
constexpr std::size_t s_widthOf32Bits = 9;
constexpr int s_colorOfNone = 7;
constexpr int s_descriptionText = 1;

CString const s_reference(OLESTR("layeredit.Reference"));
CString const s_neverPlotted(OLESTR("Defpoints"));
CString const s_continuous(OLESTR("CONTINUOUS"));

/// What stands before a group in a record, the nearest first.
std::span<int const> NeighboursOf(int code)
{
    return std::span<int const>(std::ranges::find(s_order, code) + 1, std::end(s_order));
}

bool IsLayerColor(long index) { return index >= 1 && index <= 255; }

/// The lowest number has no other sign as an `int`.
long WithoutSign(int number) { return std::labs(number); }

/// The colour index of a record without its sign, and the sign.
struct IndexAndState
{
    int index = s_colorOfNone;
    bool isOn = true;
};

IndexAndState ReadIndex(Record const & record)
{
    IndexAndState result;
    int number = s_colorOfNone;
    if (int const place = record.Find(eColor); place >= 0)
        ReadNumber(record.GetAt(place).value, number);
    result.isOn = number >= 0;
    result.index = IsLayerColor(WithoutSign(number)) ? std::abs(number) : s_colorOfNone;
    return result;
}

class LayerReader
{
public:
    LayerReader(Drawing const & drawing, LayerRecord const & layer)
        : m_drawing(drawing), m_layer(layer), m_record(layer.bytes)
    {
    }

    bool ReadInto(CKrPropertySet & set) const;

private:
    long LineOf(int place) const { return m_layer.line + 2L * place; }
    bool ReadInteger(int code, int & number) const;
    CString ReadText(int code, CString const & otherwise) const;
    CString ReadDescription() const;
    CString ReadLineType() const;

    Drawing const & m_drawing;
    LayerRecord const & m_layer;
    Record m_record;
};

bool LayerReader::ReadInteger(int code, int & number) const
{
    int const place = m_record.Find(code);
    if (place < 0 || ReadNumber(m_record.GetAt(place).value, number))
        return true;
    CString const shown = Widen(m_record.GetAt(place).value, m_drawing.codePage);
    return Tell(eBadNumber, m_drawing.title, LineOf(place) + 1, code, shown);
}

CString LayerReader::ReadText(int code, CString const & otherwise) const
{
    int const place = m_record.Find(code);
    return place < 0 ? otherwise : DecodeValue(m_record.GetAt(place).value, m_drawing.codePage);
}

CString LayerReader::ReadDescription() const
{
    int const place = m_record.FindExtendedText(descriptionApplication, s_descriptionText);
    return place < 0 ? CString() : DecodeControls(DecodeValue(m_record.GetAt(place).value, m_drawing.codePage));
}

/// Spelt as the table of line types spells it, so that equal ones are equal.
CString LayerReader::ReadLineType() const
{
    CString const name = ReadText(eLineType, s_continuous);
    LineType const * const lineType = FindLineType(m_drawing, name);
    return lineType ? lineType->name : name;
}

bool LayerReader::ReadInto(CKrPropertySet & set) const
{
    CString const name = ReadText(eName, CString());
    if (name.IsEmpty())
        return Tell(eNoName, m_drawing.title, m_layer.line);
    int flags = 0, color = s_colorOfNone, trueColor = -1, plot = 1, lineWeight = defaultLineWeight;
    if (!ReadInteger(eFlags, flags) || !ReadInteger(eColor, color) || !ReadInteger(eTrueColor, trueColor) ||
        !ReadInteger(ePlot, plot) || !ReadInteger(eLineWeight, lineWeight))
        return false;
    if (!IsLayerColor(WithoutSign(color)))
        Tell(eNoteNoColor, m_drawing.title, LineOf(m_record.Find(eColor)) + 1, name, color);

    for (PropertyRow const & row : LayerProperties())
        set.CreateProperty(row.name, row.type, row.category)->SetCtrlType(row.control);
    auto const property = [&set](CString const & wanted) { return set.GetPropertyByPropName(wanted); };
    IndexAndState const state = ReadIndex(m_record);
    bool const isTrueColor = m_record.Find(eTrueColor) >= 0;
    auto const rgb = static_cast<unsigned int>(trueColor);
    property(propertyName)->SetString(name);
    property(propertyColor)
        ->SetColor(isTrueColor ? CKrColor(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF) : CKrColor(state.index));
    property(propertyLineType)->SetString(ReadLineType());
    property(propertyLineWeight)->SetInt(lineWeight < 0 ? defaultLineWeight : lineWeight);
    property(propertyPlot)->SetBool(plot != 0);
    property(propertyOn)->SetBool(state.isOn);
    property(propertyFrozen)->SetBool((flags & eFrozenFlag) != 0);
    property(propertyLocked)->SetBool((flags & eLockedFlag) != 0);
    property(propertyDescription)->SetString(ReadDescription());
    if (flags & eReferenceFlag)
        property(propertyName)->SetAttribute(s_reference, CKrVariant(true));
    if (IsNeverPlotted(set))
        property(propertyPlot)->SetBool(false);
    return true;
}

// One writer a property: takes the value from the property to its groups.

void WriteColor(Drawing const &, Record & record, CKrProperty const & property)
{
    CKrColor const color = property.GetColor();
    bool const isTrueColor = color.GetColorSpace() == CKrColor::eColorSpaceRGB;
    int const index = color.GetAsColorIndex();
    bool const isOn = ReadIndex(record).isOn;
    record.SetNumber(eColor, isOn ? index : -index, NeighboursOf(eColor), s_widthOf16Bits);
    record.Remove(eColorBook);
    if (!isTrueColor)
        record.Remove(eTrueColor);
    else
        record.SetNumber(eTrueColor, color.GetRed() << 16 | color.GetGreen() << 8 | color.GetBlue(),
                         NeighboursOf(eTrueColor), s_widthOf32Bits);
}

void WriteOn(Drawing const &, Record & record, CKrProperty const & property)
{
    int const index = ReadIndex(record).index;
    record.SetNumber(eColor, property.GetBool() ? index : -index, NeighboursOf(eColor), s_widthOf16Bits);
}

void WriteLineType(Drawing const & drawing, Record & record, CKrProperty const & property)
{
    CString const name = property.GetString();
    int const place = record.Find(eLineType);
    if (place >= 0 && DecodeValue(record.GetAt(place).value, drawing.codePage).CompareNoCase(name) == 0)
        return; // the same in another spelling, in a drawing whose tables lack it
    LineType const * const lineType = FindLineType(drawing, name);
    record.SetText(eLineType, lineType ? lineType->nameBytes : Narrow(s_continuous), NeighboursOf(eLineType));
}

void WriteLineWeight(Drawing const &, Record & record, CKrProperty const & property)
{
    record.SetNumber(eLineWeight, property.GetInt(), NeighboursOf(eLineWeight), s_widthOf16Bits);
}

void WritePlot(Drawing const &, Record & record, CKrProperty const & property)
{
    record.SetNumber(ePlot, property.GetBool() ? 1 : 0, NeighboursOf(ePlot), s_widthOf16Bits);
}

void WriteFlag(Record & record, Flag flag, bool isSet)
{
    int flags = 0;
    if (int const place = record.Find(eFlags); place >= 0)
        ReadNumber(record.GetAt(place).value, flags);
    record.SetNumber(eFlags, isSet ? flags | flag : flags & ~flag, NeighboursOf(eFlags), s_widthOf16Bits);
}

void WriteFrozen(Drawing const &, Record & record, CKrProperty const & property)
{
    WriteFlag(record, eFrozenFlag, property.GetBool());
}

void WriteLocked(Drawing const &, Record & record, CKrProperty const & property)
{
    WriteFlag(record, eLockedFlag, property.GetBool());
}

void WriteDescription(Drawing const & drawing, Record & record, CKrProperty const & property)
{
    std::string const * const registered = FindApplication(drawing, descriptionApplication);
    record.SetExtendedText(registered ? *registered : descriptionApplication, s_descriptionText,
                           EncodeDescription(drawing, property.GetString()));
}

struct Writer
{
    CString const & property;
    void (*write)(Drawing const &, Record &, CKrProperty const &);
};

// clang-format off
Writer const s_writers[] = {
    { propertyColor,       &WriteColor       },
    { propertyLineType,    &WriteLineType    },
    { propertyLineWeight,  &WriteLineWeight  },
    { propertyPlot,        &WritePlot        },
    { propertyOn,          &WriteOn          },
    { propertyFrozen,      &WriteFrozen      },
    { propertyLocked,      &WriteLocked      },
    { propertyDescription, &WriteDescription },
};
// clang-format on

} // namespace

bool ReadLayer(Drawing const & drawing, LayerRecord const & layer, CKrPropertySet & set)
{
    return LayerReader(drawing, layer).ReadInto(set);
}

std::string WriteLayer(Drawing const & drawing, LayerRecord const & layer, CKrPropertySet const & set)
{
    Record record(layer.bytes);
    for (Writer const & writer : s_writers)
        if (CKrProperty const & property = *set.GetPropertyByPropName(writer.property); property.IsModified())
            writer.write(drawing, record, property);
    return record.GetBytes();
}

bool IsOfReference(CKrPropertySet const & set)
{
    return set.GetPropertyByPropName(propertyName)->HasAttribute(s_reference);
}

bool IsNeverPlotted(CKrPropertySet const & set) { return NameOf(set).CompareNoCase(s_neverPlotted) == 0; }

CString NameOf(CKrPropertySet const & set) { return set.GetPropertyByPropName(propertyName)->GetString(); }

LineType const * FindLineType(Drawing const & drawing, CString const & name)
{
    for (LineType const & lineType : drawing.lineTypes)
        if (lineType.name.CompareNoCase(name) == 0)
            return &lineType;
    return nullptr;
}

std::string const * FindApplication(Drawing const & drawing, std::string_view name)
{
    for (std::string const & registered : drawing.applications.names)
        if (IsSameWord(registered, name))
            return &registered;
    return nullptr;
}

std::string EncodeDescription(Drawing const & drawing, CString const & text)
{
    return EncodeValue(EncodeControls(text), drawing.codePage);
}

} // namespace layeredit
