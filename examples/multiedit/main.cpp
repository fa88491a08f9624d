// Three layers of a drawing are edited as one: merged, shown as a grid, changed, and written back.
#include <krcore/krcore.h>

#include <iostream>
#include <vector>

namespace
{

CKrPropertySet MakeLayer(WCHAR const * name, int color, double width, bool plot)
{
    CString const general(OLESTR("General"));
    CString const print(OLESTR("Print"));
    CKrPropertySet layer;
    layer.CreateProperty(OLESTR("Name"), general)->SetString(name);
    layer.CreateProperty(OLESTR("Color"), CKrProperty::ePropColor, general)->SetColor(CKrColor(color));
    layer.CreateProperty(OLESTR("Width"), CKrProperty::ePropDouble, print)->SetDouble(width);
    layer.CreateProperty(OLESTR("Plot"), CKrProperty::ePropBool, print)->SetBool(plot);
    return layer;
}

// Prints the properties of a set, one a line, indented below their categories.
class GridPrinter : public kr::visitor<CKrProperty>
{
public:
    bool Match(CKrProperty * node) override { return node->GetLevel() > 0; }
    bool Action(CKrProperty * node) override
    {
        if (node->GetLevel() == 1)
            std::cout << "  [" << node->GetDescription() << "]\n";
        else
            std::cout << "    " << node->GetName() << ": " << TextOf(*node) << "\n";
        return true;
    }

private:
    static CString TextOf(CKrProperty const & property)
    {
        if (property.HasAttribute(OLESTR("Kr.VariedMode")))
            return OLESTR("*varied*");
        return property.IsColorValue() ? property.GetColor().Format(false) : property.GetAsString();
    }
};

void Print(char const * title, CKrPropertySet & set)
{
    std::cout << title << "\n";
    GridPrinter printer;
    set.Visit(printer);
}

} // namespace

int main()
{
    std::vector<CKrPropertySet> layers = {MakeLayer(OLESTR("Walls"), 1, 0.5, true),
                                          MakeLayer(OLESTR("Doors"), 3, 0.25, true),
                                          MakeLayer(OLESTR("Notes"), 1, 0.25, false)};
    CKrPropMultiEditHelper helper;
    for (CKrPropertySet & layer : layers)
        helper.AddPropertySet(&layer);
    helper.PrepareEdit();
    Print("Three layers as one:", helper.GetMainPropertySet());

    CKrProperty * const color = helper.GetMainPropertySet().GetProperty(OLESTR("Color"), OLESTR("General"));
    color->SetColor(CKrColor(17u, 146u, 238u));
    color->SetModified(true);
    helper.Update();

    std::cout << "After a change of the colour:\n";
    for (CKrPropertySet & layer : layers)
        Print("  layer", layer);
    return 0;
}
