#include "layer_list.h"

#include "encoding.h"

#include <krcore/property/krvisitor.h>

#include <algorithm>

namespace layeredit
{

namespace
{

struct WidthRange
{
    char32_t first;
    char32_t last;
    int width;
};

// clang-format off
constexpr WidthRange s_widths[] = {             // the blocks of scripts; everything else is one column wide
    { 0x0300,  0x036F,  0 },                    // combining marks
    { 0x1100,  0x115F,  2 },                    // Hangul letters
    { 0x200B,  0x200F,  0 },                    // marks without a width
    { 0x2E80,  0xA4CF,  2 },                    // ideographs, Kana, Yi
    { 0xAC00,  0xD7A3,  2 },                    // Hangul syllables
    { 0xF900,  0xFAFF,  2 },                    // compatibility ideographs
    { 0xFE30,  0xFE6F,  2 },                    // vertical and small forms
    { 0xFF00,  0xFF60,  2 },                    // full-width forms
    { 0xFFE0,  0xFFE6,  2 },
    { 0x1F300, 0x1FAFF, 2 },                    // pictographs
    { 0x20000, 0x3FFFD, 2 },                    // further ideographs
};
// clang-format on

int WidthOfCharacter(char32_t character)
{
    for (WidthRange const & range : s_widths)
        if (character >= range.first && character <= range.last)
            return range.width;
    return 1;
}

/// Collects a text for each property of a set, in their order.
class CellCollector : public kr::visitor<CKrProperty>
{
public:
    explicit CellCollector(Style style) : m_style(style) {}

    bool Match(CKrProperty * node) override { return node->GetLevel() == 2; }
    bool Action(CKrProperty * node) override
    {
        cells.push_back(OnOneLine(TextOfValue(*node, m_style)));
        return true;
    }

    std::vector<CString> cells;

private:
    Style m_style;
};

/// Writes the properties of a set as the members of an object.
class JsonWriter : public kr::visitor<CKrProperty>
{
public:
    explicit JsonWriter(std::ostream & stream) : m_stream(stream) {}

    bool Match(CKrProperty * node) override { return node->GetLevel() == 2; }
    bool Action(CKrProperty * node) override
    {
        m_stream << (m_isFirst ? "" : ", ") << "\"" << node->GetName() << "\": ";
        if (node->IsBoolValue())
            m_stream << (node->GetBool() ? "true" : "false");
        else
            WriteText(TextOfValue(*node, Style::Programs));
        m_isFirst = false;
        return true;
    }

private:
    void WriteText(CString const & text)
    {
        CString escaped;
        for (WCHAR const unit : text.View())
        {
            if (unit < OLESTR(' ') || unit == 0x7F)
                escaped.AppendFormat(OLESTR("\\u%04x"), static_cast<unsigned int>(unit));
            else if (unit == OLESTR('"') || unit == OLESTR('\\'))
                escaped.AppendFormat(OLESTR("\\%c"), unit);
            else
                escaped += unit;
        }
        m_stream << "\"" << escaped << "\"";
    }

    std::ostream & m_stream;
    bool m_isFirst = true;
};

std::vector<CString> CellsOf(CKrPropertySet & layer, Style style)
{
    CellCollector collector(style);
    layer.Visit(collector);
    return collector.cells;
}

std::vector<CString> Titles()
{
    std::vector<CString> titles;
    for (PropertyRow const & row : LayerProperties())
        titles.push_back(row.name);
    return titles;
}

void WriteLine(std::ostream & stream, std::vector<CString> const & cells)
{
    for (std::size_t column = 0; column < cells.size(); ++column)
        stream << (column ? "\t" : "") << cells[column];
    stream << "\n";
}

/// Two blanks on the background of the colour, and one behind them.
std::string SwatchOf(CKrColor const & color)
{
    unsigned long const rgb = color.GetAsColorRef();
    CString swatch;
    swatch.Format(OLESTR("\x1B[48;2;%lu;%lu;%lum  \x1B[0m "), rgb & 0xFF, rgb >> 8 & 0xFF, rgb >> 16 & 0xFF);
    return Narrow(swatch);
}

} // namespace

CString ValueOnOneLine(CKrProperty const & property)
{
    CString const value = OnOneLine(TextOfValue(property, Style::People));
    return value.IsEmpty() ? CString(OLESTR("\"\"")) : value;
}

int WidthOf(CString const & text)
{
    int width = 0;
    for (int place = 0; place < text.GetLength(); ++place)
    {
        char32_t character = text[place];
        if ((character & 0xFC00) == 0xD800 && (text[place + 1] & 0xFC00) == 0xDC00)
            character = 0x10000 + ((character & 0x3FF) << 10) + (text[++place] & 0x3FFu);
        width += WidthOfCharacter(character);
    }
    return width;
}

LayerList::LayerList(std::ostream & stream, Format format, bool hasColors)
    : m_stream(stream), m_format(format), m_hasColors(hasColors)
{
    if (m_format == Format::Tsv)
        WriteLine(m_stream, Titles());
    else if (m_format == Format::Json)
        m_stream << "[";
}

void LayerList::Add(std::vector<CKrPropertySet *> const & layers)
{
    if (m_format == Format::Table)
        return AddTable(layers);
    for (CKrPropertySet * const layer : layers)
    {
        if (m_format == Format::Tsv)
            WriteLine(m_stream, CellsOf(*layer, Style::Programs));
        else
        {
            m_stream << (m_isEmpty ? "\n  {" : ",\n  {");
            JsonWriter writer(m_stream);
            layer->Visit(writer);
            m_stream << "}";
        }
        m_isEmpty = false;
    }
}

void LayerList::Finish()
{
    if (m_format == Format::Json)
        m_stream << (m_isEmpty ? "]\n" : "\n]\n");
    m_stream.flush();
}

void LayerList::AddTable(std::vector<CKrPropertySet *> const & layers)
{
    std::vector<CString> const titles = Titles();
    std::vector<int> widths;
    for (CString const & title : titles)
        widths.push_back(WidthOf(title));
    for (CKrPropertySet * const layer : layers)
    {
        std::vector<CString> const cells = CellsOf(*layer, Style::People);
        for (std::size_t column = 0; column < cells.size(); ++column)
            widths[column] = std::max(widths[column], WidthOf(cells[column]));
    }
    auto const write = [&](std::vector<CString> const & cells, CKrPropertySet const * layer)
    {
        std::string line;
        for (std::size_t column = 0; column < cells.size(); ++column)
        {
            if (m_hasColors && titles[column] == propertyColor)
                line += layer ? SwatchOf(layer->GetPropertyByPropName(propertyColor)->GetColor()) : "   ";
            line += Narrow(cells[column]);
            line.append(static_cast<std::size_t>(widths[column] - WidthOf(cells[column]) + 2), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        m_stream << line << "\n";
    };
    write(titles, nullptr);
    for (CKrPropertySet * const layer : layers)
        write(CellsOf(*layer, Style::People), layer);
}

} // namespace layeredit
