// How drawn things look in the CAD system: line types with a weight, layers, hatches.
#pragma once

#include <krcore/graphics/krcolor.h>

/// A line type with a width and a weight. Neither follows the other when it is set.
///
///     CKrLineStyle::AcadLineStyle(25, OLESTR(""))     -> "CONTINUOUS", weight 25, width 0.25
///     CKrLineStyle::AcadLineStyle(0.26, OLESTR(""))   -> "CONTINUOUS", weight 30, width 0.26
///
/// A plain value; nothing is checked against a range. A name that is made here throws `CMemoryException *` when memory
/// runs out; nothing else fails.
class KRCORE_API CKrLineStyle
{
public:
    CKrLineStyle() noexcept = default;
    /// Width 0, whatever the weight.
    CKrLineStyle(CString const & name, int weight) noexcept;
    /// Weight 0, whatever the width.
    CKrLineStyle(CString const & name, double width) noexcept;
    CKrLineStyle(CKrLineStyle const &) noexcept = default;
    CKrLineStyle & operator=(CKrLineStyle const &) noexcept = default;
    virtual ~CKrLineStyle();

    /// The line of a new object: "CONTINUOUS", weight and width 0.
    static CKrLineStyle AcadLineStyle();
    /// The width follows from a weight above 0. Deliberate: 0 and the special negative weights are stored as they are,
    /// with width 0. An empty name becomes "CONTINUOUS".
    static CKrLineStyle AcadLineStyle(int weight, CString const & name);
    /// The weight is the first of the CAD system's 24 line weights that is not below the width in hundredths, 211 at
    /// most, and 0 for a width that is not a number; the width stays as given. Deliberate: hundredths are cut, not
    /// rounded, so that 0.139 counts as 13 and gets the weight 13. An empty name becomes "CONTINUOUS".
    static CKrLineStyle AcadLineStyle(double width, CString const & name);

    CString const & GetName() const noexcept { return m_name; }
    /// In millimetres where it comes from the weight.
    double GetLineWidth() const noexcept { return m_lineWidth; }
    /// In hundredths of a millimetre.
    int GetLineWeight() const noexcept { return m_lineWeight; }

    void SetName(CString const & name) noexcept { m_name = name; }
    /// Deliberate: the weight stays.
    void SetLineWidth(double width) noexcept { m_lineWidth = width; }
    /// Deliberate: the width stays.
    void SetLineWeight(int weight) noexcept { m_lineWeight = weight; }

    /// Names without case, widths closer than 1e-8 and equal weights. Two infinite widths, or two that are not numbers,
    /// are no closer than others; an object always equals itself.
    bool operator==(CKrLineStyle const & other) const noexcept;

private:
    CString m_name;
    double m_lineWidth = 0.0;
    int m_lineWeight = 0;
};

/// A layer: a name, a colour, a line style and five flags that do not depend on each other.
class KRCORE_API CKrLayerStyle
{
public:
    /// Visible, black by RGB, with a default line style; all other flags are false.
    CKrLayerStyle() noexcept = default;
    CKrLayerStyle(CString const & name) noexcept;
    CKrLayerStyle(CString const & name, CKrColor const & color, CKrLineStyle const & lineStyle, bool visible) noexcept;
    CKrLayerStyle(CKrLayerStyle const &) noexcept = default;
    CKrLayerStyle & operator=(CKrLayerStyle const &) noexcept = default;
    virtual ~CKrLayerStyle();

    /// A new layer of the CAD system: visible, a continuous line, colour index 7 or the given colour.
    static CKrLayerStyle AcadLayer(CString const & name);
    static CKrLayerStyle AcadLayer(CString const & name, CKrColor const & color);

    bool IsVisible() const noexcept { return m_visible; }
    bool IsFrozen() const noexcept { return m_frozen; }
    bool IsLocked() const noexcept { return m_locked; }
    bool IsHidden() const noexcept { return m_hidden; }
    bool IsCurrent() const noexcept { return m_current; }

    CString const & GetName() const noexcept { return m_name; }
    /// Open to change.
    CKrColor & GetColor() noexcept { return m_color; }
    CKrColor const & GetColor() const noexcept { return m_color; }
    /// Open to change.
    CKrLineStyle & GetLineStyle() noexcept { return m_lineStyle; }
    CKrLineStyle const & GetLineStyle() const noexcept { return m_lineStyle; }

    void SetName(CString const & name) noexcept { m_name = name; }
    void SetColor(CKrColor const & color) noexcept { m_color = color; }
    void SetLineStyle(CKrLineStyle const & lineStyle) noexcept { m_lineStyle = lineStyle; }
    void SetVisible(bool visible) noexcept { m_visible = visible; }
    void SetFrozen(bool frozen) noexcept { m_frozen = frozen; }
    void SetLocked(bool locked) noexcept { m_locked = locked; }
    void SetHidden(bool hidden) noexcept { m_hidden = hidden; }
    void SetCurrent(bool current) noexcept { m_current = current; }

    /// Names without case, then colours, line styles and all flags as they compare by themselves.
    bool operator==(CKrLayerStyle const & other) const noexcept;

private:
    CString m_name;
    CKrColor m_color;
    CKrLineStyle m_lineStyle;
    bool m_visible = true;
    bool m_frozen = false;
    bool m_locked = false;
    bool m_hidden = false;
    bool m_current = false;
};

/// A hatch. Its fields are read and written directly; what the second name and the flags mean is up to the client.
class KRCORE_API CKrHatchStyle
{
public:
    /// Throws `CMemoryException *` when memory runs out; nothing else fails.
    CKrHatchStyle();
    CKrHatchStyle(CKrHatchStyle const &) noexcept = default;
    CKrHatchStyle & operator=(CKrHatchStyle const &) noexcept = default;
    virtual ~CKrHatchStyle();

    CString m_strPattern; ///< "SOLID" at first
    CString m_strSecondName;
    double m_dScale = 1.0;
    double m_dAngle = 0.0;
    bool m_bFirst = false;
    bool m_bSecond = false;
    CKrColor m_color;   ///< by layer at first
    CString m_strLayer; ///< "0" at first
};
