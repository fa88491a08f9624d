// Lists of points and vectors.
#pragma once

#include <krgeom/krgeom.h>

#include <vector>

/// A list of points; a standard vector that may be destroyed through a pointer to it.
class CKrPoint3List : public std::vector<CKrPoint3>
{
public:
    using std::vector<CKrPoint3>::vector;
    CKrPoint3List() = default;
    CKrPoint3List(CKrPoint3List const &) = default;
    CKrPoint3List(CKrPoint3List &&) noexcept = default;
    CKrPoint3List & operator=(CKrPoint3List const &) = default;
    CKrPoint3List & operator=(CKrPoint3List &&) noexcept = default;
    virtual ~CKrPoint3List() = default;
};

/// The same of vectors.
class CKrVector3List : public std::vector<CKrVector3>
{
public:
    using std::vector<CKrVector3>::vector;
    CKrVector3List() = default;
    CKrVector3List(CKrVector3List const &) = default;
    CKrVector3List(CKrVector3List &&) noexcept = default;
    CKrVector3List & operator=(CKrVector3List const &) = default;
    CKrVector3List & operator=(CKrVector3List &&) noexcept = default;
    virtual ~CKrVector3List() = default;
};
