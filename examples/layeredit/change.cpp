#include "change.h"

#include "application.h"
#include "encoding.h"
#include "layer_list.h"
#include "layer_mapping.h"
#include "messages.h"

#include <krcore/diagnostics/krerrorstack.h>
#include <krcore/property/krpropertyutils.h>

#include <algorithm>

namespace layeredit
{

namespace
{

constexpr std::size_t s_longestDescription = 255;

bool IsColorOfRgb(CKrProperty const & property)
{
    return property.IsColorValue() && property.GetColor().GetColorSpace() == CKrColor::eColorSpaceRGB;
}

/// Only layers that do not have the value yet are looked at.
std::vector<Layer *> WithoutValue(std::vector<Layer *> const & layers, CKrProperty const & wanted)
{
    std::vector<Layer *> found;
    for (Layer * const layer : layers)
        if (!layer->set.GetPropertyByPropName(wanted.GetName())->HasEqualValue(wanted))
            found.push_back(layer);
    return found;
}

// One question a property: can the drawing hold the value in these layers? The value may become one that it can.

bool AdmitColor(Drawing const & drawing, std::vector<Layer *> const &, CKrProperty & property)
{
    if (drawing.version >= eVersionR2004 || !IsColorOfRgb(property))
        return true;
    CKrColor const wanted = property.GetColor();
    CKrColor const nearest = CKrColor(wanted).RGBToIndex();
    Tell(eNoteNearestIndex, drawing.title, VersionName(drawing), wanted.Format(true), nearest.Format(true));
    property.SetColor(nearest);
    return true;
}

bool AdmitLineType(Drawing const & drawing, std::vector<Layer *> const &, CKrProperty & property)
{
    CString const name = property.GetString();
    bool const isNone = name.CompareNoCase(OLESTR("ByLayer")) == 0 || name.CompareNoCase(OLESTR("ByBlock")) == 0;
    LineType const * const lineType = FindLineType(drawing, name);
    if (isNone || (lineType && lineType->isOfReference))
        return Tell(eNoLayerLineType, drawing.title, name);
    if (!lineType && name.CompareNoCase(OLESTR("Continuous")) != 0) // which every drawing has
        return Tell(eNoLineType, drawing.title, name);
    if (lineType)
        property.SetString(lineType->name);
    return true;
}

bool AdmitPlot(Drawing const & drawing, std::vector<Layer *> const & layers, CKrProperty & property)
{
    for (Layer const * const layer : WithoutValue(layers, property))
        if (IsNeverPlotted(layer->set))
            return Tell(eNeverPlotted, drawing.title, NameOf(layer->set));
    return true;
}

bool AdmitFrozen(Drawing const & drawing, std::vector<Layer *> const & layers, CKrProperty & property)
{
    if (!property.GetBool())
        return true;
    for (Layer const * const layer : WithoutValue(layers, property))
        if (NameOf(layer->set).CompareNoCase(drawing.currentLayer) == 0)
            return Tell(eCurrentLayer, drawing.title, NameOf(layer->set));
    return true;
}

bool AdmitDescription(Drawing const & drawing, std::vector<Layer *> const &, CKrProperty & property)
{
    std::size_t const length = EncodeDescription(drawing, property.GetString()).size();
    return length <= s_longestDescription || Tell(eTooLong, drawing.title, length);
}

struct Admission
{
    CString const & property;
    bool (*admit)(Drawing const &, std::vector<Layer *> const &, CKrProperty &);
};

// clang-format off
Admission const s_admissions[] = {
    { propertyColor,       &AdmitColor       },
    { propertyLineType,    &AdmitLineType    },
    { propertyPlot,        &AdmitPlot        },
    { propertyFrozen,      &AdmitFrozen      },
    { propertyDescription, &AdmitDescription },
};
// clang-format on

bool Admit(Drawing const & drawing, std::vector<Layer *> const & layers, Assignment & assignment)
{
    PropertyRow const & row = *assignment.row;
    CKrProperty & property = assignment.property;
    if (drawing.version < row.since)
        return Tell(eTooOld, drawing.title, VersionName(drawing), row.name, VersionName(row.since));
    if (assignment.given > 0.0)
    {
        CString given;
        given.Format(OLESTR("%g"), assignment.given);
        Tell(eNoteLineWeight, drawing.title, given, TextOfValue(property, Style::People));
    }
    for (Admission const & admission : s_admissions)
        if (property.GetName() == admission.property)
            return admission.admit(drawing, layers, property);
    return true;
}

/// Carries the values to all layers as the user of a grid does: into the merged set, flagged as modified.
void Update(std::vector<Layer *> const & layers, std::vector<Assignment> const & assignments)
{
    CKrPropMultiEditHelper helper;
    for (Layer * const layer : layers)
        helper.AddPropertySet(&layer->set);
    helper.PrepareEdit();
    for (Assignment const & assignment : assignments)
    {
        CKrProperty & property = *helper.GetMainPropertySet().GetPropertyByPropName(assignment.row->name);
        property.SetValue(assignment.property.GetValue());
        property.SetModified(true);
    }
    helper.Update();
}

/// Adds what became of one layer.
void Collect(Drawing const & drawing, Layer const & layer, Change & change)
{
    std::string bytes = WriteLayer(drawing, *layer.record, layer.set);
    if (bytes == layer.record->bytes)
        return;
    CKrPropertySet before;
    {
        CKrPushErrorStack const again(CKrError::eError); // the notes on this record are known
        ReadLayer(drawing, *layer.record, before);
    }
    for (PropertyRow const & row : LayerProperties())
    {
        CKrProperty const & property = *layer.set.GetPropertyByPropName(row.name);
        if (!property.IsModified())
            continue;
        CString const old = ValueOnOneLine(*before.GetPropertyByPropName(row.name));
        CString line;
        line.Format(OLESTR("%s: %s %s -> %s"), OnOneLine(NameOf(layer.set)), row.name, old, ValueOnOneLine(property));
        change.lines.push_back(line);
    }
    change.patches.push_back({*layer.record, std::move(bytes)});
    ++change.layers;
}

/// A drawing that holds descriptions has their application registered.
bool AdmitApplication(Drawing const & drawing, Options const & options, std::vector<Layer *> const & layers,
                      Change & change)
{
    bool const isNeeded =
        std::ranges::any_of(layers, [](Layer const * layer)
                            { return layer->set.GetPropertyByPropName(propertyDescription)->IsModified(); });
    if (!isNeeded || FindApplication(drawing, descriptionApplication))
        return true;
    if (!options.addApplication)
        return Tell(eNoApplication, drawing.title);
    return RegisterApplication(drawing, change.patches);
}

} // namespace

bool ChangeLayers(Drawing const & drawing, Options const & options, std::vector<Layer *> const & layers,
                  Change & change)
{
    if (layers.empty())
        return true;
    std::vector<Assignment> assignments = options.set;
    for (Assignment & assignment : assignments)
        if (!Admit(drawing, layers, assignment))
            return false;
    Update(layers, assignments);
    if (!AdmitApplication(drawing, options, layers, change))
        return false;
    for (Layer const * const layer : layers)
        Collect(drawing, *layer, change);
    return true;
}

} // namespace layeredit
