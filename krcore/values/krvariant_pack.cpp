// Construction of the composite kinds: each is packed into an automation array with lower bounds of 0.
#include <krcore/values/krvariant.h>

#include <krplatform/automation/safearray.h>
#include <krplatform/text/bstr.h>

#include <algorithm>

namespace
{

// A new array in `value`, of zeroed elements; what is built later is freed with it.
SAFEARRAY * MakeArray(VARIANT & value, VARTYPE element, UINT dimensions, SAFEARRAYBOUND const * bounds)
{
    value.parray = SafeArrayCreate(element, dimensions, bounds);
    if (!value.parray)
        AfxThrowMemoryException();
    value.vt = static_cast<VARTYPE>(VT_ARRAY | element);
    return value.parray;
}

template <class Element>
Element * MakeVector(VARIANT & value, VARTYPE element, std::size_t count)
{
    if (count > static_cast<std::size_t>(INT32_MAX))
        AfxThrowMemoryException(); // GCOVR_EXCL_LINE: so many elements take 8 GB
    SAFEARRAYBOUND const bound = {static_cast<ULONG>(count), 0};
    return static_cast<Element *>(MakeArray(value, element, 1, &bound)->pvData);
}

template <class Coordinates>
void PackCoordinates(VARIANT & value, Coordinates const & coordinates)
{
    double * const numbers = MakeVector<double>(value, VT_R8, 3);
    for (unsigned int index = 0; index < 3; ++index)
        numbers[index] = coordinates[index];
}

SAFEARRAY * MakeMatrix(VARIANT & value, VARTYPE element, int rows, int columns)
{
    SAFEARRAYBOUND const bounds[] = {{static_cast<ULONG>(rows), 0}, {static_cast<ULONG>(columns), 0}};
    return MakeArray(value, element, 2, bounds);
}

// Stores a copy of each cell; `addressOf` gives what the platform wants for an element of that kind.
template <class T, class AddressOf>
void PackCells(SAFEARRAY * array, kr::matrix<T> const & values, AddressOf addressOf)
{
    for (int row = 0; row < values.GetRows(); ++row)
    {
        for (int column = 0; column < values.GetColumns(); ++column)
        {
            LONG const indices[] = {row, column};
            HRESULT const result = SafeArrayPutElement(array, indices, addressOf(values.At(row, column)));
            if (FAILED(result))
                AtlThrow(result);
        }
    }
}

} // namespace

CKrVariant::CKrVariant(std::vector<CString> const & values) : m_type(eStringVector)
{
    BSTR * const texts = MakeVector<BSTR>(*this, VT_BSTR, values.size());
    for (std::size_t index = 0; index < values.size(); ++index)
        texts[index] = values[index].AllocSysString();
}

CKrVariant::CKrVariant(std::vector<double> const & values) : m_type(eDoubleVector)
{
    std::copy(values.begin(), values.end(), MakeVector<double>(*this, VT_R8, values.size()));
}

CKrVariant::CKrVariant(std::vector<long> const & values) : m_type(eLongVector)
{
    std::transform(values.begin(), values.end(), MakeVector<LONG>(*this, VT_I4, values.size()),
                   [](long value) { return static_cast<LONG>(value); });
}

CKrVariant::CKrVariant(std::vector<IDispatch *> const & objects) : m_type(eDispatchVector)
{
    IDispatch ** const references = MakeVector<IDispatch *>(*this, VT_DISPATCH, objects.size());
    for (std::size_t index = 0; index < objects.size(); ++index)
    {
        if (objects[index])
            objects[index]->AddRef();
        references[index] = objects[index];
    }
}

CKrVariant::CKrVariant(std::vector<VARIANT> const & values) : m_type(eVariantVector)
{
    std::copy(values.begin(), values.end(), MakeVector<VARIANT>(*this, VT_VARIANT, values.size()));
}

CKrVariant::CKrVariant(kr::matrix<CKrVariant> const & values) : m_type(eVariantMatrix)
{
    PackCells(MakeMatrix(*this, VT_VARIANT, values.GetRows(), values.GetColumns()), values,
              [](CKrVariant const & cell) { return static_cast<VARIANT const *>(&cell); });
}

CKrVariant::CKrVariant(kr::matrix<CString> const & values) : m_type(eVariantMatrix)
{
    SAFEARRAY * const array = MakeMatrix(*this, VT_BSTR, values.GetRows(), values.GetColumns());
    for (int column = 0; column < values.GetColumns(); ++column)
    {
        for (int row = 0; row < values.GetRows(); ++row)
        {
            LONG const indices[] = {row, column};
            void * place = nullptr;
            SafeArrayPtrOfIndex(array, indices, &place); // each lies in the array that was just made
            *static_cast<BSTR *>(place) = values.At(row, column).AllocSysString();
        }
    }
}

CKrVariant::CKrVariant(CKrPoint3 const & point) : m_type(ePoint3) { PackCoordinates(*this, point); }

CKrVariant::CKrVariant(CKrVector3 const & vector) : m_type(eVector3) { PackCoordinates(*this, vector); }

CKrVariant::CKrVariant(CKrPoint3List const & points) : m_type(ePoint3List)
{
    VARIANT * const elements = MakeVector<VARIANT>(*this, VT_VARIANT, points.size());
    for (std::size_t index = 0; index < points.size(); ++index)
        PackCoordinates(elements[index], points[index]);
}

CKrVariant::CKrVariant(CKrVector3List const & vectors) : m_type(eVector3List)
{
    MakeVector<VARIANT>(*this, VT_VARIANT, vectors.size());
}
