// The root of the classes that have a class descriptor.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

#include <memory>

class CKrClass;

/// Root of the classes that take part in the library's own type system: every object can be asked for the descriptor of
/// its class. A class that takes part has a static `s_pCls`, `Cls`, `Cast` and its own `IsA`.
///
///     CKrStringObject const text(OLESTR("wall"));
///     text.IsA() == CKrStringObject::Cls()          -> true
///     text.ClsName()                                -> "CKrStringObject"
///     CKrStringObject::Cast(&text)                  -> &text: the built-in type decides
///     text.IsKindOf(CKrObject::Cls())               -> false: descriptors have no base, see `CKrClass`
class KRCORE_API CKrObject
{
public:
    virtual ~CKrObject();
    /// The descriptor of the object's class; it lives as long as the process.
    virtual CKrClass * IsA() const;
    /// The name of the object's class. `IsA` must not be null.
    virtual CString const & ClsName() const;
    /// A new object, owned by the caller. Deliberate: a plain `CKrObject`, whatever class this object has, unless the
    /// class overrides it. Throws `std::bad_alloc` when memory runs out.
    virtual CKrObject * Clone() const;

    /// Does nothing: there is no data.
    CKrObject & operator=(CKrObject const & other);

    /// Whether `IsA()` is null or derived from `cls` by its base links.
    bool IsKindOf(CKrClass const * cls) const;

    static CKrClass * Cls();
    /// The object if its `IsA()` is null or derived from `Cls()`; otherwise null, as for a null `object`. Deliberate:
    /// this asks the descriptors and not the built-in type, so it refuses objects of every class that has a descriptor
    /// of its own.
    static CKrObject * Cast(CKrObject const * object);

    /// Owns the descriptor.
    static std::unique_ptr<CKrClass> s_pCls;

protected:
    CKrObject();
    CKrObject(CKrObject const & other);
};
