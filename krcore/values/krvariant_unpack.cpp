// Reading the composite kinds out of automation arrays.
#include <krcore/values/krvariant.h>

#include <krplatform/automation/safearray.h>
#include <krplatform/text/bstr.h>

#include <algorithm>
#include <span>
#include <utility>

namespace
{

void ThrowIfFailed(HRESULT result)
{
    if (FAILED(result))
        AtlThrow(result);
}

// The array of a value; raises the platform's failure where there is none of that element type.
class ArrayView
{
public:
    ArrayView(VARIANT const & value, VARTYPE element) : m_array(value.parray)
    {
        if (value.vt != (VT_ARRAY | element) || !m_array)
            AtlThrow(DISP_E_TYPEMISMATCH);
    }

    // The elements of the only dimension.
    template <class Element>
    std::span<Element const> GetElements() const
    {
        if (m_array->cDims != 1)
            AtlThrow(E_INVALIDARG);
        return {static_cast<Element const *>(m_array->pvData), m_array->rgsabound[0].cElements};
    }

    // Hands each element of the two dimensions to `read`, with its row and column counted from 0.
    template <class Element, class Resize, class Read>
    void ReadMatrix(Resize resize, Read read) const
    {
        LONG lower[2], upper[2];
        for (UINT dimension = 0; dimension < 2; ++dimension)
        {
            ThrowIfFailed(SafeArrayGetLBound(m_array, dimension + 1, &lower[dimension]));
            ThrowIfFailed(SafeArrayGetUBound(m_array, dimension + 1, &upper[dimension]));
        }
        if (m_array->cDims != 2)
            AtlThrow(DISP_E_BADINDEX);
        int const rows = upper[0] - lower[0] + 1;
        int const columns = upper[1] - lower[1] + 1;
        resize(rows, columns);
        Element const * element = static_cast<Element const *>(m_array->pvData);
        for (int column = 0; column < columns; ++column)
        {
            for (int row = 0; row < rows; ++row)
                read(row, column, *element++);
        }
    }

private:
    SAFEARRAY const * m_array;
};

CString TextOf(BSTR text) { return CString(text, static_cast<int>(SysStringLen(text))); }

template <class Coordinates>
Coordinates ReadCoordinates(VARIANT const & value)
{
    ArrayView const array(value, VT_R8);
    auto const numbers = array.GetElements<double>();
    if (numbers.size() < 3)
        AtlThrow(DISP_E_BADINDEX);
    return Coordinates(numbers[0], numbers[1], numbers[2]);
}

template <class List>
List ReadCoordinatesList(VARIANT const & value)
{
    ArrayView const array(value, VT_VARIANT);
    List list;
    for (VARIANT const & element : array.GetElements<VARIANT>())
        list.push_back(ReadCoordinates<typename List::value_type>(element));
    return list;
}

template <class Result>
Result Read(CKrVariant const & value)
{
    Result result;
    value.GetValue(result);
    return result;
}

} // namespace

bool CKrVariant::GetValue(std::vector<CString> & values) const
{
    ArrayView const array(*this, VT_BSTR);
    auto const texts = array.GetElements<BSTR>();
    std::vector<CString> read(texts.size());
    std::transform(texts.begin(), texts.end(), read.begin(), TextOf);
    values = std::move(read);
    return true;
}

bool CKrVariant::GetValue(std::vector<double> & values) const
{
    ArrayView const array(*this, VT_R8);
    auto const numbers = array.GetElements<double>();
    values.assign(numbers.begin(), numbers.end());
    return true;
}

bool CKrVariant::GetValue(std::vector<long> & values) const
{
    ArrayView const array(*this, VT_I4);
    auto const numbers = array.GetElements<LONG>();
    values.assign(numbers.begin(), numbers.end());
    return true;
}

bool CKrVariant::GetValue(std::vector<VARIANT> & values) const
{
    ArrayView const array(*this, VT_VARIANT);
    auto const elements = array.GetElements<VARIANT>();
    std::vector<COleVariant> copies(elements.begin(), elements.end());
    std::vector<VARIANT> read(copies.size());
    std::transform(copies.begin(), copies.end(), read.begin(), [](COleVariant & copy) { return copy.Detach(); });
    values = std::move(read);
    return true;
}

bool CKrVariant::GetValue(kr::matrix<CString> & values) const
{
    ArrayView const array(*this, VT_BSTR);
    kr::matrix<CString> read;
    array.ReadMatrix<BSTR>([&](int rows, int columns) { read.Resize(rows, columns); },
                           [&](int row, int column, BSTR text) { read.At(row, column) = TextOf(text); });
    values = std::move(read);
    return true;
}

bool CKrVariant::GetValue(kr::matrix<CKrVariant> & values) const
{
    ArrayView const array(*this, VT_VARIANT);
    kr::matrix<CKrVariant> read;
    array.ReadMatrix<VARIANT>([&](int rows, int columns) { read.Resize(rows, columns); },
                              [&](int row, int column, VARIANT const & element)
                              {
                                  COleVariant copy(element);
                                  read.At(row, column).AttachFrom(static_cast<VARIANT &>(copy));
                              });
    values = std::move(read);
    return true;
}

bool CKrVariant::GetValue(CKrPoint3 & point) const
{
    point = ReadCoordinates<CKrPoint3>(*this);
    return true;
}

bool CKrVariant::GetValue(CKrVector3 & vector) const
{
    vector = ReadCoordinates<CKrVector3>(*this);
    return true;
}

bool CKrVariant::GetValue(CKrPoint3List & points) const
{
    points = ReadCoordinatesList<CKrPoint3List>(*this);
    return true;
}

bool CKrVariant::GetValue(CKrVector3List & vectors) const
{
    vectors = ReadCoordinatesList<CKrVector3List>(*this);
    return true;
}

CKrVariant::operator std::vector<IDispatch *>() const
{
    ArrayView const array(*this, VT_DISPATCH);
    auto const objects = array.GetElements<IDispatch *>();
    return {objects.begin(), objects.end()};
}

CKrVariant::operator std::vector<CString>() const { return Read<std::vector<CString>>(*this); }
CKrVariant::operator std::vector<double>() const { return Read<std::vector<double>>(*this); }
CKrVariant::operator std::vector<long>() const { return Read<std::vector<long>>(*this); }
CKrVariant::operator std::vector<VARIANT>() const { return Read<std::vector<VARIANT>>(*this); }
CKrVariant::operator kr::matrix<CString>() const { return Read<kr::matrix<CString>>(*this); }
CKrVariant::operator kr::matrix<CKrVariant>() const { return Read<kr::matrix<CKrVariant>>(*this); }
CKrVariant::operator CKrPoint3() const { return Read<CKrPoint3>(*this); }
CKrVariant::operator CKrVector3() const { return Read<CKrVector3>(*this); }
CKrVariant::operator CKrPoint3List() const { return Read<CKrPoint3List>(*this); }
CKrVariant::operator CKrVector3List() const { return Read<CKrVector3List>(*this); }

std::vector<CString> CKrVariant::GetStringVector() const { return Read<std::vector<CString>>(*this); }
std::vector<double> CKrVariant::GetDoubleVector() const { return Read<std::vector<double>>(*this); }
std::vector<long> CKrVariant::GetLongVector() const { return Read<std::vector<long>>(*this); }
std::vector<VARIANT> CKrVariant::GetVARIANTVector() const { return Read<std::vector<VARIANT>>(*this); }
kr::matrix<CString> CKrVariant::GetStringMatrix() const { return Read<kr::matrix<CString>>(*this); }
kr::matrix<CKrVariant> CKrVariant::GetVariantMatrix() const { return Read<kr::matrix<CKrVariant>>(*this); }
CKrPoint3 CKrVariant::GetPoint3() const { return Read<CKrPoint3>(*this); }
CKrVector3 CKrVariant::GetVector3() const { return Read<CKrVector3>(*this); }
CKrPoint3List CKrVariant::GetPoint3List() const { return Read<CKrPoint3List>(*this); }
CKrVector3List CKrVariant::GetVector3List() const { return Read<CKrVector3List>(*this); }
