// Moving data between a client's variables and properties.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krproperty.h>
#include <krplatform/datetime/ctime.h>

/// Moves a client's fields in and out of properties, one line a field, with one rule for a property that is missing: nothing is written,
/// and what is read stays as it was, or is reset if the mapper was told so.
///
///     CKrPropertyDataMapper const mapper(true);
///     mapper.DataToProp(&layer, OLESTR("Width"), 0.35);
///     mapper.DataFromProp(&layer, OLESTR("Width"), width);        -> 0.35, or 0.0 if there is no "Width"
///
/// A property is given itself, or by its parent and its name (the first of that name). Deliberate: text goes in as a string whatever
/// the type is, and comes out as the type formats it.
class KRCORE_API CKrPropertyDataMapper
{
public:
    CKrPropertyDataMapper();
    explicit CKrPropertyDataMapper(bool reset);
    CKrPropertyDataMapper(CKrPropertyDataMapper const & other);
    CKrPropertyDataMapper & operator=(CKrPropertyDataMapper const & other);
    virtual ~CKrPropertyDataMapper();

    /// Whether data of a missing property is reset: to 0, false, empty text, the date 0.0, the time 0.
    bool ResetDataForMissingProperties() const noexcept { return m_reset; }
    void ResetDataForMissingProperties(bool reset) noexcept { m_reset = reset; }

    void DataFromProp(CKrProperty const * property, int & data) const;
    void DataFromProp(CKrProperty const * property, double & data) const;
    void DataFromProp(CKrProperty const * property, bool & data) const;
    void DataFromProp(CKrProperty const * property, CString & data) const;
    void DataFromProp(CKrProperty const * property, COleDateTime & data) const;
    /// Local time. A date that is invalid or before 1900 gives 0; from 1900 to 1969 it raises E_FAIL, and E_INVALIDARG where the moment
    /// cannot be expressed (`COleException *`).
    void DataFromProp(CKrProperty const * property, CTime & data) const;

    void DataToProp(CKrProperty * property, int data) const;
    void DataToProp(CKrProperty * property, double data) const;
    void DataToProp(CKrProperty * property, bool data) const;
    void DataToProp(CKrProperty * property, CString const & data) const;
    /// A literal, of any kind that makes a `CString`, is a text and not a bool. Null is empty text.
    template <class Character>
    void DataToProp(CKrProperty * property, Character const * data) const
    {
        DataToProp(property, CString(data));
    }
    /// Dates and times go into properties of the date kinds only.
    void DataToProp(CKrProperty * property, COleDateTime const & data) const;
    /// A time of 0 is the date 0.0.
    void DataToProp(CKrProperty * property, CTime const & data) const;

    template <class Data>
    void DataFromProp(CKrProperty const * parent, CString const & name, Data & data) const
    {
        DataFromProp(parent ? parent->GetSubProperty(name) : nullptr, data);
    }
    template <class Data>
    void DataToProp(CKrProperty * parent, CString const & name, Data const & data) const
    {
        DataToProp(parent ? parent->GetSubProperty(name) : nullptr, data);
    }

private:
    bool m_reset = false;
};
