// The types of properties, for targets that choose one.
#pragma once

#include "fuzz/fuzz_input.h"

#include <krcore/property/krproperty.h>

#include <iterator>

namespace kr::fuzz
{

inline CKrProperty::EPropType TypeOf(FuzzInput & input)
{
    constexpr CKrProperty::EPropType types[] = {
        CKrProperty::ePropString,   CKrProperty::ePropDouble, CKrProperty::ePropInt,  CKrProperty::ePropBool,
        CKrProperty::ePropDateTime, CKrProperty::ePropDate,   CKrProperty::ePropTime, CKrProperty::ePropColor,
        CKrProperty::ePropFile,     CKrProperty::ePropDir};
    return types[input.Below(static_cast<unsigned>(std::size(types)))];
}

} // namespace kr::fuzz
