// The members of CStringT stand in one file a theme; here they are made for both kinds of units.
#include <krplatform/base/cexception.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>
#include <krplatform/text/format.h>
#include <krplatform/text/textmemory.h>
#include <krplatform/text/textsearch.h>
#include <krplatform/text/textsources.h>
#include <krplatform/text/textunits.h>

#include <algorithm>
#include <limits>
#include <new>

#include "krplatform/text/cstring_compare.inl"
#include "krplatform/text/cstring_convert.inl"
#include "krplatform/text/cstring_edit.inl"
#include "krplatform/text/cstring_format.inl"
#include "krplatform/text/cstring_search.inl"
#include "krplatform/text/cstring_storage.inl"
#include "krplatform/text/cstring_trim.inl"

template class CStringT<WCHAR>;
template class CStringT<char>;
