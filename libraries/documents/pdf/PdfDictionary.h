#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <string>

namespace documents {

// Returns the value of a key, or null if there is none or `object` isn't a dictionary. In the
// latter case the library's own getKey would record a warning, but many sound files have a name
// there.
inline QPDFObjectHandle GetKeyOrNull(QPDFObjectHandle object, const std::string& key)
{
    return object.isDictionary() ? object.getKey(key) : QPDFObjectHandle::newNull();
}

}  // namespace documents
