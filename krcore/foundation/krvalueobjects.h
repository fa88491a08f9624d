// Plain values as objects: a text, a list of texts, a typed value.
#pragma once

#include <krcore/foundation/krobject.h>
#include <krcore/values/krvariant.h>

#include <vector>

// A value object can be the child of an owner. Deliberate: it does not survive the copying of that owner. Its `Clone`
// is an operation of its own, not const and not virtual, that gives a whole copy; the virtual `CKrObject::Clone`, which
// the owners call, is not overridden and gives a plain `CKrObject` without a value.

/// A text as an object.
///
///     CKrStringObject text(OLESTR("wall"));
///     text.Clone()->GetValue()                                            -> "wall"
///     static_cast<CKrObject &>(text).Clone()->IsA() == CKrObject::Cls()   -> true
class KRCORE_API CKrStringObject : public CKrObject
{
public:
    explicit CKrStringObject(CString const & value);
    CKrStringObject(CKrStringObject const & other);
    ~CKrStringObject() override;
    CKrStringObject & operator=(CKrStringObject const & other);

    CKrClass * IsA() const override;
    using CKrObject::Clone;
    /// A new object with a copy of the value, owned by the caller.
    CKrStringObject * Clone();

    CString const & GetValue() const;
    void SetValue(CString const & value);

    static CKrClass * Cls();
    /// The object if it is of this class by its built-in type, otherwise null.
    static CKrStringObject const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;

private:
    CString m_strValue;
};

/// A list of texts as an object.
class KRCORE_API CKrStringListObject : public CKrObject
{
public:
    explicit CKrStringListObject(std::vector<CString> const & value);
    CKrStringListObject(CKrStringListObject const & other);
    ~CKrStringListObject() override;
    CKrStringListObject & operator=(CKrStringListObject const & other);

    CKrClass * IsA() const override;
    using CKrObject::Clone;
    /// A new object with a copy of the value, owned by the caller.
    CKrStringListObject * Clone();

    std::vector<CString> const & GetValue() const;
    /// When memory runs out (`std::bad_alloc`) the old value stays.
    void SetValue(std::vector<CString> const & value);

    static CKrClass * Cls();
    /// The object if it is of this class by its built-in type, otherwise null.
    static CKrStringListObject const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;

private:
    std::vector<CString> m_value;
};

/// A typed value as an object.
class KRCORE_API CKrVariantObject : public CKrObject
{
public:
    explicit CKrVariantObject(CKrVariant const & value);
    CKrVariantObject(CKrVariantObject const & other);
    ~CKrVariantObject() override;
    CKrVariantObject & operator=(CKrVariantObject const & other);

    CKrClass * IsA() const override;
    using CKrObject::Clone;
    /// A new object with a deep copy of the value, owned by the caller.
    CKrVariantObject * Clone();

    CKrVariant const & GetValue() const;
    void SetValue(CKrVariant const & value);

    static CKrClass * Cls();
    /// The object if it is of this class by its built-in type, otherwise null.
    static CKrVariantObject const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;

private:
    CKrVariant m_value;
};
