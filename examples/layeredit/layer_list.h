// Layers as a table, as tab-separated values, as JSON.
#pragma once

#include "options.h"

#include <krcore/property/krpropertyset.h>

#include <ostream>

namespace layeredit
{

/// Writes the layers of one drawing after the other, as one list where programs read it.
class LayerList
{
public:
    /// With `hasColors` a swatch stands beside each colour of a table.
    LayerList(std::ostream & stream, Format format, bool hasColors);

    void Add(std::vector<CKrPropertySet *> const & layers);
    /// To be called once, behind the last drawing.
    void Finish();

private:
    void AddTable(std::vector<CKrPropertySet *> const & layers);

    std::ostream & m_stream;
    Format m_format;
    bool m_hasColors;
    bool m_isEmpty = true;
};

/// A value as people read it between others: on one line, and `""` where there is none.
CString ValueOnOneLine(CKrProperty const & property);

/// The columns that a text takes on a terminal: two for a character of the wide East Asian scripts, none for a combining mark.
int WidthOf(CString const & text);

} // namespace layeredit
