#include "grid_text.h"

#include "layer_list.h"

#include <krcore/property/krpropertyutils.h>

#include <algorithm>

namespace layeredit
{

namespace
{

class GridWriter : public kr::visitor<CKrProperty>
{
public:
    GridWriter(std::ostream & stream, std::vector<CKrPropertySet *> const & layers) : m_stream(stream), m_layers(layers)
    {
    }

    bool Match(CKrProperty * node) override { return !node->IsRoot(); }
    bool Action(CKrProperty * node) override
    {
        if (node->GetLevel() == 1)
            m_stream << "[" << node->GetDescription() << "]\n";
        else
            WriteProperty(*node);
        return true;
    }

private:
    struct ValueCount
    {
        CString value;
        int count;
    };

    void WriteProperty(CKrProperty const & property)
    {
        bool const isVaried = property.HasAttribute(OLESTR("Kr.VariedMode"));
        CString line;
        line.Format(OLESTR("  %-12s%-12s"), property.GetName(), CKrAssCtrl::CtrlTypeToString(property.GetCtrlType()));
        line += isVaried ? CString(OLESTR("*varied*")) : ValueOnOneLine(property);
        m_stream << line.TrimRight() << "\n";
        if (isVaried)
            for (ValueCount const & row : CountValues(property))
                m_stream << CString(OLESTR(' '), 28) << row.value << " (" << row.count << ")\n";
    }

    /// In the order of the layers that have them first.
    std::vector<ValueCount> CountValues(CKrProperty const & property) const
    {
        std::vector<ValueCount> counts;
        for (CKrPropertySet const * const layer : m_layers)
        {
            CString const text = ValueOnOneLine(*layer->GetPropertyByPropName(property.GetName()));
            auto const found = std::ranges::find(counts, text, &ValueCount::value);
            if (found == counts.end())
                counts.push_back({text, 1});
            else
                ++found->count;
        }
        return counts;
    }

    std::ostream & m_stream;
    std::vector<CKrPropertySet *> const & m_layers;
};

} // namespace

void WriteGrid(std::ostream & stream, std::vector<CKrPropertySet *> const & layers)
{
    CKrPropMultiEditHelper helper(layers);
    helper.PrepareEdit();
    GridWriter writer(stream, layers);
    helper.GetMainPropertySet().Visit(writer);
}

} // namespace layeredit
