// The colour of a drawing object.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

/// A colour: red, green and blue, an index of the colour table, inherited from elsewhere, or none.
///
///     CKrColor(250, 3, 0).GetAsColorIndex()       -> 1, the nearest row of the table
///     CKrColor(3).GetAsColorRef()                 -> 0x0000FF00, the row as 0x00BBGGRR
///     CKrColor(257).IsNoColor()                   -> true
///     CKrColor c; c.Parse(OLESTR("#FF8000"));     -> red 255, green 128, blue 0
///     c.Format(true)                              -> "#ff8000"
///     c.Parse(OLESTR("abc"))                      -> index 0: reading never fails
///
/// Index 0 to 255 are rows of the table, 256 is by layer, 257 is no colour. The table is the CAD system's. Deliberate:
/// index 7 is black in it, as index 0 is, and not white.
/// A plain value: copies take all fields, different objects may be used on different threads. No locale is looked at.
/// Nothing fails but `Format`, which throws `CMemoryException *` when memory runs out.
class KRCORE_API CKrColor
{
public:
    /// How the fields are to be read. Any other number is stored: such a colour compares by RGB and has no text.
    enum ColorSpace : int
    {
        eColorSpaceRGB = 1,
        eColorSpaceIndex = 3,
        eColorSpaceInherited = 11,
        eColorSpaceNoColor = 12
    };

    /// Black by RGB.
    CKrColor() noexcept = default;
    /// A colour by index; 257 is no colour. Any other number is stored, also one that is no row of the table.
    CKrColor(short index) noexcept;
    /// The same for a plain number, cut to 16 bits.
    CKrColor(int index) noexcept;
    /// A colour by RGB. Deliberate: each value is cut to its low byte (300 is 44), while the setters hold it at 255.
    CKrColor(unsigned int red, unsigned int green, unsigned int blue) noexcept
        : m_red(static_cast<unsigned char>(red)),
          m_green(static_cast<unsigned char>(green)),
          m_blue(static_cast<unsigned char>(blue))
    {
    }
    /// A colour by RGB from 0x00BBGGRR; the bits above do not count.
    CKrColor(unsigned long colorRef) noexcept;
    /// The same: an unsigned number is never an index. A `long` could be either and does not compile.
    CKrColor(unsigned int colorRef) noexcept;
    CKrColor(CKrColor const &) noexcept = default;
    CKrColor & operator=(CKrColor const &) noexcept = default;
    virtual ~CKrColor();

    /// No colour, with index 257.
    static CKrColor NoColor() noexcept;

    /// The alpha flag is 1. Deliberate: it is set by `SetAlpha` above 0 and not cleared by `SetAlpha(0)`.
    bool IsAlpha() const noexcept { return m_alphaFlag == 1; }
    bool IsInheritedColor() const noexcept { return m_colorSpace == eColorSpaceInherited; }
    /// By the colour space alone: index 257 in `eColorSpaceIndex` is not enough.
    bool IsNoColor() const noexcept { return m_colorSpace == eColorSpaceNoColor; }

    int GetColorSpace() const noexcept { return m_colorSpace; }
    /// The fields as they are, in any colour space.
    int GetRed() const noexcept { return m_red; }
    int GetGreen() const noexcept { return m_green; }
    int GetBlue() const noexcept { return m_blue; }
    int GetAlpha() const noexcept { return m_alpha; }
    short GetColorIndex() const noexcept { return m_colorIndex; }
    /// The RGB fields as 0x00BBGGRR, in any colour space.
    unsigned long GetColorRef() const noexcept;

    /// The nearest index of an RGB colour, else the index field. Deliberate: that of an inherited colour too, whatever
    /// its RGB.
    short GetAsColorIndex() const noexcept;
    /// The row of the table for an index of 0 to 255 in `eColorSpaceIndex`, else the RGB fields (0 for by layer).
    unsigned long GetAsColorRef() const noexcept;

    /// Sets the colour space and nothing else.
    void SetColorSpace(ColorSpace colorSpace) noexcept { m_colorSpace = colorSpace; }
    /// Values above 255 are held at 255. Deliberate: the colour space stays, also where it is not RGB.
    void SetRed(unsigned int red) noexcept;
    void SetGreen(unsigned int green) noexcept;
    void SetBlue(unsigned int blue) noexcept;
    /// Any number is stored; one above 0 sets the alpha flag.
    void SetAlpha(int alpha) noexcept;
    /// Index, colour space and RGB 0 as in the constructor; alpha stays.
    void SetColorIndex(short index) noexcept;
    /// RGB, `eColorSpaceRGB` and index 0; alpha stays.
    void SetColorRef(unsigned long colorRef) noexcept;
    /// Sets the colour space and nothing else.
    void SetInheritedColor() noexcept { m_colorSpace = eColorSpaceInherited; }
    /// No colour, index 257, RGB 0; alpha stays.
    void SetNoColor() noexcept;

    /// Turns an index colour of 0 to 255 into its row of the table, by RGB, with index 0. All other colours, by layer
    /// among them, stay as they are. Alpha stays.
    CKrColor & IndexToRGB() noexcept;
    /// Turns an RGB colour into the index of the nearest row: least sum of the differences of red, green and blue, the
    /// lowest index of several. Deliberate: index 0 is never found, black gives 7. All other colours stay as they are.
    /// Alpha stays.
    CKrColor & RGBToIndex() noexcept;

    /// "NOCOLOR", "BYLAYER", an index as a decimal number, "RGB(1,2,3)", or with `hex` "#010203" in lower case.
    /// Deliberate: an inherited colour, and any unknown colour space, gives empty text, which reads back as no colour.
    CString Format(bool hex) const;
    /// Reads what `Format` writes, in any case, with white space around and before each number:
    ///
    ///     empty text, NOCOLOR      no colour; alpha stays, while all others clear it and its flag
    ///     RGB(1,2,3), #010203      missing and unreadable numbers are 0, larger ones are cut to the low byte
    ///     BYLAYER                  index 256
    ///     anything else            an index, cut to 16 bits. Deliberate: text that is no number is index 0
    ///
    /// Numbers are read as `swscanf` reads them: what follows the last one is not looked at, signs are taken, and one
    /// out of the range of 32 bits stops at the limit before it is cut.
    void Parse(CString const & text);

    /// Equal colour space and alpha, then equal index in `eColorSpaceIndex` and equal RGB in every other one. The alpha
    /// flag takes no part. Deliberate: an RGB colour never equals an index colour that looks the same, and the index
    /// counts in `eColorSpaceIndex` alone, so that all colours of `eColorSpaceNoColor` without RGB are equal.
    bool operator==(CKrColor const & other) const noexcept;

private:
    static constexpr short s_byLayerIndex = 256;
    static constexpr short s_noColorIndex = 257;

    void StoreColorRef(unsigned long colorRef) noexcept;

    ColorSpace m_colorSpace = eColorSpaceRGB;
    int m_alpha = 0;
    int m_alphaFlag = 0;
    unsigned char m_red = 0;
    unsigned char m_green = 0;
    unsigned char m_blue = 0;
    short m_colorIndex = 0;
};
