// Visitors, editing of several sets as one, moving of client data, default values.
#pragma once

#include <krcore/property/krpropertydatamapper.h>
#include <krcore/property/krpropertyvalueformatter.h>
#include <krcore/property/krpropmultiedithelper.h>
#include <krcore/property/krsimultaneouspropertyvisitor.h>
#include <krcore/property/krvisitor.h>
