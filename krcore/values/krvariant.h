// The typed value of the library.
#pragma once

#include <krcore/export.h>
#include <krcore/graphics/krcolor.h>
#include <krcore/values/krmatrix.h>
#include <krcore/values/krpointlists.h>
#include <krplatform/automation/colevariant.h>
#include <krplatform/datetime/colecurrency.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/text/cstring.h>

#include <cstdint>
#include <vector>

/// One typed value: a `COleVariant` with a second tag. The tag says what the value means, `vt` what bytes it holds; so
/// a colour and a long are both VT_I4. Copies are deep. Nothing here reports an error: what cannot be converted reads
/// as the zero of the wanted type.
///
///     CKrVariant(2.5).GetAsString()                          -> "2.5", in every locale
///     CKrVariant(true).ConvertType(CKrVariant::eDouble)      -> eDouble 1.0, not -1.0
///     int(CKrVariant(OLESTR("17")))                          -> 17, read in the user's locale
///     double(CKrVariant(OLESTR("abc")))                      -> 0.0
///     CKrVariant(CKrColor(5)).IsColor()                      -> true, and its VARIANT holds the long -5
///     CKrVariant(5) == CKrVariant(5.0)                       -> false: `vt` and value are compared, the tag is not
///
/// What throws: want of memory (`CMemoryException *`, `std::bad_alloc` where a vector is filled), and with a
/// `COleException *` reading a composite kind from a value that has no such array, a `VARIANT` whose `vt` the platform
/// cannot copy (DISP_E_BADVARTYPE), replacing a value that holds a locked array (DISP_E_ARRAYISLOCKED; a move does not
/// throw and leaves that array to whoever locked it). The value then stays as it was.
class KRCORE_API CKrVariant : public COleVariant
{
public:
    /// What a value means. The gaps belong to the numbering.
    enum EType : int
    {
        eInvalid = 0,
        eNull = 1,
        eString = 2,
        eFloat = 3,
        eDouble = 4,
        eShort = 5,
        eLong = 6,
        eBool = 7,
        eOleCurrency = 11,
        eOleDateTime = 12,
        eDispatch = 13,
        eBinary = 14,
        eColor = 15,
        eVoidPtr = 16,
        eStringVector = 21,
        eDoubleVector = 22,
        eLongVector = 23,
        eBoolVector = 24,
        eDispatchVector = 25,
        eStringMatrix = 26,
        eVariant = 31,
        eVariantVector = 32,
        eVariantMatrix = 33,
        ePoint3 = 41,
        eVector3 = 42,
        ePoint3List = 43,
        eVector3List = 44
    };

    CKrVariant() noexcept : m_type(eInvalid) {}
    CKrVariant(CKrVariant const & other) : COleVariant(static_cast<COleVariant const &>(other)), m_type(other.m_type) {}
    /// The source is left VT_EMPTY and `eInvalid`, as by `AttachFrom`.
    CKrVariant(CKrVariant && other) noexcept : COleVariant(static_cast<COleVariant &&>(other)), m_type(other.m_type)
    {
        other.m_type = eInvalid;
    }
    /// A deep copy with that tag; `eInvalid` takes the tag from `vt`. Deliberate: VT_NULL gives VT_EMPTY and `eInvalid`
    /// whatever the tag says.
    CKrVariant(VARIANT const & source, EType type = eInvalid);

    CKrVariant(CString const & text);
    /// A null pointer gives a null text, tag `eString`.
    CKrVariant(WCHAR const * text);
    /// Read in the process code page.
    CKrVariant(char const * text);
    template <kr::detail::WideCharacter Wide>
    CKrVariant(Wide const * text) : CKrVariant(CString(text))
    {
    }
    CKrVariant(short value) noexcept : m_type(eShort)
    {
        vt = VT_I2;
        iVal = value;
    }
    CKrVariant(int value) noexcept : m_type(eLong)
    {
        vt = VT_I4;
        lVal = value;
    }
    /// Keeps the low 32 bits.
    CKrVariant(long value) noexcept : CKrVariant(static_cast<int>(value)) {}
    CKrVariant(double value) noexcept : m_type(eDouble)
    {
        vt = VT_R8;
        dblVal = value;
    }
    CKrVariant(bool value) noexcept : m_type(eBool)
    {
        vt = VT_BOOL;
        boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    /// The amount as it stands; the status is not looked at.
    CKrVariant(COleCurrency const & value) noexcept;
    /// Deliberate: a date whose status is not valid gives the date 0.0, tag `eOleDateTime` all the same.
    CKrVariant(COleDateTime const & value) noexcept;
    /// Adds a reference, which the value owns. A null pointer gives VT_DISPATCH without an object.
    CKrVariant(IDispatch * object);
    /// The pointer itself in a VT_UI8; not owned.
    CKrVariant(void * pointer) noexcept;
    /// A VT_I4: the negated index of an index colour or no colour, the colour reference of any other. Deliberate: index
    /// 0 cannot be told from black, and an index below 0 comes back as a colour reference.
    CKrVariant(CKrColor const & color) noexcept;
    CKrVariant(std::vector<CString> const & values);
    CKrVariant(std::vector<double> const & values);
    /// Each value keeps its low 32 bits.
    CKrVariant(std::vector<long> const & values);
    /// Adds a reference to each object; null pointers are kept.
    CKrVariant(std::vector<IDispatch *> const & objects);
    /// Deliberate: takes the values over bit by bit. The caller must not clear them afterwards, unless this throws.
    CKrVariant(std::vector<VARIANT> const & values);
    /// The cells' values without their tags.
    CKrVariant(kr::matrix<CKrVariant> const & values);
    /// Deliberate: the tag is `eVariantMatrix`, not `eStringMatrix`.
    CKrVariant(kr::matrix<CString> const & values);
    CKrVariant(CKrPoint3 const & point);
    CKrVariant(CKrVector3 const & vector);
    CKrVariant(CKrPoint3List const & points);
    /// Deliberate: as many elements as the list has, all VT_EMPTY; reading them back raises the platform's failure.
    CKrVariant(CKrVector3List const & vectors);
    /// Clears the value: frees its text or array, releases its object.
    virtual ~CKrVariant();

    CKrVariant & operator=(CKrVariant const & other);
    CKrVariant & operator=(CKrVariant && other) noexcept;

    /// Frees the old value and takes over that of `source`, which is left VT_EMPTY. The tag is `type` or, for
    /// `eInvalid`, taken from `vt`; VT_NULL is kept as `eNull`. Nothing happens for this value's own `VARIANT`.
    void AttachFrom(VARIANT & source, EType type = eInvalid);
    /// Moves value and tag; `source` is left VT_EMPTY and `eInvalid`. Nothing happens for this value itself.
    void AttachFrom(CKrVariant & source);
    void AttachTo(CKrVariant & target) { target.AttachFrom(*this); }

    EType GetType() const noexcept { return m_type; }
    bool IsType(EType type) const noexcept { return m_type == type; }
    /// Whether the tag is any but `eInvalid`.
    bool IsValid() const noexcept { return m_type != eInvalid; }
    // The following look at the tag alone, never at `vt`.
    bool IsString() const noexcept { return m_type == eString; }
    bool IsFloat() const noexcept { return m_type == eFloat; }
    bool IsDouble() const noexcept { return m_type == eDouble; }
    bool IsShort() const noexcept { return m_type == eShort; }
    bool IsLong() const noexcept { return m_type == eLong; }
    bool IsBool() const noexcept { return m_type == eBool; }
    bool IsOleCurrency() const noexcept { return m_type == eOleCurrency; }
    bool IsOleDateTime() const noexcept { return m_type == eOleDateTime; }
    bool IsDispatch() const noexcept { return m_type == eDispatch; }
    bool IsBinary() const noexcept { return m_type == eBinary; }
    bool IsColor() const noexcept { return m_type == eColor; }
    bool IsStringVector() const noexcept { return m_type == eStringVector; }
    bool IsDoubleVector() const noexcept { return m_type == eDoubleVector; }
    bool IsLongVector() const noexcept { return m_type == eLongVector; }
    bool IsBoolVector() const noexcept { return m_type == eBoolVector; }
    bool IsDispatchVector() const noexcept { return m_type == eDispatchVector; }
    bool IsStringMatrix() const noexcept { return m_type == eStringMatrix; }
    bool IsVariantMatrix() const noexcept { return m_type == eVariantMatrix; }
    bool IsPoint3() const noexcept { return m_type == ePoint3; }
    bool IsVector3() const noexcept { return m_type == eVector3; }
    bool IsPoint3List() const noexcept { return m_type == ePoint3List; }
    bool IsVector3List() const noexcept { return m_type == eVector3List; }

    // Reading a value as a type. A value of the wanted `vt` is read in place; any other is converted into a temporary
    // under the user's locale. What does not convert gives empty text, 0, false or null.
    operator CString() const;
    operator short() const;
    operator int() const;
    operator long() const;
    operator float() const;
    operator double() const;
    /// Of a VT_BOOL: whether all bits are set.
    operator bool() const;
    operator void *() const;
    /// Deliberate: the date 0.0 with status valid, not invalid, where the value does not convert.
    operator COleDateTime() const;
    /// Deliberate: the 64 bits of the value as they stand, whatever they mean.
    operator COleCurrency() const noexcept;
    /// Deliberate: the pointer of the value as it stands, whatever it means. No reference is added.
    operator IDispatch *() const noexcept;
    /// Reads the value as a long: a negative one is an index (of its low 16 bits), any other a colour reference.
    operator CKrColor() const;
    CKrColor GetColor() const { return *this; }
    /// The same; always true.
    bool GetValue(CKrColor & color) const;

    // Reading composite kinds. The tag plays no part; a value without an array of that element type and number of
    // dimensions raises the platform's failure, and the output stays as it was. What returns at all returns true.
    bool GetValue(std::vector<CString> & values) const;
    bool GetValue(std::vector<double> & values) const;
    bool GetValue(std::vector<long> & values) const;
    /// Deep copies, which the caller clears.
    bool GetValue(std::vector<VARIANT> & values) const;
    bool GetValue(kr::matrix<CString> & values) const;
    /// The cells' tags are taken from their `vt`: a colour comes back as a long.
    bool GetValue(kr::matrix<CKrVariant> & values) const;
    /// The first three numbers; fewer raise DISP_E_BADINDEX.
    bool GetValue(CKrPoint3 & point) const;
    bool GetValue(CKrVector3 & vector) const;
    bool GetValue(CKrPoint3List & points) const;
    bool GetValue(CKrVector3List & vectors) const;

    operator std::vector<CString>() const;
    operator std::vector<double>() const;
    operator std::vector<long>() const;
    operator std::vector<VARIANT>() const;
    /// Deliberate: the objects are borrowed from the value, no reference is added.
    operator std::vector<IDispatch *>() const;
    operator kr::matrix<CString>() const;
    operator kr::matrix<CKrVariant>() const;
    operator CKrPoint3() const;
    operator CKrVector3() const;
    operator CKrPoint3List() const;
    operator CKrVector3List() const;

    std::vector<CString> GetStringVector() const;
    std::vector<double> GetDoubleVector() const;
    std::vector<long> GetLongVector() const;
    std::vector<VARIANT> GetVARIANTVector() const;
    kr::matrix<CString> GetStringMatrix() const;
    kr::matrix<CKrVariant> GetVariantMatrix() const;
    CKrPoint3 GetPoint3() const;
    CKrVector3 GetVector3() const;
    CKrPoint3List GetPoint3List() const;
    CKrVector3List GetVector3List() const;

    /// Converts in place under the invariant locale and gives this value. A bool is 1 or 0, a date becomes the text
    /// "%Y-%m-%d %H:%M:%S". The new tag follows from the new `vt`. A tag without a `vt` of its own, and a value that
    /// does not convert, change nothing; so does a value that has the wanted `vt` already, its tag included.
    CKrVariant & ConvertType(EType type);
    /// The same under the user's locale, dates too.
    CKrVariant & ConvertTypeLocale(EType type);

    /// Text for storage and display, by the tag: numbers with a point, currency and dates in the user's locale, a bool
    /// as "1" or "0"; empty for kinds without text. Deliberate: a float shows the digits of the double that it is.
    CString GetAsString() const;
    /// The same, but every VT_DATE as "%Y-%m-%d %H:%M:%S".
    CString GetAsInvariantString() const;
    /// The platform's own text of the `VARIANT` under the user's locale. Deliberate: a bool is "-1" or "0", and what
    /// has no text (an array) raises the platform's failure.
    CString GetAsLocaleString() const;

private:
    static EType SwapType(int vt) noexcept;
    static int SwapType(EType type) noexcept;

    // Write the conversion of `source` (null: this value) into this value; false, and unchanged, where it does not
    // convert.
    bool ConvertTypeImpl(int target, CKrVariant const * source);
    bool ConvertTypeLocaleImpl(int target, CKrVariant const * source);
    bool ConvertUnder(LCID locale, int target, VARIANT const & source);
    static VARIANT NumberOfBool(VARIANT const & source) noexcept;
    static CString InvariantTextOf(DATE date);

    EType m_type;
};
