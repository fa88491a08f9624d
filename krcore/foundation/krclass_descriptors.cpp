// Makes the descriptors of all classes, in their order, when the library is loaded.
#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krowner.h>
#include <krcore/property/krevent.h>
#include <krcore/property/krproperty.h>

namespace
{

constexpr unsigned int descriptorVersion = 1;

struct Descriptor
{
    std::unique_ptr<CKrClass> & holder; ///< null from the start of the process, before any code runs
    WCHAR const * name;
};

// clang-format off
Descriptor const s_descriptors[] = {            // made from top to bottom; a new class gets its row above the last one
    { CKrClass::s_pCls,            OLESTR("CKrClass")            },
    { CKrEventHandler::s_pCls,     OLESTR("CKrEventHandler")     },
    { CKrStringObject::s_pCls,     OLESTR("CKrStringObject")     },
    { CKrStringListObject::s_pCls, OLESTR("CKrStringListObject") },
    { CKrVariantObject::s_pCls,    OLESTR("CKrVariantObject")    },
    { CKrListOwnerObject::s_pCls,  OLESTR("CKrListOwnerObject")  },
    { CKrMapOwnerObject::s_pCls,   OLESTR("CKrMapOwnerObject")   },
    { CKrProperty::s_pCls,         OLESTR("CKrProperty")         },
    { CKrObject::s_pCls,           OLESTR("CKrObject")           },
};
// clang-format on

/// Each descriptor is made with the descriptor of `CKrObject` as it is at that moment for its base. Deliberate: that
/// one is made last and is null until then, so no descriptor has a base, the root least of all.
bool MakeDescriptors()
{
    for (Descriptor const & row : s_descriptors)
        row.holder = std::make_unique<CKrClass>(row.name, descriptorVersion, CKrObject::Cls());
    return true;
}

[[maybe_unused]] bool const s_descriptorsMade = MakeDescriptors();

} // namespace
